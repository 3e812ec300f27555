#include "tavrone/dataobject/DataObjectSectionImpl.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <utility>

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {

namespace {

constexpr char const *ABSTRACT_SOURCE = "cpp/AbstractDataObjectSection";
constexpr char const *LIST_SOURCE = "cpp/DataObjectSectionImpl";
constexpr char const *SINGLE_SOURCE = "cpp/DataObjectSingleElementSectionImpl";

// An element of a copied section: a clone that knows its new section.
SmartPtr<DataObject> cloneInto(DataObject const &element, AbstractDataObjectSection *section) {
  SmartPtr<DataObject> copy(checkedCast<DataObject>(element.clone()));
  section->admitElement(copy.get());
  copy->setParentSection(section);
  return copy;
}

// An element that somebody else holds outlives its section and must not point to it any more.
void orphan(SmartPtr<DataObject> const &element, DataObjectSection const *section) {
  if (!element.isNull() && !element->unique() && element->getParentSection() == section)
    element->setParentSection(nullptr);
}

[[noreturn]] void raiseConstraint(char const *key, tvstring const &name, int limit, int line) {
  ObjectList arguments;
  arguments.add(new StringObject(name));
  arguments.add(new IntObject(limit));
  raiseCatalogued<SectionConstraintException>(key, arguments, ABSTRACT_SOURCE, line);
}

}  // namespace

DataObjectCollection::~DataObjectCollection() noexcept(false) = default;
DataObjectSection::~DataObjectSection() noexcept(false) = default;
AbstractDataObjectSection::~AbstractDataObjectSection() noexcept(false) = default;

DataObjectSectionImpl::~DataObjectSectionImpl() noexcept(false) {
  for (SmartPtr<DataObject> const &element : elements_) orphan(element, this);
}

DataObjectSingleElementSectionImpl::~DataObjectSingleElementSectionImpl() noexcept(false) {
  orphan(element_, this);
}

void DataObjectSection::assign(DataObjectSection *to, DataObjectSection *from) {
  if (to == from) return;
  // Held first: `from` may be inside an element that `to` drops.
  std::vector<SmartPtr<DataObject>> elements;
  int const count = from->getElementCount();
  elements.reserve(static_cast<size_t>(count));
  for (int i = 0; i < count; ++i) elements.emplace_back(from->getElement(i));
  to->clear();
  for (SmartPtr<DataObject> const &element : elements) {
    DataObjectSection *former = element->getParentSection();
    element->setParentSection(to);
    try {
      to->addElement(element.get());
    } catch (...) {
      // A refused element must not point to a section that doesn't hold it.
      element->setParentSection(former);
      throw;
    }
  }
}

AbstractDataObjectSection::AbstractDataObjectSection(DataObject *parent, tvstring const &name, int minOccurs,
                                                     int maxOccurs) {
  initialize(parent, name, minOccurs, maxOccurs);
}

void AbstractDataObjectSection::initialize(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs) {
  minOccurs_ = minOccurs;
  maxOccurs_ = maxOccurs;
  parent_ = parent;
  name_ = name;
}

DataObject *AbstractDataObjectSection::createElement() {
  return checkedCast<DataObject>(parent_)->createSectionElement(name_, this);
}

tvstring AbstractDataObjectSection::toString() {
  return toXMLString();
}

tvstring AbstractDataObjectSection::getQualifiedName() {
  DataObjectSection *outer = parent_ == nullptr ? nullptr : parent_->getParentSection();
  return outer == nullptr ? name_ : outer->getQualifiedName() + '.' + name_;
}

DataObject *AbstractDataObjectSection::getRootDataObject() const {
  return parent_ == nullptr ? nullptr : parent_->getRootDataObject();
}

void AbstractDataObjectSection::assertConstraints() const {
  int const count = getElementCount();
  if (count < minOccurs_) raiseConstraint("SRT301", name_, minOccurs_, 54);
  if (maxOccurs_ != -1 && count > maxOccurs_) raiseConstraint("SRT302", name_, maxOccurs_, 59);
}

bool AbstractDataObjectSection::isEmpty() const {
  int const count = getElementCount();
  for (int i = 0; i < count; ++i)
    if (!getElement(i)->isEmpty()) return false;
  return true;
}

void AbstractDataObjectSection::admitElement(DataObject *) const {}

DataObject *AbstractDataObjectSection::addNewElement() {
  SmartPtr<DataObject> const element(createElement());
  addElement(element.get());
  return element.get();
}

void AbstractDataObjectSection::throwElementIndexOutOfBounds(int index, int size) const {
  // Names go up through the sections, which is a reading operation in all but its signature.
  tvstring const name = const_cast<AbstractDataObjectSection *>(this)->getQualifiedName();
  raise<FieldNotFoundException>("Error accessing element of section " + name + ". Section index out of bound, size = " +
                                    intToString(size) + ", index accessed = " + intToString(index),
                                ABSTRACT_SOURCE);
}

DataObjectSectionImpl::DataObjectSectionImpl(DataObject *parent, tvstring const &name, int minOccurs, int maxOccurs)
    : AbstractDataObjectSection(parent, name, minOccurs, maxOccurs) {}

DataObjectSectionImpl::DataObjectSectionImpl(DataObjectSectionImpl const &other, DataObject *parent) {
  copy(other, parent);
}

void DataObjectSectionImpl::throwNoElement(int index) const {
  if (elements_.empty()) throwElementIndexOutOfBounds(index, 0);
  throw std::out_of_range("invalid vector<T> subscript");
}

bool DataObjectSectionImpl::removeElement(int index) {
  if (index < 0 || index >= getElementCount()) {
    // The index has always been added to the literal's position, so the text loses its head; that stays.
    tvstringliteral const text("Index out of bounds ");
    size_t const position = std::min(index < 0 ? size_t{0} : static_cast<size_t>(index), text.length());
    raise<FieldNotFoundException>(text.substr(position), LIST_SOURCE, 130);
  }
  elements_.erase(elements_.begin() + index);
  return true;
}

void DataObjectSectionImpl::addElement(DataObject *element, bool checkParent) {
  if (checkParent && element->getParentSection() != this)
    raise<IllegalArgumentException>("The parent of the element added is not this section", LIST_SOURCE, 137);
  admitElement(element);
  elements_.push_back(element);
}

int DataObjectSectionImpl::getElementIndex(DataObject *element) const {
  auto const found = std::find_if(elements_.begin(), elements_.end(),
                                  [element](SmartPtr<DataObject> const &held) { return held.get() == element; });
  return found == elements_.end() ? -1 : static_cast<int>(found - elements_.begin());
}

void DataObjectSectionImpl::removeLastElement() {
  if (elements_.empty())
    raise<FieldNotFoundException>(
        "Error accessing last element of section " + getQualifiedName() + ". Section index out of bound, size = 0",
        LIST_SOURCE);
  elements_.pop_back();
}

void DataObjectSectionImpl::clear() {
  elements_.clear();
}

DataObjectSection *DataObjectSectionImpl::clone() const {
  return new DataObjectSectionImpl(*this, nullptr);
}

void DataObjectSectionImpl::copy(DataObjectSectionImpl const &source, DataObject *parent) {
  if (this == &source) return;
  // The former elements go last: the source may be inside one of them, or one of its own may fail to be cloned.
  std::vector<SmartPtr<DataObject>> elements;
  elements.reserve(source.elements_.size());
  for (SmartPtr<DataObject> const &element : source.elements_) elements.push_back(cloneInto(*element, this));
  initialize(parent, source.getName(), source.getMinOccurs(), source.getMaxOccurs());
  elements_.swap(elements);
}

DataObjectSingleElementSectionImpl::DataObjectSingleElementSectionImpl(DataObject *parent, tvstring const &name,
                                                                       int minOccurs, int maxOccurs)
    : AbstractDataObjectSection(parent, name, minOccurs, maxOccurs) {}

DataObject *DataObjectSingleElementSectionImpl::getElement(int index) const {
  if (element_.isNull() || index != 0) throwElementIndexOutOfBounds(index, 0);
  return element_.get();
}

bool DataObjectSingleElementSectionImpl::removeElement(int index) {
  if (index != 0) return false;
  element_.release();
  return true;
}

void DataObjectSingleElementSectionImpl::addElement(DataObject *element) {
  if (!element_.isNull())
    raise<FieldNotFoundException>("Cannot add more than one element to this section", SINGLE_SOURCE);
  admitElement(element);
  element_ = element;
}

int DataObjectSingleElementSectionImpl::getElementIndex(DataObject *element) const {
  return !element_.isNull() && element_.get() == element ? 0 : -1;
}

void DataObjectSingleElementSectionImpl::removeLastElement() {
  if (element_.isNull())
    // "bounds" here, "bound" in the list form: both have always read so.
    raise<FieldNotFoundException>(
        "Error accessing last element of section " + getQualifiedName() + ". Section index out of bounds, size = 0",
        SINGLE_SOURCE);
  element_.release();
}

void DataObjectSingleElementSectionImpl::clear() {
  element_.release();
}

DataObjectSection *DataObjectSingleElementSectionImpl::clone() const {
  auto section = std::make_unique<DataObjectSingleElementSectionImpl>();
  section->copy(*this, nullptr);
  return section.release();
}

void DataObjectSingleElementSectionImpl::copy(DataObjectSingleElementSectionImpl const &source, DataObject *parent) {
  if (this == &source) return;
  SmartPtr<DataObject> element;  // the former one goes last, as in the list form
  if (!source.element_.isNull()) element = cloneInto(*source.element_, this);
  initialize(parent, source.getName(), source.getMinOccurs(), source.getMaxOccurs());
  element_ = std::move(element);
}

}  // namespace tavrone
