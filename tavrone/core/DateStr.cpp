#include "tavrone/core/DateStr.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "tavrone/core/DateTime.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

namespace {

constexpr char const *SOURCE = "cpp/date/DateStr";
constexpr size_t SHORT_NAME = 3;
constexpr size_t SCRATCH_SIZE = 256;

// "00" to "59" and "1980" to "2029": the common values are copied, not computed.
constexpr unsigned TWO_DIGITS_END = 60;
constexpr int FIRST_YEAR = 1980;
constexpr unsigned YEARS = 50;

template <unsigned Count, size_t Width>
consteval std::array<char, Count * Width> numberTexts(unsigned first) {
  std::array<char, Count * Width> texts{};
  for (unsigned i = 0; i < Count; ++i) {
    unsigned rest = first + i;
    for (size_t k = Width; k > 0; --k, rest /= 10) texts[i * Width + k - 1] = static_cast<char>('0' + rest % 10);
  }
  return texts;
}

constexpr auto TWO_DIGITS = numberTexts<TWO_DIGITS_END, 2>(0);
constexpr auto YEAR_TEXTS = numberTexts<YEARS, 4>(FIRST_YEAR);

// The two digits of a value below 60.
char const *twoDigits(size_t value) {
  return &TWO_DIGITS[value * 2];
}

// The four digits of a year of the table, or null.
char const *yearText(int year) {
  unsigned const row = static_cast<unsigned>(year) - static_cast<unsigned>(FIRST_YEAR);
  return row < YEARS ? &YEAR_TEXTS[row * 4UL] : nullptr;
}

// A letter of digits only; year and month have rules of their own.
struct Field {
  char letter;
  size_t leastRun, mostRun;  // what the parser accepts; the formatter takes any run
  size_t width;
  int BrokenDownTime::*member;
  char const *name, *onlyPattern;  // for the failure's text
};

constexpr Field FIELDS[] = {
    {'d', 2, 2, 2, &BrokenDownTime::dayOfMonth, "date", "dd"},
    {'H', 2, 2, 2, &BrokenDownTime::hour, "hour", "HH"},
    {'m', 2, 2, 2, &BrokenDownTime::minute, "minute", "mm"},
    {'s', 2, 2, 2, &BrokenDownTime::second, "seconds", "ss"},
    {'S', 1, 3, 3, &BrokenDownTime::millisecond, "milli-seconds", "SSS"},
};

constexpr Field const *findField(char letter) {
  for (Field const &field : FIELDS) {
    if (field.letter == letter) return &field;
  }
  return nullptr;
}

constexpr size_t runLength(char const *pattern, size_t from, size_t length) {
  size_t end = from + 1;
  while (end < length && pattern[end] == pattern[from]) ++end;
  return end - from;
}

// The record's month runs from 0; the lowest and the highest int wrap into each other.
constexpr int monthNumber(BrokenDownTime const &time) {
  return static_cast<int>(static_cast<unsigned>(time.month) + 1u);
}

class Output {
 public:
  Output(char *out, size_t size) : out_(out), room_(size == 0 ? 0 : size - 1), terminated_(size != 0) {}

  void put(char const *text, size_t length) {
    size_t const n = std::min(length, room_ - length_);
    if (n != 0) std::memcpy(out_ + length_, text, n);
    length_ += n;
  }
  void fill(char c, size_t count) {
    size_t const n = std::min(count, room_ - length_);
    if (n != 0) std::memset(out_ + length_, c, n);
    length_ += n;
  }
  // Zero-padded to the width, the sign counted.
  void putNumber(long long value, size_t width) {
    char digits[24];
    char const *first = digits;
    char const *const last = std::to_chars(digits, digits + sizeof digits, value).ptr;
    size_t const length = static_cast<size_t>(last - first);
    if (value < 0) put(first++, 1);
    if (length < width) fill('0', width - length);
    put(first, static_cast<size_t>(last - first));
  }
  void putTwoDigits(long long value) {
    if (value >= 0 && value < TWO_DIGITS_END) {
      put(twoDigits(static_cast<size_t>(value)), 2);
    } else {
      putNumber(value, 2);
    }
  }
  size_t finish() {
    if (terminated_) out_[length_] = 0;
    return length_;
  }

 private:
  char *out_;
  size_t room_;  // without the terminator
  bool terminated_;
  size_t length_ = 0;
};

void putYear(Output &out, int year, size_t run) {
  long long const magnitude = year < 0 ? -static_cast<long long>(year) : year;
  if (run != 4) {
    out.putTwoDigits(magnitude % 100);
  } else if (char const *text = yearText(year)) {
    out.put(text, 4);
  } else {
    out.putNumber(magnitude, magnitude <= 9999 ? 4 : 5);
  }
}

void putMonth(Output &out, BrokenDownTime const &time, size_t run) {
  if (run < SHORT_NAME) return out.putTwoDigits(monthNumber(time));
  if (time.month < 0 || time.month > 11) {
    Date const date(time.year, monthNumber(time), time.dayOfMonth);
    raise<TransformRuntimeException>(tvstring("Illegal date ") + date.toString(), SOURCE);
  }
  std::string_view const name = DateStr::MONTH_NAMES[time.month];
  out.put(name.data(), run == SHORT_NAME ? SHORT_NAME : name.size());
}

constexpr char toLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

class Parser {
 public:
  Parser(char const *text, size_t length, char const *pattern, size_t patternLength)
      : text_(text), length_(length), pattern_(pattern), patternLength_(patternLength) {}

  void parse(BrokenDownTime &time) {
    for (size_t at = 0, run; at < patternLength_; at += run) {
      char const letter = pattern_[at];
      run = runLength(pattern_, at, patternLength_);
      if (letter == 'y') {
        time.year = readYear(run);
      } else if (letter == 'M') {
        time.month = readMonth(run);
      } else if (Field const *field = findField(letter)) {
        if (run < field->leastRun || run > field->mostRun) failPattern(*field);
        time.*field->member = readDigits(field->width);
      } else {
        for (size_t i = 0; i < run; ++i) readLiteral(letter);
      }
    }
    if (position_ < length_) failText("Additional characters at the end of date string, expected pattern '", rest());
  }

 private:
  // The position moves by the whole width, wherever the digits end: a short field shows up behind it.
  int readDigits(size_t width) {
    int value = 0;
    for (size_t i = position_; i < length_ && i < position_ + width; ++i) {
      if (text_[i] < '0' || text_[i] > '9') break;
      value = value * 10 + (text_[i] - '0');
    }
    position_ += width;
    return value;
  }

  int readYear(size_t run) {
    if (run == 1) failPattern("year", "At least 2 y's expected.");
    if (run == 3) failPattern("year", "Only patterns 'yy' and 'yyyy' are supported.");
    if (run > 3) return readDigits(4);
    int const year = readDigits(2);
    return year + (year >= 70 ? 1900 : 2000);
  }

  int readMonth(size_t run) {
    if (run == 1) failPattern("month", "At least 2 M's expected.");
    if (run == 2) return readDigits(2) - 1;
    for (int month = 0; month < 12; ++month) {
      std::string_view const fullName = DateStr::MONTH_NAMES[month];
      std::string_view const name = run == SHORT_NAME ? fullName.substr(0, SHORT_NAME) : fullName;
      if (startsWith(name)) {
        position_ += name.size();
        return month;
      }
    }
    failText("Error parsing month part of date string, expected pattern '", tvstring(text_, length_));
  }

  bool startsWith(std::string_view name) const {
    if (position_ >= length_ || length_ - position_ < name.size()) return false;
    auto const sameLetter = [](char a, char b) { return toLower(a) == toLower(b); };
    return std::equal(name.begin(), name.end(), text_ + position_, sameLetter);
  }

  void readLiteral(char expected) {
    if (position_ >= length_ || text_[position_] != expected) {
      failText("Error parsing date string, expected pattern '", rest());
    }
    ++position_;
  }

  tvstring rest() const { return position_ < length_ ? tvstring(text_ + position_, length_ - position_) : tvstring(); }

  [[noreturn]] void failPattern(Field const &field) const {
    failPattern(field.name, tvstring("Only pattern '") + field.onlyPattern + "' is supported.");
  }
  [[noreturn]] TAVRONE_COLD void failPattern(char const *name, tvstring const &rule) const {
    tvstring const pattern(pattern_, patternLength_);
    raise<TransformRuntimeException>(tvstring("Illegal ") + name + " pattern in '" + pattern + "'. " + rule, SOURCE);
  }
  [[noreturn]] TAVRONE_COLD void failText(char const *words, tvstring const &found) const {
    tvstring const pattern(pattern_, patternLength_);
    raise<TransformRuntimeException>(tvstring(words) + pattern + "' found '" + found + "'", SOURCE);
  }

  char const *text_;
  size_t length_;
  char const *pattern_;
  size_t patternLength_;
  size_t position_ = 0;  // may stand past the end
};

// The shortcuts: straight-line code made from a pattern at compile time, for values without a flaw; whatever is out of
// the ordinary is left to the general machine, failures included.

template <size_t Size>
struct FixedPattern {
  consteval FixedPattern(char const (&pattern)[Size]) { std::copy_n(pattern, Size, text); }

  static constexpr size_t length = Size - 1;

  bool equals(char const *pattern, size_t patternLength) const {
    return patternLength == length && std::memcmp(pattern, text, length) == 0;
  }

  char text[Size];
};

// Calls visit<letter, position, run>() for each run.
template <FixedPattern P, size_t At = 0, class Visitor>
void eachRun(Visitor const &visit) {
  if constexpr (At < P.length) {
    constexpr size_t run = runLength(P.text, At, P.length);
    visit.template operator()<P.text[At], At, run>();
    eachRun<P, At + run>(visit);
  }
}

// What eight bytes of a text must be, at an offset into a pattern: digits where the pattern has letters, and its
// literals.
struct EightBytes {
  uint64_t zeros = 0;      // '0' for a digit, the literal itself elsewhere
  uint64_t carries = 0;    // lifts what is above 9 out of a digit's four bits
  uint64_t forbidden = 0;  // bits that are none in a good text, once the zeros are taken off

  template <FixedPattern P>
  static consteval EightBytes at(size_t offset) {
    EightBytes bytes;
    for (size_t i = 0; i < 8; ++i) {
      char const c = P.text[offset + i];
      bool const digit = c == 'y' || c == 'M' || findField(c) != nullptr;
      bytes.zeros |= static_cast<uint64_t>(digit ? '0' : c) << (8 * i);
      bytes.carries |= static_cast<uint64_t>(digit ? 0x06 : 0x00) << (8 * i);
      bytes.forbidden |= static_cast<uint64_t>(digit ? 0xF0 : 0xFF) << (8 * i);
    }
    return bytes;
  }

  // Nonzero for a text that is not so. A carry out of a byte comes only from a bad one.
  uint64_t flaws(char const *text) const {
    uint64_t value;
    std::memcpy(&value, text, sizeof value);  // the first byte is the lowest: x86-64
    value ^= zeros;
    return ((value + carries) | value) & forbidden;
  }
};

// Whether the text has all the digits and literals of the pattern, from an offset on; the last eight bytes may overlap.
template <FixedPattern P, size_t Offset = 0>
bool isFlawless(char const *text) {
  static_assert(P.length >= 8);
  constexpr size_t last = P.length - 8;
  constexpr EightBytes expected = EightBytes::at<P>(Offset);
  if constexpr (Offset == last) {
    return expected.flaws(text + Offset) == 0;
  } else {
    return expected.flaws(text + Offset) == 0 && isFlawless<P, std::min(Offset + 8, last)>(text);
  }
}

template <size_t Width>
int readDigits(char const *text) {
  int const last = text[Width - 1] - '0';
  if constexpr (Width == 1) {
    return last;
  } else {
    return readDigits<Width - 1>(text) * 10 + last;
  }
}

// False, with nothing read, unless each field has all of its digits and each literal is there.
template <FixedPattern P>
bool readFixed(char const *text, size_t length, BrokenDownTime &time) {
  if (length != P.length || !isFlawless<P>(text)) return false;
  eachRun<P>([&]<char Letter, size_t At, size_t Run>() {
    if constexpr (Letter == 'y') {
      time.year = readDigits<Run>(text + At);
    } else if constexpr (Letter == 'M') {
      time.month = readDigits<Run>(text + At) - 1;
    } else if constexpr (constexpr Field const *field = findField(Letter); field != nullptr) {
      time.*field->member = readDigits<Run>(text + At);
    }
  });
  return true;
}

constexpr bool isBelow(int value, unsigned end) {
  return static_cast<unsigned>(value) < end;
}

void writeTwoDigits(char *out, int value) {
  std::memcpy(out, &TWO_DIGITS[static_cast<size_t>(value) * 2], 2);
}

void writeYear(char *out, int year) {
  if (char const *text = yearText(year)) {
    std::memcpy(out, text, 4);
  } else {
    for (size_t k = 4; k > 0; --k, year /= 10) out[k - 1] = static_cast<char>('0' + year % 10);
  }
}

void writeMilliseconds(char *out, unsigned value) {
  out[0] = static_cast<char>('0' + value / 100);
  out[1] = static_cast<char>('0' + value / 10 % 10);
  out[2] = static_cast<char>('0' + value % 10);
}

// False, with nothing written, unless the text and its terminator fit and each value has its usual range.
template <FixedPattern P>
bool writeFixed(char *out, size_t size, BrokenDownTime const &time) {
  bool usual = size > P.length;
  eachRun<P>([&]<char Letter, size_t At, size_t Run>() {
    if constexpr (Letter == 'y') {
      usual = usual && isBelow(time.year, 10000);
    } else if constexpr (Letter == 'M') {
      usual = usual && isBelow(time.month, TWO_DIGITS_END - 1);
    } else if constexpr (constexpr Field const *field = findField(Letter); field != nullptr) {
      usual = usual && isBelow(time.*field->member, field->width == 2 ? TWO_DIGITS_END : 1000);
    }
  });
  if (!usual) return false;
  eachRun<P>([&]<char Letter, size_t At, size_t Run>() {
    if constexpr (Letter == 'y') {
      writeYear(out + At, time.year);
    } else if constexpr (Letter == 'M') {
      writeTwoDigits(out + At, time.month + 1);
    } else if constexpr (Letter == 'S') {
      writeMilliseconds(out + At, static_cast<unsigned>(time.millisecond));
    } else if constexpr (constexpr Field const *field = findField(Letter); field != nullptr) {
      writeTwoDigits(out + At, time.*field->member);
    } else {
      for (size_t i = 0; i < Run; ++i) out[At + i] = Letter;
    }
  });
  out[P.length] = 0;
  return true;
}

template <FixedPattern... Patterns>
struct Shortcuts {
  static bool parse(char const *text, size_t length, char const *pattern, size_t patternLength, BrokenDownTime &time) {
    bool done = false;
    static_cast<void>(
        ((Patterns.equals(pattern, patternLength) && (done = readFixed<Patterns>(text, length, time), true)) || ...));
    return done;
  }
  // The length written, or 0.
  static size_t format(char *out, size_t size, char const *pattern, size_t patternLength, BrokenDownTime const &time) {
    size_t written = 0;
    static_cast<void>(((Patterns.equals(pattern, patternLength) &&
                        (written = writeFixed<Patterns>(out, size, time) ? Patterns.length : 0, true)) ||
                       ...));
    return written;
  }
};

using CommonPatterns = Shortcuts<"yyyyMMdd-HH:mm:ss.SSS", "yyyyMMdd", "HH:mm:ss.SSS", "HH:mm:ss", "yyyyMMdd-HH:mm:ss",
                                 "yyyy-MM-dd", "yyyy-MM-ddTHH:mm:ss.SSS", "yyyy-MM-ddTHH:mm:ss">;

}  // namespace

size_t DateStr::format(char *out, size_t size, char const *pattern, size_t patternLength, BrokenDownTime const &time) {
  size_t const written = CommonPatterns::format(out, size, pattern, patternLength, time);
  return written != 0 ? written : formatAnyPattern(out, size, pattern, patternLength, time);
}

void DateStr::parse(char const *text, size_t length, char const *pattern, size_t patternLength, BrokenDownTime &time) {
  if (!CommonPatterns::parse(text, length, pattern, patternLength, time)) {
    parseAnyPattern(text, length, pattern, patternLength, time);
  }
}

size_t DateStr::formatAnyPattern(char *out, size_t size, char const *pattern, size_t patternLength,
                                 BrokenDownTime const &time) {
  Output output(out, size);
  for (size_t at = 0, run; at < patternLength; at += run) {
    char const letter = pattern[at];
    run = runLength(pattern, at, patternLength);
    if (letter == 'y') {
      putYear(output, time.year, run);
    } else if (letter == 'M') {
      putMonth(output, time, run);
    } else if (Field const *field = findField(letter)) {
      int const value = time.*field->member;
      field->width == 2 ? output.putTwoDigits(value) : output.putNumber(value, field->width);
    } else {
      output.fill(letter, run);
    }
  }
  return output.finish();
}

void DateStr::parseAnyPattern(char const *text, size_t length, char const *pattern, size_t patternLength,
                              BrokenDownTime &time) {
  Parser(text, length, pattern, patternLength).parse(time);
}

// The texts of DateTime stand here, beside the shortcuts that they take.

tvstring DateTime::toString(tvstring const &pattern) const {
  char scratch[SCRATCH_SIZE];
  return tvstring(scratch, asString(scratch, sizeof scratch, pattern));
}

size_t DateTime::asString(char *buffer, size_t size, char const *pattern, size_t patternLength) const {
  // Wraps at the lowest int; monthNumber wraps back.
  int const month = static_cast<int>(static_cast<unsigned>(getMonth()) - 1u);
  BrokenDownTime const time{getMilliseconds(), getSeconds(), getMinutes(), getHours(), getDate(), month, getYear()};
  return DateStr::format(buffer, size, pattern, patternLength, time);
}

DateTime DateTime::fromString(char const *text, size_t length, char const *pattern, size_t patternLength) {
  BrokenDownTime time;
  DateStr::parse(text, length, pattern, patternLength, time);
  DateTime const value(time.year, time.month + 1, time.dayOfMonth, time.hour, time.minute, time.second,
                       time.millisecond);
  if (!value.isValid()) value.validate();  // the test is inline, the failure is not
  return value;
}

}  // namespace tavrone
