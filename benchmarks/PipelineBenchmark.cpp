// What the pipeline adds to the generated code that it runs. Limits: a message through an input format allocates
// nothing but its parser's text; an internal message with a rule and a validator costs 60 ns and no allocation beside
// their bodies; an output format copies the rendered text once, into the device.

#include "benchmarks/Allocations.h"
#include "benchmarks/Trade.h"
#include "tavrone/context/Factory.h"
#include "tavrone/pipeline/AbstractInputFormat.h"
#include "tavrone/pipeline/AbstractInternalMessage.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/pipeline/OutputContext.h"
#include "tavrone/pipeline/OutputDevice.h"
#include "tavrone/pipeline/OutputFormat.h"
#include "tavrone/pipeline/OutputWriter.h"
#include "tavrone/pipeline/Rules.h"

namespace tavrone {
namespace {

constexpr size_t TEXT_SIZE = 100000;                                  // of a rendered message
[[maybe_unused]] size_t const textsAreLarge = largeSize = TEXT_SIZE;  // blocks that could hold one are counted apart

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

struct TradeFormat : AbstractInputFormat {
  TradeFormat() : AbstractInputFormat("Transaction") {}
  void parseInput(InputSource &input, DataObject *object, TransformContext &) override {
    parseTrade(input, *static_cast<Trade *>(object));
  }
  DataObject *createInputObject() override { return new Trade; }
};

void BM_ProcessInputOfTenFields(benchmark::State &state) {
  SmartPtr<IInputFormat> const format = new TradeFormat;
  SmartPtr<IRawMessage> const source = new ByteArrayInputSource(Binary(TRADE_LINE, sizeof TRADE_LINE - 1));
  TransformContext context;
  run(state, [&] { format->processInput(*source, context); });
}
BENCHMARK(BM_ProcessInputOfTenFields);

// The peer: the parsing alone.
void BM_ParseTenFieldsByHand(benchmark::State &state) {
  SmartPtr<Trade> const trade = new Trade;
  SmartPtr<IRawMessage> const source = new ByteArrayInputSource(Binary(TRADE_LINE, sizeof TRADE_LINE - 1));
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
