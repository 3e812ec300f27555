#pragma once

// A file of payments between banks, for the Universal format: lines of 94 characters, the first of which tells what the
// line is.
//
//   1  file header
//   5    batch header
//   6      entry, any number
//   8    batch control: count and sums of the batch's entries
//   9  file control: count and sums of all
//
// The file header is the message's header, the batches are its data and the file control is its trailer. Numbers are
// filled with zeros on the left, texts with blanks on the right. Amounts are cents.

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// In each record the fields that lines are made of come first, in the line's order. The widths are those of the fields
// behind the line's type; what is "Reserved" is blank.

// clang-format off
struct PaymentFileHeader : Record<"FileHeader",
                                  Field<"Sender", tvstring>,
                                  Field<"Receiver", tvstring>,
                                  Field<"Created", DateTime>,         // yyyyMMddHHmm
                                  Field<"FileID", char>,              // tells the sender's files of one day apart
                                  Field<"SenderName", tvstring>,
                                  Field<"ReceiverName", tvstring>,
                                  Field<"Reference", tvstring>,
                                  Field<"Reserved", tvstring>> {
  static constexpr char TYPE = '1';
  static constexpr int WIDTHS[] = {10, 10, 12, 1, 23, 23, 8, 6};
};

struct PaymentEntry : Record<"Entry",
                             Field<"TransactionCode", int>,           // 22 and 32 credits, 27 and 37 debits
                             Field<"ReceivingBank", tvstring>,        // eight digits
                             Field<"CheckDigit", int>,                // of the receiving bank
                             Field<"Account", tvstring>,
                             Field<"Amount", long long>,
                             Field<"RecipientID", tvstring>,
                             Field<"RecipientName", tvstring>,
                             Field<"Discretionary", tvstring>,
                             Field<"Addenda", int>,
                             Field<"TraceNumber", long long>> {
  static constexpr char TYPE = '6';
  static constexpr int WIDTHS[] = {2, 8, 1, 17, 10, 15, 22, 2, 1, 15};
};

struct PaymentBatchControl : Record<"BatchControl",
                                    Field<"ServiceClass", int>,
                                    Field<"EntryCount", int>,
                                    Field<"EntryHash", long long>,    // the sum of the receiving banks, ten digits of it
                                    Field<"TotalDebit", long long>,
                                    Field<"TotalCredit", long long>,
                                    Field<"CompanyID", tvstring>,
                                    Field<"OriginatingBank", tvstring>,
                                    Field<"BatchNumber", int>,
                                    Field<"Reserved", tvstring>> {
  static constexpr char TYPE = '8';
  static constexpr int WIDTHS[] = {3, 6, 10, 12, 12, 10, 8, 7, 25};
};

struct PaymentBatch : Record<"Batch",
                             Field<"CompanyName", tvstring>,
                             Field<"CompanyID", tvstring>,
                             Field<"ServiceClass", int>,              // 200 mixed, 220 credits, 225 debits
                             Field<"Description", tvstring>,
                             Field<"EffectiveDate", DateOnly>,        // yyyyMMdd
                             Field<"OriginatingBank", tvstring>,
                             Field<"BatchNumber", int>,
                             Field<"Reserved", tvstring>,
                             Section<"Entries", PaymentEntry>,
                             Nested<"Control", PaymentBatchControl>> {
  static constexpr char TYPE = '5';
  static constexpr int WIDTHS[] = {16, 10, 3, 10, 8, 8, 7, 31};
};

struct PaymentFile : Record<"PaymentFile",
                            Section<"Batches", PaymentBatch>> {};

struct PaymentFileControl : Record<"FileControl",
                                   Field<"BatchCount", int>,
                                   Field<"EntryCount", int>,
                                   Field<"EntryHash", long long>,
                                   Field<"TotalDebit", long long>,
                                   Field<"TotalCredit", long long>,
                                   Field<"Reserved", tvstring>> {
  static constexpr char TYPE = '9';
  static constexpr int WIDTHS[] = {6, 8, 10, 12, 12, 45};
};
// clang-format on

// What controls sum up.
struct PaymentTotals {
  int batches = 0;
  long long entries = 0;
  long long hash = 0;
  long long debit = 0;
  long long credit = 0;

  static constexpr long long HASH_LIMIT = 10000000000;

  static bool isDebit(int transactionCode) { return transactionCode % 10 == 7; }

  void add(PaymentEntry const &entry) {
    ++entries;
    hash = (hash + Parsing::parseLong(entry.get<"ReceivingBank">())) % HASH_LIMIT;
    (isDebit(entry.get<"TransactionCode">()) ? debit : credit) += entry.get<"Amount">();
  }
  void add(PaymentTotals const &batch) {
    ++batches;
    entries += batch.entries;
    hash = (hash + batch.hash) % HASH_LIMIT;
    debit += batch.debit;
    credit += batch.credit;
  }
};

}  // namespace examples
