#pragma once

#include "tavrone/core/Object.h"

namespace tavrone {

// A pointer that holds one reference on any class of the Object tree. Around a plain Object, whose one owner it then
// is, a SmartPtr must not be copied while both copies live.
//
// Assignment of a pointer or a copy releases the old object before it adds the new one: a SmartPtr that holds the only
// reference and is assigned to itself destroys the object and becomes null. That is meant.
template <class T>
class SmartPtr {
 public:
  SmartPtr() = default;
  // Adds a reference; null holds nothing.
  SmartPtr(T *object) { set(object); }
  SmartPtr(SmartPtr const &other) { set(other.object_); }
  // Takes over the reference, so that a function may return the SmartPtr of a plain Object.
  SmartPtr(SmartPtr &&other) noexcept : object_(other.object_) { other.object_ = nullptr; }
  ~SmartPtr() noexcept(false) { release(); }

  // Stores and adds a reference; does not release what was held.
  void set(T *object) {
    object_ = object;
    if (object_ != nullptr) object_->addRef();
  }
  void reset(T *object) {
    release();
    set(object);
  }
  SmartPtr &operator=(T *object) {
    reset(object);
    return *this;
  }
  SmartPtr &operator=(SmartPtr const &other) {
    if (this != &other)
      reset(other.object_);
    else if (object_ != nullptr && !heldElsewhere())
      release();
    return *this;
  }
  // Takes over the reference before it releases its own, so that `list = std::move(list->next)` is sound.
  SmartPtr &operator=(SmartPtr &&other) noexcept(false) {
    T *const taken = other.object_;
    other.object_ = nullptr;
    release();
    object_ = taken;
    return *this;
  }
  // Drops the reference and leaves the pointer null.
  void release() {
    T *old = object_;
    object_ = nullptr;
    if (old != nullptr) old->releaseRef();
  }

  // None of these tests for null.
  T *get() const { return object_; }
  T *operator->() const { return object_; }
  T &operator*() const { return *object_; }

  bool isNull() const { return object_ == nullptr; }

 private:
  // Whether the object survives the release of this reference.
  bool heldElsewhere() const {
    auto *counted = dynamic_cast<ObjectRef *>(static_cast<Object *>(object_));
    return counted != nullptr && counted->getRefCount() > 1;
  }

  T *object_ = nullptr;
};

}  // namespace tavrone
