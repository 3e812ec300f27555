// Questions over the 1,000 elements of a section of declared records, and of a generic one, beside a plain loop over a
// std::vector of structs.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "examples/messages/Order.h"

namespace {

using namespace tavrone;
using examples::Leg;
using examples::Order;

constexpr int COUNT = 1000;

struct PlainLeg {
  std::string symbol;
  bool hasSymbol = false;
  int ratio = 0;
  bool hasRatio = false;
  double price = 0;
  bool hasPrice = false;
};

tvstring const PRICE("Price");
tvstring const SYMBOL("Symbol");
tvstring const ACME("ACME");

std::vector<PlainLeg> plainLegs() {
  std::vector<PlainLeg> legs;
  for (int i = 0; i < COUNT; ++i) legs.push_back({i % 2 == 0 ? "ACME" : "OTHER", true, i, true, i / 8.0, i % 10 != 0});
  return legs;
}

struct Declared {
  static DataObject *make() { return new Order; }
};
struct Generic {
  static DataObject *make() { return new GenericDataObject(Order::typeMetaInfo(), false); }
};

// The same legs.
template <class Kind>
struct Legs {
  Legs() {
    for (PlainLeg const &plain : plainLegs()) {
      SmartPtr<DataObject> const leg(legs->createElement());
      leg->setField(Leg::index<"Symbol">, StringObject(tvstring(plain.symbol.data(), plain.symbol.size())));
      leg->setField(Leg::index<"Ratio">, IntObject(plain.ratio));
      if (plain.hasPrice) leg->setField(Leg::index<"Price">, DoubleObject(plain.price));
      legs->addElement(leg.get());
    }
  }

  SmartPtr<DataObject> order{Kind::make()};
  DataObjectSection *legs = order->getSection(Order::index<"Legs">);
};

void sumPlain(benchmark::State &state) {
  auto legs = plainLegs();
  benchmark::DoNotOptimize(legs.data());
  for (auto _ : state) {
    benchmark::ClobberMemory();
    double sum = 0;
    for (PlainLeg const &leg : legs)
      if (leg.hasPrice) sum += leg.price;
    benchmark::DoNotOptimize(sum);
  }
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(sumPlain);

template <class Kind>
void sum(benchmark::State &state) {
  Legs<Kind> const held;
  for (auto _ : state) benchmark::DoNotOptimize(AggregateFunctions::secSumDouble(held.legs, PRICE));
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(sum<Declared>);
BENCHMARK(sum<Generic>);

void countTextPlain(benchmark::State &state) {
  auto legs = plainLegs();
  std::string const acme("ACME");
  benchmark::DoNotOptimize(legs.data());
  for (auto _ : state) {
    benchmark::ClobberMemory();
    benchmark::DoNotOptimize(
        std::count_if(legs.begin(), legs.end(), [&](auto const &leg) { return leg.hasSymbol && leg.symbol == acme; }));
  }
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(countTextPlain);

template <class Kind>
void countText(benchmark::State &state) {
  Legs<Kind> const held;
  for (auto _ : state) benchmark::DoNotOptimize(AggregateFunctions::fieldValueCount(held.legs, SYMBOL, ACME));
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(countText<Declared>);
BENCHMARK(countText<Generic>);

void maxPlain(benchmark::State &state) {
  auto legs = plainLegs();
  benchmark::DoNotOptimize(legs.data());
  for (auto _ : state) {
    benchmark::ClobberMemory();
    bool found = false;
    double max = 0;
    for (PlainLeg const &leg : legs) {
      if (!leg.hasPrice || (found && !(leg.price > max))) continue;
      max = leg.price;
      found = true;
    }
    benchmark::DoNotOptimize(max);
  }
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(maxPlain);

template <class Kind>
void max(benchmark::State &state) {
  Legs<Kind> const held;
  for (auto _ : state) benchmark::DoNotOptimize(AggregateFunctions::secMaxDouble(held.legs, PRICE));
  state.SetItemsProcessed(state.iterations() * COUNT);
}
BENCHMARK(max<Declared>);
BENCHMARK(max<Generic>);

}  // namespace

BENCHMARK_MAIN();
