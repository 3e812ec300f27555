#include "tavrone/fix/FIXHeaderParser.h"

namespace tavrone {

void FIXHeaderBinding::fail(TransformException &failure) {
  failure.getTrace().setFileName(tvstringliteral(FIXFormat::HEADER_PARSER_SOURCE));
  failure.getTrace().setLine(__LINE__);
  throw;
}

}  // namespace tavrone
