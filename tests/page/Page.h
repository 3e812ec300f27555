#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>

#include "tavrone/tavrone.h"
#include "tests/Text.h"

// What the sources that page_tests.cmake makes of pages stand on: how a page shows results.

namespace tavrone::page {

inline std::string shown(bool value) {
  return value ? "true" : "false";
}
inline std::string shown(char value) {
  return std::string(1, value);
}
template <std::integral Number>
std::string shown(Number value) {
  return std::to_string(value);
}
inline std::string shown(double value) {
  return str(doubleToString(value));
}
inline std::string shown(float value) {
  return str(floatToString(value));
}
inline std::string shown(char const *text) {
  return text;
}
inline std::string shown(tvstring const &text) {
  return str(text);
}
inline std::string shown(Binary const &bytes) {
  return str(bytes.toHexString());
}
template <std::derived_from<MAPM> Number>
std::string shown(Number const &number) {
  return str(number.toString());
}
inline std::string shown(DateTime const &value) {
  return str(value.toString("yyyy-MM-ddTHH:mm:ss.SSS"));
}
inline std::string shown(ISODateTime const &value) {
  int const offset = value.getTimeZoneOffset();
  return shown(static_cast<DateTime const &>(value)) + (offset < 0 ? "" : "+") + std::to_string(offset);
}
inline std::string shown(Object const &value) {
  return str(value.toString());
}
inline std::string shown(Object const *value) {
  return value == nullptr ? "null" : shown(*value);
}

// Borrows what gives a row's result. Hundreds of rows compile sooner than with std::function.
class Result {
 public:
  template <class Call>
  Result(Call const &call) : call_(&call), run_([](void const *own) { return (*static_cast<Call const *>(own))(); }) {}
  std::string operator()() const { return run_(call_); }

 private:
  void const *call_;
  std::string (*run_)(void const *);
};

// A row of a page at this line, with the formula as it stands there.
inline void expectRow(char const *page, int line, char const *formula, char const *expected, Result const &result) {
  std::string text;
  try {
    text = result();
    text = text.empty() ? "empty" : '`' + text + '`';
  } catch (Exception const &failure) {
    text = "fails: `" + str(failure.getMessage()) + '`';
  } catch (std::exception const &failure) {
    text = std::string("fails: `") + failure.what() + '`';
  }
  if (text != expected) ADD_FAILURE_AT(page, line) << formula << "\n  gives " << text << "\n  not   " << expected;
}

}  // namespace tavrone::page
