#pragma once

#include "tavrone/core/Export.h"
#include "tavrone/core/tvstring.h"

// Numbers as text, in the C locale whatever the process uses. These functions stand in the root namespace and are
// reachable as tavrone:: too.
//
// The forms that return or fill a tvstring own their text. The char * forms write the text and a terminator: at most 12
// bytes for an int, 21 for a long long, 64 for a float, 352 for a double.

// Decimal text of exactly [begin, end), with one leading '-' or '+'; a sign alone is 0. Raises TransformException
// "Cannot convert '...' to int" for an empty range or a character that is no digit, and "Integer overflow. Cannot convert
// '...' to int". The overflow test looks at the sign only, so a longer text can wrap past it undetected: "9999999999" is
// 1410065407. That is meant.
TAVRONE_API int t_atoi(char const *begin, char const *end);
// The same in 64 bits: "Long overflow. Cannot convert '...' to long" and "Cannot convert '...' to long".
TAVRONE_API long long t_atol(char const *begin, char const *end);

TAVRONE_API void t_itoa(int value, char *out);
TAVRONE_API void t_ltoa(long long value, char *out);

TAVRONE_API tavrone::tvstring intToString(int value);
TAVRONE_API tavrone::tvstring &intToString(int value, tavrone::tvstring &out);
TAVRONE_API char *intToString(int value, char *out);
TAVRONE_API tavrone::tvstring dlongToString(long long value);
TAVRONE_API tavrone::tvstring &dlongToString(long long value, tavrone::tvstring &out);

// The text of "%.8f" without trailing zeros, one kept behind the point: "1.5", "2.0". No exponent ever; infinities and
// NaN as the C library prints them. A float is widened first.
TAVRONE_API tavrone::tvstring doubleToString(double value);
TAVRONE_API tavrone::tvstring &doubleToString(double value, tavrone::tvstring &out);
TAVRONE_API char *doubleToString(double value, char *out);
TAVRONE_API tavrone::tvstring floatToString(float value);
TAVRONE_API tavrone::tvstring &floatToString(float value, tavrone::tvstring &out);
TAVRONE_API char *floatToString(float value, char *out);

TAVRONE_API tavrone::tvstring charToString(char value);
TAVRONE_API tavrone::tvstring &charToString(char value, tavrone::tvstring &out);
TAVRONE_API char *charToString(char value, char *out);
// "true" or "false".
TAVRONE_API tavrone::tvstring boolToString(bool value);
TAVRONE_API tavrone::tvstring &boolToString(bool value, tavrone::tvstring &out);
TAVRONE_API char *boolToString(bool value, char *out);

namespace tavrone {
using ::boolToString;
using ::charToString;
using ::dlongToString;
using ::doubleToString;
using ::floatToString;
using ::intToString;
using ::t_atoi;
using ::t_atol;
using ::t_itoa;
using ::t_ltoa;
}  // namespace tavrone
