#include "tavrone/pipeline/ExternalObject.h"

#include "tavrone/core/Class.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/tvstringbuffer.h"
#include "tavrone/dataobject/MetaInfo.h"

namespace tavrone {

namespace {

char const *PART_NAMES[] = {"Header", "Data", "Trailer"};
char const *PART_TYPES[] = {"DataObject", "DataObject", "DataObject"};

DataObjectMetaInfo *typeMetaInfo() {
  static DataObjectMetaInfo metaInfo("ExternalObject", PART_NAMES, PART_TYPES, 3);
  return &metaInfo;
}

SmartPtr<DataObject> cloneOf(SmartPtr<DataObject> const &part) {
  if (part.isNull()) return nullptr;
  SmartPtr<Object> const copy(part->clone());
  return checkedCast<DataObject>(copy.get());
}

}  // namespace

ExternalObject::ExternalObject() : AbstractDataObject(typeMetaInfo(), flags_, nullptr) {}

ExternalObject::ExternalObject(DataObject *headerPart, DataObject *dataPart, DataObject *trailerPart)
    : AbstractDataObject(typeMetaInfo(), nullptr, nullptr),
      header(headerPart),
      data(dataPart),
      trailer(trailerPart),
      flags_{true, true, true} {
  nullFlags = flags_;
}

ExternalObject::ExternalObject(ExternalObject const &other)
    : Object(),
      ObjectRef(),
      AbstractDataObject(other, flags_, nullptr),
      header(cloneOf(other.header)),
      data(cloneOf(other.data)),
      trailer(cloneOf(other.trailer)) {}

ExternalObject &ExternalObject::operator=(ExternalObject const &other) {
  if (this == &other) return *this;
  ExternalObject const copy(other);
  AbstractDataObject::operator=(copy);
  header = copy.header;
  data = copy.data;
  trailer = copy.trailer;
  return *this;
}

ExternalObject::~ExternalObject() noexcept(false) = default;

void ExternalObject::setExternalObjects(DataObject *headerPart, DataObject *dataPart, DataObject *trailerPart) {
  // Held before the former parts go: a part may change its place.
  SmartPtr<DataObject> const newHeader(headerPart);
  SmartPtr<DataObject> const newData(dataPart);
  SmartPtr<DataObject> const newTrailer(trailerPart);
  header = newHeader;
  data = newData;
  trailer = newTrailer;
  for (int i = 0; i < PART_COUNT; ++i) setNotNull(i);
}

Object *ExternalObject::clone() const {
  return new ExternalObject(*this);
}

void ExternalObject::reset() {
  for (Part const part : PARTS)
    if (!(this->*part).isNull()) (this->*part)->reset();
}

tvstring ExternalObject::toXMLString() {
  tvstringbuffer out;
  out.append("<ExternalObject>\n");
  for (Part const part : PARTS)
    if (!(this->*part).isNull()) out.append((this->*part)->toXMLString(2));
  out.append("</ExternalObject>\n");
  return out;
}

tvstring ExternalObject::toXMLString(int level) {
  return AbstractDataObject::toXMLString(level);
}

Object *ExternalObject::getField0(int index, Object *out) const {
  if (!isPart(index)) return AbstractDataObject::getField0(index, out);
  DataObject *const part = (this->*PARTS[index]).get();
  if (out == nullptr || part == nullptr) return part;
  out->setObject(part);
  return out;
}

void ExternalObject::setField0(int index, Object const *value) {
  if (!isPart(index))
    raise<FieldNotFoundException>("Field index out of bounds - " + intToString(index), "cpp/ExternalObject");
  // Held before the former part goes: the value may be that very part.
  SmartPtr<DataObject> const part(const_cast<DataObject *>(checkedCast<DataObject>(value)));
  this->*PARTS[index] = part;
}

}  // namespace tavrone
