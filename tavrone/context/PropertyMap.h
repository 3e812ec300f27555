#pragma once

#include <vector>

#include "tavrone/core/DateTime.h"
#include "tavrone/core/SmartPtr.h"
#include "tavrone/core/TList.h"

namespace tavrone {

// Named values in order of insertion, found by a linear scan: maps hold tens of entries at most. Dots in the keys make
// a hierarchy by convention only; getProperties(prefix) shows one prefix as a map of its own.
//
// A map adds a reference to each value that it takes and drops it in removeProperty and when the map goes. Replacing a
// value, clearProperties and clear(prefix) drop nothing: the values live on for whoever still uses them, and belong to
// whoever made that call. That is meant. What getters return is borrowed.
class TAVRONE_API IPropertyMap : public virtual ObjectRef {
 public:
  // One property. The value is the map's.
  class TAVRONE_API Entry {
   public:
    virtual ~Entry() noexcept(false);
    virtual tvstring const &getName() const = 0;
    virtual Object *getValue() const = 0;
  };

  // Copying an entry shares the key and copies the pointer; references are the map's affair.
  class TAVRONE_API EntryImpl : public Entry {
   public:
    EntryImpl(tvstring const &key, Object *value) : key_(key), value_(value) {}
    EntryImpl(EntryImpl const &) = default;
    EntryImpl &operator=(EntryImpl const &) = default;
    ~EntryImpl() noexcept(false) override;

    tvstring const &getName() const override { return key_; }
    Object *getValue() const override { return value_; }
    tvstring const &getKey() const { return key_; }
    int getKeyHashCode() const { return keyHash_; }
    // Always 0: keys are few, so each is compared.
    static int hashCode(tvstring const &) { return 0; }
    tvstring toString() const;  // "key=value"

   private:
    int keyHash_ = 0;
    tvstring key_;
    Object *value_;
  };

  // Chooses names for getPropertyNames; a host's.
  class TAVRONE_API PropertyNameFilter {
   public:
    virtual ~PropertyNameFilter() noexcept(false);
    virtual bool accept(tvstring const &name) = 0;
  };

  ~IPropertyMap() noexcept(false) override;

  // The value; without one the default, or null.
  virtual Object *getProperty(tvstring const &key, Object *defaultValue) = 0;
  virtual Object *getProperty(tvstring const &key) = 0;
  // Keeps the position of a key that exists; a null value removes the key.
  virtual void setProperty(tvstring const &key, Object *value) = 0;
  // Releases the value; nothing for an unknown key.
  virtual void removeProperty(tvstring const &key) = 0;
  virtual bool hasProperty(tvstring const &key) = 0;

  // The typed getters convert as PropertyMapImpl::toValue does; the default stands in for absent and unrelated values
  // only, so a text that does not parse raises what Parsing raises. The typed setters make a new wrapper.
  virtual long long getLongProperty(tvstring const &key, long long defaultValue) = 0;
  virtual void setLongProperty(tvstring const &key, long long value) = 0;
  virtual bool getBooleanProperty(tvstring const &key, bool defaultValue) = 0;
  virtual void setBooleanProperty(tvstring const &key, bool value) = 0;
  virtual int getIntProperty(tvstring const &key, int defaultValue) = 0;
  virtual void setIntProperty(tvstring const &key, int value) = 0;
  virtual double getDoubleProperty(tvstring const &key, double defaultValue) = 0;
  virtual void setDoubleProperty(tvstring const &key, double value) = 0;
  virtual float getFloatProperty(tvstring const &key, float defaultValue) = 0;
  virtual void setFloatProperty(tvstring const &key, float value) = 0;
  // The toString() of any value.
  virtual tvstring getStringProperty(tvstring const &key, tvstring const &defaultValue) = 0;
  virtual void setStringProperty(tvstring const &key, tvstring const &value) = 0;
  // Never parses a text.
  virtual DateTime getDateProperty(tvstring const &key, DateTime const &defaultValue) = 0;
  virtual void setDateProperty(tvstring const &key, DateTime const &value) = 0;

  // In order of insertion. The filter is borrowed for the call; null accepts every name.
  virtual TList<tvstring> getPropertyNames(PropertyNameFilter *filter) = 0;
  virtual TList<tvstring> getPropertyNames() = 0;
  virtual int getPropertyCount() = 0;
  virtual void clearProperties() = 0;
  // A live view on the keys that begin with prefix + ".". It holds a reference on this map, so that the last view takes
  // along a map that nobody else holds.
  virtual SmartPtr<IPropertyMap> getProperties(tvstring const &prefix) = 0;
  // Sets every property of the other. Counted values are then shared; single-owner ones, the wrappers among them, are
  // cloned. What this map has already stays as it is. REQUIRES: other is not null
  virtual void putProperties(IPropertyMap *other) = 0;

 protected:
  IPropertyMap() = default;
  IPropertyMap(IPropertyMap const &) : Object(), ObjectRef() {}
  IPropertyMap &operator=(IPropertyMap const &) = default;
};

// What a view needs of the map behind it: the operations on all keys that begin with a prefix. The prefix counts as it
// stands; its dot, if meant, is part of it. Names are full keys of this map.
class TAVRONE_API IPropertyMap2 : public IPropertyMap {
 public:
  ~IPropertyMap2() noexcept(false) override;

  // The entries, values borrowed, under the keys of the outermost map behind views.
  virtual std::vector<IPropertyMap::EntryImpl> getEntries(tvstring const &prefix) = 0;
  virtual void clear(tvstring const &prefix) = 0;
  virtual TList<tvstring> getNames(tvstring const &prefix) = 0;
};

}  // namespace tavrone
