#include <gtest/gtest.h>

#include "examples/messages/ExecutionReport.h"
#include "examples/messages/MarketDataSnapshotFullRefresh.h"
#include "examples/messages/NewOrderSingleMessage.h"
#include "examples/messages/News.h"
#include "examples/messages/SIACOrder.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"

// The examples' messages of tag=value text.
namespace examples {
namespace {

// The codes of what a validator finds.
std::string codesOf(IExternalMessage &message, SmartPtr<DataObject> const &object, char const *validator = "Default") {
  TransformContext context;
  std::string codes;
  for (ExceptionDataObject *failure : message.validate2(validator, object, context).exceptions)
    codes += str(failure->getContextProperty(ExceptionObject::INTERNAL_CODE)) + ' ';
  return codes;
}

// Reads a message, which is to be valid and written as it was read; then the codes of what is wrong with it behind a
// change of its data.
template <class Message, class Data>
std::string codesBehind(std::string const &wire, void (*change)(Data &)) {
  SmartPtr<Message> const message(new Message);
  TransformContext context;
  SmartPtr<DataObject> const object = message->parse(Binary(wire.data(), wire.size()), context);
  EXPECT_EQ(str(message->serialize(object, context)), wire);
  EXPECT_EQ(codesOf(*message, object) + codesOf(*message, object, "Integrity"), "");
  change(dynamic_cast<Data &>(*dynamic_cast<ExternalObject &>(*object).getData()));
  return codesOf(*message, object);
}

std::string const SIAC_FIELDS =
    "10003=ORD|10007=7|11001=AB-1|11002=F|11003=B|11004=300|11005=2.75|11006=20240315-14:30:00|";

TEST(TagValueMessages, AreWrittenAsTheyWereReadAndChecked) {
  auto const spoilReport = [](ExecutionReport &report) {
    report.section<"ContraBrokers">()[1].set<"ContraTradeQty">(50);
    report.set<"CumQty">(99);
  };
  EXPECT_EQ((codesBehind<ExecutionReportMessage, ExecutionReport>(
                sealed("35=8|49=B|56=A|34=8|52=20260105-09:30:01|37=X1|11=ID|382=2|375=C|337=T|437=60|438=20260105-"
                       "09:30:00|375=D|437=40|17=E1|150=F|39=1|55=IBM|54=1|38=300|44=191.5|32=100|31=191.25|151=200|"
                       "14=100|6=191.25|"),
                spoilReport)),
            "EXE-02 EXE-03 ");
  auto const spoilBook = [](MarketDataSnapshotFullRefresh &book) {
    auto &entries = book.section<"MDEntries">();
    entries[1].setNull<"MDEntryPx">();
    entries[2].set<"MDEntrySize">(-1);
  };
  EXPECT_EQ((codesBehind<MarketDataSnapshotFullRefreshMessage, MarketDataSnapshotFullRefresh>(
                sealed("35=W|49=A|34=7|262=R|55=IBM|48=4741|22=8|207=N|291=1|451=-0.5|268=3|269=0|270=191.25|15=USD|"
                       "271=300|276=A|282=D|346=2|290=1|269=1|270=191.5|271=100|269=B|271=12000|"),
                spoilBook)),
            "MDS-01 MDS-02 ");
  EXPECT_EQ((codesBehind<NewsMessage, News>(
                sealed("35=B|34=7|42=20260105-09:30:00|61=1|148=H|33=2|58=a=b|58=c|149=u|95=10|96=|10=000||1|"),
                [](News &news) { news.set<"Urgency">('3'); })),
            "NWS-01 ");
  EXPECT_EQ((codesBehind<SIACOrderMessage, SIACOrder>(
                withSOH("10001=Canonical|10002=189|25001=32|" + SIAC_FIELDS +
                        "11020={|11021=F|11022=1|11023=12.125|26999= |11021=KO|11022=-2|11023=59.5|26999= |26000=}|"
                        "10=229|"),
                [](SIACOrder &order) { order.set<"CFT_Side">('X'); })),
            "SIAC-03 ");
}

std::string const ORDER =
    "35=D|49=A|56=B|34=7|52=20260105-09:30:00.125|11=ID|453=2|448=P|447=D|452=3|448=Q|1=ACC|78=1|79=X|80=12.5|21=1|"
    "18=G|55=IBM|54=1|60=20260105-09:30:00|38=100|40=2|44=191.5|15=USD|59=0|58=T|354=3|355=a|b|";

TEST(TagValueMessages, AreNotWrittenWithoutWhatTheyMustHave) {
  SmartPtr<NewOrderSingleMessage> const message(new NewOrderSingleMessage);
  TransformContext context;
  std::string const text = sealed(ORDER);
  SmartPtr<DataObject> const object = message->parse(Binary(text.data(), text.size()), context);
  EXPECT_EQ(str(message->serialize(object, context)), text);
  auto &order = dynamic_cast<NewOrderSingle &>(*dynamic_cast<ExternalObject &>(*object).getData());
  order.set<"Text">(withSOH("a|44=1").c_str());
  EXPECT_FAILURE(FIXWriterException, message->serialize(object, context), "Field 'Text' holds a delimiter");
  order.setNull<"Side">();
  EXPECT_FAILURE(FIXWriterException, message->serialize(object, context),
                 "Side is a mandatory field. Tag '54[Side]' cannot be null.");
  order.section<"Allocs">().add().set<"AllocAccount">("");
  EXPECT_FAILURE(FIXWriterException, message->serialize(object, context),
                 "AllocAccount is a mandatory field. Tag '79[AllocAccount]' cannot be null.");
  dynamic_cast<FIXHeader &>(*dynamic_cast<ExternalObject &>(*object).getHeader()).setMsgType("");
  EXPECT_FAILURE(FIXWriterException, message->serialize(object, context), "MsgType is a mandatory field.");
  SmartPtr<News> const news(new News);
  news->set<"Headline">("H");
  EXPECT_FAILURE(FIXWriterException, NewsWriter().writeData(news.get(), context),
                 "LinesOfText is a mandatory field. Tag '33[LinesOfText]' cannot be null.");
}

TEST(TagValueMessages, AreRefusedForWhatStandsInNoOrder) {
  NewOrderSingleParser order;
  ExecutionReportParser report;
  MarketDataSnapshotFullRefreshParser book;
  NewsParser news;
  std::string const required = "11=ID|55=IBM|54=1|60=20260105-09:30:00|40=2|";
  struct {
    InputParser &parser;
    std::string body;
    char const *failure;
  } const fix[] = {
      {order, "11=ID|11=ID|", "Duplicate Tag '11[ClOrdID]'."},
      {order, "453=2|448=P|55=IBM|", "Tag '453' counts 2 elements, found 1."},
      {order, "11=ID|77=x|", "Unexpected tag 77"},
      {order, "11=ID|10=0|", "Tag '55[Symbol]' expected."},
      {order, "354=3|11=abc|", "Tag '355' expected."},
      {order, required, "Tag '10' expected."},
      {report, "382=2|375=C|337=T|10=0|", "Tag '382' counts 2 elements, found 1."},
      {report, "382=1|337=T|375=C|", "Tag '382' counts 1 elements, found 0."},
      {report, "382=1|375=C|337=T|337=U|", "Duplicate Tag '337[ContraTrader]'."},
      {report, "37=X|10=0|", "Tag '17[ExecID]' expected."},
      {news, "95=2|96=abc|",
       "Blob type tag value pair has incorrect data length, character after the specified length is not the SOH "
       "character"},
      {news, "95=-1|96=a|", "Unexpected end of input while looking for data"},
      {news, "95=1|96=a|95=1|96=b|", "Duplicate Tag '96[RawData]'."},
      {book, "268=1|269=0|270=1|270=2|", "Duplicate Tag '270[MDEntryPx]'."},
      {book, "55=A|10=0|",
       "Tag '268[MDEntries]' expected. The number of elements in the section 'MDEntries' is less than '1'."}};
  TransformContext context;
  for (auto const &c : fix)
    EXPECT_FAILURE(FIXParsingException, c.parser.parse(bytes("8=FIX.4.4|34=7|" + c.body), context), c.failure);

  SIACOrderParser parser;
  std::string const siac[][2] = {{"33|", ""},
                                 {"33|11020={|26000=}|", ""},
                                 {"32|", "Tag '10' expected."},
                                 {"33|11020=2|", "Tag '11020' opens no group."},
                                 {"33|11020={|11021=F|", "Tag '26000' expected."},
                                 {"33|11020={|26999= |", "Unexpected tag 26999 in the group of tag '11020'."},
                                 {"33|11020={|11021=F|26000=}|", "Unexpected tag 26000 in the group of tag '11020'."},
                                 {"33|11020={|11021=F|26999= |26000=}|", "Tag '11022[CFT_LegRatio]' expected."},
                                 {"33|26000=}|", "Unexpected tag 26000"}};
  for (auto const &[rest, failure] : siac) {
    Binary const message = bytes("10001=Canonical|25001=" + rest.substr(0, 3) + SIAC_FIELDS + rest.substr(3));
    EXPECT_FAILURE(SIACCanonicalParsingException, SmartPtr<ExternalObject>(parser.parse(message, context)), failure);
  }
}

TEST(NewOrderSingleParser, FillsHeaderGroupsAndDataAndFillsThemAgain) {
  NewOrderSingleParser parser;
  TransformContext context;
  std::string const start = "8=FIX.4.4|35=D|34=7|11=ID|55=IBM|54=1|60=20260105-09:30:00|40=2|";
  SmartPtr<ExternalObject> const object(
      parser.parse(bytes(start + "453=2|448=P|452=3|448=Q|354=3|355=a|b|44=12.5|10=000|"), context));
  auto &order = dynamic_cast<NewOrderSingle &>(*object->getData());
  EXPECT_EQ(dynamic_cast<FIXHeader &>(*object->getHeader()).getMsgSeqNum(), 7);
  EXPECT_EQ(str(order.get<"EncodedText">()), withSOH("a|b"));
  EXPECT_EQ(order.section<"PartyIDs">()[0].get<"PartyRole">(), 3);
  EXPECT_EQ(order.section<"PartyIDs">()[1].get<"PartyID">(), "Q");
  parser.parse(object.get(), bytes(start + "38=1|10=000|"), context);
  EXPECT_EQ(object->getData(), &order);
  EXPECT_TRUE(order.isNull<"Price">() && order.section<"PartyIDs">().isEmpty() && !order.isNull<"OrderQty">());
}

TEST(NewOrderSingleMessage, CatchesBytesThatAreNotThoseSentAndPricesThatDoNotFitTheType) {
  SmartPtr<NewOrderSingleMessage> const message(new NewOrderSingleMessage);
  auto const codes = [&](std::string const &text, char const *validator) {
    TransformContext context;
    return codesOf(*message, message->parse(Binary(text.data(), text.size()), context), validator);
  };
  std::string const text = sealed(ORDER);
  // What stands instead of what; the sum does not see what changes places.
  std::string const changes[][3] = {{"38=100", "38=100", ""},
                                    {"38=100", "38=900", "FIX-02 "},
                                    {"38=100", "38=1000", "FIX-01 FIX-02 "},
                                    {"38=100", "38=001", ""},
                                    {"9=", "97=", "FIX-01 FIX-02 "},
                                    {text.substr(text.size() - 5), text.substr(text.size() - 5, 4), "FIX-02 "}};
  for (auto const &[from, to, expected] : changes)
    EXPECT_EQ(codes(std::string(text).replace(text.find(from), from.size(), to), "Integrity"), expected) << to;
  std::string const prices[][2] = {{"54=1|38=1|40=1|", ""},
                                   {"54=1|38=1|40=1|44=5|", "NOS-04 "},
                                   {"54=2|38=1|40=2|", "NOS-04 "},
                                   {"54=2|38=1|40=4|44=5|", "NOS-05 "},
                                   {"54=9|38=1.5|40=9|", "NOS-01 NOS-02 NOS-03 "}};
  for (auto const &[body, expected] : prices)
    EXPECT_EQ(codes(sealed("35=D|34=1|11=A|55=B|60=20260105-09:30:00|" + body), "Default"), expected) << body;
}

}  // namespace
}  // namespace examples
