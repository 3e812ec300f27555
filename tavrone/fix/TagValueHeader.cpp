#include "tavrone/fix/TagValueHeader.h"

#include <algorithm>
#include <functional>
#include <typeinfo>

#include "tavrone/core/Parsing.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/fix/FIXHeader.h"
#include "tavrone/siaccanonical/SIACCanonicalHeader.h"

namespace tavrone {

namespace {

template <class Layout>
consteval std::size_t countTags() {
  std::size_t count = Layout::SKIPPED_TAGS.size();
  for (TagValueHeaderField const &field : Layout::FIELDS) count += field.tag != TagValueHeaderField::NO_TAG;
  return count;
}

template <class Layout>
consteval auto tagTableOf() {
  using Table = TagTable<countTags<Layout>()>;
  std::array<typename Table::Row, countTags<Layout>()> rows{};
  std::size_t next = 0;
  for (std::size_t i = 0; i < Layout::FIELDS.size(); ++i)
    if (Layout::FIELDS[i].tag != TagValueHeaderField::NO_TAG)
      rows[next++] = {Layout::FIELDS[i].tag, static_cast<int>(i)};
  for (int tag : Layout::SKIPPED_TAGS) rows[next++] = {tag, TagValueHeaderField::NO_FIELD};
  return Table(rows);
}

template <class Layout>
constexpr auto TAGS = tagTableOf<Layout>();

}  // namespace

template <class Layout>
DataObjectMetaInfo *TagValueHeader<Layout>::typeMetaInfo() {
  static DataObjectMetaInfo *const metaInfo = [] {
    std::array<char const *, COUNT> names;
    std::array<char const *, COUNT> types;
    for (std::size_t i = 0; i < COUNT; ++i) {
      names[i] = Layout::FIELDS[i].name;
      types[i] = (Layout::FIELDS[i].isNumber ? DesignerTypes::INT_TYPE : DesignerTypes::STRING_TYPE).data();
    }
    return new DataObjectMetaInfo(tvstringliteral(Layout::NAME), names.data(), types.data(), int{COUNT});
  }();
  return metaInfo;
}

template <class Layout>
TagValueHeader<Layout>::TagValueHeader() : GenericDataObject(typeMetaInfo(), false) {
  setMessageFormat(tvstringliteral(Layout::MESSAGE_FORMAT));
}
template <class Layout>
TagValueHeader<Layout>::TagValueHeader(TagValueHeader const &other)
    : Object(),
      ObjectRef(),
      GenericDataObject(other),
      MessageHeader(other),
      texts_(other.texts_),
      numbers_(other.numbers_),
      flags_(other.flags_) {}
template <class Layout>
TagValueHeader<Layout> &TagValueHeader<Layout>::operator=(TagValueHeader const &other) {
  texts_ = other.texts_;
  numbers_ = other.numbers_;
  flags_ = other.flags_;
  return *this;
}
template <class Layout>
TagValueHeader<Layout>::~TagValueHeader() noexcept(false) = default;

template <class Layout>
void TagValueHeader<Layout>::init() {
  texts_.fill(tvstring());
  numbers_.fill(0);
  flags_.fill(false);
  setMessageFormat(tvstringliteral(Layout::MESSAGE_FORMAT));
}

template <class Layout>
tvstring TagValueHeader<Layout>::getHeaderField(tvstring const &name) {
  int const field = typeMetaInfo()->getFieldIndexIfExists(name);
  if (field < 0 || isNull(field)) return tvstring();
  std::size_t const slot = SLOTS[static_cast<std::size_t>(field)];
  return Layout::FIELDS[static_cast<std::size_t>(field)].isNumber ? intToString(numbers_[slot]) : texts_[slot];
}

template <class Layout>
bool TagValueHeader<Layout>::tellsItsFields() const {
  return typeid(*this) == typeid(typename Layout::Header) &&
         (flags_[MESSAGE_FORMAT] || text<MESSAGE_FORMAT>().empty()) &&
         (flags_[MESSAGE_TYPE] || text<MESSAGE_TYPE>().empty()) &&
         (flags_[MESSAGE_VERSION] || text<MESSAGE_VERSION>().empty());
}

template <class Layout>
std::size_t TagValueHeader<Layout>::checkIndex(int index) {
  if (static_cast<unsigned>(index) >= COUNT)
    raise<FieldNotFoundException>("Field index out of bounds", Layout::Format::HEADER_SOURCE);
  return static_cast<std::size_t>(index);
}

template <class Layout>
Object *TagValueHeader<Layout>::valueOf(std::size_t field, Object *out) const {
  std::size_t const slot = SLOTS[field];
  if (Layout::FIELDS[field].isNumber) {
    if (out == nullptr) return new IntObject(numbers_[slot]);
    out->setInt(numbers_[slot]);
  } else {
    if (out == nullptr) return new StringObject(texts_[slot]);
    out->setString(texts_[slot]);
  }
  return out;
}

template <class Layout>
DataObjectSection *TagValueHeader<Layout>::getSection(int index) const {
  return GenericDataObject::getSection(static_cast<int>(checkIndex(index)));
}

template <class Layout>
bool TagValueHeader<Layout>::getField(int index, Object &out) const {
  std::size_t const field = checkIndex(index);
  if (flags_[field]) valueOf(field, &out);
  return flags_[field];
}
template <class Layout>
Object *TagValueHeader<Layout>::getField(int index) const {
  std::size_t const field = checkIndex(index);
  return flags_[field] ? valueOf(field, nullptr) : nullptr;
}

template <class Layout>
Object *TagValueHeader<Layout>::getFieldCheckNull(int index) const {
  std::size_t const field = checkIndex(index);
  if (!flags_[field])
    raise<FieldNullException>(
        "Attempt to access field '" + const_cast<TagValueHeader *>(this)->getQualifiedName(index) + "' with NULL value",
        Layout::Format::HEADER_SOURCE);
  return valueOf(field, nullptr);
}
template <class Layout>
SmartPtr<Object> TagValueHeader<Layout>::getFieldCheckNullVal(int index) {
  return SmartPtr<Object>(getFieldCheckNull(index));
}

template <class Layout>
bool TagValueHeader<Layout>::isNull(int index) const {
  return !flags_[checkIndex(index)];
}
template <class Layout>
void TagValueHeader<Layout>::setNull(int index) {
  flags_[checkIndex(index)] = false;
}

template <class Layout>
void TagValueHeader<Layout>::setField(int index, Object const *value) {
  if (value == nullptr)
    setNull(index);
  else
    setField0(index, value);
}

template <class Layout>
bool TagValueHeader<Layout>::isEmpty() const {
  return std::find(flags_.begin(), flags_.end(), true) == flags_.end();
}

template <class Layout>
Object *TagValueHeader<Layout>::getField0(int index, WrapperObject *out) const {
  return valueOf(checkIndex(index), out);
}
template <class Layout>
void TagValueHeader<Layout>::setField0(int index, Object const *value) {
  std::size_t const field = checkIndex(index);
  if (Layout::FIELDS[field].isNumber)
    numbers_[SLOTS[field]] = value->getInt();
  else
    texts_[SLOTS[field]] = value->getString();
  flags_[field] = true;
}

template <class Layout>
void TagValueHeader<Layout>::setText(int index, tvstring const &value) {
  std::size_t const field = static_cast<std::size_t>(index);
  TagValueHeaderField const &row = Layout::FIELDS[field];
  std::size_t const tailStart = static_cast<std::size_t>(row.tailStart);
  if (value.length() < tailStart)
    raise<typename Layout::Format::ParsingException>(tvstring("Illegal ") + row.name + " '" + value + "'",
                                                     Layout::Format::HEADER_SOURCE);
  tvstring &text = texts_[SLOTS[field]];
  text = value;
  flags_[field] = true;
  if (row.tailField == TagValueHeaderField::NO_FIELD) return;
  std::size_t const tail = static_cast<std::size_t>(row.tailField);
  text.substr(tailStart, texts_[SLOTS[tail]]);
  flags_[tail] = true;
}

template <class Layout>
bool TagValueHeader<Layout>::hasTag(int tag) {
  return TAGS<Layout>.find(tag) != nullptr;
}

template <class Layout>
bool TagValueHeader<Layout>::setTag(int tag, tvstring const &value) {
  auto const *row = TAGS<Layout>.find(tag);
  if (row == nullptr) return false;
  if (row->field == TagValueHeaderField::NO_FIELD) return true;
  std::size_t const index = static_cast<std::size_t>(row->field);
  TagValueHeaderField const &field = Layout::FIELDS[index];
  if (field.isNumber) {
    setNumber(row->field, Parsing::parseInt(value));
  } else if (field.tailField != TagValueHeaderField::NO_FIELD) {
    setText(row->field, value);
  } else {
    texts_[SLOTS[index]] = value;
    flags_[index] = true;
  }
  return true;
}

template <class Layout>
bool TagValueHeader<Layout>::hasTextIn(char const *bytes, int length) const {
  std::less<char const *> const before;
  return std::any_of(texts_.begin(), texts_.end(), [&](tvstring const &text) {
    return before(bytes, text.data() + text.length()) && before(text.data(), bytes + length);
  });
}

template <class Layout>
void TagValueHeader<Layout>::keepTexts(char const *bytes, int length) {
  // Where the text ends; 0 for one that is no view on the bytes.
  auto const endOf = [&](tvstring const &text) {
    std::less<char const *> const before;
    char const *const end = text.data() + text.length();
    return before(text.data(), bytes) || before(bytes + length, end) ? 0 : static_cast<std::size_t>(end - bytes);
  };
  std::size_t size = 0;
  for (tvstring const &text : texts_) size = std::max(size, endOf(text));
  tvstring const copy(bytes, size);
  for (tvstring &text : texts_)
    if (std::size_t const end = endOf(text)) copy.substr(end - text.length(), text.length(), text);
}

template class TagValueHeader<FIXHeaderLayout>;
template class TagValueHeader<SIACCanonicalHeaderLayout>;

namespace {

// Has the metadata made at load; it is only read afterwards.
[[maybe_unused]] int const LOADED =
    (SmartPtr<DataObject>(new FIXHeader), SmartPtr<DataObject>(new SIACCanonicalHeader), 0);

}  // namespace

}  // namespace tavrone
