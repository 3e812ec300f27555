#pragma once

#include "tavrone/core/Binary.h"
#include "tavrone/core/DateTime.h"

namespace tavrone {

class ByteBuffer;
class DataObject;
class Object;

// The stored form of a record: for each field that is not null its index plus 1 and its value, then a 0. No header, no
// version; names and types are not in it, so a reader needs the writer's metadata. A stored stream is hostile input:
// every read fails with TransformException "Out of bounds" past the end, counts and lengths reserve no more than what
// remains, and records nested deeper than 500 fail with "Nesting too deep".
//
// "Binary" is written as hexadecimal and read as that text's bytes; ISO types are written and not read. Both are kept.
class TAVRONE_API DataObjectIO {
 public:
  // Reads the object and keeps nothing of it.
  static Binary serialize(DataObject *object);
  static void write(DataObject *object, ByteBuffer &out);
  // One value by its run-time class and the field's type text.
  static void writeField(ByteBuffer &out, Object *value, tvstring const &type);
  // Length, then one fast unsigned int for each byte sign-extended to 32 bits: bytes from 128 up take five.
  static void writeString(ByteBuffer &out, tvstring const &text);
  // Base 128, least significant group first, high bit set on all bytes but the last: 1 to 5 bytes.
  static void writeFastUnsignedInt(ByteBuffer &out, unsigned int value);
  static void writeIntBigEndian(ByteBuffer &out, int value);
  static void writeLongBigEndian(ByteBuffer &out, long long value);
  static void writeFloatBigEndian(ByteBuffer &out, float value);    // IEEE 754 bits
  static void writeDoubleBigEndian(ByteBuffer &out, double value);  // IEEE 754 bits
  static void writeCompactDateTime(ByteBuffer &out, DateTime const &value, bool date, bool time);

  // Sets the fields that the bytes hold, and leaves the others as they are. Fails with "Unexpected characters at the
  // end of serialzied message" if bytes are left.
  static void parse(DataObject *object, char const *bytes, int length);
  static void parse(DataObject *object, Binary const &bytes);
  static void read(DataObject *object, ByteBuffer &in);
  static void readSetField(DataObject *object, int index, ByteBuffer &in, tvstring const &type);
  static tvstring readString(ByteBuffer &in);
  static unsigned int readFastUnsignedInt(ByteBuffer &in);
  static int readIntBigEndian(ByteBuffer &in);
  static long long readLongBigEndian(ByteBuffer &in);
  static float readFloatBigEndian(ByteBuffer &in);
  static double readDoubleBigEndian(ByteBuffer &in);
  // 1970-01-01 or 00:00:00.000 for the group that is not read.
  static DateTime readCompactDateTime(ByteBuffer &in, bool date, bool time);

  static unsigned int setHighBit(unsigned int x) { return (x & 0x7F) | 0x80; }
  static int clearHighBit(unsigned int x) { return static_cast<int>(x & 0x7F); }
  static unsigned int clearHighBitLS(unsigned int x, int shift) { return (x & 0x7F) << shift; }
};

}  // namespace tavrone
