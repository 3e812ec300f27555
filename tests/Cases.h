#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <sstream>
#include <string>

namespace tavrone {

// The values' texts, parted by blanks.
template <class... Values>
std::string words(Values const &...values) {
  std::ostringstream out;
  ((out << values << ' '), ...);
  return out.str().substr(0, out.str().size() - 1);
}

// Checks cases of the form "input -> output"; the function reads the input from a stream.
template <class Function>
void expectEach(std::initializer_list<std::string> cases, Function const &function) {
  for (std::string const &c : cases) {
    std::istringstream input(c.substr(0, c.find(" -> ")));
    EXPECT_EQ(input.str() + " -> " + function(input), c);
  }
}

}  // namespace tavrone
