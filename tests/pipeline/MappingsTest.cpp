#include <gtest/gtest.h>

#include "examples/messages/GeneratedOrder.h"
#include "tavrone/context/DefaultObjectFactory.h"
#include "tests/Failure.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;

std::string steps;

std::string symbolOf(DataObject *leg) {
  return leg == nullptr ? "-" : static_cast<GeneratedLeg *>(leg)->getSymbol().c_str();
}
DataObject *leg(char const *symbol) {
  auto *made = new GeneratedLeg;
  made->setSymbol(symbol);
  return made;
}
void note(std::string const &step, DataObject *from, DataObject *to) {
  steps += step + symbolOf(from) + symbolOf(to) + " ";
}

// Bodies and custom class note what they are given.
template <class Rules>
struct ByPart : Rules {
  using Rules::Rules;
  void mapHeaderFields0(DataObject *from, DataObject *to) override { note("header:", from, to); }
  void mapDataFields0(DataObject *from, DataObject *to) override { note("data:", from, to); }
};
struct ToExternal : ByPart<OutputMappingRules> {
  using ByPart::ByPart;
  void mapTrailerFields0(DataObject *from, DataObject *data, DataObject *to) override {
    note("trailer:" + symbolOf(data), from, to);
  }
};
struct External : ByPart<ExternalToExternalMappingRules> {
  using ByPart::ByPart;
  void mapTrailerFields0(DataObject *from, DataObject *to) override { note("trailer:", from, to); }
};
struct Input : InputMappingRules {
  using InputMappingRules::InputMappingRules;
  void mapFields0(ExternalObject *from, DataObject *to) override { note("body:", from->getData(), to); }
};
struct Custom : IInputMapping, IExternalMapping, IOutputMapping {
  Custom() { ++made; }
  void map(ExternalObject *from, DataObject *to, TransformContext &) override { note("custom:", from->getData(), to); }
  void map(ExternalObject *from, ExternalObject *to, TransformContext &) override {
    note("custom:", from->getHeader(), to->getTrailer());
  }
  void mapHeader(DataObject *from, DataObject *to, TransformContext &) override { note("custom:", from, to); }
  void mapData(DataObject *from, DataObject *to, TransformContext &) override { note("custom:", from, to); }
  void mapTrailer(DataObject *from, DataObject *data, DataObject *to, TransformContext &) override {
    note("custom:" + symbolOf(data), from, to);
  }
  static inline int made = 0;
};

// The steps of mapping a message, the same for every message.
template <class Rules, class From, class To>
std::string mapped(Rules &&rules, From &from, To &to) {
  TransformContext context;
  rules.mapFields(&from, &to, context);
  std::string const first = std::exchange(steps, "");
  rules.mapFields(&from, &to, context);
  EXPECT_EQ(std::exchange(steps, ""), first);
  return first;
}

TEST(MappingRules, RunTheGeneratedBodyThenTheCustomClass) {
  DefaultObjectFactory<Custom>::registerClass("mappings.Custom");
  SmartPtr<DataObject> const source = leg("S");
  ExternalObject from(leg("h"), leg("d"), nullptr), to(leg("H"), leg("D"), leg("T"));
  EXPECT_EQ(mapped(Input(), from, *source), "body:dS ");
  EXPECT_EQ(mapped(Input("mappings.Custom"), from, *source), "body:dS custom:dS ");
  EXPECT_EQ(mapped(External("mappings.Custom"), from, to), "header:hH data:dD trailer:-T custom:hT ");
  EXPECT_EQ(mapped(ToExternal("mappings.Custom"), *source, to),
            "header:SH custom:SH data:SD custom:SD trailer:DST custom:DST ");
  EXPECT_EQ(Custom::made, 3);
}

TEST(MappingRules, RefuseACustomClassOfAnotherKindAtTheFirstMessage) {
  DefaultObjectFactory<StringObject>::registerClass("mappings.Wrong");
  TransformContext context;
  ExternalObject external(nullptr, leg("d"), nullptr);
  Input input("mappings.Wrong");
  try {
    input.mapFields(&external, external.getData(), context);
    ADD_FAILURE();
  } catch (TransformException const &e) {
    EXPECT_EQ(e.getMessage(), "Error creating custom class instance - mappings.Wrong is not of expected type");
    EXPECT_EQ(e.getErrorType(), "Mapping");
  }
}

// Maps a leg to a new one, up to the leg "bad".
struct Format : AbstractNormalizedObjectMappingFormat {
  Format() : AbstractNormalizedObjectMappingFormat("from", "to") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &) override {
    if (symbolOf(source) == "bad") throw TransformException("bad");
    return leg(symbolOf(source).c_str());
  }
};

TEST(AbstractNormalizedObjectMappingFormat, MapsAnArrayInOrderAndLosesNothing) {
  Format format;
  TransformContext context;
  SmartPtr<DataObject> const a = leg("a"), b = leg("b"), bad = leg("bad");
  DataObject *sources[] = {a.get(), b.get(), bad.get()};
  delete[] format.map(sources, 0, context);
  std::unique_ptr<DataObject *[]> const two(format.map(sources, 2, context));
  EXPECT_EQ(two[0]->getRefCount(), 0);
  SmartPtr<DataObject> const first(two[0]), second(two[1]);
  EXPECT_EQ(symbolOf(first.get()) + symbolOf(second.get()), "ab");
  EXPECT_EQ(failureOf<TransformException>([&] { format.map(sources, 3, context); }).text, "bad");
}

}  // namespace
}  // namespace tavrone
