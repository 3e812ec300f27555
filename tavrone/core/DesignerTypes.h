#pragma once

#include "tavrone/core/tvstring.h"

namespace tavrone {

// The names of the design-time types: what stands in field metadata and what Object::getObjectType returns.
class TAVRONE_API DesignerTypes {
 public:
  static tvstringliteral const INT_TYPE;
  static tvstringliteral const FLOAT_TYPE;
  static tvstringliteral const DOUBLE_TYPE;
  static tvstringliteral const DATE_TIME_TYPE;
  static tvstringliteral const DATE_ONLY_TYPE;
  static tvstringliteral const TIME_ONLY_TYPE;
  static tvstringliteral const ISO_DATE_TIME_TYPE;
  static tvstringliteral const ISO_DATE_TYPE;
  static tvstringliteral const ISO_TIME_TYPE;
  static tvstringliteral const STRING_TYPE;
  static tvstringliteral const CHAR_TYPE;
  static tvstringliteral const SECTION_TYPE;
  static tvstringliteral const DATAOBJECT_TYPE;
  static tvstringliteral const LONG_TYPE;
  static tvstringliteral const BOOLEAN_TYPE;
  static tvstringliteral const BINARY_TYPE;
  static tvstringliteral const RAW_MESSAGE_TYPE;
  static tvstringliteral const BIG_INTEGER_TYPE;
  static tvstringliteral const BIG_DECIMAL_TYPE;
};

}  // namespace tavrone
