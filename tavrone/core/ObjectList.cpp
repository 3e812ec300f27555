#include "tavrone/core/ObjectList.h"

#include <memory>

#include "tavrone/core/Subscript.h"
#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

namespace {

// Makes room for an object that a list takes over. Should that fail, it goes, unless somebody counts it.
template <class MakeRoom>
void orDrop(Object *object, MakeRoom const &makeRoom) {
  try {
    makeRoom();
  } catch (...) {
    ObjectRef::addRef(object);
    ObjectRef::releaseRef(object);
    throw;
  }
}

}  // namespace

// Through the default constructor, so that the destructor frees the clones made so far when one fails.
ObjectListRef::ObjectListRef(ObjectListRef const &other) : ObjectListRef() {
  elements_.reserve(other.size() + 1);
  for (Object *element : other.elements_) {
    if (element == nullptr)
      add(nullptr);
    else
      add(*element);
  }
}
ObjectListRef::~ObjectListRef() noexcept(false) {
  clear();
}

void ObjectListRef::add(Object *object) {
  orDrop(object, [this] { elements_.ensureFree(1); });
  ObjectRef::addRef(object);
  elements_.push_back(object);
}
void ObjectListRef::add(Object const &object) {
  elements_.ensureFree(1);
  add(object.clone());
}

Object *ObjectListRef::at(int index) const {
  checkedSubscript(index, static_cast<size_t>(size()));
  return elements_.at(index);
}

void ObjectListRef::clear() {
  ArrayList<Object *> released;
  released.swap(elements_);
  for (Object *element : released) ObjectRef::releaseRef(element);
}

// A SmartPtr assigned to itself drops what it holds.
ObjectList &ObjectList::operator=(ObjectList const &other) {
  if (this != &other) list_ = other.list_;
  return *this;
}
ObjectList::~ObjectList() noexcept(false) = default;

tvstring ObjectList::toString() const {
  tvstringbuffer text("[");
  for (int i = 0; i < size(); ++i) {
    if (i != 0) text.append(", ");
    Object const *element = at(i);
    if (element == nullptr)
      text.append("null");
    else
      text.append(element->toString());
  }
  return text.append(']');
}

Object *ObjectList::clone() const {
  std::unique_ptr<ObjectList> copy(new ObjectList);
  if (size() != 0) copy->list_ = new ObjectListRef(*list_);
  return copy.release();
}

void ObjectList::add(Object *object) {
  orDrop(object, [this] { body(); });
  list_->add(object);
}

Object *ObjectList::at(int index) const {
  if (list_.isNull()) throwInvalidSubscript();
  return list_->at(index);
}

void ObjectList::clear() {
  if (!list_.isNull()) list_->clear();
}

SmartPtr<ObjectListRef> ObjectList::getListPtr() {
  body();
  return list_;
}

ObjectListRef &ObjectList::body() {
  if (list_.isNull()) list_ = new ObjectListRef;
  return *list_;
}

}  // namespace tavrone
