#pragma once

#include "tavrone/context/PropertyMapForwarder.h"

namespace tavrone {

// The map itself. A copy has entries of its own: counted values are shared with a reference each, single-owner ones are
// cloned. Assignment releases what the map held.
class TAVRONE_API PropertyMapImpl : public IPropertyMap2 {
 public:
  PropertyMapImpl() = default;
  PropertyMapImpl(PropertyMapImpl const &other);
  PropertyMapImpl &operator=(PropertyMapImpl const &other);
  // Releases every value.
  ~PropertyMapImpl() noexcept(false) override;

  Object *getProperty(tvstring const &key, Object *defaultValue) override;
  Object *getProperty(tvstring const &key) override;
  void setProperty(tvstring const &key, Object *value) override;
  void removeProperty(tvstring const &key) override;
  bool hasProperty(tvstring const &key) override;
  long long getLongProperty(tvstring const &key, long long defaultValue) override;
  void setLongProperty(tvstring const &key, long long value) override;
  bool getBooleanProperty(tvstring const &key, bool defaultValue) override;
  void setBooleanProperty(tvstring const &key, bool value) override;
  int getIntProperty(tvstring const &key, int defaultValue) override;
  void setIntProperty(tvstring const &key, int value) override;
  double getDoubleProperty(tvstring const &key, double defaultValue) override;
  void setDoubleProperty(tvstring const &key, double value) override;
  float getFloatProperty(tvstring const &key, float defaultValue) override;
  void setFloatProperty(tvstring const &key, float value) override;
  tvstring getStringProperty(tvstring const &key, tvstring const &defaultValue) override;
  void setStringProperty(tvstring const &key, tvstring const &value) override;
  DateTime getDateProperty(tvstring const &key, DateTime const &defaultValue) override;
  void setDateProperty(tvstring const &key, DateTime const &value) override;
  TList<tvstring> getPropertyNames(PropertyNameFilter *filter) override;
  TList<tvstring> getPropertyNames() override;
  int getPropertyCount() override;
  void clearProperties() override;
  SmartPtr<IPropertyMap> getProperties(tvstring const &prefix) override;
  void putProperties(IPropertyMap *other) override;
  std::vector<EntryImpl> getEntries(tvstring const &prefix) override;
  void clear(tvstring const &prefix) override;
  TList<tvstring> getNames(tvstring const &prefix) override;

  int size() const { return static_cast<int>(entries_.size()); }
  // Raises std::out_of_range "invalid vector<T> subscript".
  EntryImpl &getEntry(int index);
  int getEntryIndex(tvstring const &key) const;  // -1 if absent
  // Appends as it stands: no reference is added and no duplicate looked for.
  void addEntry(EntryImpl const &entry);
  static int hashCode(tvstring const &key) { return EntryImpl::hashCode(key); }

  // The value as the default's type, or the default for null and unrelated values. Numbers and booleans take number
  // wrappers and parse texts, booleans also take a BoolObject; dates take a DateObject and never parse.
  static int toValue(Object *value, int defaultValue);
  static long long toValue(Object *value, long long defaultValue);
  static double toValue(Object *value, double defaultValue);
  static float toValue(Object *value, float defaultValue);
  static bool toValue(Object *value, bool defaultValue);
  static DateTime toValue(Object *value, DateTime const &defaultValue);

 private:
  std::vector<EntryImpl> entries_;
};

// The keys of a map that begin with a prefix, shown without it. It keeps no entries: each call goes to the parent.
class TAVRONE_API PropertyMapSubset : public PropertyMapForwarder<PropertyMapSubset, IPropertyMap2> {
 public:
  // The prefix includes its trailing ".".
  PropertyMapSubset(SmartPtr<IPropertyMap2> const &parent, tvstring const &prefix);
  PropertyMapSubset(PropertyMapSubset const &other);
  PropertyMapSubset &operator=(PropertyMapSubset const &) = delete;
  ~PropertyMapSubset() noexcept(false) override;

  TList<tvstring> getPropertyNames(PropertyNameFilter *filter) override;
  TList<tvstring> getPropertyNames() override;
  int getPropertyCount() override;
  void clearProperties() override;
  SmartPtr<IPropertyMap> getProperties(tvstring const &prefix) override;
  void putProperties(IPropertyMap *other) override;
  std::vector<EntryImpl> getEntries(tvstring const &prefix) override;
  void clear(tvstring const &prefix) override;
  TList<tvstring> getNames(tvstring const &prefix) override;

 private:
  friend PropertyMapForwarder;
  IPropertyMap &target() { return *parent_; }
  tvstring targetKey(tvstring const &key) const { return prefix_ + key; }

  SmartPtr<IPropertyMap2> parent_;
  tvstring prefix_;
};

// The base of what has properties without a map until somebody asks for one; reading asks, too. Copies share the map,
// if there is one.
class TAVRONE_API PropertyMapDelegate : public PropertyMapForwarder<PropertyMapDelegate, IPropertyMap> {
 public:
  PropertyMapDelegate() = default;
  PropertyMapDelegate(PropertyMapDelegate const &other);
  PropertyMapDelegate &operator=(PropertyMapDelegate const &other);
  ~PropertyMapDelegate() noexcept(false) override;

  // The map, made on first use.
  SmartPtr<IPropertyMap> getProperties();
  using PropertyMapForwarder::getProperties;

 private:
  friend PropertyMapForwarder;
  IPropertyMap &target();

  SmartPtr<IPropertyMap> map_;
};

}  // namespace tavrone
