#include "tavrone/fix/FIXInputParser.h"

namespace tavrone {

FIXInputParser::FIXInputParser() = default;
FIXInputParser::FIXInputParser(FIXInputParser const &other) = default;
FIXInputParser::~FIXInputParser() noexcept(false) = default;

}  // namespace tavrone
