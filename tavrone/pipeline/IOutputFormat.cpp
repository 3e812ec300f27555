#include "tavrone/pipeline/IOutputFormat.h"

namespace tavrone {

IOutputFormat::~IOutputFormat() noexcept(false) = default;

}  // namespace tavrone
