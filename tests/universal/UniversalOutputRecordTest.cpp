#include "tavrone/universal/UniversalOutputRecord.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "tavrone/core/SmartPtr.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

using Record = UniversalOutputRecord;
using Write = std::function<void(Record &)>;

Binary const BYTES("\x01\xAB", 2);
DateTime const DATE(2026, 1, 2, 3, 4, 5, 6);
tvstring const LONG_NUMBER(400, '7');

// What the writing leaves in a sequence of a record, "<failure>" behind it.
std::string written(Write const &write) {
  Record record;
  record.startSequence();
  Failure const failure = failureOf<TransformException>([&] { write(record); });
  EXPECT_TRUE(failure.text.empty() || failure.source == "cpp/universal/UniversalOutputRecord") << failure;
  return str(record.toString()) + (failure.text.empty() ? "" : "<" + failure.text + ">");
}
std::string hex(Write const &write) {
  std::string const bytes = written(write);
  return str(Binary(bytes.data(), bytes.size()).toHexString());
}

#define WRITTEN(...) written([&](Record &r) { __VA_ARGS__; })
#define HEX(...) hex([&](Record &r) { __VA_ARGS__; })

// One field.
template <class... Arguments>
std::string fixed(Arguments const &...arguments) {
  return written([&](Record &r) { r.appendASCIIField(arguments...); });
}
template <class... Arguments>
std::string terminated(Arguments const &...arguments) {
  return written([&](Record &r) { r.setTerminator('$'), r.appendASCIIField(arguments...); });
}
template <class... Arguments>
std::string delimited(Arguments const &...arguments) {
  return written([&](Record &r) { r.appendDelimitedField(arguments...); });
}

TEST(UniversalOutputRecord, FixedNumbersPutTheSignBeforeZerosAndBehindOtherFill) {
  EXPECT_EQ(fixed(-42, 6, true, '0'), "-00042");
  EXPECT_EQ(fixed(-42, 6, true, ' '), "   -42");
  EXPECT_EQ(fixed(-42, 6, false, '0'), "-42000");
  EXPECT_EQ(fixed(42L, 2, false, '0'), "42");
  EXPECT_EQ(fixed(123456789012345678LL, 40, true, '*'), std::string(22, '*') + "123456789012345678");
  EXPECT_EQ(fixed(BigInteger("-12345678901234567890"), 23, true, '0'), "-0012345678901234567890");
  EXPECT_EQ(fixed(BigInteger(LONG_NUMBER), 401, false, '.'), str(LONG_NUMBER) + ".");
  EXPECT_EQ(fixed(INT_MIN, 13, true, '0'), "-0-2147483648");
  EXPECT_EQ(fixed(LLONG_MIN, 22, true, ' '), " --9223372036854775808");
  EXPECT_EQ(fixed(-42, 2, true, '0'), "<Cannot represent '42' in 2 digits>");
  EXPECT_EQ(fixed(0LL, -1, true, '0'), "<Cannot represent '0' in -1 digits>");
  EXPECT_EQ(fixed(BigInteger(-123), 3, true, '0'), "<Cannot represent '123' in 3 digits>");
}

TEST(UniversalOutputRecord, FixedTextsReserveAPlaceForTheirTerminator) {
  EXPECT_EQ(fixed("abc", 5, true, '.'), "..abc");
  EXPECT_EQ(fixed(tvstring("abc"), 5, false, '.'), "abc..");
  EXPECT_EQ(fixed("", 0, false, '.'), "");
  EXPECT_EQ(fixed("abcd", 3, true, '.'), "<Cannot represent 'abcd' in 3 characters>");
  EXPECT_EQ(fixed("a", INT_MIN, true, '.'), "<Cannot represent 'a' in -2147483648 characters>");
  EXPECT_EQ(
      WRITTEN(r.setTerminator('$'), r.appendASCIIField("abc", 5, true, '.'), r.appendASCIIField("d", 2, false, '.')),
      ".abc$d.");
  EXPECT_EQ(WRITTEN(r.setTerminator('\xFF'), r.appendASCIIField("abc", 5, false, '.')), "abc\xFF.");
  EXPECT_EQ(terminated("", 3, false, '.'), "..$");
  EXPECT_EQ(terminated("", 0, false, '.'), "$");
  EXPECT_EQ(terminated("abc", 3, true, '.'), "<Cannot represent 'abc' in 2 characters>");
  EXPECT_EQ(WRITTEN(r.setTerminator('$'), r.appendASCIIField('c', 1, true, '.'), r.appendASCIIField('d', 3, true, '.')),
            "c.d$");
  EXPECT_EQ(terminated(true, 4, "Yes", "No", true, '.'), "Yes$");
  EXPECT_EQ(WRITTEN(r.setTerminator('$'), r.clearTerminator(), r.appendASCIIField(false, 4, "Yes", "No", true, '.')),
            "..No");
  EXPECT_EQ(WRITTEN(r.setTerminator('$'), r.appendASCIIFieldHex(BYTES, 5, true, '.')), ".01AB");
  EXPECT_EQ(WRITTEN(r.appendASCIIFieldBase64(BYTES, 5, false, '.')), "Aas=.");
  EXPECT_EQ(WRITTEN(r.appendASCIIFieldHex(BYTES, 3, true, '.')), "<Cannot represent '01AB' in 3 digits>");
  EXPECT_EQ(WRITTEN(r.appendASCIIFieldBase64(BYTES, 3, true, '.')), "<Cannot represent 'Aas=' in 3 digits>");
  EXPECT_EQ(fixed(DATE, 2, "yyyyMMdd"), "20260102");
}

TEST(UniversalOutputRecord, DecimalsRoundTheirFractionAndNeverCarry) {
  double const infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(fixed(1.25, 3, 1, ',', false, ' '), "  1,3");
  EXPECT_EQ(fixed(-0.5f, 4, 2, '\0', true, '0'), "-00050");
  EXPECT_EQ(fixed(-0.0, 2, 1, '.', true, '0'), "00.0");
  EXPECT_EQ(fixed(-0x1p63, 21, 1, '.', true, '0'), "--9223372036854775808.0");
  EXPECT_EQ(fixed(1.999, 3, 2, '.', true, '0'), "001.<Cannot represent '100' in 2 digits>");
  EXPECT_EQ(fixed(1.999, 3, 2, '.'), "<Cannot represent '100' in 2 digits>");
  EXPECT_EQ(delimited(1.999, 3, 2, '.', "|", '0'), "<Cannot represent '100' in 2 digits>");
  EXPECT_EQ(fixed(-10.0, 2, 2, '.', true, '0'), "<Cannot represent '10' in 2 digits>");
  EXPECT_EQ(fixed(1.5, 3, 0, '.', true, '0'), "001.<Cannot represent '1' in 0 digits>");
  EXPECT_EQ(fixed(1.5, 3, 19, '.', true, '0'), "<Cannot represent '1.5' in 19 digits>");
  EXPECT_EQ(fixed(1.5, 3, -1, '.', true, '0'), "<Cannot represent '1.5' in -1 digits>");
  EXPECT_EQ(fixed(-infinity, 3, 2, '.', true, '0'), "<Cannot represent '-inf' in 3 digits>");
  EXPECT_EQ(fixed(0x1p63, 3, 2, '.', true, '0'), "<Cannot represent '9223372036854775808.0' in 3 digits>");
  EXPECT_EQ(fixed(-12.25, 8, ',', false, '*'), "-12,2500");
  EXPECT_EQ(fixed(12.25, 5, '\0', true, ' '), std::string("12\0", 3) + "25");
  EXPECT_EQ(fixed(12.0, 5, '.', false, '*'), "***12");
  EXPECT_EQ(fixed(12345.0, 3, '.', true, '*'), "12345");
  EXPECT_EQ(fixed(0.96, 3, '.', true, '*'), "<Cannot represent '10' in 1 digits>");
  EXPECT_EQ(fixed(12.5, 3, '.', true, '*'), "<Cannot represent '12.5' in 3 digits>");
  EXPECT_EQ(fixed(1.5, 21, '.', true, '*'), "<Cannot represent '1.5' in 21 digits>");
  EXPECT_EQ(fixed(std::nan(""), 9, '.', true, '*'), "<Cannot represent 'nan' in 9 digits>");
  EXPECT_EQ(fixed(BigDecimal("-1.25"), 7, 9, ',', false, '0'), "00-1.25");
  EXPECT_EQ(fixed(BigDecimal("-1.25"), 2, 1, '.', true, '0'), "-1.25");
  EXPECT_EQ(Record::getDoubleValue(-7.06, 3, 2, '\0', false, ' '), " -706");
  tvstringbuffer text("x");
  Record::padLong(42, true, 5, true, ' ', text);
  EXPECT_EQ(text, "x  -42");
}

TEST(UniversalOutputRecord, FieldsAsLongAsTheirValueTellTheirLength) {
  Record r;
  auto const check = [&r](char const *expected, int appended, int announced) {
    tvstring const text(expected);
    EXPECT_EQ(r.toString(), text);
    EXPECT_EQ(appended, static_cast<int>(text.length())) << expected;
    EXPECT_EQ(announced, appended) << expected;
    r.restart("", false, false);
  };
  check("", r.appendASCIIField(""), r.getASCIIFieldLength(""));
  check("abc", r.appendASCIIField("abc"), r.getASCIIFieldLength("abc"));
  check("-2147483648", r.appendASCIIField(INT_MIN), r.getASCIIFieldLength(INT_MIN));
  check("-42", r.appendASCIIField(-42L), r.getASCIIFieldLength(-42LL));
  check("c", r.appendASCIIField('c'), r.getASCIIFieldLength('c'));
  check("no", r.appendASCIIField(false, "yes", "no"), r.getASCIIFieldLength(false, "yes", "no"));
  check("1,5", r.appendASCIIField(1.5f, ','), r.getASCIIFieldLength(1.5f, ','));
  check("001.50", r.appendASCIIField(1.5, 3, 2, '.'), r.getASCIIFieldLength(1.5, 3, 2, '.'));
  check("00150", r.appendASCIIField(1.5, 3, 2, '\0'), r.getASCIIFieldLength(1.5, 3, 2, '\0'));
  check("0304", r.appendASCIIField(DATE, "HHmm"), r.getASCIIFieldLength(DATE, "HHmm"));
  check("01AB", r.appendASCIIFieldHex(BYTES), r.getASCIIFieldLengthHex(BYTES));
  check("Aas=", r.appendASCIIFieldBase64(BYTES), r.getASCIIFieldLengthBase64(BYTES));
  check("\x01\xAB", r.appendBinaryField(BYTES), r.getBinaryFieldLength(BYTES));
  EXPECT_FAILURE(TransformException, Record::getASCIIFieldLength(1.999, 3, 2, '.'),
                 "Cannot represent '100' in 2 digits");
}

TEST(UniversalOutputRecord, DelimitedFieldsQuoteOnlyAValueThatHoldsTheDelimiter) {
  EXPECT_EQ(delimited("a,b", ","), "a,b,");
  EXPECT_EQ(delimited(tvstring("a"), ""), "a");
  EXPECT_EQ(delimited("a\",b", ",", '"'), "\"a\",b\",");
  EXPECT_EQ(delimited("a\"b", ",", '"'), "a\"b,");
  EXPECT_EQ(delimited("a,b", ",", '\0'), "a,b,");
  EXPECT_EQ(delimited("a", "", '\''), "'a'");
  EXPECT_EQ(delimited(0, ","), "0,");
  EXPECT_EQ(delimited(-5LL, "::"), "-5::");
  EXPECT_EQ(delimited(7L, ";"), "7;");
  EXPECT_EQ(delimited('c', ","), "c,");
  EXPECT_EQ(delimited(true, ",", "Y", "N"), "Y,");
  EXPECT_EQ(delimited(1.5, ';', ","), "1;5,");
  EXPECT_EQ(delimited(-0.25F, '.', "|"), "-0.25|");
  EXPECT_EQ(delimited(-1.5, 4, 2, '.', ",", ' '), "  -1.50,");
  EXPECT_EQ(delimited(BigDecimal("-1.50"), ","), "-1.5,");
  EXPECT_EQ(delimited(BigInteger(LONG_NUMBER), ","), str(LONG_NUMBER) + ",");
  EXPECT_EQ(delimited(DATE, "yyyy", ","), "2026,");
  EXPECT_EQ(WRITTEN(r.appendDelimitedFieldHex(BYTES, ","), r.appendDelimitedFieldBase64(BYTES, ",")), "01AB,Aas=,");
  EXPECT_EQ(WRITTEN(r.appendDelimitedASCIIFieldASCII(Binary("x", 1), ",")), "x,");
}

TEST(UniversalOutputRecord, CountsTheFieldsOfASequenceOnly) {
  Record record;
  record.startSequence();
  record.appendASCIIField(1);
  record.appendFiller(2);
  record.appendFiller(-1);
  record.appendFiller("x");
  record.appendDelimitedFiller("y", ",");
  record.writeBinaryInt(1, '2', true, true);
  record.writePackedDecimalInt(1, -1);
  record.appendTag("T");
  record.appendSectionTag("S", "=");
  record.writeChoicePadding(2);
  EXPECT_EQ(record.toString(), "1  xy,2TS=  ");
  EXPECT_EQ(record.getCurrentFieldIndex(), 6);
  record.startChoice();
  record.appendASCIIField(1);
  EXPECT_EQ(words(record.getCurrentFieldIndex(), record.getRecordLength(), record.getSequenceStartIndex()), "-1 1 12");
}

// A record of two fields and then, in the trailing zone, the fields written.
std::string trimmed(bool dropLast, char const *delimiter, Write const &write) {
  Record record(nullptr, delimiter, false, dropLast);
  record.startSequence();
  record.appendDelimitedField("a", ",");
  record.appendDelimitedField("b", ",");
  record.startTrailingFields();
  write(record);
  record.endSequence();
  return str(record.toString());
}

TEST(UniversalOutputRecord, CutsNullFieldsAtItsEnd) {
  Write const none = [](Record &) {},
              nulls = [](Record &r) { r.appendDelimitedNullField(","), r.appendDelimitedNullField(","); },
              filler = [](Record &r) { r.appendFiller(2); },
              value = [](Record &r) { r.appendDelimitedNullField(","), r.appendDelimitedField("c", ","); },
              bytes = [](Record &r) { r.appendDelimitedFieldHex(BYTES, ","); },
              bytesAndNull = [](Record &r) { r.appendDelimitedFieldHex(BYTES, ","), r.appendDelimitedNullField(","); },
              inner = [](Record &r) { r.startAll(), r.appendDelimitedNullField(","), r.endAll(); };
  std::tuple<Write const &, char const *, char const *, char const *> const cases[] = {
      {none, "a,b;", "a,b,;", "a,b,"},
      {nulls, "a,b;", "a,b,;", "a,b,,,"},
      {filler, "a,b;", "a,b,;", "a,b,  "},
      {value, "a,b,,c;", "a,b,,c,;", "a,b,,c,"},
      {bytes, "a,b,01AB,;", "a,b,01AB,;", "a,b,01AB,"},
      {bytesAndNull, "a,b,01AB,;", "a,b,01AB,;", "a,b,01AB,,"},
      {inner, "a,b;", "a,b,;", "a,b,,"}};
  for (auto const &[fields, dropped, kept, uncut] : cases) {
    EXPECT_EQ(trimmed(true, ";", fields), dropped);
    EXPECT_EQ(trimmed(false, ";", fields), kept);
    EXPECT_EQ(trimmed(true, "", fields), uncut);
  }
}

TEST(UniversalOutputRecord, ANestedRecordJoinsTheEnclosingOneAndHandsItsDelimiterOn) {
  auto const nested = [](Write const &fields) {
    return trimmed(true, "\n", [&fields](Record &parent) {
      SmartPtr<Record> const child(parent.writeDelimitedRecord("|", false, true));
      EXPECT_EQ(child->getEnclosingRecord(), &parent);
      child->startSequence();
      child->startTrailingFields();
      fields(*child);
      child->endSequence();
    });
  };
  EXPECT_EQ(nested([](Record &r) { r.appendDelimitedField(1, ":"), r.appendDelimitedNullField(":"); }), "a,b,1\n");
  EXPECT_EQ(nested([](Record &r) { r.appendDelimitedNullField(":"); }), "a,b,\n");

  // Without a delimiter the child ends where its last field's delimiter was to stand: an empty one is a null field.
  Record parent(nullptr, "\n", false, true), child(&parent, "", false, true);
  parent.startSequence();
  parent.appendDelimitedField("a", ",");
  parent.startTrailingFields();
  child.startSequence();
  child.endSequence();
  EXPECT_TRUE(child.isEmpty());
  parent.endSequence();
  EXPECT_EQ(parent.toString(), "a\n");
}

TEST(UniversalOutputRecord, BinaryFieldsStandInEitherByteOrder) {
  EXPECT_EQ(HEX(r.writeBinaryBoolean(true), r.writeBinaryInt1(-1), r.writeBinaryInt2(0x10203, true)), "01FF0203");
  EXPECT_EQ(HEX(r.writeBinaryInt2(258, false), r.writeBinaryInt4(-2, true), r.writeBinaryInt4(1, false)),
            "0201FFFFFFFE01000000");
  EXPECT_EQ(HEX(r.writeBinaryInt8(1, true), r.writeBinaryInt8(-2, false)), "0000000000000001FEFFFFFFFFFFFFFF");
  EXPECT_EQ(HEX(r.writeBinaryFloat(1.5F, true), r.writeBinaryDouble(-2, false)), "3FC0000000000000000000C0");
  EXPECT_EQ(HEX(r.writeBinaryBinary(BYTES), r.writeBinaryBinary(BYTES, 2)), "01AB01AB");
  EXPECT_EQ(WRITTEN(r.writeBinaryBinary(BYTES, 3)),
            "<Number of bytes in output (2) is not same as the fixed length - 3>");
  for (int length : {0, 3, 9, -1, INT_MIN}) {
    std::string const failure = "<Illegal integral length - " + std::to_string(length) + ">";
    EXPECT_EQ(WRITTEN(r.writeBinaryInt(length, 1, true, true)), failure);
    EXPECT_EQ(WRITTEN(r.writeBinaryLong(length, 1, true, true)), failure);
  }
}

TEST(UniversalOutputRecord, WholeNumbersAreCheckedAgainstTheRangeOfTheirLength) {
  struct {
    int length;
    bool isSigned;
    long long low, high;
  } const cases[] = {{1, true, -128, 127},           {1, false, 0, 255},          {2, true, -32768, 32767},
                     {2, false, 0, 65535},           {4, true, INT_MIN, INT_MAX}, {4, false, 0, UINT_MAX},
                     {8, true, LLONG_MIN, LLONG_MAX}};
  for (auto const &[length, isSigned, low, high] : cases) {
    auto const asLong = [n = length, s = isSigned](long long value) {
      return WRITTEN(r.writeBinaryLong(n, value, s, false));
    };
    auto const asInt = [n = length, s = isSigned](int value) { return WRITTEN(r.writeBinaryInt(n, value, s, false)); };
    for (long long value : {low, high}) {
      std::string const bytes = asLong(value);
      EXPECT_EQ(bytes, std::string(reinterpret_cast<char const *>(&value), static_cast<size_t>(length)));
      if (value >= INT_MIN && value <= INT_MAX) {
        EXPECT_EQ(asInt(static_cast<int>(value)), bytes);
      }
    }
    if (length == 8) continue;
    for (long long value : {low - 1, high + 1}) {
      EXPECT_EQ(asLong(value), "<Cannot represent output value " + std::to_string(value) + ">");
      if (value < INT_MIN || value > INT_MAX) continue;
      std::string const number = std::to_string(value);
      EXPECT_EQ(asInt(static_cast<int>(value)), length == 4 ? "<Cannot represent output value " + number + ">"
                                                            : "<Output value " + number + " not in allowed range>");
    }
  }
}

TEST(UniversalOutputRecord, PacksTwoDigitsAByteAndTheSignBehindThem) {
  std::string const digits = "1234567890123456789";
  for (size_t n = 0; n <= digits.size(); ++n) {
    long long const value = n == 0 ? 5 : std::stoll(digits.substr(0, n));
    std::string const end = n % 2 == 0 ? "0" : "", packed = digits.substr(0, n);
    EXPECT_EQ(HEX(r.writePackedDecimalLong(value, static_cast<int>(n))), packed + 'C' + end);
    EXPECT_EQ(HEX(r.writePackedDecimalLong(-value, static_cast<int>(n))), packed + 'D' + end);
    if (n >= 10) continue;
    EXPECT_EQ(HEX(r.writePackedDecimalInt(static_cast<int>(-value), static_cast<int>(n))), packed + 'D' + end);
  }
  EXPECT_EQ(HEX(r.writePackedDecimalInt(INT_MIN, 10), r.writePackedDecimalInt(7, 3)), "2147483648D0007C");
  EXPECT_EQ(HEX(r.writePackedDecimalLong(LLONG_MIN, 19), r.writePackedDecimalLong(1, INT_MIN)), "9223372036854775808D");
  EXPECT_EQ(HEX(r.writePackedDecimalDouble(-1.5, 3, 0), r.writePackedDecimalDouble(1.25, 1, 2)), "001D125C");
  EXPECT_EQ(HEX(r.writePackedDecimalDouble(1234567.895, 9, 2), r.writePackedDecimalFloat(0.1F, 1, 10)),
            "00123456790C01000000000C");
  EXPECT_EQ(HEX(r.writePackedDecimalDouble(1, INT_MIN, 3)), "");

  float const infinity = std::numeric_limits<float>::infinity();
  for (std::string const &overflow :
       {WRITTEN(r.writePackedDecimalInt(10, 1)), WRITTEN(r.writePackedDecimalInt(1, 11)),
        WRITTEN(r.writePackedDecimalLong(1000000000000000000, 18)), WRITTEN(r.writePackedDecimalLong(1, 20)),
        WRITTEN(r.writePackedDecimalDouble(1e10, 4, 2)), WRITTEN(r.writePackedDecimalDouble(1e18, 9, 9)),
        WRITTEN(r.writePackedDecimalDouble(1, -11, 19)), WRITTEN(r.writePackedDecimalDouble(1, INT_MAX, INT_MAX)),
        WRITTEN(r.writePackedDecimalDouble(1, 9, -2)), WRITTEN(r.writePackedDecimalDouble(std::nan(""), 4, 2)),
        WRITTEN(r.writePackedDecimalFloat(infinity, 9, 2))})
    EXPECT_EQ(overflow, "<Packed decimal overflow>");
}

// Or the failure would name the field before it.
TEST(UniversalOutputRecord, AFieldThatFailsIsCounted) {
  Record record;
  record.startSequence();
  EXPECT_THROW(record.writeBinaryBinary(BYTES, 3), TransformException);
  EXPECT_THROW(record.writePackedDecimalDouble(1e300, 4, 2), TransformException);
  EXPECT_THROW(record.writePackedDecimalFloat(123, 2, 0), TransformException);
  DateTime const noMonth(2026, 13, 1, 0, 0, 0, 0);
  EXPECT_THROW(record.appendASCIIField(noMonth, "MMM"), TransformRuntimeException);
  EXPECT_THROW(record.appendDelimitedField(noMonth, "MMM", ","), TransformRuntimeException);
  EXPECT_EQ(record.getCurrentFieldIndex(), 4);
}

TEST(UniversalOutputRecord, PadsToALengthThatItMustNotExceed) {
  EXPECT_EQ(WRITTEN(r.appendTag("abc"), r.padRecordToLength(5), r.padRecordToLength(5)), "abc  ");
  EXPECT_EQ(WRITTEN(r.appendTag("abc"), r.padRecordToLength(2)), "abc<Record size (3) exceeded upper limit - 2>");
}

TEST(UniversalOutputRecord, ACopyHasBytesOfItsOwn) {
  Record record(nullptr, ";", true, true);
  record.startSequence();
  record.appendDelimitedField("a", ",");
  Record copy(record), assigned;
  assigned = copy;
  record.appendTag("b");
  copy.endSequence();
  EXPECT_EQ(copy.toString(), "a;");
  assigned.appendTag("c");
  EXPECT_EQ(str(record.toString()) + str(assigned.toString()), "a,ba,c");
  int length = 0;
  EXPECT_EQ(tvstring(record.getBytes(length), 3), record.toString());
  EXPECT_EQ(length, 3);
}

TEST(UniversalOutputRecord, AllocatesNothingForAFieldInItsBuffer) {
  tvstring const text("text"), comma(","), pattern("yyyyMMdd");
  BigDecimal const decimal("12.5");
  Record record;
  auto const writeAll = [&] {
    record.restart(comma, false, true);
    record.startSequence();
    record.appendASCIIField(-42, 10, true, '0');
    record.appendASCIIField(text, 10, true, ' ');
    record.appendASCIIField('c', 3, true, ' ');
    record.appendASCIIField(1.5, 3, 2, '.', true, '0');
    record.appendASCIIFieldHex(BYTES, 10, true, ' ');
    record.appendDelimitedField(text, comma, '"');
    record.appendDelimitedField(1.5, '.', comma);
    record.appendDelimitedField(decimal, comma);
    record.appendDelimitedField(DATE, pattern, comma);
    record.writePackedDecimalLong(42, 18);
    record.endSequence();
  };
  writeAll();
  AllocationCount const count;
  writeAll();
  EXPECT_EQ(count.soFar(), 0);
}

}  // namespace
}  // namespace tavrone
