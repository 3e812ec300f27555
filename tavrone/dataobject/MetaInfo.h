#pragma once

#include <map>
#include <vector>

#include "tavrone/core/Object.h"

namespace tavrone {

class DataObjectMetaInfo;

// What a field's type text means, told once so that nothing compares texts for each value. OTHER is a text that is none
// of the DesignerTypes.
enum class FieldKind : unsigned char {
  STRING,
  INTEGER,
  LONG,
  FLOAT,
  DOUBLE,
  CHARACTER,
  BOOLEAN,
  BINARY,
  DATE_TIME,
  DATE_ONLY,
  TIME_ONLY,
  ISO_DATE_TIME,
  ISO_DATE,
  ISO_TIME,
  BIG_INTEGER,
  BIG_DECIMAL,
  RAW_MESSAGE,
  SECTION,
  DATA_OBJECT,
  OTHER
};

// One field of a data object type. Built while a library loads or on first use, read-only afterwards, and then safe to
// read from every thread: its texts have no owner (a text that has one is interned for the life of the process).
class TAVRONE_API FieldMetaInfo : public Object {
 public:
  FieldMetaInfo(tvstring const &name, tvstring const &type, bool optional);
  FieldMetaInfo(tvstring const &name, tvstring const &type, bool optional, bool synthesized);
  FieldMetaInfo(FieldMetaInfo const &) = default;
  FieldMetaInfo &operator=(FieldMetaInfo const &) = default;
  ~FieldMetaInfo() noexcept(false) override;

  Object *clone() const override;

  tvstring const &getName() const { return name_; }
  // A DesignerTypes text; "Section" for a section.
  tvstring const &getType() const { return type_; }
  // The position in the owning type, -1 until set.
  int getIndex() const { return index_; }
  // Raises TransformException "Index fo the field <name> is already set" for -1; stores anything else, whatever the
  // present index is. Both are meant.
  void setIndex(int index);
  bool isOptional() const { return optional_; }
  // Marked so by the generating table. A GenericDataObject with values in such fields alone is empty.
  bool isSynthesized() const { return synthesized_; }

  // The name as an identifier: 'F' in front unless it begins with a letter or '_', and '_' for whatever is no letter,
  // digit or '_'. Computed once.
  tvstring const &getMangledName() const;
  static tvstring computeMangledName(tvstring const &name);

  // What the type text means.
  FieldKind getKind() const { return kind_; }
  static FieldKind kindOf(tvstring const &type);
  // Where a declared record keeps the value, in bytes from its DataObject; -1 where only the accessors know.
  int getOffset() const { return offset_; }

 protected:
  friend class DataObjectMetaInfo;

  tvstring name_;
  tvstring type_;
  bool optional_;
  bool synthesized_;
  int index_ = -1;
  mutable tvstring mangledName_;
  FieldKind kind_;
  int offset_ = -1;
};

// What a walk over a declared record's fields needs of each, side by side in memory.
struct FieldPlace {
  FieldKind kind;  // OTHER where only the accessors know the value
  int offset;
};

// A field that holds a section.
class TAVRONE_API SectionMetaInfo : public FieldMetaInfo {
 public:
  // Occurrences 0 and -1.
  SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name);
  // isOptional() is true for a positive minimum; the sense is meant.
  SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, int minOccurs, int maxOccurs);
  SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, int minOccurs, int maxOccurs, bool synthesized);
  SectionMetaInfo(DataObjectMetaInfo *element, tvstring const &name, tvstring const &type, int minOccurs, int maxOccurs,
                  bool synthesized);
  SectionMetaInfo(SectionMetaInfo const &) = default;
  SectionMetaInfo &operator=(SectionMetaInfo const &) = default;
  ~SectionMetaInfo() noexcept(false) override;

  Object *clone() const override;

  // Also makes this the parent section of the element's type, if there is one.
  void init(DataObjectMetaInfo *element, int minOccurs, int maxOccurs);
  int getMinOccurs() const { return minOccurs_; }
  int getMaxOccurs() const { return maxOccurs_; }  // -1 is unbounded
  // The type of the elements, borrowed; null in sections built from tables.
  DataObjectMetaInfo *getDataObjectMetaInfo() const { return element_; }

 private:
  int minOccurs_ = 0;
  int maxOccurs_ = -1;
  DataObjectMetaInfo *element_ = nullptr;
};

// The description of one data object type: its name and its fields in index order, which it owns. Not counted: whoever
// makes one keeps it alive while objects of the type live.
class TAVRONE_API DataObjectMetaInfo : public Object {
 public:
  // From parallel tables of static texts. "Section" and "DataObject" rows become SectionMetaInfos without element type,
  // unbounded; others are optional fields of whatever type text stands there. `synthesized` lists table rows, not
  // indexes.
  DataObjectMetaInfo(tvstring const &name, char const **names, char const **types, int count);
  DataObjectMetaInfo(tvstring const &name, char const **names, char const **types, int count,
                     std::vector<int> const &synthesized);
  // The parent's fields first, then the table's.
  DataObjectMetaInfo(tvstring const &name, DataObjectMetaInfo *parent, char const **names, char const **types,
                     int count, std::vector<int> const &synthesized);
  // From clones of ready fields.
  DataObjectMetaInfo(tvstring const &name, FieldMetaInfo **fields, int count);
  // Copies are deep.
  DataObjectMetaInfo(DataObjectMetaInfo const &other);
  DataObjectMetaInfo &operator=(DataObjectMetaInfo const &other);
  ~DataObjectMetaInfo() noexcept(false) override;

  tvstring const &getName() const { return name_; }
  int getFieldCount() const { return static_cast<int>(fields_.size()); }
  // The fields in index order.
  auto begin() const { return fields_.begin(); }
  auto end() const { return fields_.end(); }
  // Each field's kind and offset, in index order.
  std::vector<FieldPlace> const &getFieldPlaces() const { return places_; }
  void setFieldOffset(int index, int offset);

  // Raise FieldNotFoundException "Field at index <i> not defined" or "Field with name <name> not defined".
  FieldMetaInfo *getFieldMetaInfo(int index) const {
    if (static_cast<size_t>(static_cast<unsigned>(index)) >= fields_.size()) throwIndexNotDefined(index);
    return fields_[static_cast<size_t>(index)];
  }
  FieldMetaInfo *getFieldMetaInfo(tvstring const &name) const;
  int getFieldIndex(tvstring const &name) const { return getFieldMetaInfo(name)->getIndex(); }
  // -1 for an unknown name.
  int getFieldIndexIfExists(tvstring const &name) const;
  tvstring const &getFieldName(int index) const { return getFieldMetaInfo(index)->getName(); }
  tvstring const &getFieldType(int index) const { return getFieldMetaInfo(index)->getType(); }
  tvstring const &getMangledName(int index) const { return getFieldMetaInfo(index)->getMangledName(); }
  tvstring const &getMangledName(tvstring const &name) const { return getFieldMetaInfo(name)->getMangledName(); }
  bool isSynthesized(int index) const { return getFieldMetaInfo(index)->isSynthesized(); }
  bool isSection(int index) const;

  // The section whose elements have this type, borrowed; null at first.
  SectionMetaInfo *getParentSection() const { return parentSection_; }
  void setParentSection(SectionMetaInfo *section) { parentSection_ = section; }

 private:
  // Without fields; the others begin with it, so that the destructor frees what a failing one has made.
  explicit DataObjectMetaInfo(tvstring const &name);

  [[noreturn]] static void throwIndexNotDefined(int index);
  void addFields(char const **names, char const **types, int count, std::vector<int> const &synthesized);
  void addFields(FieldMetaInfo **fields, int count);
  void addParentFields(DataObjectMetaInfo const *parent);
  void createFieldMap();

  tvstring name_;
  std::vector<FieldMetaInfo *> fields_;
  std::map<tvstring, FieldMetaInfo *> fieldMap_;
  std::map<tvstring, FieldMetaInfo *> mangledMap_;
  SectionMetaInfo *parentSection_ = nullptr;
  std::vector<FieldPlace> places_;
};

}  // namespace tavrone
