#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

InputSource::~InputSource() noexcept(false) = default;

Binary InputSource::getAsBinary() {
  int length = 0;
  char const *bytes = getAsBytes(length);
  return Binary(bytes, length < 0 ? 0 : static_cast<size_t>(length));
}

}  // namespace tavrone
