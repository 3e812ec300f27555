#pragma once

#include "tavrone/core/Exceptions.h"

namespace tavrone {

// What sets SIAC Canonical apart from other formats of tag=value text.
struct TAVRONE_API SIACCanonicalFormat {
  using ParsingException = SIACCanonicalParsingException;
  using WriterException = SIACCanonicalWriterException;

  static constexpr char const *TOKENIZER_SOURCE = "cpp/siaccanonical/SIACCanonicalTokenizer";
  static constexpr char const *TYPE_SOURCE = "cpp/siaccanonical/SIACCanonicalType";
  static constexpr char const *HEADER_SOURCE = "cpp/siaccanonical/SIACCanonicalHeader";
  static constexpr char const *HEADER_PARSER_SOURCE = "cpp/siaccanonical/SIACCanonicalHeaderParser";
  static constexpr char const *INPUT_PARSER_SOURCE = "cpp/siaccanonical/SIACCanonicalInputParser";
  static constexpr char const *OUTPUT_WRITER_SOURCE = "cpp/siaccanonical/SIACCanonicalOutputWriter";
  static constexpr char const *PREFIX = "10001=Canonical";  // the first bytes of every message
  static constexpr char const *BODY_LENGTH_TAG = "10002";
  static constexpr char const *LEFTOVER_TEXT = "Unexpected SIACCanonical data at the end.";
};

}  // namespace tavrone
