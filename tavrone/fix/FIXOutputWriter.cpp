#include "tavrone/fix/FIXOutputWriter.h"

namespace tavrone {

template class TagValueWriter<FIXWriterNames>;

FIXOutputWriter::~FIXOutputWriter() noexcept(false) = default;

}  // namespace tavrone
