#include "tavrone/formula/BitFunctions.h"

namespace tavrone {

Binary BitFunctions::set(Binary const &bytes, int bit, bool on) {
  if (!isInside(bytes, bit)) return bytes;
  Binary changed(bytes.data(), bytes.length());
  size_t const i = static_cast<size_t>(bit / CHAR_BIT);
  int const position = 7 - bit % CHAR_BIT;
  changed.set(i, static_cast<char>(on ? set(bytes.at(i), position) : clear(bytes.at(i), position)));
  return changed;
}

}  // namespace tavrone
