// FIX messages written field by field, with BodyLength and CheckSum, beside QuickFIX building and rendering the same
// message (at most 0.08 of its time, one allocation a message). Values are of many lengths, so that no branch can be
// learned; both must write the same bytes. Then CheckSum by itself beside a plain loop over the bytes (at most 0.1).

#include <string>
#include <vector>

#include "benchmarks/Allocations.h"
#include "benchmarks/peers/QuickFIXPeer.h"
#include "tavrone/fix/FIXOutputWriter.h"

namespace tavrone {
namespace {

constexpr size_t MESSAGES = 256;

// What generated code does, without the record that it reads.
struct Writer : FIXOutputWriter {
  template <class Values>
  tvstring write(Values const &values) {
    auto const field = [this](int, auto tag, auto const &value) { this->appendField(tag, value); };
    initMessage();
    appendField("8", "FIX.4.4");
    values.headerFields(Values::TYPE, field);
    values.fields(field);
    return endMessage();
  }
  void writeHeader(DataObject *, TransformContext &) override {}
  void writeData(DataObject *, TransformContext &) override {}
  void writeTrailer(DataObject *, TransformContext &) override {}
};

template <class Values>
std::vector<Values> messages() {
  FIXValues values;
  std::vector<Values> made;
  for (size_t i = 0; i < MESSAGES; ++i) made.emplace_back(values);
  return made;
}

template <class Values, class Writer>
void write(benchmark::State &state, Writer &writer) {
  auto const all = messages<Values>();
  run(state, [&] {
    for (Values const &values : all) benchmark::DoNotOptimize(writer.write(values).data());
  });
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(MESSAGES));
}

template <template <class> class Values>
bool bothWriteTheSame() {
  auto const ours = messages<Values<tvstring>>();
  auto const theirs = messages<Values<std::string>>();
  Writer writer;
  QuickFIXPeer peer;
  for (size_t i = 0; i < MESSAGES; ++i) {
    std::string const &wanted = peer.write(theirs[i]);
    if (writer.write(ours[i]) != tvstring(wanted.data(), wanted.size())) return false;
  }
  return true;
}

template <template <class> class Values>
void byWriter(benchmark::State &state) {
  if (!bothWriteTheSame<Values>()) return state.SkipWithError("The texts differ");
  Writer writer;
  write<Values<tvstring>>(state, writer);
}
template <template <class> class Values>
void byPeer(benchmark::State &state) {
  QuickFIXPeer peer;
  write<Values<std::string>>(state, peer);
}
BENCHMARK(byWriter<NewOrderSingleValues>)->Name("256 NewOrderSingle/FIXOutputWriter");
BENCHMARK(byPeer<NewOrderSingleValues>)->Name("256 NewOrderSingle/QuickFIX");
BENCHMARK(byWriter<ExecutionReportValues>)->Name("256 ExecutionReport/FIXOutputWriter");
BENCHMARK(byPeer<ExecutionReportValues>)->Name("256 ExecutionReport/QuickFIX");

[[gnu::noinline]] int sumByteByByte(char const *data, unsigned int length) {
  unsigned int sum = 0;
  for (unsigned int i = 0; i < length; ++i) sum += static_cast<unsigned char>(data[i]);
  return static_cast<int>(sum & 255);
}

template <int (*Sum)(char const *, unsigned int)>
void checkSum(benchmark::State &state) {
  std::string bytes;
  while (bytes.size() < static_cast<size_t>(state.range(0))) bytes += static_cast<char>(bytes.size() * 151);
  for (auto _ : state) {
    benchmark::DoNotOptimize(bytes.data());
    benchmark::DoNotOptimize(Sum(bytes.data(), static_cast<unsigned int>(bytes.size())));
  }
}
BENCHMARK(checkSum<FIXOutputWriter::generateCheckSum>)->Name("CheckSum/ours")->Arg(300)->Arg(1024);
BENCHMARK(checkSum<sumByteByByte>)->Name("CheckSum/byte by byte")->Arg(300)->Arg(1024);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
