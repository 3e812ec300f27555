#pragma once

#include <cstdio>
#include <string>

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// A text from outside as it may go to a terminal. Every byte takes one place, so that marks stand where they should.
inline std::string shown(tvstring const &text) {
  std::string out(text.data(), text.length());
  for (char &c : out)
    if (c < ' ' || c > '~') c = '?';
  return out;
}

// A line for a failure. Those of the parser know their place in the file; those of the rules have a code.
inline void printFailure(ExceptionDataObject const &failure) {
  tvstring const line = failure.getContextProperty(ExceptionObject::getLINE());
  tvstring const place = line.empty()
                             ? failure.getContextProperty(ExceptionObject::INTERNAL_CODE)
                             : "line " + line + ", column " + failure.getContextProperty(ExceptionObject::getCOLUMN());
  bool const hasField = failure.isNotNull(failure.getFieldIndex("FieldName"));
  std::printf("  ! %-20s %-32s %s\n", shown(place).c_str(), hasField ? shown(failure.getFFieldName()).c_str() : "",
              shown(failure.getMessage()).c_str());
}

}  // namespace examples
