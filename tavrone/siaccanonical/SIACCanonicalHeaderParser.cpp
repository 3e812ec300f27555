#include "tavrone/siaccanonical/SIACCanonicalHeaderParser.h"

namespace tavrone {

void SIACCanonicalHeaderBinding::fail(TransformException &failure) {
  SIACCanonicalParsingException typed(failure);
  typed.setErrorPhase(ExceptionObject::INPUT_PHASE);
  typed.setErrorType(ExceptionObject::ERROR_TYPE_PARSING);
  typed.getTrace().setFileName(tvstringliteral(SIACCanonicalFormat::HEADER_PARSER_SOURCE));
  typed.getTrace().setLine(__LINE__);
  throw typed;
}

}  // namespace tavrone
