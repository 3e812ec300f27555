#pragma once

#include <algorithm>
#include <climits>
#include <string>

#include "tavrone/core/Conversion.h"
#include "tests/Text.h"

namespace tavrone {

// Text that ends where its memory ends, so that a read beyond it is noticed.
struct UnownedText : tvstring {
  explicit UnownedText(std::string const &text) : tvstring(text.data(), text.size(), nullptr, false) {}
};

// What a step of a walk gave: "tag=value", the text of its failure, or nothing at the end; then the position.
template <class Tokenizer, class Step>
std::string shownStep(Tokenizer &tokens, Step const &step) {
  std::string shown;
  typename Tokenizer::TagValuePair pair;
  try {
    if (step(pair)) shown = std::to_string(pair.tag) + '=' + str(pair.value);
  } catch (TransformException const &failure) {
    shown = str(failure.getMessage());
  }
  return shown + '@' + std::to_string(tokens.getCurrentIndex());
}

// The rules of the walk, byte by byte.
struct TagValueReference {
  std::string next() {
    if (at == text.size()) return shown("");
    size_t const end = std::min(text.find(delimiter, at), text.size() - 1);
    std::string const token = text.substr(at, end - at);
    at = end + 1;
    return field(token);
  }

  std::string nextData(int length) {
    if (at == text.size()) return shown("");
    size_t const equals = text.find('=', at);
    size_t const from = equals == std::string::npos ? text.size() : equals + 1;
    size_t const start = at;
    size_t const end = from + static_cast<size_t>(std::max(length, 0));
    if (length >= 0 && end <= INT_MAX) at = from;
    if (length < 0 || end >= text.size()) return shown("Unexpected end of input while looking for data");
    if (text[end] != delimiter)
      return shown(
          "Blob type tag value pair has incorrect data length, character after the specified length is not the SOH "
          "character");
    at = end + 1;
    return field(text.substr(start, end - start));
  }

  std::string field(std::string const &token) const {
    size_t const equals = token.find('=');
    if (equals == std::string::npos)
      return shown("'Name or value' can't be empty. Unable to parse tag=value of form " + token);
    try {
      return shown(std::to_string(t_atoi(token.data(), token.data() + equals)) + token.substr(equals));
    } catch (TransformException const &failure) {
      return shown(str(failure.getMessage()));
    }
  }
  std::string shown(std::string const &step) const { return step + '@' + std::to_string(at); }

  std::string text;
  char delimiter;
  size_t at = 0;
};

}  // namespace tavrone
