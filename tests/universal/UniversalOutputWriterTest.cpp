#include "tavrone/universal/UniversalOutputWriter.h"

#include <gtest/gtest.h>

#include "examples/messages/Order.h"
#include "tavrone/universal/UniversalOutputRecord.h"
#include "tests/Failure.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using examples::Order;

constexpr int SIDE = 3;
constexpr int LEGS = 14;

// A writer with its operations open to the tests.
struct Writer : UniversalOutputWriter {
  void writeHeader(DataObject *, TransformContext &) override { appendMessage("head|", 5); }
  void writeData(DataObject *, TransformContext &) override { appendMessage("data|", 5); }
  void writeTrailer(DataObject *, TransformContext &) override { appendMessage("cut", -1); }

  using UniversalOutputWriter::appendMessage, UniversalOutputWriter::assertLength, UniversalOutputWriter::ensureChoice,
      UniversalOutputWriter::handleException, UniversalOutputWriter::requiredFieldMissing;
};

// The fields that a failure carries after the writer has handled it: its name, its text and where it was raised.
std::string handled(UniversalOutputRecord &record, AbstractDataObject *object, char const *named) {
  TransformException failure("text");
  failure.getTrace().setFileName("cpp/Somewhere");
  failure.setContextProperty("key", "value");
  if (named != nullptr) failure.setFFieldName(named);
  try {
    Writer::handleException(failure, &record, object);
  } catch (TransformException const &e) {
    EXPECT_NE(&e, &failure);
    tvstring const field = e.isNull("FieldName") ? "none" : e.getFFieldName();
    return str(field + ' ' + e.getMessage() + ' ' + e.getTrace().getFileName() + ' ' + e.getContextProperty("key"));
  }
  return "not thrown";
}

TEST(UniversalOutputWriter, WhatItHandedOutOrCopiedNeverChanges) {
  Writer writer;
  ExternalObject object;
  TransformContext context;
  tvstring const first = writer.writeExternal(object, context);
  Writer copy(writer), assigned;
  assigned = writer;
  writer.initMessage();
  writer.appendMessage("other message", 13);
  EXPECT_EQ(first, "head|data|");
  EXPECT_EQ(copy.endMessage() + assigned.endMessage() + writer.endMessage(), first + first + "other message");
}

TEST(UniversalOutputWriter, NamesTheFieldOfAFailureOnce) {
  Order order;
  UniversalOutputRecord record;
  record.startSequence();
  EXPECT_EQ(handled(record, nullptr, nullptr), "none text cpp/Somewhere value");
  record.onField();
  EXPECT_EQ(handled(record, &order, nullptr), "OrderID text cpp/Somewhere value");
  EXPECT_EQ(handled(record, nullptr, "Inner"), "Inner text cpp/Somewhere value");
  record.setCurrentFieldIndex(order.getFieldCount());
  EXPECT_EQ(handled(record, &order, nullptr), "none text cpp/Somewhere value");
}

TEST(UniversalOutputWriter, AChoiceHasOneValueAndAnEmptySectionIsNone) {
  auto const failure = [](auto const &call) { return failureOf<TransformException>(call).text; };
  Order order;
  order.getSection(LEGS);
  order.setNotNull(LEGS);
  EXPECT_TRUE(Writer::ensureChoice(&order, false));
  EXPECT_EQ(failure([&] { Writer::ensureChoice(&order, true); }),
            "At least one of the choices must have non-null value");
  order.setField(SIDE, CharObject('B'));
  EXPECT_FALSE(Writer::ensureChoice(&order, true));
  addLeg(order, 1);
  EXPECT_EQ(failure([&] { Writer::ensureChoice(&order, false); }), "More than one choice has a non-null value");
  order.setNull(SIDE);
  EXPECT_FALSE(Writer::ensureChoice(&order, true));
}

TEST(UniversalOutputWriter, ChecksLengthsAndMandatoryFields) {
  Order order;
  auto const shown = [](auto const &call) {
    Failure const failure = failureOf<TransformException>(call);
    EXPECT_TRUE(failure.text.empty() || failure.source == "cpp/universal/UniversalOutputWriter");
    return failure.text;
  };
  EXPECT_EQ(shown([] { Writer::assertLength(5, 5, 5), Writer::assertLength(9, 0, 0); }), "");
  EXPECT_EQ(shown([] { Writer::assertLength(4, 5, 0); }),
            "The length of the length preceded field (4) is less than the minimum length (5)");
  EXPECT_EQ(shown([] { Writer::assertLength(6, 5, 5); }),
            "The length of the length preceded field (6) exceeds the maximum length (5) allowed.");
  EXPECT_EQ(shown([&] { Writer::requiredFieldMissing(&order, SIDE); }), "The mandatory field 'Side' is missing.");
}

}  // namespace
}  // namespace tavrone
