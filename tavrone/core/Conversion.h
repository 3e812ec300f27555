#pragma once

#include "tavrone/core/Export.h"
#include "tavrone/core/tvstring.h"

// Numbers as text, in the C locale whatever the process uses. These functions stand in the root namespace and are
// reachable as tavrone:: too. They keep no state.
//
// The forms that fill a tvstring reuse its array where it is unshared and large enough, and return it. The char * forms
// write the text and a terminator: at most 12 bytes for an int and 21 for a long long. Only those for float and double
// use more of the buffer than their text: they need 64 and 352 bytes.

// The number that stands in exactly [begin, end): digits behind one optional '-' or '+'; a sign alone is 0. Raises
// TransformException "Cannot convert '...' to int" for an empty range or a character that is no digit, and "Integer
// overflow. Cannot convert '...' to int". The overflow test looks at the sign only, so a longer text can wrap past it
// undetected: "9999999999" is 1410065407. That is meant.
TAVRONE_API int t_atoi(char const *begin, char const *end);
// The same in 64 bits: "Cannot convert '...' to long" and "Long overflow. Cannot convert '...' to long".
TAVRONE_API long long t_atol(char const *begin, char const *end);

// Decimal digits behind a '-' for negative values.
TAVRONE_API void t_itoa(int value, char *out);
TAVRONE_API void t_ltoa(long long value, char *out);

TAVRONE_API tavrone::tvstring intToString(int value);
TAVRONE_API tavrone::tvstring &intToString(int value, tavrone::tvstring &out);
TAVRONE_API char *intToString(int value, char *out);
TAVRONE_API tavrone::tvstring dlongToString(long long value);
TAVRONE_API tavrone::tvstring &dlongToString(long long value, tavrone::tvstring &out);

// The text of the C format "%.8f", rounded half to even on the exact value, without trailing zeros but for one behind
// the point: "1.5", "2.0", "-0.0". No exponent ever: 1e300 has 301 digits. Letters stay as the C library prints them:
// "inf", "-inf", "nan", "-nan". A float is widened first.
TAVRONE_API tavrone::tvstring doubleToString(double value);
TAVRONE_API tavrone::tvstring &doubleToString(double value, tavrone::tvstring &out);
TAVRONE_API char *doubleToString(double value, char *out);
TAVRONE_API tavrone::tvstring floatToString(float value);
TAVRONE_API tavrone::tvstring &floatToString(float value, tavrone::tvstring &out);
TAVRONE_API char *floatToString(float value, char *out);

// The one character as a text.
TAVRONE_API tavrone::tvstring charToString(char value);
TAVRONE_API tavrone::tvstring &charToString(char value, tavrone::tvstring &out);
TAVRONE_API char *charToString(char value, char *out);
// "true" or "false"; as a tvstring, static text.
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
