#pragma once

#include <array>

#include "tavrone/core/ArrayList.h"
#include "tavrone/core/ByteBuffer.h"
#include "tavrone/core/Object.h"
#include "tavrone/core/tvstring.h"

namespace tavrone {

class AbstractDataObject;

// A group of fields that a walk over a layout has opened.
struct SequenceInfo {
  int startIndex = 0;     // where in the record the group began, in bytes
  short sectionType = 0;  // 1 sequence, 2 choice, 3 all; any other value is a section number of the layout's own
  short fieldIndex = -1;  // the field being handled within the group; -1 at its start
};

// Where the walk over one record's layout stands: the groups that are open, and the field within the innermost one.
// Generated code opens and closes the groups; the operations for fields, in the classes below, count the fields. A
// failure names the field at which the walk stood. One thread at a time.
class TAVRONE_API UniversalRecord : public ObjectRef {
 public:
  // 10 to the power of the index.
  static constexpr std::array<int, 10> INT_POWERS_OF_10 = {1,      10,      100,      1000,      10000,
                                                           100000, 1000000, 10000000, 100000000, 1000000000};
  static constexpr std::array<long long, 19> LONG_POWERS_OF_10 = {1,
                                                                  10,
                                                                  100,
                                                                  1000,
                                                                  10000,
                                                                  100000,
                                                                  1000000,
                                                                  10000000,
                                                                  100000000,
                                                                  1000000000,
                                                                  10000000000,
                                                                  100000000000,
                                                                  1000000000000,
                                                                  10000000000000,
                                                                  100000000000000,
                                                                  1000000000000000,
                                                                  10000000000000000,
                                                                  100000000000000000,
                                                                  1000000000000000000};
  static tvstringliteral const EMPTY_STRING;

  UniversalRecord() = default;
  // The delimiter ends the record or separates its fields, as the layout has it.
  UniversalRecord(tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter) {
    init(delimiter, recordFlag, dropLastDelimiter);
  }
  UniversalRecord(UniversalRecord const &other);
  UniversalRecord &operator=(UniversalRecord const &) = default;
  ~UniversalRecord() noexcept(false) override;

  // What the constructor sets, later. With dropLastDelimiter the outermost group takes the delimiter of the last field
  // away; nothing here reads the record flag.
  void init(tvstring const &delimiter, bool recordFlag, bool dropLastDelimiter) {
    delimiter_ = delimiter;
    recordFlag_ = recordFlag;
    dropLastDelimiter_ = dropLastDelimiter;
    trailingFields_ = false;
  }
  // Closes all groups and forgets the delimiter, keeping what is allocated. The current group's values stay.
  void reset();

  // The position in the record, in bytes, at which the walk stands.
  virtual int getCurrentIndex() const = 0;
  virtual SequenceInfo createSequenceState();

  // Opens a group within the current one; `type` as in SequenceInfo::sectionType.
  void startSection(short type);
  void startSequence() { startSection(SEQUENCE); }
  void startChoice() { startSection(CHOICE); }
  void startAll() { startSection(ALL); }
  // Returns to the enclosing group, whatever the argument; without one the current group stays.
  void endSection(short type);
  void endSequence() { endSection(SEQUENCE); }
  void endChoice() { endSection(CHOICE); }
  void endAll() { endSection(ALL); }

  // Counts a field of a sequence. A choice and an all-group have no order, so their index stands still.
  void onField() {
    if (current_.sectionType == SEQUENCE) ++current_.fieldIndex;
  }
  int getCurrentFieldIndex() const { return current_.fieldIndex; }
  void setCurrentFieldIndex(int index) { current_.fieldIndex = static_cast<short>(index); }
  int getSequenceStartIndex() const { return current_.startIndex; }

  // From here to the end of the record fields may be left out.
  void startTrailingFields() { trailingFields_ = true; }
  bool isTrailingField() const { return trailingFields_; }

  // Whether no group, or exactly one, is open.
  bool isSequenceCompleted() const { return sequenceStack_.size() == 0; }
  bool isLastSequence() const { return sequenceStack_.size() == 1; }

  tvstring const &getDelimiter() const { return delimiter_; }

  // Moves the walk to the field and raises TransformException "The mandatory field '<qualified name>' is missing."
  [[noreturn]] void requiredFieldMissing(AbstractDataObject *object, int index);

  // The same bits, read as the other type (IEEE 754).
  static float intBitsToFloat(int bits) { return ByteBuffer::intBitsToFloat(bits); }
  static int floatToIntBits(float value) { return ByteBuffer::floatToIntBits(value); }
  static long long doubleToLongBits(double value) { return ByteBuffer::doubleToLongBits(value); }
  static double longBitsToDouble(long long bits) { return ByteBuffer::longBitsToDouble(bits); }

 protected:
  bool dropsLastDelimiter() const { return dropLastDelimiter_; }

 private:
  static constexpr short SEQUENCE = 1;
  static constexpr short CHOICE = 2;
  static constexpr short ALL = 3;

  ArrayList<SequenceInfo> sequenceStack_;  // the enclosing groups
  bool trailingFields_ = false;
  bool recordFlag_ = false;  // generated code sets it; nothing here reads it
  tvstring delimiter_;
  SequenceInfo current_;
  bool dropLastDelimiter_ = false;  // the outermost group takes the field delimiter before its end away
};

}  // namespace tavrone
