// What the pipeline adds to the generated code that it runs. Limits: a message through an input format allocates
// nothing but its parser's text; an internal message with a rule and a validator costs 60 ns and no allocation beside
// their bodies; an output format copies the rendered text once, into the device.

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <new>

#include "tavrone/context/Factory.h"
#include "tavrone/core/Conversion.h"
#include "tavrone/dataobject/Record.h"
#include "tavrone/pipeline/AbstractInputFormat.h"
#include "tavrone/pipeline/AbstractInternalMessage.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/pipeline/OutputContext.h"
#include "tavrone/pipeline/OutputDevice.h"
#include "tavrone/pipeline/OutputFormat.h"
#include "tavrone/pipeline/OutputWriter.h"
#include "tavrone/pipeline/Rules.h"

namespace {

constexpr size_t TEXT_SIZE = 100000;  // of a rendered message

long long allocations = 0;
long long texts = 0;  // blocks that could hold a rendered message

}  // namespace

// Out of line, or the compiler takes malloc and operator delete for a mismatch.
__attribute__((noinline)) void *operator new(size_t size) {
  ++allocations;
  if (size >= TEXT_SIZE) ++texts;
  if (void *block = std::malloc(size)) return block;
  throw std::bad_alloc();
}
__attribute__((noinline)) void operator delete(void *block) noexcept {
  std::free(block);
}
__attribute__((noinline)) void operator delete(void *block, size_t) noexcept {
  std::free(block);
}

namespace tavrone {
namespace {

// clang-format off
using Trade = Record<"Trade", Field<"A", tvstring>, Field<"B", int>, Field<"C", tvstring>, Field<"D", int>,
                     Field<"E", tvstring>, Field<"F", int>, Field<"G", tvstring>, Field<"H", int>,
                     Field<"I", tvstring>, Field<"J", int>>;
// clang-format on

// Runs the body once to warm up, then counts what each run allocates.
template <class Body>
void run(benchmark::State &state, Body const &body) {
  body();
  long long const before = allocations, textsBefore = texts;
  for (auto _ : state) body();
  auto perRun = [](long long count) {
    return benchmark::Counter(static_cast<double>(count), benchmark::Counter::kAvgIterations);
  };
  state.counters["allocations"] = perRun(allocations - before);
  state.counters["texts"] = perRun(texts - textsBefore);
}

struct Validator : ValidationRules {
  void validate(DataObject *object) override { benchmark::DoNotOptimize(object); }
};
struct Rule : BusinessProcessingRules {
  void process(DataObject *object) override { benchmark::DoNotOptimize(object); }
};
struct Transaction : AbstractInternalMessage {
  Transaction() : AbstractInternalMessage("Transaction") {
    addProcessing(PREPROCESSING_NODE_NAME, new Rule);
    addValidator("Default", new Validator);
  }
  DataObject *createNormalizedObject() override { return new Trade; }
};
bool const bound = bindFactory<Transaction>("Transaction");

// Five texts and five numbers, each ended by '|'. The texts are views on one copy of the payload.
void parseTrade(InputSource &input, Trade &trade) {
  int length = 0;
  char const *const bytes = input.getAsBytes(length);
  tvstring const text(bytes, static_cast<size_t>(length));
  size_t from = 0;
  auto number = [](tvstring const &digits) { return t_atoi(digits.data(), digits.data() + digits.length()); };
  auto next = [&] {
    size_t const end = text.find('|', from);
    tvstring const field = text.substr(from, end - from);
    from = end + 1;
    return field;
  };
  trade.set<"A">(next());
  trade.set<"B">(number(next()));
  trade.set<"C">(next());
  trade.set<"D">(number(next()));
  trade.set<"E">(next());
  trade.set<"F">(number(next()));
  trade.set<"G">(next());
  trade.set<"H">(number(next()));
  trade.set<"I">(next());
  trade.set<"J">(number(next()));
}

struct TradeFormat : AbstractInputFormat {
  TradeFormat() : AbstractInputFormat("Transaction") {}
  void parseInput(InputSource &input, DataObject *object, TransformContext &) override {
    parseTrade(input, *static_cast<Trade *>(object));
  }
  DataObject *createInputObject() override { return new Trade; }
};

char const PAYLOAD[] = "ACME|100|XNYS|42|2024-03-01|7|BUY|123456|USD|99|";

void BM_ProcessInputOfTenFields(benchmark::State &state) {
  SmartPtr<IInputFormat> const format = new TradeFormat;
  SmartPtr<IRawMessage> const source = new ByteArrayInputSource(Binary(PAYLOAD, sizeof PAYLOAD - 1));
  TransformContext context;
  run(state, [&] { format->processInput(*source, context); });
}
BENCHMARK(BM_ProcessInputOfTenFields);

// The peer: the parsing alone.
void BM_ParseTenFieldsByHand(benchmark::State &state) {
  SmartPtr<Trade> const trade = new Trade;
  SmartPtr<IRawMessage> const source = new ByteArrayInputSource(Binary(PAYLOAD, sizeof PAYLOAD - 1));
  run(state, [&] {
    trade->reset();
    parseTrade(*source, *trade);
  });
}
BENCHMARK(BM_ParseTenFieldsByHand);

void BM_ProcessAll(benchmark::State &state) {
  SmartPtr<Transaction> const transaction = new Transaction;
  SmartPtr<DataObject> const trade = new Trade;
  TransformContext context;
  run(state, [&] { transaction->processAll(trade.get(), context); });
}
BENCHMARK(BM_ProcessAll);

// The peer: the rules alone.
void BM_RunRulesByHand(benchmark::State &state) {
  Rule rule;
  Validator validator;
  BusinessProcessingRules *preprocess = &rule;
  ValidationRules *validate = &validator;
  SmartPtr<DataObject> const trade = new Trade;
  TransformContext context;
  benchmark::DoNotOptimize(preprocess);
  benchmark::DoNotOptimize(validate);
  run(state, [&] {
    preprocess->process(trade.get(), context);
    validate->validate(trade.get(), context);
  });
}
BENCHMARK(BM_RunRulesByHand);

struct Writer : SimpleOutputWriter {
  tvstring writeExternal(ExternalObject &, TransformContext &) override { return text; }
  tvstring const text = tvstring(TEXT_SIZE, 'x');
};
struct Format : AbstractOutputFormat {
  OutputWriter *getOutputWriter() override { return &writer; }
  Writer writer;
};

struct Output : TransformContext {
  Output() {
    directory->rebind("memory", new ContextOutputProtocol);
    createOutputContext();
    setProperty("output.device", "memory");
  }
  SmartPtr<ILookupContext> directory = LookupContextFactory::getLookupContext();
};

void BM_WriteOutput(benchmark::State &state) {
  Output output;
  SmartPtr<IOutputFormat> const format = new Format;
  run(state, [&] {
    output.createOutputContext();
    format->write(nullptr, output);
  });
}
BENCHMARK(BM_WriteOutput);

// The peer: the device alone.
void BM_WriteDeviceByHand(benchmark::State &state) {
  Output output;
  Writer const writer;
  run(state, [&] {
    output.createOutputContext();
    OutputDevice *const device = output.getOutputContext()->createOutputDevice(DeviceInfo("memory", "", ""));
    device->write(writer.text.data(), static_cast<int>(writer.text.length()));
    device->close();
  });
}
BENCHMARK(BM_WriteDeviceByHand);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
