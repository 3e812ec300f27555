#pragma once

#include <cstring>
#include <memory>
#include <string>

#include "tavrone/core/DateStr.h"
#include "tavrone/core/Exceptions.h"
#include "tests/Text.h"

namespace tavrone {

// The patterns with shortcuts.
inline constexpr char const *COMMON_PATTERNS[] = {
    "yyyyMMdd",     "yyyyMMdd-HH:mm:ss", "yyyyMMdd-HH:mm:ss.SSS", "HH:mm:ss",
    "HH:mm:ss.SSS", "yyyy-MM-dd",        "yyyy-MM-ddTHH:mm:ss",   "yyyy-MM-ddTHH:mm:ss.SSS"};

// What a run of a pattern machine made of a time and of some bytes, or its failure.
template <class Run>
std::string outcomeOf(Run run, BrokenDownTime time = {1, 2, 3, 4, 5, 6, 7}) {
  std::string result;
  try {
    result = run(time);
  } catch (TransformRuntimeException const &failure) {
    result = "!" + str(failure.getMessage());
  }
  for (int member : {time.millisecond, time.second, time.minute, time.hour, time.dayOfMonth, time.month, time.year})
    result += ' ' + std::to_string(member);
  return result;
}

// Whether the shortcuts of the common patterns read the text and write the time as the machine for any pattern does.
inline bool shortcutsChangeNothing(std::string const &text, std::string const &pattern, BrokenDownTime const &time,
                                   size_t size) {
  // Exact copies on the heap, so that a sanitizer notices a byte read or written past the end.
  auto const exact = [](std::string const &bytes) {
    std::unique_ptr<char[]> copy(new char[bytes.size()]);
    std::memcpy(copy.get(), bytes.data(), bytes.size());
    return copy;
  };
  auto const exactText = exact(text), exactPattern = exact(pattern);
  auto const reading = [&](auto parse) {
    return outcomeOf([&](BrokenDownTime &read) {
      parse(exactText.get(), text.size(), exactPattern.get(), pattern.size(), read);
      return std::string();
    });
  };
  auto const writing = [&](auto format) {
    return outcomeOf(
        [&](BrokenDownTime &written) {
          auto const out = exact(std::string(size, '#'));
          size_t const length = format(out.get(), size, exactPattern.get(), pattern.size(), written);
          return std::string(out.get(), length == 0 ? 0 : length + 1);
        },
        time);
  };
  return reading(DateStr::parse) == reading(DateStr::parseAnyPattern) &&
         writing(DateStr::format) == writing(DateStr::formatAnyPattern);
}

}  // namespace tavrone
