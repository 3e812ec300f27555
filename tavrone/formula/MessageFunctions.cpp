#include "tavrone/formula/MessageFunctions.h"

namespace tavrone {

tvstring MessageFunctions::toText(RawMessage const &message) {
  return message.isNull() ? tvstring() : message->getAsString();
}

}  // namespace tavrone
