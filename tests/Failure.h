#pragma once

#include <string>
#include <typeinfo>

#include "tavrone/core/Exceptions.h"
#include "tests/Text.h"

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
  try {
    call();
  } catch (Exception const &e) {
    if (typeid(e) != typeid(E)) return {typeid(e).name()};
    return {str(e.getMessage()), str(e.getTrace().getFileName()), e.getTrace().getLine()};
  }
  return {};
}

}  // namespace tavrone
