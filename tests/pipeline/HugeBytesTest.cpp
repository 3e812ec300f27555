#include <gtest/gtest.h>
#include <sys/mman.h>

#include <functional>
#include <new>
#include <stdexcept>

#include "tavrone/pipeline/WriteAll.h"
#include "tavrone/tavrone.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

// One byte more than an int can count: a few to begin with, then zeros. They take addresses, but next to no memory.
class HugeBytes {
 public:
  explicit HugeBytes(std::string const &begin = "")
      : data_(::mmap(nullptr, size(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {
    if (data_ == MAP_FAILED) throw std::bad_alloc();
    std::memcpy(data_, begin.data(), begin.size());
  }
  HugeBytes(HugeBytes const &) = delete;
  HugeBytes &operator=(HugeBytes const &) = delete;
  ~HugeBytes() { ::munmap(data_, size()); }

  char const *data() const { return static_cast<char const *>(data_); }
  size_t size() const { return size_t{INT_MAX} + 1; }

 private:
  void *data_;
};

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
  EXPECT_FAILURE(FCSParseException, LineReader(bytes, true), "Out of bounds");
  EXPECT_FAILURE(TransformException, BigDecimal{text}, "'m_apm_set_string', Out of memory");
  EXPECT_THROW(TextFunctions::reverse(text), std::bad_array_new_length);
  EXPECT_THROW(TextFunctions::repeat("ab", INT_MAX), std::bad_array_new_length);
  EXPECT_THROW(note.toXMLString(), std::bad_array_new_length);
  EXPECT_THROW(ArrayList<char>().ensureFree(INT_MAX), std::length_error);
}

TEST(HugeBytes, AreNotTakenForReadWhenATokenizerCannotReachThem) {
  HugeBytes const huge("1=");
  FIXTokenizer tokens(Binary(huge.data(), huge.size(), false).asText(), '\0');
  TagValuePair pair;
  EXPECT_TRUE(tokens.nextDataTag(pair, INT_MAX - 3) && !tokens.next(pair));
  EXPECT_FAILURE(FIXParsingException, tokens.assertEmpty(), "Unexpected FIX data at the end.");
}

}  // namespace
}  // namespace tavrone
