#include "tavrone/universal/UniversalInputRecord.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <random>

#include "tavrone/dataobject/Record.h"
#include "tests/Cases.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

struct Message : UniversalInputRecord {
  explicit Message(std::string const &bytes) { init(Binary(bytes.data(), bytes.size())); }
};

// What a reader gives or raises, and where the record stands before and after it.
template <class Read>
std::string outcome(UniversalInputRecord &record, Read const &read) {
  std::string text;
  std::string const failure = failureOf<TransformException>([&] { text = str(read(record)); }).text;
  return (failure.empty() ? text : failure) + words("", record.getPreviousIndex(), record.getCurrentIndex());
}

std::string message(std::string const &hex) {
  return str(Binary::fromHexString(tvstring(hex.data(), hex.size())));
}

TEST(UniversalInputRecord, ReadsFixedFieldsWithinItsEnd) {
  struct {
    std::function<tvstring(UniversalInputRecord &)> read;
    char const *expected;
  } const cases[] = {
      {[](auto &r) { return r.getString(3); }, "abc 0 3"},
      {[](auto &r) { return r.getTagString(0); }, " 0 0"},
      {[](auto &r) { return r.getString(-3); }, "Not enough characters. Required -3 , available 8 0 0"},
      {[](auto &r) { return r.getString(9); }, "Not enough characters. Required 9 , available 8 0 0"},
      {[](auto &r) { return r.skip(INT_MAX), tvstring(); },
       "Not enough characters. Required 2147483647 , available 8 0 0"},
      {[](auto &r) { return r.skip(2), r.skipFixedFiller(2), r.skipChoicePadding(1), r.getFixedFiller(3); }, "fgh 5 8"},
      {[](auto &r) { return r.peekString(2, 3) + r.peekString(99) + "|" + UniversalInputRecord::peekRest(&r); },
       "cdeabcdefghXY|abcdefgh 0 0"},
      {[](auto &r) { return r.skip(4), r.peekString(-4, 2) + r.peekString(4, 9) + r.peekString(INT_MAX, 1); },
       "ab 0 4"},
      {[](auto &r) { return r.peekString(-1, 1); }, "Not enough characters. Required -1 , available 8 0 0"},
      {[](auto &r) { return r.peekString(-1); }, "Not enough characters. Required -1 , available 8 0 0"},
      {[](auto &r) { return r.startTrailingFields(), r.skip(8), r.getString(3) + r.getString(-1); }, " 0 8"},
      {[](auto &r) { return r.startTrailingFields(), r.skip(7), r.getString(3); },
       "Not enough characters. Required 3 , available 1 0 7"},
      {[](auto &r) { return r.skip(7), r.isNext("hX") && r.isNext("") && !r.isNext("hXY") ? "next" : ""; }, "next 0 7"},
      {[](auto &r) { return r.skipFieldTag("ab", "c"), r.skipSectionTag("d"), r.peekRest(); }, "efgh 3 4"},
      {[](auto &r) { return r.skipFieldTag("ax"), tvstring(); }, "Field tag 'ax' expected. Found 'ab' 0 2"},
      {[](auto &r) { return r.skipSectionTag("ab", "="), tvstring(); },
       "Section tag separator '=' expected. Found 'c' 2 3"},
      {[](auto &r) { return r.assertCompleted("S"), tvstring(); },
       "Unexpected characters at the end of section 'S'. 0 0"},
      {[](auto &r) { return r.assertCompleted(), tvstring(); }, "Unexpected characters at the end of sequence. 0 0"},
      {[](auto &r) { return r.assertMessageCompleted(), tvstring(); },
       "Unexpected characters at the end of message. 0 0"},
      {[](auto &r) { return r.skip(8), r.assertMessageCompleted(), r.assertCompleted(), r.peekRest(); }, " 0 8"},
  };
  tvstring const text("abcdefghXY");
  for (auto const &c : cases) {
    UniversalInputRecord record;
    record.init(text, text, 0, 8, nullptr);
    EXPECT_EQ(outcome(record, c.read), c.expected);
  }
  Message whole("ab");
  whole.skip(2);
  EXPECT_FALSE(whole.isNext(""));
}

TEST(UniversalInputRecord, CutsDelimitedFieldsAndTakesQuotesAway) {
  // message, delimiter, quote -> fields, each in brackets
  auto const fields = [](std::istream &input) {
    std::string text, delimiter, shown;
    char quote = 0;
    input >> text >> delimiter >> quote;
    Message record(text);
    tvstring const mark(delimiter.data(), delimiter.size());
    while (!record.isEmpty()) shown += '[' + str(record.getDelimitedField(mark, quote == '0' ? '\0' : quote)) + ']';
    return shown + std::to_string(record.getCurrentIndex());
  };
  expectEach({"a,bc,,d , 0 -> [a][bc][][d]7", "a, , 0 -> [a]2", "ab--c-- -- 0 -> [ab][c]7", "ab-c- -- 0 -> [ab-c-]5",
              "'a,b',c , ' -> [a,b][c]7", "'a''b',c , ' -> [a'b][c]8", "'a'',b',c , ' -> [a'][b'][c]9",
              "'',x , ' -> [][x]4", "'ab,c , ' -> [ab,c]5", "''',' , ' -> ['][]5", "'a'b,c , ' -> [ab][c]6",
              "'a'b' ' ' -> [a][b]5", "a'b,c' , ' -> [a'b][c']6"},
             fields);
  EXPECT_EQ(str(Message("ab,c").getDelimitedField(tvstring())), "ab,c");
  EXPECT_EQ(words(Message("a,b").findDelimiter(",", 0, 0, 1), Message("a,b").findDelimiter(",", 'a', -5, 99),
                  Message("a,b").findDelimiter(",", 0, 3, INT_MAX), Message("a--").findDelimiter("--", 0, 0, 2)),
            "-1 -1 -1 -1");
}

// Every place of the delimiter in records of every length and in every place of the message.
TEST(UniversalInputRecord, FindsADelimiterOfOneByteWhereverItStands) {
  for (int before = 0; before <= 20; ++before)
    for (int length = 0; length <= 70; ++length)
      for (int at = 0; at <= length; ++at) {
        std::string text(static_cast<size_t>(before + length), ',');
        text.replace(static_cast<size_t>(before), static_cast<size_t>(at), std::string(static_cast<size_t>(at), 'x'));
        tvstring const bytes(text.data(), text.size());
        UniversalInputRecord record;
        record.init(bytes, bytes, before, length, nullptr);
        ASSERT_EQ(record.getDelimitedField(tvstringliteral(",")).length(), static_cast<size_t>(at));
        ASSERT_EQ(record.getCurrentIndex(), before + std::min(at + 1, length));
      }
}

TEST(UniversalInputRecord, CutsRecordsThatShareTheMessage) {
  Message top("a,b;;c,d;;e");
  top.startSequence();
  UniversalInputRecord child, inner;
  EXPECT_EQ(top.getDelimitedRecord(&child, ";;", true, false), &child);
  EXPECT_EQ(words(str(child.peekRest()), str(child.getDelimiter()), child.getEnclosingRecord() == &top,
                  top.getCurrentIndex(), top.getPreviousIndex(), top.getCurrentFieldIndex()),
            "a,b ;; 1 5 0 0");
  EXPECT_EQ(child.peekRest().data(), top.peekString(-5, 1).data());
  child.getDelimitedRecord(&inner, ",", true, false);
  EXPECT_EQ(str(inner.peekRest()) + '|' + str(child.peekRest()), "a|b");
  child.getDelimitedRecord(&inner, ";;", true, false);  // the delimiter at the end is the parent's
  EXPECT_EQ(words(str(inner.peekRest()), child.isEmpty(), child.getCurrentIndex()), "b 1 3");
  top.getDelimitedRecord(&child, tvstring(), true, false);
  EXPECT_EQ(str(child.peekRest()) + std::to_string(top.isEmpty()), "c,d;;e1");
  std::string const bytes("ab");
  child.init(Binary(bytes.data(), 2, false));  // nobody counts these: a copy
  EXPECT_NE(child.peekRest().data(), bytes.data());
  tvstring const text("abc");
  for (auto const &[given, raw] : {std::pair(text, Binary()), {tvstring(), Binary(text)}}) {
    inner.init(given, raw, 1, 2, nullptr);
    std::string const first = str(inner.getString(1));
    EXPECT_EQ(first + str(inner.getBinaryBinary(1)), "bc");
  }
  inner.init(text, text, 2, 1, ";;", true, false, nullptr);
  for (auto const &[start, length] : {std::pair(0, 4), {-1, 1}, {4, 0}, {1, -1}, {2, INT_MAX}, {INT_MAX, INT_MAX}}) {
    auto const init = [&, from = start, n = length] { inner.init(text, text, from, n, "x", true, true, nullptr); };
    EXPECT_EQ(failureOf<TransformException>(init).source, "cpp/universal/UniversalInputRecord");
  }
  EXPECT_EQ(words(str(inner.getDelimiter()), inner.getCurrentIndex(), inner.isEmpty()), ";; 2 0");
}

TEST(UniversalInputRecord, ReadsBinaryFieldsInBothByteOrders) {
  auto const read = [](std::istream &input) {
    std::string hex;
    int length = 0;
    bool isSigned = false, bigEndian = false;
    input >> hex >> length >> isSigned >> bigEndian;
    Message record(message(hex)), again(message(hex));
    std::string const shown = words(record.getBinaryLong(length, isSigned, bigEndian));
    return words(shown, again.getBinaryInt(length, isSigned, bigEndian), record.getCurrentIndex());
  };
  expectEach(
      {"FF 1 0 1 -> 255 255 1", "FF 1 1 1 -> -1 -1 1", "FFFE 2 1 1 -> -2 -2 2", "FFFE 2 0 0 -> 65279 65279 2",
       "FFFFFFFE 4 0 1 -> 4294967294 -2 4", "FFFFFFFE 4 1 1 -> -2 -2 4", "01000080 4 1 0 -> -2147483647 -2147483647 4",
       "0102030405060708 8 0 1 -> 72623859790382856 84281096 8", "0100000000000080 8 1 0 -> -9223372036854775807 1 8"},
      read);
  Message record(message("4048F5C3") + message("1F85EB51B81E0940") + message("0002FF"));
  record.startSequence();
  EXPECT_EQ(record.getBinaryFloat(true), 3.14F);
  EXPECT_EQ(record.getBinaryDouble(false), 3.14);
  EXPECT_EQ(record.getPreviousIndex(), 4);
  EXPECT_TRUE(!record.getBinaryBoolean() && record.getBinaryBoolean());
  EXPECT_EQ(record.getCurrentFieldIndex(), 3);
  EXPECT_EQ(outcome(record, [](auto &r) { return r.getBinaryBinary(2); }),
            "Not enough characters. Required 2 , available 1 13 14");
  EXPECT_EQ(outcome(record, [](auto &r) { return r.getBinaryBinary(-1); }),
            "Not enough characters. Required -1 , available 1 13 14");
  for (auto const &[length, tail] :
       {std::pair(3, "egal integral length - "), {25, " "}, {26, ""}, {-1, ""}, {INT_MAX, ""}})
    EXPECT_EQ(failureOf<TransformException>([&, n = length] { record.getBinaryInt(n, true, true); }).text, tail);
}

std::string packed(std::istream &input) {
  std::string hex;
  int digits = 0, fraction = -1;
  bool const isDouble = static_cast<bool>(input >> hex >> digits >> fraction);
  // The same behind other bytes, which whole words may reach back to.
  std::string results[2];
  for (int before : {0, 9}) {
    Message record(std::string(static_cast<size_t>(before), '\xFF') + message(hex));
    record.skip(before);
    std::string &shown = results[before != 0];
    Failure const failure = failureOf<TransformException>([&] {
      shown = isDouble ? words(record.getPackedDecimalDouble(digits, fraction))
                       : words(record.getPackedDecimalLong(digits));
      shown += words("", record.getCurrentIndex() - before);
    });
    shown += failure.text;
  }
  EXPECT_EQ(results[1], results[0]);
  return results[0];
}

TEST(UniversalInputRecord, ReadsPackedDecimals) {
  expectEach(
      {"12345C 5 -> 12345 3", "01234D 4 -> -1234 3", "F1234F 4 -> 1234 3", "0C 0 -> 0 1", "9D 1 -> -9 1",
       "0FAC 2 -> 160 2", "1234567890123456789C 19 -> 1234567890123456789 10",
       "9223372036854775808D 19 -> -9223372036854775808 10", "9223372036854775808C 19 -> Packed decimal overflow",
       "12345C 3 2 -> 123.45 3", "000012345D 4 5 -> -0.12345 5", "1C -1 -> Packed decimal overflow",
       "1C 20 -> Packed decimal overflow", "1C 0 19 -> Packed decimal overflow", "1C 5 -1 -> Packed decimal overflow",
       "1C 2147483647 2147483647 -> Packed decimal overflow",
       "123C 5 -> Not enough characters. Required 3 , available 2",
       "1A 1 -> The sign byte in a packed decimal should be one of 'D', 'C' or 'F'. found 10"},
      packed);
  EXPECT_EQ(Message(message("02147483648D")).getPackedDecimalInt(10), INT_MIN);
  EXPECT_EQ(Message(message("123C")).getPackedDecimalFloat(2, 1), 12.3F);
}

// The place depends on where the question stops, and never on the questions before it.
TEST(UniversalInputRecord, LocatesLinesByWhateverStandsBehindACarriageReturn) {
  // "line:offset" for each position from 1 to one past the end
  std::pair<char const *, char const *> const cases[] = {{"ab", "0:1 0:2 0:3"},
                                                         {"a\nb", "0:1 1:1 1:2 1:3"},
                                                         {"a\r\nb", "0:1 1:1 1:2 1:3 1:4"},
                                                         {"a\rbc", "0:1 1:1 1:2 1:3 1:4"},
                                                         {"\r\r\rx", "1:1 1:2 2:1 2:2 2:3"},
                                                         {"\n\r\n\n", "1:1 2:1 2:2 3:1 3:2"}};
  for (auto const &[text, expected] : cases) {
    Message record(text);
    auto const place = [&](int position) {
      auto const [line, offset] = record.getLineOffsetAt(position);
      return std::to_string(line) + ':' + std::to_string(offset);
    };
    int const end = static_cast<int>(std::strlen(text)) + 1;
    std::string rising, falling;
    for (int i = 1; i <= end; ++i) rising += (i == 1 ? "" : " ") + place(i);
    for (int i = end; i >= 1; --i) falling = place(i) + (i == end ? "" : " ") + falling;
    EXPECT_EQ(rising, expected);
    EXPECT_EQ(falling, expected);
    EXPECT_EQ(place(0) + ' ' + place(-7), "0:0 0:-7");
  }
}

TEST(UniversalInputRecord, CountsLinesAnewInAMessageThatTookAnothersPlace) {
  Binary const buffer("a\n\nb", 4);
  UniversalInputRecord top, child;
  for (int lines : {2, 1}) {
    top.init(buffer);
    EXPECT_EQ(top.getDelimitedRecord(&child, ";", false, true)->getLineOffsetAt(4).first, lines);
    buffer.set(1, 'x');
  }
}

TEST(UniversalInputRecord, SplitsAndTrimsValues) {
  using Record = UniversalInputRecord;
  EXPECT_EQ(str(Record::splitTagValue("T=v", "T") + Record::splitTagValue("T=v", "T", "=")), "=vv");
  EXPECT_EQ(str(Record::terminateRight("a;b;", ';') + Record::terminateRight("ab", ';') +
                Record::terminateNullRight(tvstring("c\0d", 3)) + Record::terminateRight("d\xE9", '\xE9')),
            "aabcd");
  EXPECT_EQ(str(Record::trimSpaces("  a b ") + "|" + Record::trimSpaces(" a ", false, true) + "|" +
                Record::trimSpaces(" a ", true, false) + "|" + Record::trimSpaces("  ") + "|\t"),
            "a b| a|a ||\t");
  auto const failure = [](auto... texts) {
    return failureOf<TransformException>([&] { Record::splitTagValue(tvstring(texts)...); }).text;
  };
  EXPECT_EQ(failure("xT", "T"), "Tag T expected in xT");
  EXPECT_EQ(failure("x", "xT", "="), "Tag 'xT' expected in x");
  EXPECT_EQ(failure("T", "T", "="), "Tag-value Separator '=' expected in T");
}

// A message cut anywhere fails where it is cut, and what was read before stays.
TEST(UniversalInputRecord, FailsClearlyWhereverAMessageIsCut) {
  std::string const whole = "ab," + message("0102") + message("123C") + "'x,y',Tz";
  for (size_t length = 0; length < whole.size(); ++length) {
    Message record(whole.substr(0, length));
    auto const walk = [&] {
      record.getDelimitedField(",");
      record.getBinaryInt2(true, false);
      record.getPackedDecimalInt(3);
      record.getDelimitedField(",", '\'');
      record.skipFieldTag("T");
      record.getString(1);
    };
    EXPECT_EQ(failureOf<TransformException>(walk).source, "cpp/universal/UniversalInputRecord") << length;
    EXPECT_LE(record.getCurrentIndex(), static_cast<int>(length));
  }
}

TEST(UniversalRecord, WalksGroupsAndNamesWhatIsMissing) {
  struct Leg : Record<"Leg", Field<"Symbol", tvstring>, Field<"Price", int>> {
  } leg;
  Message record("abc");
  record.onField();  // no group is open
  record.startSequence();
  record.onField();
  record.skip(2);
  record.startChoice();
  record.onField();
  std::string const inChoice = words(record.getCurrentFieldIndex(), record.getSequenceStartIndex(),
                                     record.isLastSequence(), record.isSequenceCompleted());
  Failure const missing = failureOf<TransformException>([&] { record.requiredFieldMissing(&leg, 1); });
  EXPECT_EQ(missing.source + missing.text, "cpp/universal/UniversalRecordThe mandatory field 'Price' is missing.");
  record.endAll();
  EXPECT_EQ(words(inChoice, record.getCurrentFieldIndex(), record.isLastSequence()), "-1 2 0 0 0 1");
  record.endSequence();
  record.endSequence();
  EXPECT_EQ(words(record.getCurrentFieldIndex(), record.isSequenceCompleted()), "-1 1");
}

}  // namespace
}  // namespace tavrone
