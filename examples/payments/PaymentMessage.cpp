#include "examples/payments/PaymentMessage.h"

namespace examples {

namespace {

// Mixed, credits only, debits only.
bool isOfClass(int serviceClass, PaymentEntry const &entry) {
  bool const isDebit = PaymentTotals::isDebit(entry.get<"TransactionCode">());
  return serviceClass == 200 || serviceClass == (isDebit ? 225 : 220);
}

}  // namespace

template <class Control>
void PaymentChecks::checkTotals(Control const &control, PaymentTotals const &totals, tvstring const &where) {
  check(control.template get<"EntryCount">() == totals.entries, "PAY-02", "EntryCount", where + "EntryCount");
  check(control.template get<"EntryHash">() == totals.hash, "PAY-03", "EntryHash", where + "EntryHash");
  check(control.template get<"TotalDebit">() == totals.debit, "PAY-04", "TotalDebit", where + "TotalDebit");
  check(control.template get<"TotalCredit">() == totals.credit, "PAY-05", "TotalCredit", where + "TotalCredit");
}

void PaymentChecks::validateData(DataObject *, DataObject *data) {
  file_ = PaymentTotals();
  for (PaymentBatch const &batch : checkedCast<PaymentFile>(data)->section<"Batches">()) {
    tvstring const where = "Batches[" + Parsing::longToString(file_.batches) + "].";
    PaymentTotals totals;
    for (PaymentEntry const &entry : batch.section<"Entries">()) {
      check(isOfClass(batch.get<"ServiceClass">(), entry), "PAY-01", "ServiceClass",
            where + "Entries[" + Parsing::longToString(totals.entries) + "].TransactionCode");
      totals.add(entry);
    }
    checkTotals(batch.nested<"Control">(), totals, where + "Control.");
    file_.add(totals);
  }
}

void PaymentChecks::validateTrailer(DataObject *trailer) {
  PaymentFileControl const &control = *checkedCast<PaymentFileControl>(trailer);
  check(control.get<"BatchCount">() == file_.batches, "PAY-06", "BatchCount", "BatchCount");
  checkTotals(control, file_, "");
}

SmartPtr<ExternalObject> PaymentFileMessage::createExternalObject() {
  SmartPtr<DataObject> const header(new PaymentFileHeader), data(new PaymentFile), trailer(new PaymentFileControl);
  return SmartPtr<ExternalObject>(new ExternalObject(header.get(), data.get(), trailer.get()));
}

void PaymentMapping::mapFields0(ExternalObject *source, DataObject *target) {
  Payments &payments = *checkedCast<Payments>(target);
  payments.set<"Source">(checkedCast<PaymentFileHeader>(source->getHeader())->get<"SenderName">());
  for (PaymentBatch const &batch : checkedCast<PaymentFile>(source->getData())->section<"Batches">()) {
    for (PaymentEntry const &entry : batch.section<"Entries">()) {
      bool const isDebit = PaymentTotals::isDebit(entry.get<"TransactionCode">());
      tvstring const &company = batch.get<"CompanyName">();
      tvstring const &recipient = entry.get<"RecipientName">();
      Payment &payment = payments.section<"Payments">().add();
      payment.set<"Trace">(entry.get<"TraceNumber">());
      payment.set<"Payer">(isDebit ? recipient : company);
      payment.set<"Payee">(isDebit ? company : recipient);
      payment.set<"Bank">(entry.get<"ReceivingBank">() + Parsing::intToString(entry.get<"CheckDigit">()));
      payment.set<"Account">(entry.get<"Account">());
      payment.set<"Amount">(BigDecimal(entry.get<"Amount">()) / BigDecimal(100));
      payment.set<"ValueDate">(batch.get<"EffectiveDate">());
    }
  }
}

}  // namespace examples
