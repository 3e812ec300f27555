#pragma once

#include "tavrone/core/Exceptions.h"

namespace tavrone {

// What sets FIX apart from other formats of tag=value text: failures, the paths in their traces, and one text.
struct TAVRONE_API FIXFormat {
  using ParsingException = FIXParsingException;
  using WriterException = FIXWriterException;

  static constexpr char const *TOKENIZER_SOURCE = "cpp/fix/FIXTokenizer";
  static constexpr char const *TYPE_SOURCE = "cpp/fix/FIXType";
  static constexpr char const *HEADER_SOURCE = "cpp/fix/FIXHeader";
  static constexpr char const *HEADER_PARSER_SOURCE = "cpp/fix/FIXHeaderParser";
  static constexpr char const *INPUT_PARSER_SOURCE = "cpp/fix/FIXInputParser";
  static constexpr char const *OUTPUT_WRITER_SOURCE = "cpp/fix/FIXOutputWriter";
  static constexpr char const *PREFIX = "8=FIX";  // the first bytes of every message
  static constexpr char const *BODY_LENGTH_TAG = "9";
  static constexpr char const *LEFTOVER_TEXT = "Unexpected FIX data at the end.";
};

}  // namespace tavrone
