#include "tavrone/core/DesignerTypes.h"

namespace tavrone {

// Initialised before any code runs: metadata tables of other libraries refer to these while loading.
constinit tvstringliteral const DesignerTypes::INT_TYPE("Integer");
constinit tvstringliteral const DesignerTypes::FLOAT_TYPE("Float");
constinit tvstringliteral const DesignerTypes::DOUBLE_TYPE("Double");
constinit tvstringliteral const DesignerTypes::DATE_TIME_TYPE("DateTime");
constinit tvstringliteral const DesignerTypes::DATE_ONLY_TYPE("DateOnly");
constinit tvstringliteral const DesignerTypes::TIME_ONLY_TYPE("TimeOnly");
constinit tvstringliteral const DesignerTypes::ISO_DATE_TIME_TYPE("ISODateTime");
constinit tvstringliteral const DesignerTypes::ISO_DATE_TYPE("ISODate");
constinit tvstringliteral const DesignerTypes::ISO_TIME_TYPE("ISOTime");
constinit tvstringliteral const DesignerTypes::STRING_TYPE("String");
constinit tvstringliteral const DesignerTypes::CHAR_TYPE("Character");
constinit tvstringliteral const DesignerTypes::SECTION_TYPE("Section");
constinit tvstringliteral const DesignerTypes::DATAOBJECT_TYPE("DataObject");
constinit tvstringliteral const DesignerTypes::LONG_TYPE("Long");
constinit tvstringliteral const DesignerTypes::BOOLEAN_TYPE("Boolean");
constinit tvstringliteral const DesignerTypes::BINARY_TYPE("Binary");
constinit tvstringliteral const DesignerTypes::RAW_MESSAGE_TYPE("RawMessage");
constinit tvstringliteral const DesignerTypes::BIG_INTEGER_TYPE("BigInteger");
constinit tvstringliteral const DesignerTypes::BIG_DECIMAL_TYPE("BigDecimal");

}  // namespace tavrone
