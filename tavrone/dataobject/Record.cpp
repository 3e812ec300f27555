#include "tavrone/dataobject/Record.h"

#include <memory>
#include <vector>

#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/FieldAccess.h"
#include "tavrone/pipeline/RawMessage.h"

namespace tavrone {

namespace {

// How a value is wrapped, and read and written as an Object.
template <class W, auto Get, auto Set>
struct Through {
  using Wrapper = W;
  static constexpr auto get = Get;
  static constexpr auto set = Set;
};
template <class Value>
struct Access;
// clang-format off
template <> struct Access<tvstring> : Through<StringObject, &Object::getString, &Object::setString> {};
template <> struct Access<int> : Through<IntObject, &Object::getInt, &Object::setInt> {};
template <> struct Access<long long> : Through<LongObject, &Object::getLong, &Object::setLong> {};
template <> struct Access<float> : Through<FloatObject, &Object::getFloat, &Object::setFloat> {};
template <> struct Access<double> : Through<DoubleObject, &Object::getDouble, &Object::setDouble> {};
template <> struct Access<char> : Through<CharObject, &Object::getCharacter, &Object::setCharacter> {};
template <> struct Access<bool> : Through<BoolObject, &Object::getBoolean, &Object::setBoolean> {};
template <> struct Access<Binary> : Through<BinaryObject, &Object::getBinary, &Object::setBinary> {};
template <> struct Access<DateTime> : Through<DateObject, &Object::getDate, &Object::setDate> {};
template <> struct Access<ISODateTime> : Through<ISODateObject, &Object::getISODate, &Object::setISODate> {};
template <> struct Access<BigInteger> : Through<BigIntegerObject, &Object::getBigInteger, &Object::setBigInteger> {};
template <> struct Access<BigDecimal> : Through<BigDecimalObject, &Object::getBigDecimal, &Object::setBigDecimal> {};
template <> struct Access<RawMessage> : Through<RawMessageObject, &Object::getRawMessage, &Object::setRawMessage> {};
// clang-format on

template <class Value>
Object *give(Value const &value, Object *out) {
  if constexpr (std::is_base_of_v<DataObjectSection, Value>) {
    // Reading a record hands out its section to work on.
    auto *section = const_cast<Value *>(&value);
    if (out == nullptr) return new SectionObject(section, false);
    SectionObject const wrapper(section, false);
    out->setObject(&wrapper);
  } else {
    if (out == nullptr) return new typename Access<Value>::Wrapper(value);
    (out->*Access<Value>::set)(value);
  }
  return out;
}

// Shares the elements of another section. One of another class is found before anything changes.
void shareElements(AbstractDataObjectSection &to, DataObjectSection *from) {
  int const count = from->getElementCount();
  for (int i = 0; i < count; ++i) to.admitElement(from->getElement(i));
  DataObjectSection::assign(&to, from);
}

template <class Value>
void take(Value &value, Object const *from) {
  if constexpr (std::is_base_of_v<DataObjectSection, Value>)
    shareElements(value, checkedCast<DataObjectSection>(checkedCast<SectionObject>(from)->getSection()));
  else
    value = (from->*Access<Value>::get)();
}

}  // namespace

RecordBase::RecordBase(DataObjectMetaInfo *type) : AbstractDataObject(type, nullptr, nullptr) {
  setHasFieldOffsets();
}

// A deriving class that leaves its copy constructor to the compiler copies the count, the virtual base being its own.
RecordBase::RecordBase(RecordBase const &other) : Object(), ObjectRef(), AbstractDataObject(other) {
  while (getRefCount() > 0) decRef();
  setHasFieldOffsets();
}

FieldMetaInfo const *RecordBase::findField(int index) const {
  return index >= 0 && index < metaInfo->getFieldCount() ? metaInfo->getFieldMetaInfo(index) : nullptr;
}

Object *RecordBase::getField0(int index, Object *out) const {
  Object *given = nullptr;
  FieldMetaInfo const *field = findField(index);
  if (field == nullptr || !visitStored(*this, *field, [&](auto const &value) { given = give(value, out); }))
    return AbstractDataObject::getField0(index, out);
  return given;
}
Object *RecordBase::getField0(int index) const {
  return RecordBase::getField0(index, nullptr);
}

void RecordBase::setField0(int index, Object const *from) {
  FieldMetaInfo const *field = findField(index);
  if (field == nullptr || !visitStored(*this, *field, [&](auto &value) { take(value, from); }))
    AbstractDataObject::setField0(index, from);
}

DataObjectSection *RecordBase::getSection(int index) const {
  DataObjectSection *section = nullptr;
  FieldMetaInfo const *field = findField(index);
  if (field != nullptr && isNotNull(index))
    visitStored(*this, *field, [&](auto const &value) {
      using Value = std::remove_cvref_t<decltype(value)>;
      if constexpr (std::is_base_of_v<DataObjectSection, Value>) section = const_cast<Value *>(&value);
    });
  return section != nullptr ? section : AbstractDataObject::getSection(index);
}

bool RecordBase::isEmpty() const {
  int const count = metaInfo->getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (!isNotNull(i)) continue;
    bool empty = false;
    visitStored(*this, *metaInfo->getFieldMetaInfo(i), [&](auto const &value) {
      if constexpr (std::is_base_of_v<DataObjectSection, std::remove_cvref_t<decltype(value)>>) empty = value.isEmpty();
    });
    if (!empty) return false;
  }
  return true;
}

DataObjectMetaInfo *RecordBase::makeMetaInfo(char const *name, MemberRow const *rows, std::size_t count) {
  std::vector<std::unique_ptr<FieldMetaInfo>> fields;
  std::vector<FieldMetaInfo *> borrowed;
  for (MemberRow const *row = rows; row != rows + count; ++row) {
    tvstringliteral const field(row->name);
    if (row->kind == MemberKind::FIELD)
      fields.push_back(std::make_unique<FieldMetaInfo>(field, *row->type, true));
    else
      fields.push_back(
          std::make_unique<SectionMetaInfo>(nullptr, field, *row->type, row->minOccurs, row->maxOccurs, false));
    borrowed.push_back(fields.back().get());
  }
  auto type = std::make_unique<DataObjectMetaInfo>(tvstringliteral(name), borrowed.data(), static_cast<int>(count));
  // An element's type is to know the section that the type owns, not the one that it was cloned from.
  for (std::size_t i = 0; i < count; ++i)
    if (auto *section = dynamic_cast<SectionMetaInfo *>(type->getFieldMetaInfo(static_cast<int>(i))))
      section->init(rows[i].element == nullptr ? type.get() : rows[i].element, rows[i].minOccurs, rows[i].maxOccurs);
  return type.release();
}

void RecordBase::setOffset(std::size_t index, void const *value) const {
  auto const *start = reinterpret_cast<char const *>(static_cast<DataObject const *>(this));
  metaInfo->setFieldOffset(static_cast<int>(index), static_cast<int>(static_cast<char const *>(value) - start));
}

}  // namespace tavrone
