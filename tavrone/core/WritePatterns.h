#pragma once

// Internal: how dates are written, by the patterns of DateStr.

namespace tavrone {

struct WritePatterns {
  char const *withMilliseconds;
  char const *withoutMilliseconds;

  // Milliseconds that are 0 are left out.
  constexpr char const *of(int milliseconds) const { return milliseconds > 0 ? withMilliseconds : withoutMilliseconds; }
};

inline constexpr WritePatterns WRITE_DATE_TIME = {"yyyy-MM-ddTHH:mm:ss.SSS", "yyyy-MM-ddTHH:mm:ss"};
inline constexpr WritePatterns WRITE_DATE = {"yyyy-MM-dd", "yyyy-MM-dd"};
inline constexpr WritePatterns WRITE_TIME = {"HH:mm:ss.SSS", "HH:mm:ss"};

}  // namespace tavrone
