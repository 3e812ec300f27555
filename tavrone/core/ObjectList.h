#pragma once

#include "tavrone/core/ArrayList.h"
#include "tavrone/core/SmartPtr.h"

namespace tavrone {

// The counted body of an ObjectList. Owns its elements: each is held by one reference, which for a plain Object means
// that the list is its one owner. Elements may be null.
class TAVRONE_API ObjectListRef : public ObjectRef {
 public:
  ObjectListRef() = default;
  // Clones every element; the copy's own count starts at 0.
  ObjectListRef(ObjectListRef const &other);
  ObjectListRef &operator=(ObjectListRef const &) = delete;
  ~ObjectListRef() noexcept(false) override;

  // Takes over the object.
  void add(Object *object);
  // Adds a clone.
  void add(Object const &object);

  // Borrowed. A bad index raises std::out_of_range "invalid vector<T> subscript".
  Object *at(int index) const;
  Object *operator[](int index) const { return at(index); }
  int size() const { return elements_.size(); }

  // Releases every element.
  void clear();

 private:
  ArrayList<Object *> elements_;
};

// A list of objects. A copy shares the body that exists, clone() makes one of its own; an ObjectList without elements
// holds no body until somebody asks for it.
class TAVRONE_API ObjectList : public Object {
 public:
  ObjectList() = default;
  ObjectList(ObjectList const &) = default;
  ObjectList &operator=(ObjectList const &other);
  ~ObjectList() noexcept(false) override;

  // "[a, b]"; a null element is "null".
  tvstring toString() const override;
  // A list of the elements' clones; null stays null.
  Object *clone() const override;

  // Takes over the object.
  void add(Object *object);
  // Adds a clone.
  void add(Object const &object) { body().add(object); }

  // Borrowed. A bad index raises std::out_of_range "invalid vector<T> subscript".
  Object *at(int index) const;
  Object *get(int index) const { return at(index); }
  Object *operator[](int index) const { return at(index); }
  // REQUIRES: the element is not null
  Object const &getValue(int index) const { return *at(index); }

  int size() const { return list_.isNull() ? 0 : list_->size(); }
  void clear();

  // The body, made on first use.
  SmartPtr<ObjectListRef> getListPtr();

 private:
  ObjectListRef &body();

  SmartPtr<ObjectListRef> list_;
};

}  // namespace tavrone
