// A declared record beside a plain struct with a flag for each field (typed access: meant to be within 1 ns) and beside
// the same record written out in full (access by index: meant to cost no more).
#include <benchmark/benchmark.h>

#include <cstdlib>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"

namespace {

using namespace tavrone;
using examples::GeneratedOrder;
using examples::Order;

struct PlainOrder {
  double price = 0;
  bool hasPrice = false;
};

constexpr int PRICE = Order::index<"Price">;

void setPlain(benchmark::State &state) {
  PlainOrder order;
  benchmark::DoNotOptimize(&order);
  for (auto _ : state) {
    order.price = 412.35;
    order.hasPrice = true;
    benchmark::ClobberMemory();
  }
}
BENCHMARK(setPlain);

void setDeclared(benchmark::State &state) {
  Order order;
  benchmark::DoNotOptimize(&order);
  for (auto _ : state) {
    order.set<"Price">(412.35);
    benchmark::ClobberMemory();
  }
}
BENCHMARK(setDeclared);

void getPlain(benchmark::State &state) {
  PlainOrder order{412.35, true};
  benchmark::DoNotOptimize(&order);
  for (auto _ : state) {
    benchmark::ClobberMemory();
    if (!order.hasPrice) std::abort();
    benchmark::DoNotOptimize(order.price);
  }
}
BENCHMARK(getPlain);

void getDeclared(benchmark::State &state) {
  Order order;
  order.set<"Price">(412.35);
  benchmark::DoNotOptimize(&order);
  for (auto _ : state) {
    benchmark::ClobberMemory();
    double price = order.get<"Price">();
    benchmark::DoNotOptimize(price);
  }
}
BENCHMARK(getDeclared);

template <class R>
void readIntoWrapper(benchmark::State &state) {
  SmartPtr<DataObject> const order(new R);
  order->setField(PRICE, DoubleObject(412.35));
  DoubleObject price;
  benchmark::DoNotOptimize(&price);
  for (auto _ : state) benchmark::DoNotOptimize(order->getField(PRICE, price));
}
BENCHMARK(readIntoWrapper<GeneratedOrder>);
BENCHMARK(readIntoWrapper<Order>);

template <class R>
void readAsNewWrapper(benchmark::State &state) {
  SmartPtr<DataObject> const order(new R);
  order->setField(PRICE, DoubleObject(412.35));
  for (auto _ : state) {
    SmartPtr<Object> const price(order->getField(PRICE));
    benchmark::DoNotOptimize(price.get());
  }
}
BENCHMARK(readAsNewWrapper<GeneratedOrder>);
BENCHMARK(readAsNewWrapper<Order>);

template <class R>
void writeFromWrapper(benchmark::State &state) {
  SmartPtr<DataObject> const order(new R);
  DoubleObject const price(412.35);
  for (auto _ : state) order->setField(PRICE, price);
}
BENCHMARK(writeFromWrapper<GeneratedOrder>);
BENCHMARK(writeFromWrapper<Order>);

// Ten legs created, filled, added and cleared, as a parser does over and over.
template <class R>
void refillLegs(benchmark::State &state) {
  SmartPtr<DataObject> const order(new R);
  StringObject const symbol("ACME");
  for (auto _ : state) {
    order->reset();
    SmartPtr<Object> const held(order->getField(Order::index<"Legs">));
    DataObjectSection *legs = static_cast<SectionObject *>(held.get())->getSection();
    for (int i = 0; i < 10; ++i) {
      SmartPtr<DataObject> const leg(legs->createElement());
      leg->setField(0, symbol);
      legs->addElement(leg.get());
    }
  }
}
BENCHMARK(refillLegs<GeneratedOrder>);
BENCHMARK(refillLegs<Order>);

template <class R>
void copyFields(benchmark::State &state) {
  SmartPtr<DataObject> const from(new R);
  SmartPtr<DataObject> const to(new R);
  from->setField("OrderID", StringObject("A1"));
  from->setField("Quantity", IntObject(100));
  from->setField(PRICE, DoubleObject(412.35));
  for (auto _ : state) DataObjectBase::copy(from.get(), to.get());
}
BENCHMARK(copyFields<GeneratedOrder>);
BENCHMARK(copyFields<Order>);

}  // namespace

BENCHMARK_MAIN();
