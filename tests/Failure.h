#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>
#include <typeinfo>

#include "tavrone/core/Exceptions.h"
#include "tests/Text.h"

namespace tavrone {

// What a call raised; all empty when it raised nothing. Equal to its text, and to its form in a trace:
// "cpp/Source:12:text".
struct Failure {
  std::string text{};
  std::string source{};
  int line = 0;

  std::string shown() const { return source.empty() ? text : source + ':' + std::to_string(line) + ':' + text; }
  friend bool operator==(Failure const &failure, std::string_view shown) {
    return failure.text == shown || failure.shown() == shown;
  }
  friend std::ostream &operator<<(std::ostream &out, Failure const &failure) { return out << failure.shown(); }
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

// The call raises exactly an E that is equal to the text; nothing for the empty text.
#define EXPECT_FAILURE(E, call, expected) EXPECT_EQ(failureOf<E>([&] { call; }), expected)

}  // namespace tavrone
