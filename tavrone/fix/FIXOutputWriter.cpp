#include "tavrone/fix/FIXOutputWriter.h"

namespace tavrone {

template class TagValueWriter<FIXFormat>;

FIXOutputWriter::~FIXOutputWriter() noexcept(false) = default;

}  // namespace tavrone
