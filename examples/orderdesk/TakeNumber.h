#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>

namespace examples {

// Takes a word and the number behind it from the front of the text; false where they do not stand there.
inline bool takeNumber(std::string_view &text, std::string_view word, size_t &number) {
  if (!text.starts_with(word)) return false;
  text.remove_prefix(word.size());
  auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<size_t>(end - text.data()));
  return error == std::errc();
}

}  // namespace examples
