#include "tests/HugeBytes.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <stdexcept>
#include <string>

#include "tavrone/core/ArrayList.h"
#include "tavrone/core/BigDecimal.h"
#include "tavrone/core/ByteBuffer.h"
#include "tavrone/dataobject/DataObjectIO.h"
#include "tavrone/dataobject/Record.h"
#include "tavrone/fcs/LineReader.h"
#include "tavrone/fix/FIXTokenizer.h"
#include "tavrone/formula/TextFunctions.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/pipeline/WriteAll.h"
#include "tavrone/universal/UniversalInputRecord.h"
#include "tavrone/universal/UniversalOutputRecord.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

struct Note : Record<"Note", Field<"Text", tvstring>> {};

// A view, so that nothing is copied before it is refused.
TEST(HugeBytes, AreRefusedBeforeTheyAreRead) {
  HugeBytes const huge;
  Binary const bytes(huge.data(), huge.size(), false);
  tvstring const text = bytes.asText();
  Note note;
  note.set<"Text">(text);
  ByteBuffer stored;
  struct {
    char const *source;
    std::function<void()> call;
  } const cases[] = {
      {"cpp/ByteBuffer", [&] { ByteBuffer().append(text); }},
      {"cpp/ByteBuffer", [&] { DataObjectIO::write(&note, stored); }},
      {"cpp/DataObjectIO", [&] { DataObjectIO::parse(&note, bytes); }},
      {"cpp/InputSource",
       [&] {
         int length;
         StringInputSource(text).getAsBytes(length);
       }},
      {"cpp/OutputDevice",
       [&] {
         ByteArrayOutputDevice device(DeviceInfo("device", tvstring(), tvstring()));
         writeAll(device, bytes);
       }},
      {"cpp/universal/UniversalInputRecord", [&] { UniversalInputRecord().init(bytes); }},
      {"cpp/universal/UniversalOutputRecord", [&] { UniversalOutputRecord::getBinaryFieldLength(bytes); }},
  };
  for (auto const &c : cases) {
    Failure const failure = failureOf<TransformException>(c.call);
    EXPECT_EQ(failure.source + ":" + failure.text, std::string(c.source) + ":Out of bounds");
  }
  EXPECT_EQ(failureOf<FCSParseException>([&] { LineReader(bytes, true); }).text, "Out of bounds");
  EXPECT_EQ(failureOf<TransformException>([&] { BigDecimal{text}; }).text, "'m_apm_set_string', Out of memory");
  EXPECT_THROW(TextFunctions::reverse(text), std::bad_array_new_length);
  EXPECT_THROW(TextFunctions::repeat("ab", INT_MAX), std::bad_array_new_length);
  EXPECT_THROW(note.toXMLString(), std::bad_array_new_length);
  EXPECT_THROW(ArrayList<char>().ensureFree(INT_MAX), std::length_error);
}

TEST(HugeBytes, AreNotTakenForReadWhenATokenizerCannotReachThem) {
  HugeBytes const huge("1=");
  FIXTokenizer tokens(Binary(huge.data(), huge.size(), false).asText(), '\0');
  TagValuePair pair;
  EXPECT_TRUE(tokens.nextDataTag(pair, INT_MAX - 3));
  EXPECT_FALSE(tokens.next(pair));
  EXPECT_EQ(failureOf<FIXParsingException>([&] { tokens.assertEmpty(); }).text, "Unexpected FIX data at the end.");
}

}  // namespace
}  // namespace tavrone
