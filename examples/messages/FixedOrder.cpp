#include "examples/messages/FixedOrder.h"

#include <string_view>

#include "examples/messages/TextFields.h"

namespace examples {

namespace {

using In = UniversalInputRecord;
using Out = UniversalOutputRecord;
using FixedOrderHeader = Record<"FixedOrderHeader", Field<"MessageFormat", tvstring>>;

constinit tvstringliteral const LINE_FEED("\n");
constinit tvstringliteral const TAG(FixedOrder::TAG);
constexpr int TAG_WIDTH = 4;

// How a field is read and written; each function takes the whole place of its field, also where it fails.
struct Place {
  int width;
  void (*read)(FixedOrder &order, In &in);
  void (*write)(FixedOrder const &order, Out &out);
};

enum Presence { REQUIRED, OPTIONAL };

tvstring trimmed(tvstring const &text) {
  return In::trimSpaces(text, true, true);
}

// A width below zero puts the text to the right of its place.
template <FixedText Name, int WIDTH, Presence PRESENCE = REQUIRED, char FILL = ' '>
constexpr Place place() {
  constexpr int BYTES = WIDTH < 0 ? -WIDTH : WIDTH;
  return {BYTES,
          [](FixedOrder &order, In &in) {
            tvstring const value = trimmed(in.getFixedFiller(BYTES));
            if (!value.empty())
              readField<Name>(order, value);
            else if (PRESENCE == REQUIRED)
              fail("The field is blank");
          },
          [](FixedOrder const &order, Out &out) {
            if (PRESENCE == OPTIONAL && order.isNull<Name>()) return out.appendFiller(BYTES);
            tvstring const text = lineText(order.get<Name>(), Name.text, "");
            if (trimmed(text) != text) cannotWrite(Name.text, "begins or ends with a blank");
            out.appendASCIIField(text, BYTES, WIDTH < 0, FILL);
          }};
}

// In the order of the line.
constexpr Place PLACES[] = {place<"OrderID", 20>(),
                            place<"Account", 12, OPTIONAL>(),
                            place<"Symbol", 12>(),
                            place<"Side", 1>(),
                            place<"Quantity", -9, REQUIRED, '0'>(),
                            place<"Price", -18, OPTIONAL>(),
                            place<"TradeDate", 8>(),
                            place<"TransactTime", 21>(),
                            place<"AllOrNone", 1>(),
                            place<"Text", 100, OPTIONAL>()};

constexpr int lengthOfLine() {
  int length = TAG_WIDTH;
  for (Place const &place : PLACES) length += place.width;
  return length;
}
static_assert(lengthOfLine() == FixedOrder::LENGTH);

template <FixedText... Fields, class Target, class Source>
void copyFields(Target &target, Source const &source) {
  (copyField<Fields, Fields>(target, source), ...);
}
template <class Target, class Source>
void copyOrder(Target &target, Source const &source) {
  copyFields<"OrderID", "Account", "Symbol", "Side", "Quantity", "Price", "TradeDate", "TransactTime", "AllOrNone",
             "Text">(target, source);
}

}  // namespace

void FixedOrderParser::parseData(FixedOrder &order, Binary const &bytes) {
  SmartPtr<In> const line(createInputRecord(bytes));
  bool const isLine = report(line.get(), nullptr, [&] {
    if (bytes.length() != FixedOrder::LENGTH)
      fail("Expected " + Parsing::intToString(FixedOrder::LENGTH) + " bytes, found " +
           Parsing::longToString(static_cast<long long>(bytes.length())));
    line->skipSectionTag(TAG);
  });
  if (!isLine) return;
  line->startSequence();
  for (Place const &place : PLACES) report(line.get(), &order, [&] { place.read(order, *line); });
  line->endSequence();
}

void FixedOrderWriter::writeData(DataObject *data, TransformContext &) {
  auto &order = *checkedCast<FixedOrder>(data);
  line_.restart(LINE_FEED, true, false);
  line_.startSequence();
  line_.appendTag(TAG);
  try {
    for (Place const &place : PLACES) place.write(order, line_);
  } catch (TransformException &failure) {
    failure.fillErrorType(ExceptionObject::ERROR_TYPE_OUTPUT);
    handleException(failure, &line_, &order);
  }
  line_.endSequence();
  appendRecord(line_);
}

void FixedOrderToOrder::mapFields0(ExternalObject *source, DataObject *target) {
  copyOrder(*checkedCast<Order>(target), *checkedCast<FixedOrder>(source->getData()));
}

void OrderToFixedOrder::mapDataFields0(DataObject *source, DataObject *data) {
  auto const &order = *checkedCast<Order>(source);
  requirePlace(order.section<"Legs">().isEmpty(), "A fixed line", "legs", "Legs");
  copyOrder(*checkedCast<FixedOrder>(data), order);
}

FixedOrderIdentifier::FixedOrderIdentifier() {
  auto *const header = new FixedOrderHeader;
  header->set<"MessageFormat">("FIXED-ORDER");
  header_ = header;
}

DataObject *FixedOrderIdentifier::identifyMessage(InputSource &input) {
  int length = 0;
  char const *const bytes = input.getAsBytes(length);
  return std::string_view(bytes, static_cast<size_t>(length)).starts_with(FixedOrder::TAG) ? header_.get() : nullptr;
}

}  // namespace examples
