#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

std::string steps;

void note(std::string const &step, DataObject *from, DataObject *to) {
  steps += step + textOf(from) + textOf(to) + " ";
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
    note("trailer:" + textOf(data), from, to);
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
    note("custom:" + textOf(data), from, to);
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
  registerClass<Custom>("mappings.Custom");
  SmartPtr<DataObject> const source = line("S");
  ExternalObject from(line("h").get(), line("d").get(), nullptr), to(line("H").get(), line("D").get(), line("T").get());
  EXPECT_EQ(mapped(Input(), from, *source), "body:dS ");
  EXPECT_EQ(mapped(Input("mappings.Custom"), from, *source), "body:dS custom:dS ");
  EXPECT_EQ(mapped(External("mappings.Custom"), from, to), "header:hH data:dD trailer:-T custom:hT ");
  EXPECT_EQ(mapped(ToExternal("mappings.Custom"), *source, to),
            "header:SH custom:SH data:SD custom:SD trailer:DST custom:DST ");
  EXPECT_EQ(Custom::made, 3);
}

TEST(MappingRules, RefuseACustomClassOfAnotherKindAtTheFirstMessage) {
  registerClass<StringObject>("mappings.Wrong");
  TransformContext context;
  SmartPtr<DataObject> const source = line("d");
  ExternalObject external(nullptr, source.get(), nullptr);
  auto const refusal = [&](auto &&rules, auto &from, auto &to) {
    tvstring errorType;
    EXPECT_EQ(failureOf<TransformException>([&] {
                try {
                  rules.mapFields(&from, &to, context);
                } catch (TransformException const &e) {
                  errorType = e.getErrorType();
                  throw;
                }
              }).shown(),
              "cpp/MappingRules:12:Error creating custom class instance - mappings.Wrong is not of expected type");
    return errorType;
  };
  EXPECT_EQ(refusal(Input("mappings.Wrong"), external, *source), "Mapping");
  EXPECT_EQ(refusal(NormalizedObjectMappingRules("mappings.Wrong"), *source, *source), "");
  EXPECT_EQ(refusal(External("mappings.Wrong"), external, external), "");
  EXPECT_EQ(refusal(ToExternal("mappings.Wrong"), *source, external), "");
}

// Maps a line to a new one, up to the line "bad".
struct Format : AbstractNormalizedObjectMappingFormat {
  Format() : AbstractNormalizedObjectMappingFormat("from", "to") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *source, TransformContext &) override {
    if (textOf(source) == "bad") throw TransformException("bad");
    return checkedCast<DataObject>(source->clone());
  }
};

TEST(AbstractNormalizedObjectMappingFormat, MapsAnArrayInOrderAndLosesNothing) {
  Format format;
  TransformContext context;
  SmartPtr<DataObject> const a = line("a"), b = line("b"), bad = line("bad");
  DataObject *sources[] = {a.get(), b.get(), bad.get()};
  delete[] format.map(sources, 0, context);
  std::unique_ptr<DataObject *[]> const two(format.map(sources, 2, context));
  EXPECT_EQ(two[0]->getRefCount(), 0);
  SmartPtr<DataObject> const first(two[0]), second(two[1]);
  EXPECT_EQ(textOf(first.get()) + textOf(second.get()), "ab");
  EXPECT_FAILURE(TransformException, format.map(sources, 3, context), "bad");
}

}  // namespace
}  // namespace tavrone
