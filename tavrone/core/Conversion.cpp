#include "tavrone/core/Conversion.h"

#include <charconv>
#include <cstdio>

#include "tavrone/core/Raise.h"

using tavrone::tvstring;

namespace {

constexpr char const *SOURCE = "cpp/Conversion";

[[noreturn]] TAVRONE_COLD void raiseBadNumber(char const *begin, char const *end, char const *type) {
  tavrone::raise<tavrone::TransformException>(
      "Cannot convert '" + tvstring(begin, static_cast<size_t>(end - begin)) + "' to " + type, SOURCE);
}

[[noreturn]] TAVRONE_COLD void raiseOverflow(char const *begin, char const *end, char const *kind, char const *type) {
  tavrone::raise<tavrone::TransformException>(tvstring(kind) + " overflow. Cannot convert '" +
                                                  tvstring(begin, static_cast<size_t>(end - begin)) + "' to " + type,
                                              SOURCE);
}

// The whole algorithm for both widths; Unsigned carries the wrap-around that Signed may not do.
template <class Signed, class Unsigned>
Signed readDecimal(char const *begin, char const *end, char const *kind, char const *type) {
  if (begin == end) raiseBadNumber(begin, end, type);
  char const *at = begin;
  bool const negative = *at == '-';
  if (negative || *at == '+') ++at;
  Unsigned value = 0;
  for (; at != end; ++at) {
    unsigned const digit = static_cast<unsigned char>(*at) - static_cast<unsigned>('0');
    if (digit > 9) raiseBadNumber(begin, end, type);
    if (static_cast<Signed>(value) > 0) raiseOverflow(begin, end, kind, type);
    value = value * 10 - digit;
  }
  if (negative) return static_cast<Signed>(value);
  Signed const result = static_cast<Signed>(0 - value);
  if (result < 0) raiseOverflow(begin, end, kind, type);
  return result;
}

char *trimZeros(char *text, char *end) {
  char *cut = end;
  bool trimming = true;
  for (char *at = end; at != text;) {
    --at;
    if (*at == '.') {
      if (cut == at + 1) ++cut;
      *cut = '\0';
      return cut;
    }
    if (*at < '0' || *at > '9') return end;
    if (trimming && *at == '0') cut = at;
    else trimming = false;
  }
  return end;
}

}  // namespace

int t_atoi(char const *begin, char const *end) { return readDecimal<int, unsigned>(begin, end, "Integer", "int"); }
long long t_atol(char const *begin, char const *end) {
  return readDecimal<long long, unsigned long long>(begin, end, "Long", "long");
}

void t_itoa(int value, char *out) { *std::to_chars(out, out + 12, value).ptr = '\0'; }
void t_ltoa(long long value, char *out) { *std::to_chars(out, out + 21, value).ptr = '\0'; }

tvstring intToString(int value) {
  tvstring out;
  out.assign(value);
  return out;
}
tvstring &intToString(int value, tvstring &out) { return out.assign(value); }
char *intToString(int value, char *out) {
  t_itoa(value, out);
  return out;
}
tvstring dlongToString(long long value) {
  tvstring out;
  out.assign(value);
  return out;
}
tvstring &dlongToString(long long value, tvstring &out) { return out.assign(value); }

tvstring doubleToString(double value) {
  tvstring out;
  out.assign(value);
  return out;
}
tvstring &doubleToString(double value, tvstring &out) { return out.assign(value); }
char *doubleToString(double value, char *out) {
  int const n = std::snprintf(out, 352, "%.8f", value);
  *trimZeros(out, out + n) = '\0';
  return out;
}
tvstring floatToString(float value) { return doubleToString(static_cast<double>(value)); }
tvstring &floatToString(float value, tvstring &out) { return out.assign(value); }
char *floatToString(float value, char *out) { return doubleToString(static_cast<double>(value), out); }

tvstring charToString(char value) { return tvstring(1, value); }
tvstring &charToString(char value, tvstring &out) { return out.assign(value); }
char *charToString(char value, char *out) {
  out[0] = value;
  out[1] = '\0';
  return out;
}
tvstring boolToString(bool value) { return value ? tavrone::tvstringliteral("true") : tavrone::tvstringliteral("false"); }
tvstring &boolToString(bool value, tvstring &out) { return out = boolToString(value); }
char *boolToString(bool value, char *out) { return std::strcpy(out, value ? "true" : "false"); }

namespace tavrone {

tvstring &tvstring::assign(int value) {
  t_itoa(value, ensureCleanFree(25));
  length_ = std::strlen(data_);
  return *this;
}
tvstring &tvstring::assign(long long value) {
  t_ltoa(value, ensureCleanFree(100));
  length_ = std::strlen(data_);
  return *this;
}
tvstring &tvstring::assign(float value) { return assign(static_cast<double>(value)); }
tvstring &tvstring::assign(double value) {
  doubleToString(value, ensureCleanFree(352));
  length_ = std::strlen(data_);
  return *this;
}
tvstring &tvstring::assign(char value) {
  charToString(value, ensureCleanFree(25));
  length_ = 1;
  return *this;
}

}  // namespace tavrone
