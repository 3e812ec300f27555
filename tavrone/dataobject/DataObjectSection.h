#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

class DataObject;

// An ordered run of records. Indexes are 0-based.
class TAVRONE_API DataObjectCollection {
 public:
  virtual ~DataObjectCollection() noexcept(false);

  // The element, borrowed.
  virtual DataObject *getElement(int index) const = 0;
  // Drops the reference on the element. Whether one was there to remove, or a failure, as the form of section has it.
  virtual bool removeElement(int index) = 0;
  // Appends the element and adds a reference to it.
  virtual void addElement(DataObject *element) = 0;
  // By identity; -1 if absent.
  virtual int getElementIndex(DataObject *element) const = 0;
  virtual int getElementCount() const = 0;
};

// A repeating group of a record: its elements, their least and greatest number, and the record that holds it. Not
// counted: a SectionObject or a generated record owns it. Holds a reference on each element.
class TAVRONE_API DataObjectSection : public DataObjectCollection {
 public:
  ~DataObjectSection() noexcept(false) override;

  // A new element made by the parent, its parent section set, not yet in the list; the caller's.
  virtual DataObject *createElement() = 0;
  // The elements as XML.
  virtual tvstring toString() = 0;
  virtual tvstring const &getName() const = 0;
  // The name from the root down, "Outer.Inner".
  virtual tvstring getQualifiedName() = 0;
  // The record that holds the section, borrowed; null for a clone.
  virtual DataObject *getParent() const = 0;
  virtual DataObject *getRootDataObject() const = 0;
  // Raises SectionConstraintException, catalogue key SRT301 or SRT302. Adding elements never looks at the limits.
  virtual void assertConstraints() const = 0;
  // Whether there is no element, or none that is not empty.
  virtual bool isEmpty() const = 0;
  // Raises FieldNotFoundException without an element.
  virtual void removeLastElement() = 0;
  // The elements leave the section.
  virtual void clear() = 0;
  // A section of the same form, name and limits without a parent, holding clones; the caller's.
  virtual DataObjectSection *clone() const = 0;

  tvstring const &getSectionName() const { return getName(); }

  // Clears `to`, then makes it hold every element of `from` too, as their parent section.
  static void assign(DataObjectSection *to, DataObjectSection *from);
};

}  // namespace tavrone
