#include "examples/messages/FCSOrder.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace examples {

namespace {

constexpr size_t MAX_LINE = 80;
constexpr int MAX_QUANTITY_DIGITS = 7;

constinit tvstringliteral const BUY("BUY"), SELL("SELL"), BOUGHT("BOT"), SOLD("SLD"), CANCEL("CXL");
constinit tvstringliteral const MARKET("MKT"), ALL_OR_NONE("AON"), LEAVES("LEAVES"), REFERENCE("REF");
constinit tvstringliteral const ACCOUNT("ACCT"), TEXT("TEXT"), DATE("MMddyyyy");

struct Kind {
  tvstring const &token;
  char const *type;
};
constexpr Kind KINDS[] = {{BUY, "Order"}, {SELL, "Order"}, {CANCEL, "Cancel"}, {BOUGHT, "Report"}, {SOLD, "Report"}};

// The steps of the layouts. Each takes its tokens or raises "Expected field '<name>' in line <line>".

[[noreturn]] void missing(char const *field, FCSLineTokenizer &line) {
  int const mark = line.mark();
  tvstring const text = line.getLine();
  line.reset(mark);
  FCSLineTokenizer::missingFieldError(field, text);
}
tvstring const &take(FCSLineTokenizer &line, char const *field, bool isThere) {
  if (!isThere) missing(field, line);
  return line.getNextToken();
}
void takeKeyword(FCSLineTokenizer &line, tvstring const &keyword) {
  take(line, keyword.c_str(), line.peekNextToken() == keyword);
}
tvstring const &takeOneOf(FCSLineTokenizer &line, char const *field, tvstring const &a, tvstring const &b) {
  return take(line, field, line.peekNextToken() == a || line.peekNextToken() == b);
}
int takeNumber(FCSLineTokenizer &line, char const *field) {
  tvstring const number = line.getNumberType(MAX_QUANTITY_DIGITS, false);
  if (number.empty()) missing(field, line);
  return Parsing::parseInt(number);
}
tvstring const &takeReference(FCSLineTokenizer &line, char const *field) {
  return take(line, field, FCSLineTokenizer::isNumberType(line.peekNextToken(), 4));
}
tvstring const &takeSymbol(FCSLineTokenizer &line) {
  return take(line, "Symbol", line.isCharType(5, false));
}
double takePrice(FCSLineTokenizer &line) {
  if (!line.isPrice()) missing("Price", line);
  return line.parsePrice();
}

bool isInEighths(double price) {
  return price * 8 == std::floor(price * 8);
}

}  // namespace

void FCSMessageParser::parse(ExternalObject *object, Binary const &bytes, TransformContext &context) {
  LineReader reader(bytes, true);
  reporting(reader, [&] { parseInternal(object, reader, context); });
}

ExternalObject *FCSMessageParser::parse(Binary const &bytes, TransformContext &context) {
  SmartPtr<DataObject> const header(new FCSOrderHeader), body(createBody()), trailer(new FCSTrailer);
  auto object = std::make_unique<ExternalObject>(header.get(), body.get(), trailer.get());
  parse(object.get(), bytes, context);
  return object.release();
}

void FCSMessageParser::parseHeader(DataObject *header, LineReader &reader, TransformContext &) {
  readLine("Header", reader, [&](FCSLineTokenizer &line) {
    auto &fields = *checkedCast<FCSOrderHeader>(header);
    fields.set<"Branch">(take(line, "Branch", line.isCharType(4, false)));
    fields.set<"Sequence">(takeReference(line, "Sequence"));
    if (!FCSLineTokenizer::isNumberType(line.peekNextToken(), 8)) missing("Date", line);
    fields.set<"Date">(DateTime::fromString(line.peekNextToken(), DATE));
    line.skip(1);
  });
}

void FCSMessageParser::parseTrailer(DataObject *trailer, LineReader &reader, TransformContext &context) {
  reporting(reader, [&] { FCSInputParser::parseTrailer(trailer, reader, context); });
}

template <class Read>
void FCSMessageParser::readLine(char const *name, LineReader &reader, Read const &read) {
  reporting(reader, [&] {
    tvstring const &line = reader.getNextLine();
    tokenizer_.setString(line);
    if (line.length() > MAX_LINE) FCSLineTokenizer::lineLengthError(name, int{MAX_LINE});
    read(tokenizer_);
    tokenizer_.assertEmpty(name);
  });
}

template <class Read>
void FCSMessageParser::readOptionalLine(tvstring const &keyword, LineReader &reader, Read const &read) {
  if (!reader.hasMoreLines()) return;
  tvstring const &line = reader.getNextLine();
  reader.pushBackLine();
  size_t const length = keyword.length();
  if (line.length() <= length || line.substr(0, length) != keyword || line[length] != ' ') return;
  readLine(keyword.c_str(), reader, [&](FCSLineTokenizer &rest) {
    takeKeyword(rest, keyword);
    read(rest);
  });
}

template <class Body>
void FCSMessageParser::reporting(LineReader &reader, Body const &body) {
  try {
    body();
  } catch (TransformException &failure) {
    report(failure, reader.getLineNumber());
  }
}

// A failure that was reported once and comes by again is passed on as it is.
void FCSMessageParser::report(TransformException &failure, int line) {
  if (failure.getErrorType() == ExceptionObject::ERROR_TYPE_PARSING) throw;
  FCSParseException located(failure.getMessage());
  located.getTrace() = failure.getTrace();
  located.setErrorType(ExceptionObject::ERROR_TYPE_PARSING);
  auto const *const own = dynamic_cast<FCSParseException const *>(&failure);
  bool const isLocated = own != nullptr && own->getColumn() >= 0;
  int const column = isLocated ? own->getColumn() : tokenizer_.getColumn();
  located.setFailedLine(isLocated ? own->getFailedLine() : tokenizer_.getLine());
  located.setLocation(isLocated && own->getLine() > 0 ? own->getLine() : line, column);
  // The handler that stops would make a plain TransformException of it.
  if (exceptionHandler == ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER) throw located;
  exceptionHandler->onException(&located);
}

void FCSOrderParser::parseData(DataObject *data, LineReader &reader, TransformContext &) {
  auto &order = *checkedCast<FCSOrder>(data);
  readLine("Order", reader, [&](FCSLineTokenizer &line) {
    order.set<"Side">(takeOneOf(line, "Side", BUY, SELL));
    order.set<"Quantity">(takeNumber(line, "Quantity"));
    order.set<"Symbol">(takeSymbol(line));
    if (line.peekNextToken() == MARKET)
      line.skip(1);
    else
      order.set<"Price">(takePrice(line));
    bool const allOrNone = line.peekNextToken() == ALL_OR_NONE;
    order.set<"AllOrNone">(allOrNone);
    if (allOrNone) line.skip(1);
  });
  readOptionalLine(ACCOUNT, reader, [&](FCSLineTokenizer &line) {
    order.set<"Account">(take(line, "Account", line.isTextType(12, false)));
  });
  readOptionalLine(TEXT, reader, [&](FCSLineTokenizer &line) { order.set<"Text">(line.getRest()); });
}

void FCSCancelParser::parseData(DataObject *data, LineReader &reader, TransformContext &) {
  auto &cancel = *checkedCast<FCSCancel>(data);
  readLine("Cancel", reader, [&](FCSLineTokenizer &line) {
    takeKeyword(line, CANCEL);
    cancel.set<"Reference">(takeReference(line, "Reference"));
    cancel.set<"Side">(takeOneOf(line, "Side", BUY, SELL));
    cancel.set<"Quantity">(takeNumber(line, "Quantity"));
    cancel.set<"Symbol">(takeSymbol(line));
  });
}

void FCSReportParser::parseData(DataObject *data, LineReader &reader, TransformContext &) {
  auto &report = *checkedCast<FCSReport>(data);
  readLine("Report", reader, [&](FCSLineTokenizer &line) {
    report.set<"Side">(takeOneOf(line, "Side", BOUGHT, SOLD));
    report.set<"Quantity">(takeNumber(line, "Quantity"));
    report.set<"Symbol">(takeSymbol(line));
    report.set<"Price">(takePrice(line));
    takeKeyword(line, LEAVES);
    report.set<"Leaves">(takeNumber(line, "Leaves"));
    takeKeyword(line, REFERENCE);
    report.set<"Reference">(takeReference(line, "Reference"));
  });
}

void FCSMessageWriter::writeHeader(DataObject *header, TransformContext &) {
  auto const &fields = *checkedCast<FCSOrderHeader>(header);
  writeToken(fields.get<"Branch">(), fields.get<"Sequence">());
  writeToken(fields.get<"Date">());
  finishLine();
}

void FCSOrderWriter::writeData(DataObject *data, TransformContext &) {
  auto const &order = *checkedCast<FCSOrder>(data);
  writeToken(order.get<"Side">());
  writeToken(order.get<"Quantity">());
  writeToken(order.get<"Symbol">());
  if (order.isNull<"Price">())
    writeToken(MARKET);
  else
    writePrice(order.get<"Price">());
  if (order.get<"AllOrNone">()) writeToken(ALL_OR_NONE);
  finishLine();
  if (!order.isNull<"Account">()) {
    writeToken(ACCOUNT, order.get<"Account">());
    finishLine();
  }
  if (!order.isNull<"Text">()) {
    writeToken(TEXT, order.get<"Text">());
    finishLine();
  }
}

void FCSCancelWriter::writeData(DataObject *data, TransformContext &) {
  auto const &cancel = *checkedCast<FCSCancel>(data);
  writeToken(CANCEL, cancel.get<"Reference">());
  writeToken(cancel.get<"Side">());
  writeToken(cancel.get<"Quantity">());
  writeToken(cancel.get<"Symbol">());
  finishLine();
}

void FCSReportWriter::writeData(DataObject *data, TransformContext &) {
  auto const &report = *checkedCast<FCSReport>(data);
  writeToken(report.get<"Side">());
  writeToken(report.get<"Quantity">());
  writeToken(report.get<"Symbol">());
  writePrice(report.get<"Price">());
  writeToken(LEAVES);
  writeToken(report.get<"Leaves">());
  writeToken(REFERENCE, report.get<"Reference">());
  finishLine();
}

void FCSRules::validateData(DataObject *, DataObject *data) {
  auto const check = [&](bool holds, char const *rule, char const *field) {
    if (holds) return;
    try {
      throwFieldInvalid(rule, field);
    } catch (TransformException &failure) {
      failure.fillErrorType(ExceptionObject::ERROR_TYPE_VALIDATION);
      exceptionHandler->onException(&failure);
    }
  };
  IntObject quantity;
  if (data->getField("Quantity", quantity)) check(quantity.getValue() > 0, "QuantityAboveZero", "Quantity");
  DoubleObject price;
  bool const hasPrice = data->getMetaInfo()->getFieldIndexIfExists("Price") >= 0 && data->getField("Price", price);
  if (hasPrice) check(price.getValue() > 0 && isInEighths(price.getValue()), "PriceInEighths", "Price");
}

void FCSOrderToOrderRules::mapFields0(ExternalObject *source, DataObject *target) {
  auto const &header = *checkedCast<FCSOrderHeader>(source->getHeader());
  auto const &from = *checkedCast<FCSOrder>(source->getData());
  auto &order = *checkedCast<Order>(target);
  order.set<"OrderID">(header.get<"Branch">() + "-" + header.get<"Sequence">());
  order.set<"TradeDate">(header.get<"Date">());
  order.set<"Side">(from.get<"Side">()[0]);
  order.set<"Quantity">(from.get<"Quantity">());
  order.set<"Symbol">(from.get<"Symbol">());
  order.set<"AllOrNone">(from.get<"AllOrNone">());
  if (!from.isNull<"Price">()) order.set<"Price">(from.get<"Price">());
  if (!from.isNull<"Account">()) order.set<"Account">(from.get<"Account">());
  if (!from.isNull<"Text">()) order.set<"Text">(from.get<"Text">());
}

DataObject *FCSOrderIdentifier::identifyMessage(InputSource &input) {
  LineReader reader(input, true);
  reader.getNextLine();
  tvstring const &line = reader.getNextLine();
  tvstring const token = line.substr(0, std::min(line.find(' '), line.length()));
  for (Kind const &kind : KINDS) {
    if (token != kind.token) continue;
    auto *const identity = new FCSIdentity;
    identity->set<"MessageFormat">(FCSMessageIdentifier::getMessageFormat());
    identity->set<"MessageType">(tvstringliteral(kind.type));
    return identity;
  }
  return nullptr;
}

}  // namespace examples
