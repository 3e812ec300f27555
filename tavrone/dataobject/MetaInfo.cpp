#include "tavrone/dataobject/MetaInfo.h"

#include <algorithm>

#include "tavrone/core/Conversion.h"
#include "tavrone/core/DesignerTypes.h"
#include "tavrone/core/InternedText.h"
#include "tavrone/core/OwnedPointers.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/tvstringbuffer.h"

namespace tavrone {

namespace {

struct KindOfType {
  tvstring const *type;
  FieldKind kind;
};

constexpr KindOfType KINDS[] = {
    {&DesignerTypes::STRING_TYPE, FieldKind::STRING},
    {&DesignerTypes::INT_TYPE, FieldKind::INTEGER},
    {&DesignerTypes::LONG_TYPE, FieldKind::LONG},
    {&DesignerTypes::FLOAT_TYPE, FieldKind::FLOAT},
    {&DesignerTypes::DOUBLE_TYPE, FieldKind::DOUBLE},
    {&DesignerTypes::CHAR_TYPE, FieldKind::CHARACTER},
    {&DesignerTypes::BOOLEAN_TYPE, FieldKind::BOOLEAN},
    {&DesignerTypes::BINARY_TYPE, FieldKind::BINARY},
    {&DesignerTypes::DATE_TIME_TYPE, FieldKind::DATE_TIME},
    {&DesignerTypes::DATE_ONLY_TYPE, FieldKind::DATE_ONLY},
    {&DesignerTypes::TIME_ONLY_TYPE, FieldKind::TIME_ONLY},
    {&DesignerTypes::ISO_DATE_TIME_TYPE, FieldKind::ISO_DATE_TIME},
    {&DesignerTypes::ISO_DATE_TYPE, FieldKind::ISO_DATE},
    {&DesignerTypes::ISO_TIME_TYPE, FieldKind::ISO_TIME},
    {&DesignerTypes::BIG_INTEGER_TYPE, FieldKind::BIG_INTEGER},
    {&DesignerTypes::BIG_DECIMAL_TYPE, FieldKind::BIG_DECIMAL},
    {&DesignerTypes::RAW_MESSAGE_TYPE, FieldKind::RAW_MESSAGE},
    {&DesignerTypes::SECTION_TYPE, FieldKind::SECTION},
    {&DesignerTypes::DATAOBJECT_TYPE, FieldKind::DATA_OBJECT},
};

KindOfType const *findKind(tvstring const &type) {
  for (KindOfType const &row : KINDS)
    if (*row.type == type) return &row;
  return nullptr;
}

// The type's own constant where it is one of the vocabulary.
tvstring internType(tvstring const &type) {
  KindOfType const *row = findKind(type);
  return row == nullptr ? internText(type) : *row->type;
}

FieldPlace placeOf(FieldMetaInfo const &field) {
  return {field.getOffset() < 0 ? FieldKind::OTHER : field.getKind(), field.getOffset()};
}

bool isLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

FieldMetaInfo::FieldMetaInfo(tvstring const &name, tvstring const &type, bool optional)
    : FieldMetaInfo(name, type, optional, false) {}

FieldMetaInfo::FieldMetaInfo(tvstring const &name, tvstring const &type, bool optional, bool synthesized)
    : name_(internText(name)),
      type_(internType(type)),
      optional_(optional),
      synthesized_(synthesized),
      kind_(kindOf(type)) {}

FieldMetaInfo::~FieldMetaInfo() noexcept(false) = default;

Object *FieldMetaInfo::clone() const {
  return new FieldMetaInfo(*this);
}

FieldKind FieldMetaInfo::kindOf(tvstring const &type) {
  KindOfType const *row = findKind(type);
  return row == nullptr ? FieldKind::OTHER : row->kind;
}

void FieldMetaInfo::setIndex(int index) {
  if (index == -1) raise<TransformException>("Index fo the field " + name_ + " is already set", "cpp/FieldMetaInfo");
  index_ = index;
}

tvstring const &FieldMetaInfo::getMangledName() const {
  if (mangledName_.empty()) mangledName_ = internText(computeMangledName(name_));
  return mangledName_;
}

tvstring FieldMetaInfo::computeMangledName(tvstring const &name) {
  tvstringbuffer mangled;
  if (!name.empty() && !isLetter(name[0])) mangled.append('F');
  for (size_t i = 0; i < name.length(); ++i) mangled.append(isLetter(name[i]) || isDigit(name[i]) ? name[i] : '_');
  return mangled;
}

SectionMetaInfo::SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name)
    : SectionMetaInfo(element, name, 0, -1) {}

SectionMetaInfo::SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, int minOccurs, int maxOccurs)
    : SectionMetaInfo(element, name, minOccurs, maxOccurs, false) {}

SectionMetaInfo::SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, int minOccurs, int maxOccurs,
                                 bool synthesized)
    : SectionMetaInfo(element, name, DesignerTypes::SECTION_TYPE, minOccurs, maxOccurs, synthesized) {}

SectionMetaInfo::SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, tvstring const &type, int minOccurs,
                                 int maxOccurs, bool synthesized)
    : FieldMetaInfo(name, type, minOccurs > 0, synthesized) {
  init(element, minOccurs, maxOccurs);
}

SectionMetaInfo::~SectionMetaInfo() noexcept(false) = default;

Object *SectionMetaInfo::clone() const {
  return new SectionMetaInfo(*this);
}

void SectionMetaInfo::init(DataObjectMetaInfo *element, int minOccurs, int maxOccurs) {
  minOccurs_ = minOccurs;
  maxOccurs_ = maxOccurs;
  element_ = element;
  if (element != nullptr) element->setParentSection(this);
}

DataObjectMetaInfo::DataObjectMetaInfo(tvstring const &name) : name_(internText(name)) {}

DataObjectMetaInfo::DataObjectMetaInfo(tvstring const &name, char const **names, char const **types, int count)
    : DataObjectMetaInfo(name, nullptr, names, types, count, {}) {}

DataObjectMetaInfo::DataObjectMetaInfo(tvstring const &name, char const **names, char const **types, int count,
                                       std::vector<int> const &synthesized)
    : DataObjectMetaInfo(name, nullptr, names, types, count, synthesized) {}

DataObjectMetaInfo::DataObjectMetaInfo(tvstring const &name, DataObjectMetaInfo *parent, char const **names,
                                       char const **types, int count, std::vector<int> const &synthesized)
    : DataObjectMetaInfo(name) {
  if (parent != nullptr) addParentFields(parent);
  addFields(names, types, count, synthesized);
}

DataObjectMetaInfo::DataObjectMetaInfo(tvstring const &name, FieldMetaInfo **fields, int count)
    : DataObjectMetaInfo(name) {
  addFields(fields, count);
}

DataObjectMetaInfo::DataObjectMetaInfo(DataObjectMetaInfo const &other) : DataObjectMetaInfo(other.name_) {
  parentSection_ = other.parentSection_;
  addParentFields(&other);
  createFieldMap();
}

DataObjectMetaInfo &DataObjectMetaInfo::operator=(DataObjectMetaInfo const &other) {
  if (this != &other) {
    DataObjectMetaInfo copy(other);
    name_ = copy.name_;
    fields_.swap(copy.fields_);
    places_.swap(copy.places_);
    fieldMap_.swap(copy.fieldMap_);
    mangledMap_.swap(copy.mangledMap_);
    parentSection_ = copy.parentSection_;
  }
  return *this;
}

DataObjectMetaInfo::~DataObjectMetaInfo() noexcept(false) {
  for (FieldMetaInfo *field : fields_) delete field;
}

FieldMetaInfo *DataObjectMetaInfo::getFieldMetaInfo(tvstring const &name) const {
  auto const found = fieldMap_.find(name);
  if (found == fieldMap_.end())
    raise<FieldNotFoundException>("Field with name " + name + " not defined", "cpp/DataObjectMetaInfo");
  return found->second;
}

int DataObjectMetaInfo::getFieldIndexIfExists(tvstring const &name) const {
  auto const found = fieldMap_.find(name);
  return found == fieldMap_.end() ? -1 : found->second->getIndex();
}

bool DataObjectMetaInfo::isSection(int index) const {
  return dynamic_cast<SectionMetaInfo const *>(getFieldMetaInfo(index)) != nullptr;
}

void DataObjectMetaInfo::setFieldOffset(int index, int offset) {
  FieldMetaInfo &field = *getFieldMetaInfo(index);
  field.offset_ = offset;
  places_[static_cast<size_t>(index)] = placeOf(field);
}

void DataObjectMetaInfo::throwIndexNotDefined(int index) {
  raise<FieldNotFoundException>("Field at index " + intToString(index) + " not defined", "cpp/DataObjectMetaInfo");
}

void DataObjectMetaInfo::addFields(char const **names, char const **types, int count,
                                   std::vector<int> const &synthesized) {
  int const start = getFieldCount();
  for (int i = 0; i < count; ++i) {
    bool const isSynthesized = std::find(synthesized.begin(), synthesized.end(), i) != synthesized.end();
    tvstringliteral const name(names[i]);
    tvstringliteral const type(types[i]);
    FieldMetaInfo *field = nullptr;
    if (type == DesignerTypes::SECTION_TYPE || type == DesignerTypes::DATAOBJECT_TYPE)
      field = new SectionMetaInfo(nullptr, name, type, 0, -1, isSynthesized);
    else
      field = new FieldMetaInfo(name, type, true, isSynthesized);
    pushOwned(fields_, field);
    field->setIndex(start + i);
  }
  createFieldMap();
}

void DataObjectMetaInfo::addFields(FieldMetaInfo **fields, int count) {
  int const start = getFieldCount();
  for (int i = 0; i < count; ++i) {
    auto *field = static_cast<FieldMetaInfo *>(fields[i]->clone());
    pushOwned(fields_, field);
    field->setIndex(start + i);
  }
  createFieldMap();
}

void DataObjectMetaInfo::addParentFields(DataObjectMetaInfo const *parent) {
  for (FieldMetaInfo const *field : parent->fields_) pushOwned(fields_, static_cast<FieldMetaInfo *>(field->clone()));
}

void DataObjectMetaInfo::createFieldMap() {
  places_.clear();
  for (FieldMetaInfo *field : fields_) {
    places_.push_back(placeOf(*field));
    fieldMap_.emplace(field->getName(), field);
    mangledMap_.emplace(field->getMangledName(), field);
  }
}

}  // namespace tavrone
