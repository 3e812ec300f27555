#include <benchmark/benchmark.h>

#include <cstdio>
#include <string>

#include "tavrone/universal/UniversalOutputRecord.h"

// Records of ten fields, of fixed width and with delimiters, into a record that is used again; the peer is one snprintf
// for each field. Packed decimals by their count of digits: items are digits, and the peer is the plain loop that takes
// one digit at a time. (Nothing of this allocates: the record's test counts.)

namespace tavrone {
namespace {

tvstringliteral const ACCOUNT("DE8937040044");
tvstringliteral const NAME("Northwind Traders");
tvstringliteral const PURPOSE("SALARY");
tvstringliteral const EMPTY_TEXT("");
tvstringliteral const YES("Y");
tvstringliteral const NO("N");
tvstringliteral const COMMA(",");

// One payment's values, not to be foreseen by the compiler.
struct Payment {
  int number = 4711;
  long long amount = 1234567;
  double rate = 1.25;
  bool urgent = true;
};

template <class Write>
void perField(benchmark::State &state, Write const &write) {
  constexpr int FIELDS = 10;
  Payment payment;
  for (auto _ : state) {
    benchmark::DoNotOptimize(payment);
    write(payment);
  }
  state.SetItemsProcessed(state.iterations() * FIELDS);
}

void fixedFields(benchmark::State &state) {
  UniversalOutputRecord record;
  perField(state, [&](Payment const &p) {
    record.restart(EMPTY_TEXT, false, false);
    record.startSequence();
    record.appendASCIIField(6, 1, true, '0');
    record.appendASCIIField(p.number, 8, true, '0');
    record.appendASCIIField(ACCOUNT, 17, false, ' ');
    record.appendASCIIField(p.amount, 10, true, '0');
    record.appendASCIIField(NAME, 22, false, ' ');
    record.appendASCIIField(PURPOSE, 10, true, ' ');
    record.appendASCIIField(p.rate, 3, 4, '.', true, ' ');
    record.appendASCIIField(p.urgent, 1, YES, NO, false, ' ');
    record.appendASCIIField(-p.number, 7, true, ' ');
    record.appendASCIIField(p.amount, 15, true, '0');
    record.endSequence();
  });
}

void fixedFieldsSnprintf(benchmark::State &state) {
  char text[256];
  perField(state, [&](Payment const &p) {
    char *at = text;
    char *const end = text + sizeof text;
    auto const put = [&](char const *format, auto... values) {
      at += std::snprintf(at, static_cast<size_t>(end - at), format, values...);
    };
    put("%1d", 6);
    put("%08d", p.number);
    put("%-17s", ACCOUNT.data());
    put("%010lld", p.amount);
    put("%-22s", NAME.data());
    put("%10s", PURPOSE.data());
    put("%8.4f", p.rate);
    put("%-1s", (p.urgent ? YES : NO).data());
    put("%7d", -p.number);
    put("%015lld", p.amount);
    benchmark::DoNotOptimize(at);
  });
}

void delimitedFields(benchmark::State &state) {
  UniversalOutputRecord record;
  perField(state, [&](Payment const &p) {
    record.restart(EMPTY_TEXT, false, false);
    record.startSequence();
    record.appendDelimitedField(6, COMMA);
    record.appendDelimitedField(p.number, COMMA);
    record.appendDelimitedField(ACCOUNT, COMMA);
    record.appendDelimitedField(p.amount, COMMA);
    record.appendDelimitedField(NAME, COMMA, '"');
    record.appendDelimitedField(PURPOSE, COMMA);
    record.appendDelimitedField(p.rate, '.', COMMA);
    record.appendDelimitedField(p.urgent, COMMA, YES, NO);
    record.appendDelimitedField(-p.number, COMMA);
    record.appendDelimitedField(p.amount, COMMA);
    record.endSequence();
  });
}
void delimitedFieldsSnprintf(benchmark::State &state) {
  char text[256];
  perField(state, [&](Payment const &p) {
    char *at = text;
    char *const end = text + sizeof text;
    auto const put = [&](char const *format, auto... values) {
      at += std::snprintf(at, static_cast<size_t>(end - at), format, values...);
    };
    put("%d,", 6);
    put("%d,", p.number);
    put("%s,", ACCOUNT.data());
    put("%lld,", p.amount);
    put("%s,", NAME.data());
    put("%s,", PURPOSE.data());
    put("%.2f,", p.rate);
    put("%s,", (p.urgent ? YES : NO).data());
    put("%d,", -p.number);
    put("%lld,", p.amount);
    benchmark::DoNotOptimize(at);
  });
}

template <class Write>
void packed(benchmark::State &state, Write const &write) {
  int const digits = static_cast<int>(state.range(0));
  long long value = UniversalRecord::LONG_POWERS_OF_10[static_cast<size_t>(digits)] / 7;
  for (auto _ : state) {
    benchmark::DoNotOptimize(value);
    write(value, digits);
  }
  state.SetItemsProcessed(state.iterations() * digits);
}

void packedDecimal(benchmark::State &state) {
  constexpr int FULL = 4096;
  UniversalOutputRecord record;
  packed(state, [&](long long value, int digits) {
    if (record.getCurrentIndex() >= FULL) record.restart(EMPTY_TEXT, false, false);
    record.writePackedDecimalLong(value, digits);
  });
}
void packedDecimalByDigit(benchmark::State &state) {
  char bytes[16];
  packed(state, [&](long long value, int digits) {
    int at = digits / 2;
    bytes[at] = static_cast<char>(value % 10 << 4 | 0xC);
    for (value /= 10; at-- > 0; value /= 100) bytes[at] = static_cast<char>(value / 10 % 10 << 4 | value % 10);
    benchmark::DoNotOptimize(bytes);
  });
}

BENCHMARK(fixedFields);
BENCHMARK(fixedFieldsSnprintf);
BENCHMARK(delimitedFields);
BENCHMARK(delimitedFieldsSnprintf);
BENCHMARK(packedDecimal)->Arg(5)->Arg(9)->Arg(15)->Arg(18);
BENCHMARK(packedDecimalByDigit)->Arg(5)->Arg(9)->Arg(15)->Arg(18);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
