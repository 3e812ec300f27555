#include "examples/messages/News.h"

namespace examples {

namespace {

enum Tag {
  LINES_OF_TEXT = 33,
  ORIG_TIME = 42,
  TEXT = 58,
  URGENCY = 61,
  RAW_DATA_LENGTH = 95,
  RAW_DATA = 96,
  HEADLINE = 148,
  URL_LINK = 149
};

constexpr char NORMAL = '0', FLASH = '1', BACKGROUND = '2';

}  // namespace

NewsParser::~NewsParser() noexcept(false) = default;
NewsWriter::~NewsWriter() noexcept(false) = default;

bool NewsParser::parseField(News &news, Pair &pair, FIXTokenizer &tokens) const {
  switch (pair.tag) {
    case LINES_OF_TEXT:
      parseGroup(news.section<"LinesOfText">(), pair, tokens, TEXT);
      break;
    case ORIG_TIME:
      store<"OrigTime">(news, pair);
      break;
    case URGENCY:
      store<"Urgency">(news, pair);
      break;
    case RAW_DATA_LENGTH:
      storeData<"RawData">(news, pair, tokens, RAW_DATA);
      break;
    case HEADLINE:
      store<"Headline">(news, pair);
      break;
    case URL_LINK:
      store<"URLLink">(news, pair);
      break;
    default:
      return false;
  }
  return true;
}

bool NewsParser::parseField(LineOfText &line, Pair const &pair) const {
  if (pair.tag != TEXT) return false;
  store<"Text">(line, pair);
  return true;
}

void NewsParser::assertComplete(News &news) const {
  assertNotNull(&news, News::index<"Headline">, HEADLINE);
  assertConstraints(&news, News::index<"LinesOfText">, LINES_OF_TEXT);
}

void NewsWriter::writeData(DataObject *data, TransformContext &) {
  auto &news = *checkedCast<News>(data);
  write<"OrigTime">("42", news);
  write<"Urgency">("61", news);
  writeRequired<"Headline">("148", news);
  writeRequiredGroup<"LinesOfText">("33", news, [&](LineOfText &line) { writeRequired<"Text">("58", line); });
  write<"URLLink">("149", news);
  if (!news.isNull<"RawData">()) appendData("95", "96", std::as_const(news).get<"RawData">());
}

void NewsRules::validateData(DataObject *, DataObject *data) {
  auto const &news = *checkedCast<News>(data);
  char const urgency = news.isNull<"Urgency">() ? NORMAL : news.get<"Urgency">();
  check(urgency == NORMAL || urgency == FLASH || urgency == BACKGROUND, "NWS-01", "KnownUrgency", "Urgency");
}

}  // namespace examples
