#pragma once

#include "examples/messages/CodedRules.h"
#include "examples/messages/PaymentFileParser.h"
#include "examples/messages/PaymentFileWriter.h"

namespace examples {

// What the bank books: one payment of a file, in its own words.
// clang-format off
struct Payment : Record<"Payment",
                        Field<"Trace", long long>,
                        Field<"Payer", tvstring>,
                        Field<"Payee", tvstring>,
                        Field<"Bank", tvstring>,
                        Field<"Account", tvstring>,
                        Field<"Amount", BigDecimal>,
                        Field<"ValueDate", DateOnly>> {};

struct Payments : Record<"Payments",
                         Field<"Source", tvstring>,
                         Section<"Payments", Payment>> {};
// clang-format on

// "Default": what a file must hold wherever it comes from, also one that a host has put together or changed: its
// batches are of their service class, and its controls agree with its entries.
class PaymentChecks : public CodedRules {
 public:
  using CodedRules::validateData;
  using CodedRules::validateTrailer;
  void validateData(DataObject *header, DataObject *data) override;
  void validateTrailer(DataObject *trailer) override;

 private:
  template <class Control>
  void checkTotals(Control const &control, PaymentTotals const &totals, tvstring const &where);

  PaymentTotals file_;  // of the data that was checked last, for its trailer
};

// The wire format "PaymentFile" as a whole.
class PaymentFileMessage : public AbstractExternalMessage {
 public:
  PaymentFileMessage() : AbstractExternalMessage("PaymentFile") { addValidator(DEFAULT_VALIDATOR, new PaymentChecks); }
  ~PaymentFileMessage() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override;
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  PaymentFileParser parser_;
  PaymentFileWriter writer_;
};

// From a PaymentFile to Payments: a debit takes from the account that a credit gives to.
class PaymentMapping : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override;
};

}  // namespace examples
