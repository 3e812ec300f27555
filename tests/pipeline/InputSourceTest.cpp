#include "tavrone/pipeline/InputSources.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/Text.h"
#include "tests/routing/Routing.h"

namespace tavrone {
namespace {

std::string payload(InputSource &source) {
  int length = -1;
  char const *bytes = source.getAsBytes(length);
  int again = -1;
  EXPECT_EQ(source.getAsBytes(again), bytes);
  EXPECT_EQ(again, length);
  return std::string(bytes, static_cast<size_t>(length));
}

char *onHeap(char const *text) {
  return std::strcpy(new char[std::strlen(text) + 1], text);
}

TEST(ByteArrayInputSource, AdoptsSharesOrCopies) {
  Binary const shared("shared", 6);
  ByteArrayInputSource view(shared), adopted(onHeap("adopted"), 7), also(onHeap("also"), 4, true);
  char buffer[] = "copied";
  ByteArrayInputSource copied(buffer, 6, false), negative(onHeap("x"), -1), null(nullptr, 0);
  buffer[0] = '?';
  int length = 0;
  EXPECT_EQ(view.getAsBytes(length), shared.data());
  EXPECT_EQ(payload(adopted) + payload(also) + payload(copied) + payload(negative) + payload(null),
            "adoptedalsocopied");
}

// What a source gives as a value lives on without it, and is shared where that needs no copy.
TEST(InputSource, SharesCountedStorageAndCopiesTheRest) {
  char buffer[] = "caller's";
  Binary const counted("counted", 7), borrowed(buffer, 8, false);
  tvstring const text("text");
  std::pair<SmartPtr<AbstractRawMessage>, bool> const cases[] = {
      {new ByteArrayInputSource(counted), true},
      {new StringInputSource(text.substr(1)), true},
      {new ByteArrayInputSource(borrowed), false},
      {new ByteArrayInputSource(onHeap("adopted"), 7), false},
      {new StringInputSource(tvstringliteral("static")), false}};
  for (auto const &[source, isShared] : cases) {
    int length = 0;
    char const *const bytes = source->getAsBytes(length);
    Binary const value = source->getAsBinary();
    EXPECT_EQ(value.data() == bytes, isShared) << source->getAsString().c_str();
    EXPECT_EQ(str(value), std::string(bytes, static_cast<size_t>(length)));
    EXPECT_EQ(str(source->getAsString("UTF-16")), str(value));
  }
  struct Upper : StringInputSource {
    Upper() : StringInputSource("text") {}
    char const *getAsBytes(int &length) override { return StringInputSource::getAsBytes(length), "TEXT"; }
  };
  EXPECT_EQ(str(Upper().getAsBinary()), "TEXT");
}

TEST(ByteArrayInputSource, CopiesFreeEachBufferOnce) {
  ByteArrayInputSource target(onHeap("old"), 3);
  {
    ByteArrayInputSource const owner(onHeap("owned"), 5);
    target = owner;
    ByteArrayInputSource copy(owner);
    EXPECT_EQ(payload(copy), "owned");
  }
  auto const &self = target;
  target = self;
  EXPECT_EQ(payload(target), "owned");
}

struct FileInputSourceTest : testing::Test {
  ~FileInputSourceTest() override { std::filesystem::remove(path); }
  tvstring write(std::string const &text) {
    std::ofstream(path, std::ios::binary) << text;
    return path.c_str();
  }
  // Tests run side by side, each in a process of its own.
  std::string path = testing::TempDir() + "tavrone_input_source_" + std::to_string(getpid());
};

TEST_F(FileInputSourceTest, ReadsTheWholeFileAndEndsItWithAZero) {
  for (std::string const &text : {std::string(), std::string("a\0\r\n\xff", 5), std::string(100000, 'x')}) {
    tvstring const longer = write(text) + "_and_more";
    FileInputSource source(longer.substr(0, path.size()));
    FileInputSource copy(source), assigned(copy);
    assigned = source;
    for (FileInputSource *each : {&source, &copy, &assigned}) EXPECT_EQ(payload(*each), text);
    EXPECT_EQ(str(source.getAsBinary()), text);
    int length = 0;
    EXPECT_EQ(assigned.getAsBytes(length)[text.size()], '\0');
  }
}

TEST_F(FileInputSourceTest, WhatIsNoFileIsNotFound) {
  write("content");
  tvstring const file(path.c_str());
  std::filesystem::path const huge = path + "_huge";
  std::ofstream(huge.string()).put('x');
  std::filesystem::resize_file(huge, 1ull << 31);
  for (tvstring const &missing : {file + "/none", tvstring(), tvstring(testing::TempDir().c_str()), file + '\0' + "x",
                                  tvstring("/proc/self/task"), tvstring(huge.c_str())})
    EXPECT_FAILURE(TransformException, FileInputSource const source(missing),
                   "cpp/FileInputSource:14:File not found " + std::string(missing.data(), missing.length()));
  std::filesystem::remove(huge);
}

}  // namespace
}  // namespace tavrone
