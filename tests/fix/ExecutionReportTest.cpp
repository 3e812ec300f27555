#include "examples/messages/ExecutionReport.h"

#include <gtest/gtest.h>

#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace examples {
namespace {

TEST(ExecutionReport, WritesWhatWasReadWithItsContraBrokersAndChecksTheirShares) {
  SmartPtr<ExecutionReportMessage> const message(new ExecutionReportMessage);
  TransformContext context;
  Binary const wire = bytes(
      "8=FIX.4.4|9=199|35=8|49=B|56=A|34=8|52=20260105-09:30:01|37=X1|11=ID|382=2|375=C|337=T|437=60|438=20260105-"
      "09:30:00|375=D|437=40|17=E1|150=F|39=1|55=IBM|54=1|38=300|44=191.5|32=100|31=191.25|151=200|14=100|6=191.25|"
      "10=245|");
  SmartPtr<DataObject> const object = message->parse(wire, context);
  EXPECT_EQ(str(message->serialize(object, context)), str(wire));
  EXPECT_TRUE(message->validate2(object, context).exceptions.empty());

  auto &report = dynamic_cast<ExecutionReport &>(*dynamic_cast<ExternalObject &>(*object).getData());
  report.section<"ContraBrokers">()[1].set<"ContraTradeQty">(50);
  report.set<"CumQty">(99);
  std::string codes;
  for (ExceptionDataObject *failure : message->validate2(object, context).exceptions)
    codes += str(failure->getContextProperty(ExceptionObject::INTERNAL_CODE)) + ' ';
  EXPECT_EQ(codes, "EXE-02 EXE-03 ");
}

TEST(ExecutionReportParser, CountsContraBrokersAndAsksForWhatAReportMustHave) {
  ExecutionReportParser parser;
  TransformContext context;
  std::string const cases[][2] = {{"382=2|375=C|337=T|10=0|", "Tag '382' counts 2 elements, found 1."},
                                  {"382=1|337=T|375=C|", "Tag '382' counts 1 elements, found 0."},
                                  {"382=1|375=C|337=T|337=U|", "Duplicate Tag '337[ContraTrader]'."},
                                  {"37=X|10=0|", "Tag '17[ExecID]' expected."}};
  for (auto const &[body, text] : cases) {
    Binary const wire = bytes("8=FIX.4.4|35=8|" + body);
    EXPECT_EQ(failureOf<FIXParsingException>([&] { parser.parse(wire, context); }).text, text);
  }
}

}  // namespace
}  // namespace examples
