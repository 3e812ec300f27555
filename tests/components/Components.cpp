// A library such as generated code makes: a component of every kind, bound and registered while it loads. It is not
// linked against the runtime, so that its static objects may well be made before the runtime's.

#include "tests/components/Components.h"

namespace tavrone {
namespace {

// A message type that does no more than a look-up asks for.
template <class Base>
struct Message : Base {
  using Record = SmartPtr<DataObject>;
  using Objects = Result<Record>;

  Record createObject() override { return nullptr; }
  Record parse(Binary const &, TransformContext &) override { return nullptr; }
  Record parse(RawMessage const &, TransformContext &) override { return nullptr; }
  Record parse(InputSource &, TransformContext &) override { return nullptr; }
  Objects parse2(Binary const &, TransformContext &) override { return {}; }
  Objects parse2(InputSource &, TransformContext &) override { return {}; }
  void validate(tvstring const &, Record const &, TransformContext &) override {}
  void validate(Record const &, TransformContext &) override {}
  Objects validate2(tvstring const &, Record const &, TransformContext &) override { return {}; }
  Objects validate2(Record const &, TransformContext &) override { return {}; }
  Binary serialize(Record const &, TransformContext &) override { return {}; }
  Result<Binary> serialize2(Record const &, TransformContext &) override { return {}; }
  RawMessage serializeMessage(Record const &, TransformContext &) override { return {}; }
  Result<RawMessage> serializeMessage2(Record const &, TransformContext &) override { return {}; }
};

struct ExternalMessage : Message<IExternalMessage> {
  SmartPtr<ExternalObject> createExternalObject() override { return new ExternalObject; }
};

struct InternalMessage : Message<IInternalMessage> {
  DataObject *createNormalizedObject() override { return nullptr; }
  void handleNormalizedObject(DataObject *, TransformContext &) override {}
  Record preprocess(Record const &object, TransformContext &) override { return object; }
  Objects preprocess2(Record const &, TransformContext &) override { return {}; }
  Objects process2(tvstring const &, Record const &, TransformContext &) override { return {}; }
  Record postprocess(Record const &object, TransformContext &) override { return object; }
  Record process(tvstring const &, Record const &object, TransformContext &) override { return object; }
  Objects postprocess2(Record const &, TransformContext &) override { return {}; }
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

struct Flow : IMessageFlow {
  SmartPtr<DataObject> run(SmartPtr<DataObject> const &object, TransformContext &) override { return object; }
  ObjectList run(InputSource &, TransformContext &) override { return {}; }
  ObjectList run(ObjectList const &inputs, TransformContext &) override { return inputs; }
  Result<SmartPtr<DataObject>> run2(SmartPtr<DataObject> const &, TransformContext &) override { return {}; }
  Result<ObjectList> run2(ObjectList const &, TransformContext &) override { return {}; }
  std::vector<OutputPortDef> getOutputPorts() override { return {}; }
};

// Reads "<id> <quantity>" into a record, writes and reads it in the stored form, and leaves its XML in the context.
struct InputFormat : IInputFormat {
  DataObject *handleInput(InputSource &input, TransformContext &) override {
    tvstring const text(input.getAsBinary().toString());
    size_t const space = text.find(' ');
    SmartPtr<examples::Order> const order = new examples::Order;
    order->setField("OrderID", StringObject(text.substr(0, space)));
    order->setField("Quantity", IntObject(Parsing::parseInt(text.substr(space + 1))));
    order->setField("Notional", BigDecimalObject(BigDecimal("12.50")));
    auto *const copy = new examples::Order;
    DataObjectIO::parse(copy, DataObjectIO::serialize(order.get()));
    return copy;
  }
  void processInput(InputSource &input, TransformContext &context) override {
    SmartPtr<DataObject> const order = handleInput(input, context);
    context.setProperty("xml", order->toXMLString());
  }
};

struct OutputFormat : IOutputFormat {
  void setOutputDevice(OutputDevice *) override {}
  void write(DataObject *, TransformContext &) override {}
};

struct Rule : ICustomClass {
  tvstring toString() const override { return "a rule"; }
};

UserClass const rule("components.Rule", new Factory<Rule>);
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
