// Stored streams of any bytes, read into a declared record and into a generic one of the same type: both take or refuse
// them alike, and what is read is written to the same bytes by both, and again so after it was read once more.
#include <cstdint>

#include "tavrone/tavrone.h"
#include "tests/FuzzInput.h"
#include "tests/Text.h"

namespace {

using namespace tavrone;

struct Fill : Record<"Fill", Field<"Quantity", int>, Field<"Venue", tvstring>> {};

struct Leg : Record<"Leg", Field<"Symbol", tvstring>, Section<"Fills", Fill>> {};

// Without a Binary, which reads as the text that it was written as.
struct Order : Record<"Order", Field<"OrderID", tvstring>, Field<"Side", char>, Field<"Quantity", int>,
                      Field<"ExecutedQuantity", long long>, Field<"Price", double>, Field<"Rate", float>,
                      Field<"Notional", BigDecimal>, Field<"Count", BigInteger>, Field<"TradeDate", DateOnly>,
                      Field<"TradeTime", TimeOnly>, Field<"TransactTime", DateTime>, Field<"AllOrNone", bool>,
                      Field<"Stamp", ISODateTime>, Nested<"Owner", Leg>, Section<"Legs", Leg>> {};

std::string refusal(DataObject *record, char const *bytes, int length) {
  try {
    DataObjectIO::parse(record, bytes, length);
    return "";
  } catch (TransformException const &e) {
    return "refused: " + str(e.getMessage());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const *data, size_t size) {
  char const *const bytes = reinterpret_cast<char const *>(data);
  int const length = static_cast<int>(size);
  SmartPtr<DataObject> const declared(new Order);
  SmartPtr<DataObject> const generic(new GenericDataObject(Order::typeMetaInfo(), false));
  std::string const refused = refusal(declared.get(), bytes, length);
  require(refusal(generic.get(), bytes, length) == refused);

  // A broken stream leaves what came before the break.
  Binary const stored = DataObjectIO::serialize(declared.get());
  require(DataObjectIO::serialize(generic.get()) == stored);
  require(declared->toXMLString() == generic->toXMLString());
  if (!refused.empty()) declared->reset();
  DataObjectIO::parse(declared.get(), stored);
  require(DataObjectIO::serialize(declared.get()) == stored);
  return 0;
}
