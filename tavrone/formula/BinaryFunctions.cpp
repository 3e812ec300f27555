#include "tavrone/formula/BinaryFunctions.h"

#include <algorithm>
#include <climits>
#include <cstring>

#include "tavrone/core/NumberConversion.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/formula/TextFunctions.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/formula/BinaryFunctions";
constexpr int MAX_SIZE = sizeof(long long);

// A negative position or count is 0.
size_t notNegative(int value) {
  return value < 0 ? 0 : static_cast<size_t>(value);
}

// A copy, as Binary::sub. REQUIRES: from <= bytes.length()
Binary part(Binary const &bytes, size_t from, size_t count) {
  return Binary(bytes.data() + from, std::min(count, bytes.length() - from));
}

}  // namespace

int BinaryFunctions::byteAt(Binary const &bytes, int index) {
  if (index < 0 || static_cast<size_t>(index) >= bytes.length())
    raiseCatalogued<TransformRuntimeException>("SRT160", ObjectList(), SOURCE);
  return static_cast<unsigned char>(bytes[static_cast<size_t>(index)]);
}

Binary BinaryFunctions::left(Binary const &bytes, int n) {
  return part(bytes, 0, notNegative(n));
}
Binary BinaryFunctions::right(Binary const &bytes, int n) {
  size_t const count = std::min(notNegative(n), bytes.length());
  return part(bytes, bytes.length() - count, count);
}
Binary BinaryFunctions::mid(Binary const &bytes, int start, int count) {
  return part(bytes, std::min(notNegative(start), bytes.length()), notNegative(count));
}

Binary BinaryFunctions::remove(Binary const &bytes, int start, int count) {
  return TextFunctions::deleteStr(bytes.toString(), start, count);
}
Binary BinaryFunctions::insert(Binary const &bytes, int position, Binary const &value) {
  return TextFunctions::insert(bytes.toString(), position, value.toString());
}
Binary BinaryFunctions::reverse(Binary const &bytes) {
  return TextFunctions::reverse(bytes.toString());
}
Binary BinaryFunctions::repeat(Binary const &bytes, int count) {
  return TextFunctions::repeat(bytes.toString(), count);
}

int BinaryFunctions::indexOf(Binary const &bytes, Binary const &wanted, int from) {
  size_t const start = notNegative(from);
  if (start >= bytes.length()) return wanted.empty() && bytes.empty() && start == 0 ? 0 : -1;
  auto const *hit =
      static_cast<char const *>(memmem(bytes.data() + start, bytes.length() - start, wanted.data(), wanted.length()));
  return hit == nullptr ? -1 : static_cast<int>(hit - bytes.data());
}
bool BinaryFunctions::startsWith(Binary const &bytes, Binary const &prefix) {
  return prefix.length() <= bytes.length() && tvstring::equals(bytes.data(), prefix.data(), prefix.length());
}
bool BinaryFunctions::endsWith(Binary const &bytes, Binary const &suffix) {
  return suffix.length() <= bytes.length() &&
         tvstring::equals(bytes.data() + (bytes.length() - suffix.length()), suffix.data(), suffix.length());
}

int BinaryFunctions::toInt(Binary const &bytes, int offset, int size, bool bigEndian) {
  return convertNumber<int>(toLong(bytes, offset, size, bigEndian));
}
long long BinaryFunctions::toLong(Binary const &bytes, int offset, int size, bool bigEndian) {
  if (size < 1 || size > MAX_SIZE || offset < 0) return 0;
  size_t const start = static_cast<size_t>(offset);
  size_t const count = static_cast<size_t>(size);
  if (start > bytes.length() || count > bytes.length() - start) return 0;
  unsigned long long value = 0;
  for (size_t i = 0; i < count; ++i)
    value = value << CHAR_BIT | static_cast<unsigned char>(bytes[start + (bigEndian ? i : count - 1 - i)]);
  int const above = (MAX_SIZE - size) * CHAR_BIT;
  return static_cast<long long>(value << above) >> above;
}

Binary BinaryFunctions::fromLong(long long value, int size, bool bigEndian) {
  if (size < 1 || size > MAX_SIZE) return Binary();
  size_t const count = static_cast<size_t>(size);
  Binary bytes(count);
  for (size_t i = 0; i < count; ++i) {
    bytes.set(bigEndian ? count - 1 - i : i, static_cast<char>(value));
    value >>= CHAR_BIT;
  }
  return bytes;
}

Binary BinaryFunctions::bitXor(Binary const &a, Binary const &b) {
  Binary const &longer = a.length() < b.length() ? b : a;
  Binary const &shorter = a.length() < b.length() ? a : b;
  Binary result(longer.data(), longer.length());
  for (size_t i = 0; i < shorter.length(); ++i) result.set(i, static_cast<char>(result[i] ^ shorter[i]));
  return result;
}

int BinaryFunctions::sum(Binary const &bytes) {
  unsigned total = 0;
  for (size_t i = 0; i < bytes.length(); ++i) total += static_cast<unsigned char>(bytes[i]);
  return static_cast<int>(total);
}

}  // namespace tavrone
