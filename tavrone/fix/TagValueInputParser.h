#pragma once

#include "tavrone/dataobject/AbstractDataObject.h"
#include "tavrone/dataobject/DataObjectSection.h"
#include "tavrone/pipeline/InputParser.h"

namespace tavrone {

// The base of generated parsers of one tag=value format. A generated parser walks a tokenizer, switches on each tag and
// stores the value; this class raises the failures of such a walk: the Format's ParsingException with its
// INPUT_PARSER_SOURCE. They name tag and field, but no line or column. No state of its own.
template <class Format>
class TAVRONE_API TagValueInputParser : public InputParser {
 public:
  ~TagValueInputParser() noexcept(false) override;

  using InputParser::ensureNotNull;

 protected:
  // Raises "Tag '<tag>' expected."
  [[noreturn]] void missingTag(int tag) const;
  // The same for an empty value.
  void missingTag(tvstring const &value, int tag) const {
    if (value.empty()) missingTag(tag);
  }

  // Raises "Tag '<tag>[<field>]' expected." for a null field.
  void assertNotNull(AbstractDataObject *object, int index, int tag) const {
    if (object->isNull(index)) throwTagExpected(object, index, tag);
  }
  // Raises "Tag '<tag>[<field>]' expected. <message>" if a section has too few or too many elements.
  void assertConstraints(AbstractDataObject *object, int index, int tag) const;
  // Raises "Duplicate Tag '<tag>[<field>]'." if the field's flag is up, also if a default value raised it.
  void assertTagNew(AbstractDataObject *object, int index, int tag) const {
    if (object->isNotNull(index)) raiseDuplicateTag(object, index, tag);
  }
  // Raises "Duplicate section Tag '<tag>'." for a section that has elements.
  void assertSectionEmpty(DataObjectSection *section, int tag) const {
    if (section->getElementCount() != 0) throwDuplicateSection(tag);
  }

  // Raise "Field '<name>' cannot be null." for an empty value; if the object doesn't know the name, "Null value error
  // while parsing a field".
  void ensureNotNull(tvstring const &value, DataObject *object, int index) const {
    if (value.empty()) throwNullField(object, index);
  }
  void ensureNotNull(tvstring const &value, tvstring const &name) const {
    if (value.empty()) throwNullField(name);
  }

  [[noreturn]] void raiseDuplicateTag(AbstractDataObject *object, int index, int tag) const;

 private:
  [[noreturn]] void throwTagExpected(AbstractDataObject *object, int index, int tag) const;
  [[noreturn]] void throwDuplicateSection(int tag) const;
  [[noreturn]] void throwNullField(DataObject *object, int index) const;
  [[noreturn]] void throwNullField(tvstring const &name) const;
};

}  // namespace tavrone
