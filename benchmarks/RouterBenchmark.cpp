// What routing adds to the work of an input format. Limits: 100 ns and no allocation a message for processMessage, 10
// ns for each configuration that is asked in vain.

#include <benchmark/benchmark.h>

#include <memory>

#include "benchmarks/Allocations.h"
#include "tavrone/context/Factory.h"
#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/Wrappers.h"
#include "tavrone/dataobject/GenericDataObject.h"
#include "tavrone/dataobject/MetaInfo.h"
#include "tavrone/pipeline/InputSources.h"
#include "tavrone/routing/MessageRouter.h"

namespace tavrone {
namespace {

DataObject *newHeader() {
  static char const *names[] = {"MessageFormat", "MessageVersion", "MessageType"};
  static char const *types[] = {"String", "String", "String"};
  static char const *values[] = {"FIX", "4.4", "D"};
  static DataObjectMetaInfo metaInfo("Header", names, types, 3);
  auto *header = new GenericDataObject(&metaInfo, false);
  for (int i = 0; i < 3; ++i) header->setField(i, values[i]);
  return header;
}

class KeepingIdentifier : public MessageIdentifier {
 public:
  DataObject *identifyMessage(InputSource &) override { return header_.get(); }

 private:
  SmartPtr<DataObject> header_{newHeader()};
};

class EmptyFormat : public IInputFormat {
 public:
  DataObject *handleInput(InputSource &, TransformContext &) override { return nullptr; }
  void processInput(InputSource &, TransformContext &) override {}
};

class Host {
 public:
  Host() {
    directory_->rebind("Empty", new FactoryOf<EmptyFormat>);
    auto *service = new MessageIdentificationService;
    service->registerMessageIdentifer(new KeepingIdentifier);
    router.setMessageIdentificationService(service);
  }

  // An empty text leaves the configuration open there.
  void add(tvstring const &format, tvstring const &version, tvstring const &type) {
    auto *configuration = new MessageConfiguration;
    configuration->setMessageFormat(format);
    configuration->setMessageVersion(version);
    configuration->setMessageType(type);
    configuration->setContextProperty("input.format", "Empty");
    router.addMessageConfiguration(configuration);
  }

  MessageRouter router;
  TransformContext context;
  ByteArrayInputSource input{Binary("8=FIX.4.4", 9)};

 private:
  SmartPtr<ILookupContext> directory_ = LookupContextFactory::getLookupContext();
};

void process(benchmark::State &state, Host &host) {
  host.router.processMessage(host.input, host.context);
  long long const before = allocations;
  for (auto _ : state) host.router.processMessage(host.input, host.context);
  state.counters["allocations"] =
      benchmark::Counter(static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
}

void BM_ProcessMessage(benchmark::State &state) {
  Host host;
  host.add("", "", "");
  process(state, host);
}
BENCHMARK(BM_ProcessMessage);

// The peer: the same calls without a router.
void BM_IdentifyAndProcessByHand(benchmark::State &state) {
  Host host;
  KeepingIdentifier keeping;
  MessageIdentifier *identifier = &keeping;
  SmartPtr<IInputFormat> const format = new EmptyFormat;
  tvstring const name = "Empty";
  for (auto _ : state) {
    benchmark::DoNotOptimize(identifier);
    SmartPtr<DataObject> const header = identifier->identifyMessage(host.input);
    host.context.setProperty(TransformContext::INPUT_FORMAT_PROPERTY, name);
    format->processInput(host.input, host.context);
  }
}
BENCHMARK(BM_IdentifyAndProcessByHand);

// Reads the three fixed fields: a wrapper each.
void BM_ProcessMessageByFormatVersionAndType(benchmark::State &state) {
  Host host;
  host.add("FIX", "4.4", "D");
  process(state, host);
}
BENCHMARK(BM_ProcessMessageByFormatVersionAndType);

// The last of n configurations matches; each before it differs in its type only.
void BM_LastOfManyConfigurations(benchmark::State &state) {
  Host host;
  for (int64_t i = 1; i < state.range(0); ++i) host.add("FIX", "4.4", "8");
  host.add("FIX", "4.4", "D");
  process(state, host);
  state.counters["per configuration"] = benchmark::Counter(
      static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_LastOfManyConfigurations)->Arg(100)->Arg(1000)->Arg(10000);

}  // namespace
}  // namespace tavrone

BENCHMARK_MAIN();
