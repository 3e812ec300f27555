#pragma once

#include <array>
#include <string_view>

#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/pipeline/MessageHeader.h"

namespace tavrone {

class WrapperObject;

// One line of a header's layout.
struct TagValueHeaderField {
  static constexpr int NO_TAG = -1;
  static constexpr int NO_FIELD = -1;

  char const *name;
  bool isNumber;  // an int, else a text
  int tag;
  // A text field that is set along with this one, to its text from tailStart on.
  int tailField = NO_FIELD;
  int tailStart = 0;
};

// From tags to what belongs to them, found with one division and one comparison.
template <std::size_t Count>
class TagTable {
 public:
  struct Row {
    int tag = TagValueHeaderField::NO_TAG;
    int field = TagValueHeaderField::NO_FIELD;
  };

  // REQUIRES: the tags differ, and none is negative
  consteval explicit TagTable(std::array<Row, Count> const &rows) {
    while (!fill(rows)) ++size_;
  }

  // The row of the tag; null for any other.
  constexpr Row const *find(int tag) const {
    Row const &row = rows_[static_cast<unsigned>(tag) % size_];
    return row.tag == tag && tag != TagValueHeaderField::NO_TAG ? &row : nullptr;
  }

 private:
  consteval bool fill(std::array<Row, Count> const &rows) {
    rows_ = {};
    for (Row const &row : rows) {
      Row &place = rows_[static_cast<unsigned>(row.tag) % size_];
      if (place.tag != TagValueHeaderField::NO_TAG) return false;
      place = row;
    }
    return true;
  }

  std::array<Row, 8 * Count> rows_{};
  unsigned size_ = Count;
};

// The standard header of one tag=value format as a record: typed values with a presence flag each, no wrapper kept.
// Reading and storing by index or name works on those. A Layout gives the format, the class, its name and that of
// the message format, FIELDS, of which the first three are MessageFormat, MessageType and MessageVersion, and
// SKIPPED_TAGS, those of header fields that are not kept.
//
// Getters return the value whatever its flag says; a setter raises the flag. Every operation that takes an index raises
// FieldNotFoundException "Field index out of bounds" with the Format's HEADER_SOURCE.
template <class Layout>
class TAVRONE_API TagValueHeader : public GenericDataObject, public MessageHeader {
 public:
  enum CommonField { MESSAGE_FORMAT, MESSAGE_TYPE, MESSAGE_VERSION };

  ~TagValueHeader() noexcept(false) override;

  tvstring getMessageFormat() override { return text<MESSAGE_FORMAT>(); }
  void setMessageFormat(tvstring const &format) { setText(MESSAGE_FORMAT, format); }
  tvstring getMessageType() override { return text<MESSAGE_TYPE>(); }
  void setMessageType(tvstring const &type) { setText(MESSAGE_TYPE, type); }
  tvstring getMessageVersion() override { return text<MESSAGE_VERSION>(); }
  void setMessageVersion(tvstring const &version) { setText(MESSAGE_VERSION, version); }
  tvstring getHeaderField(tvstring const &name) override;
  // Unless a field of the first three was made null, which its getter doesn't mind. A subclass may have getters of its
  // own.
  bool tellsItsFields() const override;

  // As a new header: MessageFormat alone is set.
  void init();
  void reset() override { init(); }

  // Raises FieldTypeMismatchException "<field> is not a section": no field is one.
  DataObjectSection *getSection(int index) const override;
  bool getField(int index, Object &out) const override;
  // A new wrapper, the caller's, here and in getFieldCheckNull.
  Object *getField(int index) const override;
  Object *getFieldCheckNull(int index) const override;
  SmartPtr<Object> getFieldCheckNullVal(int index) override;
  bool isNull(int index) const override;
  void setNull(int index) override;
  // Store that field alone. The value is read by the getter of the field's type; null acts as setNull.
  void setField(int index, Object const &value) override { setField(index, &value); }
  void setField(int index, Object const *value) override;
  bool isEmpty() const override;

  using GenericDataObject::getField;
  using GenericDataObject::getSection;
  using GenericDataObject::isNull;
  using GenericDataObject::setField;
  using GenericDataObject::setNull;

  // The value, whatever its flag says: in a new wrapper, the caller's, or written into `out`, which is returned.
  Object *getField0(int index) const { return getField0(index, nullptr); }
  Object *getField0(int index, WrapperObject *out) const;
  // REQUIRES: value is not null
  void setField0(int index, Object const *value);

  // Whether a tag belongs to the header, kept or not.
  static bool hasTag(int tag);
  // Stores the value of a header tag, and what is set along with it; false for any other tag. The text is shared where
  // it has an owner. Raises as t_atoi does for a number, and as the field's setter.
  bool setTag(int tag, tvstring const &value);

  // Whether a text of the header reaches into bytes[0, length).
  bool hasTextIn(char const *bytes, int length) const;
  // Makes the texts that are views on bytes[0, length), which nobody owns, share one copy, which goes as far as they
  // do.
  void keepTexts(char const *bytes, int length);

 protected:
  TagValueHeader();
  TagValueHeader(TagValueHeader const &other);
  // Takes the values and their flags.
  TagValueHeader &operator=(TagValueHeader const &other);

  template <int Field>
  tvstring const &text() const {
    static_assert(!Layout::FIELDS[Field].isNumber);
    return texts_[SLOTS[Field]];
  }
  template <int Field>
  int number() const {
    static_assert(Layout::FIELDS[Field].isNumber);
    return numbers_[SLOTS[Field]];
  }
  // Also sets the tail field. Raises the Format's ParsingException "Illegal <field> '<text>'" for a text that is too
  // short to have that tail; nothing is changed then.
  void setText(int field, tvstring const &value);
  void setNumber(int field, int value) {
    numbers_[SLOTS[static_cast<size_t>(field)]] = value;
    flags_[static_cast<size_t>(field)] = true;
  }

 private:
  static constexpr std::size_t COUNT = Layout::FIELDS.size();
  static constexpr std::size_t NUMBERS = [] {
    std::size_t count = 0;
    for (TagValueHeaderField const &field : Layout::FIELDS) count += field.isNumber;
    return count;
  }();
  // Where a field stands among those of its type.
  static constexpr std::array<std::size_t, COUNT> SLOTS = [] {
    std::array<std::size_t, COUNT> slots{};
    std::size_t next[2] = {};
    for (std::size_t i = 0; i < COUNT; ++i) slots[i] = next[Layout::FIELDS[i].isNumber]++;
    return slots;
  }();

  static DataObjectMetaInfo *typeMetaInfo();
  static std::size_t checkIndex(int index);
  Object *valueOf(std::size_t field, Object *out) const;

  std::array<tvstring, COUNT - NUMBERS> texts_;
  std::array<int, NUMBERS> numbers_{};
  std::array<bool, COUNT> flags_{};
};

}  // namespace tavrone
