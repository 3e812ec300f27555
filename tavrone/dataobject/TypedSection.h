#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <type_traits>
#include <typeinfo>
#include <utility>
#include <vector>

#include "tavrone/core/Class.h"
#include "tavrone/core/Export.h"
#include "tavrone/dataobject/DataObjectSectionImpl.h"

namespace tavrone {

// A section whose elements are all of one class, so that it may hand them out as that class: another object is refused
// with ClassCastException wherever it comes in. Walked by a range for; adding or removing an element ends the walk.
//
// clear() and reset() keep the elements that nobody else holds, reset, and createElement() hands them out again: a
// record that a parser fills over and over allocates no elements. It keeps at most as many as it once held. A class
// whose fields don't all start null sets them in reset() too.
template <class Element, class Form>
class TAVRONE_API TypedSection : public Form {
  using Held = SmartPtr<DataObject>;
  static constexpr bool IS_LIST = std::is_base_of_v<DataObjectSectionImpl, Form>;

 public:
  using FormType = Form;

  template <class E>
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Element;
    using difference_type = std::ptrdiff_t;
    using pointer = E *;
    using reference = E &;

    Iterator() = default;
    explicit Iterator(Held const *held) : held_(held) {}
    E &operator*() const { return static_cast<E &>(**held_); }
    E *operator->() const { return &**this; }
    Iterator &operator++() {
      ++held_;
      return *this;
    }
    Iterator operator++(int) { return Iterator(held_++); }
    bool operator==(Iterator const &) const = default;

   private:
    Held const *held_ = nullptr;
  };

  TypedSection(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs)
      : Form(parent, name, minOccurs, maxOccurs) {}
  // Clones of the other's elements under the given parent.
  TypedSection(TypedSection const &other, DataObject *parent) { this->copy(other, parent); }

  Iterator<Element> begin() { return Iterator<Element>(first(*this)); }
  Iterator<Element> end() { return Iterator<Element>(first(*this) + size()); }
  Iterator<Element const> begin() const { return Iterator<Element const>(first(*this)); }
  Iterator<Element const> end() const { return Iterator<Element const>(first(*this) + size()); }
  int size() const { return Form::getElementCount(); }
  // Fails as getElement does.
  Element &operator[](int index) { return static_cast<Element &>(*this->getElement(index)); }
  Element const &operator[](int index) const { return static_cast<Element const &>(*this->getElement(index)); }

  // A new element, added.
  Element &add() {
    SmartPtr<Element> const element(newElement());
    Form::addElement(element.get());
    return *element;
  }

  // What createElement() hands out, without a look at the parent: the caller's.
  Element *newElement() {
    Element *element = spares_.empty() ? makeElement(this) : takeSpare();
    element->setParentSection(this);
    return element;
  }
  // An element for any section; the caller's.
  static Element *makeElement(DataObjectSection *section) {
    auto *element = new Element;
    tellClass(*element);
    element->setParentSection(section);
    return element;
  }

  DataObject *createElement() override { return this->getParent() == nullptr ? Form::createElement() : newElement(); }
  // An element that somebody else holds goes out of the section and no longer points to it.
  void clear() override {
    if (size() == 0) return;
    mostHeld_ = std::max(mostHeld_, static_cast<std::size_t>(size()));
    spares_.reserve(mostHeld_);
    // From the last on, so that each comes back at its old place.
    while (size() != 0) retire(takeLast());
  }
  DataObjectSection *clone() const override { return new TypedSection(*this, nullptr); }
  void admitElement(DataObject *element) const override { tellClass(*checkedCast<Element>(element)); }
  // A spare changes hands without its count.
  DataObject *addNewElement() override {
    if (spares_.empty() || Form::getParent() == nullptr || (!IS_LIST && size() != 0)) return Form::addNewElement();
    Held &spare = spares_.back();
    DataObject *const element = spare.get();
    element->setParentSection(this);
    if constexpr (IS_LIST)
      this->elements_.push_back(std::move(spare));
    else
      this->element_ = std::move(spare);
    spares_.pop_back();
    return element;
  }

 private:
  // A declared record can't know which class derives from it, and needs to for its clones.
  static void tellClass(Element &element) {
    if constexpr (requires { element.template setClass<Element>(); }) element.template setClass<Element>();
  }

  template <class Section>
  static auto *first(Section &section) {
    if constexpr (IS_LIST)
      return section.elements_.data();
    else
      return &section.element_;
  }

  Element *takeSpare() {
    Held spare(std::move(spares_.back()));
    spares_.pop_back();
    auto *element = static_cast<Element *>(spare.get());
    // The section's reference goes without the element's going.
    element->addRef();
    spare.release();
    element->decRef();
    return element;
  }

  Held takeLast() {
    if constexpr (IS_LIST) {
      Held last(std::move(this->elements_.back()));
      this->elements_.pop_back();
      return last;
    } else {
      return std::move(this->element_);
    }
  }
  void retire(Held element) {
    if (!element->unique()) {
      if (element->getParentSection() == this) element->setParentSection(nullptr);
    } else if (DataObject const &object = *element; spares_.size() < mostHeld_ && typeid(object) == typeid(Element)) {
      element->reset();
      spares_.push_back(std::move(element));
    }
  }

  std::vector<Held> spares_;
  std::size_t mostHeld_ = 0;
};

}  // namespace tavrone
