#include "tavrone/context/PropertyMapImpl.h"

#include <cstdint>
#include <cstring>
#include <memory>
#include <typeinfo>

#include "tavrone/core/Parsing.h"
#include "tavrone/core/Subscript.h"

namespace tavrone {

namespace {

// Equality with one key, for a scan over many: keys of one map are often alike but for their end, so their last bytes
// are compared first, without a call.
class KeyMatcher {
 public:
  explicit KeyMatcher(tvstring const &key)
      : data_(key.data()), length_(key.length()), tail_(length_ < sizeof tail_ ? 0 : tailOf(data_)) {}

  bool matches(tvstring const &key) const {
    if (key.length() != length_) return false;
    if (length_ < sizeof tail_) return tvstring::equals(key.data(), data_, length_);
    return tailOf(key.data()) == tail_ && std::memcmp(key.data(), data_, length_ - sizeof tail_) == 0;
  }

 private:
  uint64_t tailOf(char const *text) const {
    uint64_t tail;
    std::memcpy(&tail, text + length_ - sizeof tail, sizeof tail);
    return tail;
  }

  char const *data_;
  size_t length_;
  uint64_t tail_;
};

bool startsWith(tvstring const &key, tvstring const &prefix) {
  return key.length() >= prefix.length() && tvstring::equals(key.data(), prefix.data(), prefix.length());
}

TList<tvstring> accepted(TList<tvstring> const &names, IPropertyMap::PropertyNameFilter *filter) {
  if (filter == nullptr) return names;
  TList<tvstring> kept;
  for (tvstring const &name : names)
    if (filter->accept(name)) kept.add(name);
  return kept;
}

// What a second map may hold of a value: two owners would free a single-owner object twice.
Object *forAnotherMap(Object *value) {
  return value == nullptr || dynamic_cast<ObjectRef *>(value) != nullptr ? value : value->clone();
}

void putAll(IPropertyMap &target, IPropertyMap &source) {
  for (tvstring const &name : source.getPropertyNames()) {
    Object *const value = source.getProperty(name);
    if (value == target.getProperty(name)) continue;
    Object *const shared = forAnotherMap(value);
    std::unique_ptr<Object> clone(shared == value ? nullptr : shared);
    target.setProperty(name, shared);
    static_cast<void>(clone.release());
  }
}

// The map takes the wrapper over if all goes well.
void setNewProperty(IPropertyMap &map, tvstring const &key, std::unique_ptr<Object> value) {
  map.setProperty(key, value.get());
  static_cast<void>(value.release());
}

// The wrapper that T is set in is told by its exact class, which spares the walk through its bases.
template <class Wrapper, class T>
T numberValue(Object const *value, T defaultValue, T (NumberObject::*get)() const, T (*parse)(tvstring const &)) {
  if (value != nullptr && typeid(*value) == typeid(Wrapper)) return static_cast<Wrapper const *>(value)->getValue();
  if (auto const *number = dynamic_cast<NumberObject const *>(value)) return (number->*get)();
  if (auto const *text = dynamic_cast<StringObject const *>(value)) return parse(text->getValue());
  return defaultValue;
}

}  // namespace

IPropertyMap::Entry::~Entry() noexcept(false) = default;
IPropertyMap::EntryImpl::~EntryImpl() noexcept(false) = default;
IPropertyMap::PropertyNameFilter::~PropertyNameFilter() noexcept(false) = default;
IPropertyMap::~IPropertyMap() noexcept(false) = default;
IPropertyMap2::~IPropertyMap2() noexcept(false) = default;

tvstring IPropertyMap::EntryImpl::toString() const {
  return key_ + "=" + (value_ == nullptr ? tvstringliteral("null") : value_->toString());
}

// Through the default constructor, so that the destructor releases what was taken so far when a clone fails.
PropertyMapImpl::PropertyMapImpl(PropertyMapImpl const &other) : PropertyMapImpl() {
  entries_.reserve(other.entries_.size());
  for (EntryImpl const &entry : other.entries_) {
    Object *const value = forAnotherMap(entry.getValue());
    addEntry(EntryImpl(entry.getKey(), value));  // there is room
    ObjectRef::addRef(value);
  }
}
PropertyMapImpl &PropertyMapImpl::operator=(PropertyMapImpl const &other) {
  if (this == &other) return *this;
  PropertyMapImpl copy(other);
  entries_.swap(copy.entries_);
  return *this;
}
PropertyMapImpl::~PropertyMapImpl() noexcept(false) {
  for (EntryImpl const &entry : entries_) ObjectRef::releaseRef(entry.getValue());
}

int PropertyMapImpl::getEntryIndex(tvstring const &key) const {
  int const hash = hashCode(key);
  KeyMatcher const wanted(key);
  int index = 0;
  for (EntryImpl const &entry : entries_) {
    if (entry.getKeyHashCode() == hash && wanted.matches(entry.getKey())) return index;
    ++index;
  }
  return -1;
}

IPropertyMap::EntryImpl &PropertyMapImpl::getEntry(int index) {
  return entries_[checkedSubscript(index, entries_.size())];
}

void PropertyMapImpl::addEntry(EntryImpl const &entry) {
  entries_.push_back(entry);
}

Object *PropertyMapImpl::getProperty(tvstring const &key, Object *defaultValue) {
  Object *const value = getProperty(key);
  return value == nullptr ? defaultValue : value;
}
Object *PropertyMapImpl::getProperty(tvstring const &key) {
  int const index = getEntryIndex(key);
  return index < 0 ? nullptr : entries_[static_cast<size_t>(index)].getValue();
}

void PropertyMapImpl::setProperty(tvstring const &key, Object *value) {
  if (value == nullptr) {
    removeProperty(key);
    return;
  }
  EntryImpl const entry(key, value);
  int const index = getEntryIndex(key);
  if (index < 0)
    addEntry(entry);
  else
    getEntry(index) = entry;  // the former value is not released: that is meant
  value->addRef();
}

void PropertyMapImpl::removeProperty(tvstring const &key) {
  int const index = getEntryIndex(key);
  if (index < 0) return;
  Object *const value = getEntry(index).getValue();
  entries_.erase(entries_.begin() + index);
  ObjectRef::releaseRef(value);
}

bool PropertyMapImpl::hasProperty(tvstring const &key) {
  return getEntryIndex(key) != -1;
}

#define TAVRONE_PROPERTY(Name, Value, Parameter, Wrapper)                                   \
  Value PropertyMapImpl::get##Name##Property(tvstring const &key, Parameter defaultValue) { \
    return toValue(getProperty(key), defaultValue);                                         \
  }                                                                                         \
  void PropertyMapImpl::set##Name##Property(tvstring const &key, Parameter value) {         \
    setNewProperty(*this, key, std::make_unique<Wrapper>(value));                           \
  }

TAVRONE_PROPERTY(Long, long long, long long, LongObject)
TAVRONE_PROPERTY(Boolean, bool, bool, BoolObject)
TAVRONE_PROPERTY(Int, int, int, IntObject)
TAVRONE_PROPERTY(Double, double, double, DoubleObject)
TAVRONE_PROPERTY(Float, float, float, FloatObject)
TAVRONE_PROPERTY(Date, DateTime, DateTime const &, DateObject)

#undef TAVRONE_PROPERTY

tvstring PropertyMapImpl::getStringProperty(tvstring const &key, tvstring const &defaultValue) {
  Object const *const value = getProperty(key);
  return value == nullptr ? defaultValue : value->toString();
}
void PropertyMapImpl::setStringProperty(tvstring const &key, tvstring const &value) {
  setNewProperty(*this, key, std::make_unique<StringObject>(value));
}

TList<tvstring> PropertyMapImpl::getPropertyNames(PropertyNameFilter *filter) {
  return accepted(getPropertyNames(), filter);
}
TList<tvstring> PropertyMapImpl::getPropertyNames() {
  return getNames(tvstring::EMPTY);
}

int PropertyMapImpl::getPropertyCount() {
  return size();
}

void PropertyMapImpl::clearProperties() {
  entries_.clear();  // unlike removeProperty, without a release: that is meant
}

SmartPtr<IPropertyMap> PropertyMapImpl::getProperties(tvstring const &prefix) {
  return new PropertyMapSubset(this, prefix + ".");
}

void PropertyMapImpl::putProperties(IPropertyMap *other) {
  putAll(*this, *other);
}

std::vector<IPropertyMap::EntryImpl> PropertyMapImpl::getEntries(tvstring const &prefix) {
  std::vector<EntryImpl> found;
  for (EntryImpl const &entry : entries_)
    if (startsWith(entry.getKey(), prefix)) found.push_back(entry);
  return found;
}

void PropertyMapImpl::clear(tvstring const &prefix) {
  // The prefix may be the key of an entry that goes. Nothing is released here either.
  std::erase_if(entries_, [prefix](EntryImpl const &entry) { return startsWith(entry.getKey(), prefix); });
}

TList<tvstring> PropertyMapImpl::getNames(tvstring const &prefix) {
  TList<tvstring> names;
  for (EntryImpl const &entry : entries_)
    if (startsWith(entry.getKey(), prefix)) names.add(entry.getKey());
  return names;
}

int PropertyMapImpl::toValue(Object *value, int defaultValue) {
  return numberValue<IntObject>(value, defaultValue, &NumberObject::getInt, &Parsing::parseInt);
}
long long PropertyMapImpl::toValue(Object *value, long long defaultValue) {
  return numberValue<LongObject>(value, defaultValue, &NumberObject::getLong, &Parsing::parseLong);
}
double PropertyMapImpl::toValue(Object *value, double defaultValue) {
  return numberValue<DoubleObject>(value, defaultValue, &NumberObject::getDouble, &Parsing::parseDouble);
}
float PropertyMapImpl::toValue(Object *value, float defaultValue) {
  return numberValue<FloatObject>(value, defaultValue, &NumberObject::getFloat, &Parsing::parseFloat);
}
bool PropertyMapImpl::toValue(Object *value, bool defaultValue) {
  if (auto const *boolean = dynamic_cast<BoolObject const *>(value)) return boolean->getValue();
  if (auto const *text = dynamic_cast<StringObject const *>(value)) return Parsing::parseBoolean(text->getValue());
  if (auto const *number = dynamic_cast<NumberObject const *>(value)) return number->getInt() != 0;
  return defaultValue;
}
DateTime PropertyMapImpl::toValue(Object *value, DateTime const &defaultValue) {
  auto const *date = dynamic_cast<DateObject const *>(value);
  return date == nullptr ? defaultValue : date->getValue();
}

PropertyMapSubset::PropertyMapSubset(SmartPtr<IPropertyMap2> const &parent, tvstring const &prefix)
    : parent_(parent), prefix_(prefix) {}
PropertyMapSubset::PropertyMapSubset(PropertyMapSubset const &other)
    : Object(), ObjectRef(), PropertyMapForwarder(other), parent_(other.parent_), prefix_(other.prefix_) {}
PropertyMapSubset::~PropertyMapSubset() noexcept(false) = default;

TList<tvstring> PropertyMapSubset::getPropertyNames(PropertyNameFilter *filter) {
  return accepted(getPropertyNames(), filter);
}
TList<tvstring> PropertyMapSubset::getPropertyNames() {
  return getNames(tvstring::EMPTY);
}

int PropertyMapSubset::getPropertyCount() {
  return static_cast<int>(getEntries(tvstring::EMPTY).size());
}

void PropertyMapSubset::clearProperties() {
  parent_->clear(prefix_);
}

SmartPtr<IPropertyMap> PropertyMapSubset::getProperties(tvstring const &prefix) {
  return new PropertyMapSubset(this, prefix + ".");
}

void PropertyMapSubset::putProperties(IPropertyMap *other) {
  if (other != this) putAll(*this, *other);
}

std::vector<IPropertyMap::EntryImpl> PropertyMapSubset::getEntries(tvstring const &prefix) {
  return parent_->getEntries(prefix_ + prefix);
}

void PropertyMapSubset::clear(tvstring const &prefix) {
  parent_->clear(prefix_ + prefix);
}

TList<tvstring> PropertyMapSubset::getNames(tvstring const &prefix) {
  TList<tvstring> names = parent_->getNames(prefix_ + prefix);
  for (tvstring &name : names) name = name.substr(prefix_.length());
  return names;
}

PropertyMapDelegate::PropertyMapDelegate(PropertyMapDelegate const &other)
    : Object(), ObjectRef(), PropertyMapForwarder(other), map_(other.map_) {}
PropertyMapDelegate &PropertyMapDelegate::operator=(PropertyMapDelegate const &other) {
  if (this != &other) map_ = other.map_;
  return *this;
}
PropertyMapDelegate::~PropertyMapDelegate() noexcept(false) = default;

SmartPtr<IPropertyMap> PropertyMapDelegate::getProperties() {
  target();
  return map_;
}

IPropertyMap &PropertyMapDelegate::target() {
  if (map_.isNull()) map_ = new PropertyMapImpl;
  return *map_;
}

}  // namespace tavrone
