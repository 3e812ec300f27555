#pragma once

#include "tavrone/core/Binary.h"

namespace tavrone {

// Work on bytes for formulas, by the rules of TextFunctions: arguments don't change, indexes are 0-based, and one that
// is out of range gives no bytes or the bytes unchanged. Only byteAt fails; bytes that no array can hold (past an int)
// raise std::bad_array_new_length.
class TAVRONE_API BinaryFunctions {
 public:
  static int length(Binary const &bytes) { return static_cast<int>(bytes.length()); }
  // 0 to 255. Raises TransformRuntimeException with catalogue key SRT160 for an index outside the bytes.
  static int byteAt(Binary const &bytes, int index);

  // The first or last n bytes: none for a negative n, all if there are no more.
  static Binary left(Binary const &bytes, int n);
  static Binary right(Binary const &bytes, int n);
  // A negative start is 0; none for a negative count or a start at or past the end; cut at the end.
  static Binary mid(Binary const &bytes, int start, int count);
  // Unchanged for a start outside the bytes or a negative count; a count past the end is cut.
  static Binary remove(Binary const &bytes, int start, int count);
  // A negative position is 0, one past the end appends.
  static Binary insert(Binary const &bytes, int position, Binary const &value);
  static Binary concat(Binary const &a, Binary const &b) { return a + b; }
  static Binary reverse(Binary const &bytes);
  // `count` copies; none for a count below 1.
  static Binary repeat(Binary const &bytes, int count);

  // The first position at or after `from`, or -1; a negative `from` is 0. No bytes are found as by tvstring::find.
  static int indexOf(Binary const &bytes, Binary const &part, int from);
  static bool equal(Binary const &a, Binary const &b) { return a == b; }
  static bool notEqual(Binary const &a, Binary const &b) { return a != b; }
  static bool startsWith(Binary const &bytes, Binary const &prefix);
  static bool endsWith(Binary const &bytes, Binary const &suffix);

  // The bytes of a text, and hexadecimal and base64 as Binary reads and writes them.
  static Binary fromText(tvstring const &text) { return Binary(text.data(), text.length()); }
  static Binary fromHex(tvstring const &text) { return Binary::fromHexString(text); }
  static Binary fromBase64(tvstring const &text) { return Binary::fromBase64String(text); }
  static tvstring toText(Binary const &bytes) { return bytes.toString(); }
  static tvstring toHex(Binary const &bytes) { return bytes.toHexString(); }
  static tvstring toBase64(Binary const &bytes) { return bytes.toBase64String(); }

  // The two's complement number in `size` bytes, 1 to 8, from the offset on: 0xFF in one byte is -1. 0 for any other
  // size and where the bytes don't hold it. An int keeps the low 32 bits.
  static int toInt(Binary const &bytes, int offset, int size, bool bigEndian);
  static long long toLong(Binary const &bytes, int offset, int size, bool bigEndian);
  // The low `size` bytes, 1 to 8, of the number in two's complement; none for any other size.
  static Binary fromInt(int value, int size, bool bigEndian) { return fromLong(value, size, bigEndian); }
  static Binary fromLong(long long value, int size, bool bigEndian);

  // Byte by byte, as long as the longer one: its bytes past the other's end stay as they are.
  static Binary bitXor(Binary const &a, Binary const &b);
  // Of the bytes as 0 to 255, in the low 32 bits.
  static int sum(Binary const &bytes);
};

}  // namespace tavrone
