#pragma once

#include <cstddef>

namespace tavrone {

// Reads text[0, length) as strtod does in the C locale, bit for bit, whatever the process's locale: an optional sign,
// digits with one point, an exponent; what follows the number is ignored, and without a number the value is 0.0.
// Returns false, and no value, if any character of the text is no digit, '+', '-', '.', 'e' or 'E'.
bool readDouble(char const *text, size_t length, double &value);

}  // namespace tavrone
