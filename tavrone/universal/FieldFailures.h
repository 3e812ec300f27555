#pragma once

#include "tavrone/core/Conversion.h"
#include "tavrone/core/Raise.h"
#include "tavrone/dataobject/AbstractDataObject.h"

// Internal: what the parsers and the writers of the Universal format say alike.

namespace tavrone {

// A length-preceded field; a maximum of 0 or less is none. The source is the class that checks, as in a trace.
inline void assertFieldLength(int length, int minimum, int maximum, char const *source, int line = __builtin_LINE()) {
  bool const isShort = length < minimum;
  if (!isShort && (maximum <= 0 || length <= maximum)) return;
  raise<TransformException>("The length of the length preceded field (" + intToString(length) +
                                (isShort ? ") is less than the minimum length (" + intToString(minimum) + ")"
                                         : ") exceeds the maximum length (" + intToString(maximum) + ") allowed."),
                            source, line);
}

// Names the field at the index, if the object has one there.
inline void nameField(TransformException &exception, int index, AbstractDataObject *object) {
  if (index >= 0 && index < object->getFieldCount()) exception.setFFieldName(object->getQualifiedName(index));
}

}  // namespace tavrone
