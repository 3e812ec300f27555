#include "tavrone/fix/TagValueInputParser.h"

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/fix/FIXInputParser.h"
#include "tavrone/siaccanonical/SIACCanonicalInputParser.h"

namespace tavrone {

namespace {

// "Tag '<tag>[<field>]'".
tvstring tagOf(AbstractDataObject *object, int index, int tag) {
  return "Tag '" + intToString(tag) + "[" + object->getFieldName(index) + "]'";
}

template <class Format>
[[noreturn]] TAVRONE_COLD void fail(tvstring const &message, int line = __builtin_LINE()) {
  raise<typename Format::ParsingException>(message, Format::INPUT_PARSER_SOURCE, line);
}

}  // namespace

template <class Format>
TagValueInputParser<Format>::~TagValueInputParser() noexcept(false) = default;

template <class Format>
void TagValueInputParser<Format>::missingTag(int tag) const {
  fail<Format>("Tag '" + intToString(tag) + "' expected.");
}

template <class Format>
void TagValueInputParser<Format>::throwTagExpected(AbstractDataObject *object, int index, int tag) const {
  fail<Format>(tagOf(object, index, tag) + " expected.");
}

template <class Format>
void TagValueInputParser<Format>::assertConstraints(AbstractDataObject *object, int index, int tag) const {
  try {
    object->getSection(index)->assertConstraints();
  } catch (TransformException const &failure) {
    fail<Format>(tagOf(object, index, tag) + " expected. " + failure.getMessage());
  }
}

template <class Format>
void TagValueInputParser<Format>::raiseDuplicateTag(AbstractDataObject *object, int index, int tag) const {
  fail<Format>("Duplicate " + tagOf(object, index, tag) + ".");
}

template <class Format>
void TagValueInputParser<Format>::throwDuplicateSection(int tag) const {
  fail<Format>("Duplicate section Tag '" + intToString(tag) + "'.");
}

template <class Format>
void TagValueInputParser<Format>::throwNullField(DataObject *object, int index) const {
  tvstring name;
  try {
    name = object->getFieldName(index);
  } catch (Exception const &) {
    fail<Format>("Null value error while parsing a field");
  }
  throwNullField(name);
}

template <class Format>
void TagValueInputParser<Format>::throwNullField(tvstring const &name) const {
  fail<Format>("Field '" + name + "' cannot be null.");
}

template class TagValueInputParser<FIXFormat>;
template class TagValueInputParser<SIACCanonicalFormat>;

}  // namespace tavrone
