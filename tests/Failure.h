#pragma once

#include <string>
#include <typeinfo>

#include "tavrone/core/Exceptions.h"

namespace tavrone {

// What a call raised; all empty when it raised nothing.
struct Failure {
  std::string text{};
  std::string source{};
  int line = 0;
};

// Runs the call, which is to raise exactly an E; a failure of another class shows that class's name as its text.
template <class E, class Call>
Failure failureOf(Call const &call) {
  auto const text = [](tvstring const &value) { return std::string(value.data(), value.length()); };
  try {
    call();
  } catch (Exception const &e) {
    if (typeid(e) != typeid(E)) return {typeid(e).name()};
    return {text(e.getMessage()), text(e.getTrace().getFileName()), e.getTrace().getLine()};
  }
  return {};
}

}  // namespace tavrone
