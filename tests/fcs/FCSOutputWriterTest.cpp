#include "tavrone/fcs/FCSOutputWriter.h"

#include <gtest/gtest.h>

#include <limits>

#include "tavrone/tavrone.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"

namespace tavrone {
namespace {

struct Writer : FCSOutputWriter {
  void writeHeader(DataObject *, TransformContext &) override {}
  void writeData(DataObject *, TransformContext &) override {}
};

TEST(FCSOutputWriter, WritesPricesAsFractionsOfEighthsOnly) {
  Writer writer;
  for (int eighth = 0; eighth < 8; ++eighth) writer.writeToken(FCSOutputWriter::getFraction(eighth / 8.0));
  writer.finishLine();
  using Limits = std::numeric_limits<double>;
  for (bool const fractions : {true, false}) {
    writer.setUseFractions(fractions);
    for (double const price : {12.375, 12.1, 12.0, -1.5, 0.5, -0.0, 2147483647.5, 2147483648.0, -2147483648.0,
                               Limits::infinity(), Limits::quiet_NaN()})
      writer.writePrice(price);
    writer.finishLine();
  }
  EXPECT_EQ(str(writer.getOutput()),
            " 1/8 1/4 3/8 1/2 5/8 3/4 7/8\n"
            "12 3/8 12.1 12 -1.5 0 1/2 0 2147483647 1/2 2147483648.0 -2147483648 inf nan\n"
            "12.375 12.1 12 -1.5 0.5 0 2147483647.5 2147483648.0 -2147483648 inf nan\n");
}

TEST(FCSOutputWriter, WritesTokensThatCanBeChangedUntilTheLineEndsAndAllocatesNothing) {
  Writer writer;
  tvstring const texts[] = {"BUY", "IBM", "SELL", "0", "no"};
  for (int round = 0; round < 3; ++round) {
    AllocationCount const allocations;
    writer.initMessage();
    writer.writeToken(texts[0], texts[1]);
    writer.writeToken('X');
    writer.writeToken(-5);
    writer.writeToken(2.5);
    writer.writeToken(DateTime(2001, 7, 4, 0, 0, 0, 0));
    writer.setPreviousToken(texts[2], 6);
    writer.addToPreviousToken(texts[3], 3);
    for (int const i : {0, 7, -1}) {
      writer.setPreviousToken(texts[4], i);
      writer.addToPreviousToken(texts[4], i);
      EXPECT_EQ(writer.previousToken(i), "");
    }
    EXPECT_EQ(writer.previousToken(3).compare("-50", 3), 0);
    writer.finishLine();
    writer.finishLine();
    writer.emptyLine();
    EXPECT_TRUE(round == 0 || allocations.soFar() == 0);
  }
  EXPECT_EQ(str(writer.endMessage()), "SELL IBM X -50 2.5 07042001\n\n\n");
}

TEST(FCSOutputWriter, WritesTheTrailerWithoutALineEnd) {
  using Trailer = Record<"Trailer", Field<"ISN", int>, Field<"Text", tvstring>>;
  Trailer trailer;
  TransformContext context;
  Writer writer;
  EXPECT_EQ(writer.writeFirmToCMSTrailer(&trailer, context), "");
  EXPECT_EQ(writer.writeFirmToCMSTrailer(nullptr, context), "");
  trailer.set<"Text">("SOME TEXT");
  EXPECT_EQ(writer.writeFirmToCMSTrailer(&trailer, context), " SOME TEXT");
  trailer.set<"ISN">(123);
  writer.writeTrailer(&trailer, context);
  EXPECT_EQ(writer.getOutput(), "123 SOME TEXT");
}

TEST(FCSOutputWriter, NeverChangesATextThatItHandedOut) {
  Writer writer;
  writer.writeToken(111);
  tvstring const token = writer.previousToken(1);
  Writer copy(writer), assigned;
  assigned = writer;
  for (Writer *each : {&writer, &copy, &assigned}) {
    each->writeToken(each == &copy ? 222 : 333);
    each->finishLine();
  }
  tvstring const text = copy.getOutput();
  copy.initMessage();
  copy.writeToken(444);
  copy.finishLine();
  EXPECT_EQ(str(token + '|' + text + writer.getOutput() + assigned.getOutput() + copy.getOutput()),
            "111|111 222\n111 333\n111 333\n444\n");
}

TEST(FCSOutputWriter, RethrowsFailures) {
  FCSParseException failure("bad");
  EXPECT_FAILURE(TransformException, Writer().handleException(failure, nullptr), "bad");
}

}  // namespace
}  // namespace tavrone
