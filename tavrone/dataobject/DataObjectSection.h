#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

class DataObject;

// An ordered list of data objects. Indexes are 0-based; not reference counted itself.
class TAVRONE_API DataObjectCollection {
 public:
  virtual ~DataObjectCollection() noexcept(false) = default;

  // The element, borrowed.
  virtual DataObject *getElement(int index) const = 0;
  virtual bool removeElement(int index) = 0;
  // Adds a reference to the element.
  virtual void addElement(DataObject *element) = 0;
  // By identity; -1 if absent.
  virtual int getElementIndex(DataObject *element) const = 0;
  virtual int getElementCount() const = 0;
};

// A repeating group of a data object: its elements with a name and limits on their number.
class TAVRONE_API DataObjectSection : public DataObjectCollection {
 public:
  // A new element of this section's type whose parent section this is; it isn't in the list until addElement.
  virtual DataObject *createElement() = 0;
  virtual tvstring toString() = 0;
  virtual tvstring const &getName() const = 0;
  // The name behind those of the enclosing sections, joined by "."; a section of a root object has just its name.
  virtual tvstring getQualifiedName() = 0;
  // The object that holds the section; null for a section of its own.
  virtual DataObject *getParent() const = 0;
  virtual DataObject *getRootDataObject() const = 0;
  // Raises SectionConstraintException with SRT301 for too few elements, SRT302 for too many.
  virtual void assertConstraints() const = 0;
  // No elements, or empty ones only.
  virtual bool isEmpty() const = 0;
  virtual void removeLastElement() = 0;
  virtual void clear() = 0;
  // A new section without a parent, the caller's, with clones of the elements.
  virtual DataObjectSection *clone() const = 0;

  tvstring const &getSectionName() const { return getName(); }
};

}  // namespace tavrone
