#include "tavrone/formula/DataObjectFunctions.h"

#include <cmath>
#include <optional>

#include "tavrone/core/Exceptions.h"
#include "tavrone/core/Parsing.h"
#include "tavrone/dataobject/DataObjectBase.h"
#include "tavrone/formula/FieldPaths.h"
#include "tavrone/formula/FieldReaders.h"

namespace tavrone {
namespace {

// Keeps a value that is a number, or can be read as one.
template <class Number>
struct NumberFrom {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) {
    if constexpr (std::is_base_of_v<NumberObject, typename FieldOf<Kind::value>::Wrapper>)
      number = convertNumber<Number>(value);
    else if constexpr (std::is_same_v<Value, tvstring>)
      return readText(value);
    else if constexpr (std::is_base_of_v<MAPM, Value>)
      readBig(value);
    else
      return false;
    return true;
  }
  bool wrapped(Object const &value) {
    if (auto const *wrapper = dynamic_cast<NumberObject const *>(&value)) {
      readWrapper(*wrapper);
      return true;
    }
    if (auto const *text = dynamic_cast<StringObject const *>(&value)) return readText(text->getValue());
    if (auto const *decimal = dynamic_cast<BigDecimalObject const *>(&value)) return readBig(decimal->getValue());
    if (auto const *whole = dynamic_cast<BigIntegerObject const *>(&value)) return readBig(whole->getValue());
    return false;
  }

  Number number{};

 private:
  void readWrapper(NumberObject const &value) {
    if constexpr (std::is_same_v<Number, int>)
      number = value.getInt();
    else if constexpr (std::is_same_v<Number, long long>)
      number = value.getLong();
    else
      number = value.getDouble();
  }
  bool readText(tvstring const &text) {
    if (text.empty()) return false;
    if constexpr (std::is_same_v<Number, int>)
      number = Parsing::parseInt(text);
    else if constexpr (std::is_same_v<Number, long long>)
      number = Parsing::parseLong(text);
    else
      number = Parsing::parseDouble(text);
    return true;
  }
  bool readBig(MAPM const &value) {
    if constexpr (std::is_same_v<Number, int>)
      number = value.toInt();
    else if constexpr (std::is_same_v<Number, long long>)
      number = value.toLong();
    else
      number = value.toDouble();
    return true;
  }
};

struct DateFrom {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) {
    constexpr bool IS_DATE_TIME = std::is_base_of_v<DateTime, Value>;
    if constexpr (IS_DATE_TIME) date = value;
    return IS_DATE_TIME;
  }
  bool wrapped(Object const &value) {
    if (auto const *plain = dynamic_cast<DateObject const *>(&value)) return date = plain->getValue(), true;
    if (auto const *iso = dynamic_cast<ISODateObject const *>(&value)) return date = iso->getValue(), true;
    return false;
  }

  DateTime date;
};

template <class Reader>
bool readPath(DataObject *record, tvstring const &path, Reader &reader) {
  LocatedField const field = followPath(record, path);
  return field.isKnown() && readField(*field.record, field.index, reader);
}

template <class Number>
Number readNumber(DataObject *record, tvstring const &path, Number otherwise) {
  NumberFrom<Number> reader;
  try {
    return readPath(record, path, reader) ? reader.number : otherwise;
  } catch (TransformException const &) {
    return otherwise;
  }
}

bool isPlainNumber(FieldKind kind) {
  return kind == FieldKind::INTEGER || kind == FieldKind::LONG || kind == FieldKind::FLOAT || kind == FieldKind::DOUBLE;
}

bool areTypesAlike(tvstring const &a, tvstring const &b) {
  return a == b || (isPlainNumber(FieldMetaInfo::kindOf(a)) && isPlainNumber(FieldMetaInfo::kindOf(b)));
}

void copyMatchingElements(DataObjectSection const &from, DataObjectSection &to) {
  if (&from == &to) return;
  to.clear();
  int const count = from.getElementCount();
  for (int i = 0; i < count; ++i) DataObjectFunctions::copyMatching(from.getElement(i), addNewElement(to));
}

bool areEqual(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

bool areEqual(DataObjectSection const *a, DataObjectSection const *b) {
  int const count = a == nullptr ? 0 : a->getElementCount();
  if (count != (b == nullptr ? 0 : b->getElementCount())) return false;
  for (int i = 0; i < count; ++i)
    if (!DataObjectFunctions::equal(a->getElement(i), b->getElement(i))) return false;
  return true;
}

// A null field, and a section without elements, which some records have from the start and others from the first
// access.
bool holdsNothing(Object const *value) {
  auto const *section = dynamic_cast<SectionObject const *>(value);
  return value == nullptr || (section != nullptr && areEqual(section->getSection(), nullptr));
}

// Both of class Wrapper: what `equal` says of the values.
template <class Wrapper, class Equal>
std::optional<bool> compareAs(Object const &a, Object const &b, Equal const &equal) {
  auto const *x = dynamic_cast<Wrapper const *>(&a);
  auto const *y = dynamic_cast<Wrapper const *>(&b);
  if (x == nullptr || y == nullptr) return std::nullopt;
  return equal(*x, *y);
}

bool areEqual(Object &a, Object &b) {
  if (auto *record = dynamic_cast<DataObject *>(&a)) {
    auto *other = dynamic_cast<DataObject *>(&b);
    return other != nullptr && DataObjectFunctions::equal(record, other);
  }
  if (typeid(a) != typeid(b)) return false;
  // Texts don't show all of these.
  if (auto const result = compareAs<SectionObject>(
          a, b, [](auto const &x, auto const &y) { return areEqual(x.getSection(), y.getSection()); }))
    return *result;
  auto const sameNumber = [](auto const &x, auto const &y) { return areEqual(x.getDouble(), y.getDouble()); };
  if (auto const result = compareAs<DoubleObject>(a, b, sameNumber)) return *result;
  if (auto const result = compareAs<FloatObject>(a, b, sameNumber)) return *result;
  if (auto const result = compareAs<ISODateObject>(a, b, [](auto const &x, auto const &y) {
        return x.getValue() == y.getValue() && x.getValue().getTimeZoneOffset() == y.getValue().getTimeZoneOffset();
      }))
    return *result;
  return a.toString() == b.toString();
}

}  // namespace

bool DataObjectFunctions::isNull(DataObject *record, tvstring const &path) {
  LocatedField const field = followPath(record, path);
  return !field.isKnown() || field.record->isNull(field.index);
}
bool DataObjectFunctions::exists(DataObject *record, tvstring const &path) {
  return isPathKnown(record, path);
}

Object *DataObjectFunctions::getField(DataObject *record, tvstring const &path) {
  LocatedField const field = followPath(record, path);
  return field.isKnown() ? field.record->getField(field.index) : nullptr;
}
tvstring DataObjectFunctions::getText(DataObject *record, tvstring const &path) {
  TextFrom reader;
  readPath(record, path, reader);
  return reader.text;
}
int DataObjectFunctions::getInt(DataObject *record, tvstring const &path, int otherwise) {
  return readNumber(record, path, otherwise);
}
long long DataObjectFunctions::getLong(DataObject *record, tvstring const &path, long long otherwise) {
  return readNumber(record, path, otherwise);
}
double DataObjectFunctions::getDouble(DataObject *record, tvstring const &path, double otherwise) {
  return readNumber(record, path, otherwise);
}
DateTime DataObjectFunctions::getDate(DataObject *record, tvstring const &path, DateTime const &otherwise) {
  DateFrom reader;
  return readPath(record, path, reader) ? reader.date : otherwise;
}

void DataObjectFunctions::setField(DataObject *record, tvstring const &path, Object const *value) {
  if (value == nullptr) return setNull(record, path);
  // Nothing is made on the way to a field that does not exist.
  if (!isPathKnown(record, path)) return;
  LocatedField const field = followPath(record, path, MissingRecords::ARE_MADE);
  if (!field.isKnown()) return;
  bool const wasNull = field.record->isNull(field.index);
  try {
    field.record->setField(field.index, value);
  } catch (...) {
    if (wasNull) field.record->setNull(field.index);
    throw;
  }
}
void DataObjectFunctions::setNull(DataObject *record, tvstring const &path) {
  LocatedField const field = followPath(record, path);
  if (field.isKnown()) field.record->setNull(field.index);
}

void DataObjectFunctions::copy(DataObject const *from, DataObject *to) {
  if (from != nullptr && to != nullptr) DataObjectBase::copy(from, to);
}

void DataObjectFunctions::copyMatching(DataObject const *from, DataObject *to) {
  if (from == nullptr || to == nullptr || from == to) return;
  int const count = from->getFieldCount();
  for (int i = 0; i < count; ++i) {
    int const target = findIndex(*to, from->getFieldName(i));
    if (target < 0 || !areTypesAlike(from->getFieldType(i), to->getFieldType(target))) continue;
    SmartPtr<Object> const value(from->getField(i));
    auto const *section = dynamic_cast<SectionObject const *>(value.get());
    if (section == nullptr)
      to->setField(target, value.get());
    else if (section->getSection() != nullptr)
      copyMatchingElements(*section->getSection(), *findSection(*to, target, MissingRecords::ARE_MADE));
  }
}

bool DataObjectFunctions::equal(DataObject *a, DataObject *b) {
  if (a == b) return true;
  if (a == nullptr || b == nullptr || a->getFieldCount() != b->getFieldCount()) return false;
  int const count = a->getFieldCount();
  for (int i = 0; i < count; ++i) {
    if (a->getFieldName(i) != b->getFieldName(i)) return false;
    SmartPtr<Object> const x(a->getField(i));
    SmartPtr<Object> const y(b->getField(i));
    if (holdsNothing(x.get()) || holdsNothing(y.get())) {
      if (holdsNothing(x.get()) != holdsNothing(y.get())) return false;
    } else if (!areEqual(*x, *y)) {
      return false;
    }
  }
  return true;
}

bool DataObjectFunctions::isEmpty(DataObject *record) {
  return record == nullptr || record->isEmpty();
}
DataObject *DataObjectFunctions::root(DataObject *record) {
  return record == nullptr ? nullptr : record->getRootDataObject();
}
DataObject *DataObjectFunctions::parent(DataObject *record) {
  DataObjectSection *section = record == nullptr ? nullptr : record->getParentSection();
  return section == nullptr ? nullptr : section->getParent();
}

int DataObjectFunctions::fieldCount(DataObject *record) {
  return record == nullptr ? 0 : record->getFieldCount();
}
tvstring DataObjectFunctions::fieldName(DataObject *record, int index) {
  return index < 0 || index >= fieldCount(record) ? tvstring() : record->getFieldName(index);
}
tvstring DataObjectFunctions::fieldType(DataObject *record, int index) {
  return index < 0 || index >= fieldCount(record) ? tvstring() : record->getFieldType(index);
}
tvstring DataObjectFunctions::toXML(DataObject *record) {
  return record == nullptr ? tvstring() : record->toXMLString();
}

}  // namespace tavrone
