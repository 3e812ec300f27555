#include "tavrone/formula/SectionFunctions.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numeric>
#include <optional>
#include <utility>
#include <variant>
#include <vector>

#include "tavrone/core/Exceptions.h"
#include "tavrone/dataobject/DataObjectBase.h"
#include "tavrone/formula/FieldPaths.h"
#include "tavrone/formula/FieldReaders.h"

namespace tavrone {
namespace {

// A value that sorts. Kinds come in this order, but that numbers of the first two are compared with each other.
using Key = std::variant<std::monostate, long long, double, BigDecimal, DateTime, tvstring>;

struct KeyFrom {
  template <class Kind, class Value>
  bool plain(Kind, Value const &value) {
    if constexpr (std::is_integral_v<Value>)
      key = static_cast<long long>(value);
    else if constexpr (std::is_floating_point_v<Value>)
      key = static_cast<double>(value);
    else if constexpr (std::is_base_of_v<MAPM, Value>)
      key = BigDecimal(value);
    else if constexpr (std::is_base_of_v<DateTime, Value>)
      key = static_cast<DateTime const &>(value);
    else
      key = textOf<Kind::value>(value);
    return true;
  }
  bool wrapped(Object const &value) {
    // The key of the value itself where the class is one of these: texts don't sort as numbers do.
    bool const isKnown = takes<IntObject>(value) || takes<LongObject>(value) || takes<BigDecimalObject>(value) ||
                         takes<BigIntegerObject>(value) || takes<DateObject>(value) || takes<ISODateObject>(value);
    if (isKnown) return true;
    if (auto const *number = dynamic_cast<NumberObject const *>(&value))
      key = number->getDouble();
    else
      key = value.toString();
    return true;
  }
  template <class Wrapper>
  bool takes(Object const &value) {
    auto const *wrapper = dynamic_cast<Wrapper const *>(&value);
    return wrapper != nullptr && plain(KindTag<FieldKind::OTHER>(), wrapper->getValue());
  }

  Key key;
};

bool isBefore(long double a, long double b) {
  return a < b || (std::isnan(b) && !std::isnan(a));  // what is no number comes last
}
template <class Value>
bool isBefore(Value const &a, Value const &b) {
  return a < b;
}

// Null for what is no plain number. A long double holds every long long.
std::optional<long double> numberOf(Key const &key) {
  if (auto const *whole = std::get_if<long long>(&key)) return static_cast<long double>(*whole);
  if (auto const *number = std::get_if<double>(&key)) return *number;
  return std::nullopt;
}

bool isBefore(Key const &a, Key const &b) {
  std::optional<long double> const x = numberOf(a);
  std::optional<long double> const y = numberOf(b);
  if (x && y) return isBefore(*x, *y);
  if (a.index() != b.index()) return a.index() < b.index();
  return std::visit(
      [&](auto const &value) {
        using Value = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_same_v<Value, std::monostate>)
          return false;
        else
          return isBefore(value, std::get<Value>(b));
      },
      a);
}

// Calls visit(whether the reader likes the field, position) for each element, until it returns true.
template <class Reader, class Visit>
void visitField(DataObjectSection *section, tvstring const &field, Reader &reader, Visit const &visit) {
  int const count = SectionFunctions::count(section);
  if (count == 0) return;
  if (field.find('.') == tvstring::npos) {
    int const index = findIndex(*section->getElement(0), field);
    if (index >= 0) findField(*section, index, reader, visit);
    return;
  }
  for (int i = 0; i < count; ++i) {
    LocatedField const place = followPath(section->getElement(i), field);
    if (visit(place.isKnown() && readField(*place.record, place.index, reader), i)) return;
  }
}

// One for each element; none for an unknown field.
std::vector<Key> keysOf(DataObjectSection *section, tvstring const &field) {
  std::vector<Key> keys;
  KeyFrom reader;
  visitField(section, field, reader, [&](bool hasValue, int) {
    keys.push_back(hasValue ? std::exchange(reader.key, Key()) : Key());
    return false;
  });
  return keys;
}

using Elements = std::vector<SmartPtr<DataObject>>;

void replaceElements(DataObjectSection &section, Elements const &elements) {
  section.clear();
  for (SmartPtr<DataObject> const &element : elements) {
    element->setParentSection(&section);  // one that was in it has lost it
    section.addElement(element.get());
  }
}

}  // namespace

DataObject *SectionFunctions::element(DataObjectSection *section, int index) {
  return index < 0 || index >= count(section) ? nullptr : section->getElement(index);
}

DataObject *SectionFunctions::addElement(DataObjectSection *section) {
  return section == nullptr ? nullptr : addNewElement(*section);
}
bool SectionFunctions::removeElement(DataObjectSection *section, int index) {
  return index >= 0 && index < count(section) && section->removeElement(index);
}
void SectionFunctions::clear(DataObjectSection *section) {
  if (section != nullptr) section->clear();
}

void SectionFunctions::copy(DataObjectSection *from, DataObjectSection *to) {
  if (from == nullptr || to == nullptr || from == to) return;
  Elements copies;
  int const size = from->getElementCount();
  for (int i = 0; i < size; ++i) {
    copies.emplace_back(to->createElement());
    DataObjectBase::copy(from->getElement(i), copies.back().get());
  }
  replaceElements(*to, copies);
}

int SectionFunctions::indexOf(DataObjectSection *section, tvstring const &field, tvstring const &value) {
  int found = -1;
  EqualText reader{value};
  visitField(section, field, reader, [&](bool isEqual, int index) {
    if (isEqual) found = index;
    return isEqual;
  });
  return found;
}
DataObject *SectionFunctions::find(DataObjectSection *section, tvstring const &field, tvstring const &value) {
  return element(section, indexOf(section, field, value));
}

void SectionFunctions::sort(DataObjectSection *section, tvstring const &field, bool ascending) {
  std::vector<Key> const keys = keysOf(section, field);
  std::vector<size_t> order(keys.size());
  std::iota(order.begin(), order.end(), size_t{0});
  std::stable_sort(order.begin(), order.end(), [&](size_t a, size_t b) {
    return ascending ? isBefore(keys[a], keys[b]) : isBefore(keys[b], keys[a]);
  });
  if (std::is_sorted(order.begin(), order.end())) return;
  Elements elements;
  elements.reserve(order.size());
  for (size_t i : order) elements.emplace_back(section->getElement(static_cast<int>(i)));
  replaceElements(*section, elements);
}

bool SectionFunctions::isUnique(DataObjectSection *section, tvstring const &field) {
  std::vector<Key> keys = keysOf(section, field);
  std::erase_if(keys, [](Key const &key) { return key.index() == 0; });
  auto const before = [](Key const &a, Key const &b) { return isBefore(a, b); };
  std::sort(keys.begin(), keys.end(), before);
  return std::adjacent_find(keys.begin(), keys.end(), std::not_fn(before)) == keys.end();
}

bool SectionFunctions::withinLimits(DataObjectSection *section) {
  if (section == nullptr) return true;
  try {
    section->assertConstraints();
    return true;
  } catch (SectionConstraintException const &) {
    return false;
  }
}

TList<std::vector<tvstring>, tvstring> SectionFunctions::values(DataObjectSection *section, tvstring const &field) {
  TList<std::vector<tvstring>, tvstring> texts;
  TextFrom reader;
  visitField(section, field, reader, [&](bool hasValue, int) {
    if (hasValue) texts.add(reader.text);
    return false;
  });
  return texts;
}

}  // namespace tavrone
