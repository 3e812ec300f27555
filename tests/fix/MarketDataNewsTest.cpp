#include <gtest/gtest.h>

#include "examples/messages/MarketDataSnapshotFullRefresh.h"
#include "examples/messages/News.h"
#include "tests/Failure.h"
#include "tests/TagValueText.h"

namespace examples {
namespace {

// Reads a message, which is to be valid and written as it was read; then counts what its rules find behind a change.
template <class Message, class Change>
size_t failuresBehind(std::string const &wire, Change const &change) {
  SmartPtr<Message> const message(new Message);
  TransformContext context;
  SmartPtr<DataObject> const object = message->parse(Binary(wire.data(), wire.size()), context);
  EXPECT_EQ(str(message->serialize(object, context)), wire);
  EXPECT_TRUE(message->validate2(object, context).exceptions.empty());
  change(dynamic_cast<ExternalObject &>(*object).getData());
  return message->validate2(object, context).exceptions.size();
}

TEST(MarketDataNews, IsWrittenAsItWasReadAndChecked) {
  std::string const book =
      "35=W|49=A|34=7|262=R|55=IBM|48=4741|22=8|207=N|291=1|451=-0.5|268=3|269=0|270=191.25|15=USD|271=300|276=A|282=D|"
      "346=2|290=1|269=1|270=191.5|271=100|269=B|271=12000|";
  auto const spoilBook = [](DataObject *data) {
    auto &entries = dynamic_cast<MarketDataSnapshotFullRefresh &>(*data).section<"MDEntries">();
    entries[1].setNull<"MDEntryPx">();
    entries[2].set<"MDEntrySize">(-1);
  };
  EXPECT_EQ(failuresBehind<MarketDataSnapshotFullRefreshMessage>(sealed(book), spoilBook), 2u);
  std::string const news = "35=B|34=7|42=20260105-09:30:00|61=1|148=H|33=2|58=a=b|58=c|149=u|95=10|96=|10=000||1|";
  auto const spoilNews = [](DataObject *data) { dynamic_cast<News &>(*data).set<"Urgency">('3'); };
  EXPECT_EQ(failuresBehind<NewsMessage>(sealed(news), spoilNews), 1u);
}

std::string refusal(InputParser &&parser, std::string const &body) {
  TransformContext context;
  return failureOf<FIXParsingException>([&] { parser.parse(bytes("8=FIX.4.4|34=7|" + body), context); }).text;
}

TEST(MarketDataNews, IsRefusedForWrongLengthsTagsThatComeTwiceAndMissingGroups) {
  EXPECT_EQ(refusal(NewsParser(), "95=2|96=abc|"),
            "Blob type tag value pair has incorrect data length, character after the specified length is not the SOH "
            "character");
  EXPECT_EQ(refusal(NewsParser(), "95=-1|96=a|"), "Unexpected end of input while looking for data");
  EXPECT_EQ(refusal(NewsParser(), "95=1|96=a|95=1|96=b|"), "Duplicate Tag '96[RawData]'.");
  using BookParser = MarketDataSnapshotFullRefreshParser;
  EXPECT_EQ(refusal(BookParser(), "268=1|269=0|270=1|270=2|"), "Duplicate Tag '270[MDEntryPx]'.");
  EXPECT_EQ(refusal(BookParser(), "55=A|10=0|").substr(0, 30), "Tag '268[MDEntries]' expected.");
  SmartPtr<News> const news(new News);
  news->set<"Headline">("H");
  TransformContext context;
  EXPECT_EQ(failureOf<FIXWriterException>([&] { NewsWriter().writeData(news.get(), context); }).text,
            "LinesOfText is a mandatory field. Tag '33[LinesOfText]' cannot be null.");
}

}  // namespace
}  // namespace examples
