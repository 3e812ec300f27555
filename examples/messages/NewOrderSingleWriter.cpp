#include "examples/messages/NewOrderSingleWriter.h"

namespace examples {

NewOrderSingleWriter::~NewOrderSingleWriter() noexcept(false) = default;

void NewOrderSingleWriter::writeData(DataObject *data, TransformContext &) {
  auto &order = *checkedCast<NewOrderSingle>(data);
  writeRequired<"ClOrdID">("11", order);
  writeGroup("453", order.section<"PartyIDs">(), [&](OrderParty &party) {
    writeRequired<"PartyID">("448", party);
    write<"PartyIDSource">("447", party);
    write<"PartyRole">("452", party);
  });
  write<"Account">("1", order);
  writeGroup("78", order.section<"Allocs">(), [&](OrderAllocation &allocation) {
    writeRequired<"AllocAccount">("79", allocation);
    write<"AllocQty">("80", allocation);
  });
  write<"HandlInst">("21", order);
  write<"ExecInst">("18", order);
  writeRequired<"Symbol">("55", order);
  writeRequired<"Side">("54", order);
  writeRequired<"TransactTime">("60", order);
  write<"OrderQty">("38", order);
  writeRequired<"OrdType">("40", order);
  write<"Price">("44", order);
  write<"StopPx">("99", order);
  write<"Currency">("15", order);
  write<"TimeInForce">("59", order);
  write<"Text">("58", order);
  if (!order.isNull<"EncodedText">()) appendData("354", "355", std::as_const(order).get<"EncodedText">());
}

}  // namespace examples
