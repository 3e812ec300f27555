#pragma once

#include <vector>

#include "tavrone/core/SmartPtr.h"
#include "tavrone/dataobject/DataObject.h"
#include "tavrone/dataobject/DataObjectSection.h"

namespace tavrone {

// Name, limits and parent of a section, and its XML.
class TAVRONE_API AbstractDataObjectSection : public DataObjectSection {
 public:
  // Occurrences 0 and -1, no parent, no name.
  AbstractDataObjectSection() = default;
  AbstractDataObjectSection(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs);
  ~AbstractDataObjectSection() noexcept(false) override;

  // By the parent's createSectionElement. Raises ClassCastException "Cannot cast NULL to ..." without a parent.
  DataObject *createElement() override;
  tvstring toString() override;
  tvstring const &getName() const override { return name_; }
  tvstring getQualifiedName() override;
  DataObject *getParent() const override { return parent_; }
  // Null without a parent.
  DataObject *getRootDataObject() const override;
  void assertConstraints() const override;
  bool isEmpty() const override;

  // What the constructor sets, later; the parent is borrowed.
  void initialize(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs);
  int getMinOccurs() const { return minOccurs_; }
  int getMaxOccurs() const { return maxOccurs_; }  // -1 is unbounded
  void reset() { clear(); }

  // Each element framed by `name` (by default the section's own), `level` tabs deep.
  tvstring toXMLString();
  tvstring toXMLString(int level);
  tvstring toXMLString(tvstring const &name, int level);

  // Asked for each element before it is added. Sections of one class of elements (TypedSection.h) refuse others with
  // ClassCastException; here all are welcome.
  virtual void admitElement(DataObject *element) const;
  // A new element, added; the section's.
  virtual DataObject *addNewElement();

 protected:
  // Raises FieldNotFoundException "Error accessing element of section ...".
  [[noreturn]] void throwElementIndexOutOfBounds(int index, int size) const;

 private:
  int minOccurs_ = 0;
  int maxOccurs_ = -1;  // -1 is unbounded
  DataObject *parent_ = nullptr;
  tvstring name_;
};

// The list form.
class TAVRONE_API DataObjectSectionImpl : public AbstractDataObjectSection {
 public:
  DataObjectSectionImpl() = default;
  DataObjectSectionImpl(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs);
  // Clones of the other's elements under the given parent.
  DataObjectSectionImpl(DataObjectSectionImpl const &other, DataObject *parent);
  DataObjectSectionImpl(DataObjectSectionImpl const &) = delete;
  DataObjectSectionImpl &operator=(DataObjectSectionImpl const &) = delete;
  ~DataObjectSectionImpl() noexcept(false) override;

  // Raises FieldNotFoundException on an empty list, std::out_of_range "invalid vector<T> subscript" on another.
  DataObject *getElement(int index) const override {
    if (static_cast<size_t>(static_cast<unsigned>(index)) >= elements_.size()) throwNoElement(index);
    return elements_[static_cast<size_t>(index)].get();
  }
  // Raises FieldNotFoundException whose text is the tail of "Index out of bounds " from the index on; that is meant.
  bool removeElement(int index) override;
  // Raises IllegalArgumentException "The parent of the element added is not this section".
  void addElement(DataObject *element) override { addElement(element, true); }
  int getElementIndex(DataObject *element) const override;
  int getElementCount() const override { return static_cast<int>(elements_.size()); }
  void removeLastElement() override;
  void clear() override;
  DataObjectSection *clone() const override;

  // Without checkParent an element of another parent is taken, too.
  void addElement(DataObject *element, bool checkParent);
  // Takes over name and limits, and clones of the elements.
  void copy(DataObjectSectionImpl const &source, DataObject *parent);
  // Does nothing.
  void deleteAll() {}

 protected:
  std::vector<SmartPtr<DataObject>> elements_;

 private:
  [[noreturn]] void throwNoElement(int index) const;
};

// At most one element: a nested record.
class TAVRONE_API DataObjectSingleElementSectionImpl : public AbstractDataObjectSection {
 public:
  DataObjectSingleElementSectionImpl() = default;
  DataObjectSingleElementSectionImpl(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs);
  DataObjectSingleElementSectionImpl(DataObjectSingleElementSectionImpl const &) = delete;
  DataObjectSingleElementSectionImpl &operator=(DataObjectSingleElementSectionImpl const &) = delete;
  ~DataObjectSingleElementSectionImpl() noexcept(false) override;

  // Raises FieldNotFoundException unless there is an element and the index is 0.
  DataObject *getElement(int index) const override;
  // False unless the index is 0; true even when there was no element.
  bool removeElement(int index) override;
  // Raises FieldNotFoundException "Cannot add more than one element to this section"; the parent is not checked.
  void addElement(DataObject *element) override;
  int getElementIndex(DataObject *element) const override;
  int getElementCount() const override { return element_.isNull() ? 0 : 1; }
  void removeLastElement() override;
  void clear() override;
  DataObjectSection *clone() const override;

  // Takes over name and limits, and a clone of the element.
  void copy(DataObjectSingleElementSectionImpl const &source, DataObject *parent);

 protected:
  SmartPtr<DataObject> element_;
};

}  // namespace tavrone
