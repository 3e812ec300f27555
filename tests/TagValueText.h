#pragma once

#include <algorithm>
#include <cstdio>
#include <string>

#include "tavrone/core/Binary.h"
#include "tavrone/fix/FIXOutputWriter.h"

namespace tavrone {

// Tag=value text; each '|' stands for SOH.
inline std::string withSOH(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\x01');
  return text;
}
inline Binary bytes(std::string const &text) {
  return Binary(withSOH(text).data(), text.size());
}

// A FIX 4.4 message with its BodyLength and CheckSum.
inline std::string sealed(std::string const &body) {
  std::string const text = withSOH("8=FIX.4.4|9=" + std::to_string(body.size()) + '|' + body);
  char sum[8];
  std::snprintf(sum, sizeof sum, "10=%03d\x01", FIXOutputWriter::generateCheckSum(text.data(), unsigned(text.size())));
  return text + sum;
}

}  // namespace tavrone
