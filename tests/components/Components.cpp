// A library such as generated code makes: a component of every kind, bound and registered while it loads. It is not
// linked against the runtime, so that its static objects may well be made before the runtime's.

#include "tests/components/Components.h"

namespace tavrone {
namespace {

struct ExternalMessage : AbstractExternalMessage {
  ExternalMessage() : AbstractExternalMessage("external") {}
  SmartPtr<ExternalObject> createExternalObject() override { return new ExternalObject; }
  InputParser *getInputParser() override { return nullptr; }
  OutputWriter *getOutputWriter() override { return nullptr; }
};

struct InternalMessage : AbstractInternalMessage {
  InternalMessage() : AbstractInternalMessage("internal") {}
  DataObject *createNormalizedObject() override { return new examples::Order; }
};

struct Mapping : AbstractMessageMapping {
  Mapping() : AbstractMessageMapping("mapping") {}
  SmartPtr<DataObject> map(SmartPtr<DataObject> const &source, TransformContext &) override { return source; }
};

struct NormalizedMapping : AbstractNormalizedObjectMappingFormat {
  NormalizedMapping() : AbstractNormalizedObjectMappingFormat("from", "to") {}
  using AbstractNormalizedObjectMappingFormat::map;
  DataObject *map(DataObject *, TransformContext &) override { return new examples::Order; }
};

struct Flow : AbstractMessageFlow {
  Flow() : AbstractMessageFlow("flow") {}
  SmartPtr<DataObject> execute(SmartPtr<DataObject> const &object, TransformContext &) override { return object; }
  ObjectList execute(ObjectList const &inputs, TransformContext &) override { return inputs; }
  DataObject *getVariables() override { return nullptr; }
};

struct InputFormat : IInputFormat {
  DataObject *handleInput(InputSource &, TransformContext &) override { return new examples::Order; }
  void processInput(InputSource &, TransformContext &) override {}
};

struct OutputFormat : IOutputFormat {
  void setOutputDevice(OutputDevice *) override {}
  void write(DataObject *, TransformContext &) override {}
};

struct Rule : ICustomClass {
  tvstring toString() const override { return "a rule"; }
};

UserClass const rule("components.Rule", new FactoryOf<Rule>);
Registrar const components([] {
  bindFactory<ExternalMessage>("components.external");
  bindFactory<InternalMessage>("components.internal");
  bindFactory<Mapping>("components.mapping");
  bindFactory<NormalizedMapping>("components.normalizedMapping");
  bindFactory<Flow>("components.flow");
  bindFactory<InputFormat>("components.input");
  bindFactory<OutputFormat>("components.output");
  LookupContextFactory::getLookupContext()->bind("components.protocol", new ContextOutputProtocol);
  LookupContextFactory::getLookupContext()->bind("components.text", new StringObject(runtimeAtWork()));
});

}  // namespace
}  // namespace tavrone
