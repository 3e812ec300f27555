#pragma once

#include "tavrone/context/PropertyMap.h"

namespace tavrone {

// Forwards every IPropertyMap operation of `Derived` to the map that Derived::target() gives. Operations on one key
// pass it through Derived::targetKey, which is the key itself unless Derived declares its own. `Base` is IPropertyMap
// or an interface that extends it.
template <class Derived, class Base>
class PropertyMapForwarder : public Base {
 public:
  using PropertyNameFilter = IPropertyMap::PropertyNameFilter;

  Object *getProperty(tvstring const &key, Object *defaultValue) override {
    return map().getProperty(mapped(key), defaultValue);
  }
  Object *getProperty(tvstring const &key) override { return map().getProperty(mapped(key)); }
  void setProperty(tvstring const &key, Object *value) override { map().setProperty(mapped(key), value); }
  void removeProperty(tvstring const &key) override { map().removeProperty(mapped(key)); }
  bool hasProperty(tvstring const &key) override { return map().hasProperty(mapped(key)); }
  long long getLongProperty(tvstring const &key, long long defaultValue) override {
    return map().getLongProperty(mapped(key), defaultValue);
  }
  void setLongProperty(tvstring const &key, long long value) override { map().setLongProperty(mapped(key), value); }
  bool getBooleanProperty(tvstring const &key, bool defaultValue) override {
    return map().getBooleanProperty(mapped(key), defaultValue);
  }
  void setBooleanProperty(tvstring const &key, bool value) override { map().setBooleanProperty(mapped(key), value); }
  int getIntProperty(tvstring const &key, int defaultValue) override {
    return map().getIntProperty(mapped(key), defaultValue);
  }
  void setIntProperty(tvstring const &key, int value) override { map().setIntProperty(mapped(key), value); }
  double getDoubleProperty(tvstring const &key, double defaultValue) override {
    return map().getDoubleProperty(mapped(key), defaultValue);
  }
  void setDoubleProperty(tvstring const &key, double value) override { map().setDoubleProperty(mapped(key), value); }
  float getFloatProperty(tvstring const &key, float defaultValue) override {
    return map().getFloatProperty(mapped(key), defaultValue);
  }
  void setFloatProperty(tvstring const &key, float value) override { map().setFloatProperty(mapped(key), value); }
  tvstring getStringProperty(tvstring const &key, tvstring const &defaultValue) override {
    return map().getStringProperty(mapped(key), defaultValue);
  }
  void setStringProperty(tvstring const &key, tvstring const &value) override {
    map().setStringProperty(mapped(key), value);
  }
  DateTime getDateProperty(tvstring const &key, DateTime const &defaultValue) override {
    return map().getDateProperty(mapped(key), defaultValue);
  }
  void setDateProperty(tvstring const &key, DateTime const &value) override {
    map().setDateProperty(mapped(key), value);
  }
  TList<tvstring> getPropertyNames(PropertyNameFilter *filter) override { return map().getPropertyNames(filter); }
  TList<tvstring> getPropertyNames() override { return map().getPropertyNames(); }
  int getPropertyCount() override { return map().getPropertyCount(); }
  void clearProperties() override { map().clearProperties(); }
  SmartPtr<IPropertyMap> getProperties(tvstring const &prefix) override { return map().getProperties(prefix); }
  void putProperties(IPropertyMap *other) override { map().putProperties(other); }

 protected:
  tvstring const &targetKey(tvstring const &key) const { return key; }

 private:
  Derived &self() { return static_cast<Derived &>(*this); }
  IPropertyMap &map() { return self().target(); }
  decltype(auto) mapped(tvstring const &key) { return self().targetKey(key); }
};

}  // namespace tavrone
