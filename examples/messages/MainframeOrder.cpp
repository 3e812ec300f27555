#include "examples/messages/MainframeOrder.h"

#include "examples/messages/TextFields.h"

namespace examples {

namespace {

using In = UniversalInputRecord;
using Out = UniversalOutputRecord;

// How a field is read and written; each function takes the whole place of its field, also where it fails.
struct Place {
  void (*read)(MainframeOrder &order, In &in);
  void (*write)(MainframeOrder const &order, Out &out);
};

template <FixedText Name, int WIDTH>
constexpr Place text() {
  return {[](MainframeOrder &order, In &in) {
            tvstring const value = In::trimSpaces(in.getFixedFiller(WIDTH), false, true);
            if (value.empty()) fail("The field is blank");
            readField<Name>(order, value);
          },
          [](MainframeOrder const &order, Out &out) { out.appendASCIIField(order.get<Name>(), WIDTH, false, ' '); }};
}
template <FixedText Name, int LENGTH>
constexpr Place integer() {
  return {[](MainframeOrder &order, In &in) {
            auto const value = in.getBinaryLong(LENGTH, true, true);
            order.set<Name>(static_cast<std::remove_cvref_t<decltype(order.get<Name>())>>(value));
          },
          [](MainframeOrder const &order, Out &out) { out.writeBinaryLong(LENGTH, order.get<Name>(), true, true); }};
}
// A date as a number of its digits, with one more in front.
template <FixedText Name, int DIGITS>
constexpr Place packedDate() {
  return {[](MainframeOrder &order, In &in) {
            tvstring const digits = Parsing::longToString(in.getPackedDecimalLong(DIGITS));
            if (digits.length() != DIGITS - 1) fail("Illegal date " + digits);
            readField<Name>(order, digits);
          },
          [](MainframeOrder const &order, Out &out) {
            out.writePackedDecimalLong(parseDigits(order.get<Name>().toString(datePattern(DIGITS - 1))), DIGITS);
          }};
}

constexpr Place RECORD_TYPE = {
    [](MainframeOrder &order, In &in) {
      int const type = in.getBinaryInt2(true, true);
      if (type != MainframeOrder::TYPE) fail("Unexpected record type " + Parsing::intToString(type));
      order.set<"RecordType">(type);
    },
    [](MainframeOrder const &order, Out &out) { out.writeBinaryInt2(order.get<"RecordType">(), true); }};
constexpr Place PRICE = {
    [](MainframeOrder &order, In &in) { order.set<"Price">(in.getPackedDecimalDouble(7, 2)); },
    [](MainframeOrder const &order, Out &out) { out.writePackedDecimalDouble(order.get<"Price">(), 7, 2); }};
// Exact: cents by way of a long.
constexpr Place NOTIONAL = {[](MainframeOrder &order, In &in) {
                              order.set<"Notional">(BigDecimal(in.getPackedDecimalLong(15)) / BigDecimal(100));
                            },
                            [](MainframeOrder const &order, Out &out) {
                              tvstring const cents = BigInteger(order.get<"Notional">() * BigDecimal(100)).toString();
                              out.writePackedDecimalLong(Parsing::parseLong(cents), 15);
                            }};
constexpr Place ALL_OR_NONE = {
    [](MainframeOrder &order, In &in) { order.set<"AllOrNone">(in.getBinaryBoolean()); },
    [](MainframeOrder const &order, Out &out) { out.writeBinaryBoolean(order.get<"AllOrNone">()); }};
constexpr Place RATE = {[](MainframeOrder &order, In &in) { order.set<"Rate">(in.getBinaryFloat(true)); },
                        [](MainframeOrder const &order, Out &out) { out.writeBinaryFloat(order.get<"Rate">(), true); }};
constexpr Place SIGNATURE = {
    [](MainframeOrder &order, In &in) {
      tvstring const digits = in.getFixedFiller(16);
      Binary const value = Binary::fromHexString(digits);
      if (value.toHexString() != digits) fail("'" + digits + "' is not hexadecimal");
      order.set<"Signature">(value);
    },
    [](MainframeOrder const &order, Out &out) { out.appendASCIIFieldHex(order.get<"Signature">(), 16, false, ' '); }};
constexpr Place TOKEN = {
    [](MainframeOrder &order, In &in) {
      tvstring const text = in.getFixedFiller(24);
      Binary const value = Binary::fromBase64String(text);
      if (value.toBase64String() != text) fail("'" + text + "' is not base 64");
      order.set<"Token">(value);
    },
    [](MainframeOrder const &order, Out &out) { out.appendASCIIFieldBase64(order.get<"Token">(), 24, false, ' '); }};

// In the order of the record.
constexpr Place PLACES[] = {RECORD_TYPE,
                            text<"OrderID", 8>(),
                            text<"Account", 10>(),
                            text<"Symbol", 12>(),
                            text<"Side", 1>(),
                            integer<"Quantity", 4>(),
                            integer<"ExecutedQuantity", 8>(),
                            PRICE,
                            NOTIONAL,
                            packedDate<"TradeDate", 9>(),
                            packedDate<"TransactTime", 15>(),
                            ALL_OR_NONE,
                            RATE,
                            SIGNATURE,
                            TOKEN};

}  // namespace

void MainframeParser::parseData(MainframeFile &file, Binary const &bytes) {
  auto &orders = file.section<"Orders">();
  SmartPtr<UniversalInputRecord> const whole(createInputRecord(bytes));
  while (!whole->isEmpty()) {
    whole->skip(0);  // the place is this record's beginning
    if (!report(whole.get(), nullptr, [&] { whole->assertRemaining(MainframeOrder::LENGTH); })) return;
    if (!readOrder(whole.get(), orders.add())) orders.removeLastElement();
  }
}

bool MainframeParser::readOrder(UniversalInputRecord *whole, MainframeOrder &order) {
  bool isWhole = true;
  whole->startSequence();
  for (Place const &place : PLACES) isWhole = report(whole, &order, [&] { place.read(order, *whole); }) && isWhole;
  whole->endSequence();
  return isWhole;
}

void MainframeWriter::writeOrder(MainframeOrder &order) {
  record_.restart(tvstring::EMPTY, false, false);
  record_.startSequence();
  try {
    for (Place const &place : PLACES) place.write(order, record_);
  } catch (TransformException &failure) {
    handleException(failure, &record_, &order);
  }
  record_.endSequence();
  appendRecord(record_);
}

void MainframeWriter::writeData(DataObject *data, TransformContext &) {
  for (MainframeOrder &order : checkedCast<MainframeFile>(data)->section<"Orders">()) writeOrder(order);
}

}  // namespace examples
