#include "tests/core/AllocationCount.h"
#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

// What input and output formats did, in order; a step that is named in failAt fails.
std::string steps, failAt;

void step(std::string const &name) {
  steps += name + " ";
  if (name == failAt) raise<TransformException>(("at " + name).c_str(), "test", 1);
}

// What a call did, how it failed and in which phase.
template <class Call>
std::string traced(Call const &call) {
  steps.clear();
  try {
    call();
  } catch (TransformException const &e) {
    return steps + str(e.getMessage() + "/" + e.getPhase());
  }
  return steps;
}

struct Transaction : AbstractInternalMessage {
  struct Arrival : ValidationRules {
    void validate(DataObject *object) override { step(object->isNull(0) ? "null" : textOf(object)); }
  };
  Transaction() : AbstractInternalMessage("test") { addValidator("Default", new Arrival); }
  DataObject *createNormalizedObject() override { return new Line; }
};

// An empty payload fills nothing.
struct InputFormat : AbstractInputFormat {
  explicit InputFormat(char const *transaction) : AbstractInputFormat(transaction) {}
  void parseInput(InputSource &input, DataObject *object, TransformContext &) override {
    SmartPtr<DataObject> const held(object);
    tvstring const text = input.getAsBinary().toASCIIString();
    if (!text.empty()) static_cast<Line *>(object)->set<"Text">(text);
    walk(ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER, str(text));
  }
  DataObject *createInputObject() override { return new Line; }
  DataObject *kept() { return normalizedObject_.get(); }
};

TEST(InputFormat, ParsesEveryMessageIntoOneObject) {
  bindFactory<Transaction>("test.Transaction");
  EXPECT_EQ(traced([] { InputFormat("absent"); }), "Unable to lookup 'absent'/");
  SmartPtr<InputFormat> const format = new InputFormat("test.Transaction");
  TransformContext context;
  auto process = [&](tvstring const &payload) {
    StringInputSource source(payload);
    return traced([&] { format->processInput(source, context); });
  };
  failAt = "fail";
  EXPECT_EQ(process("one"), "one ");
  SmartPtr<DataObject> const kept = format->kept();
  StringInputSource source("aside"), bad("a!");
  SmartPtr<DataObject> const aside = format->handleInput(source, context);
  EXPECT_EQ(aside->getRefCount(), 1);
  EXPECT_EQ(traced([&] { format->handleInput(bad, context); }), "bad a!/");
  EXPECT_EQ(textOf(format->kept()) + textOf(aside.get()), "oneaside");
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(process("two!"), "bad two!/Input");
    ASSERT_EQ(process("fail"), "fail at fail/Internal Message");
    ASSERT_EQ(process(""), "null ");
  }
  EXPECT_EQ(format->kept(), kept.get());
  AllocationCount const allocations;
  source.getAsBinary().toASCIIString();
  int const ofText = allocations.soFar();
  format->processInput(source, context);
  EXPECT_EQ(allocations.soFar(), 2 * ofText) << "nothing but the text of the one field";
  LookupContextFactory::getLookupContext()->unbind("test.Transaction");
}

TEST(InputParser, TakesOnlyEmptyTextsForNull) {
  TransformContext context;
  InputParser::ensureNotNull(" ", nullptr, 0, context);
  InputParser::ensureNotNull0(" ", nullptr, 0, context);
  EXPECT_FAILURE(FieldParsingException, InputParser::ensureNotNull("", line("").get(), 0, context),
                 "Field 'Text' cannot be null.");
}

struct PlainFormat : AbstractOutputFormat {
  OutputWriter *getOutputWriter() override { return writer; }
  LineWriter lineWriter;
  OutputWriter *writer = &lineWriter;
};
struct PartsFormat : PlainFormat {
  DataObject *createHeader() override { return make("header"); }
  DataObject *createRecordData() override { return make("data"); }
  DataObject *createTrailer() override { return make("trailer"); }
  void mapHeader(DataObject *source, DataObject *target, TransformContext &) override { map(source, target, "h"); }
  void mapData(DataObject *source, DataObject *target, TransformContext &) override { map(source, target, "d"); }
  void mapTrailer(DataObject *, DataObject *data, DataObject *target, TransformContext &) override {
    map(data, target, "t");
  }
  static DataObject *make(char const *name) {
    step(name);
    return new Line;
  }
  static void map(DataObject *source, DataObject *target, char const *name) {
    SmartPtr<DataObject> const held(target);
    step(name);
    static_cast<Line *>(target)->set<"Text">((textOf(source) + name).c_str());
  }
};
struct Protocol : ContextOutputProtocol {
  OutputDevice *createDevice(DeviceInfo &info, TransformContext &context) override {
    step("device");
    return ContextOutputProtocol::createDevice(info, context);
  }
};

struct OutputFormat : testing::Test {
  OutputFormat() {
    LookupContextFactory::getLookupContext()->bind("device", new Protocol);
    context.createOutputContext();
    context.setProperty("input.source", "from");
    context.setProperty("output.format", "as");
    context.setProperty("output.device", "device");
    failAt.clear();
  }
  ~OutputFormat() noexcept override { LookupContextFactory::getLookupContext()->unbind("device"); }

  // What the format did and what stands in the device, if it made one.
  std::string write(IOutputFormat &format, tvstring const &text = "s") {
    std::string const trace = traced([&] { format.write(line(text).get(), context); });
    if (context.getOutputContext()->getOutputCount() == 0) return trace;
    ByteArrayOutputDevice &device = *context.getOutputContext()->getOutputDevices().back();
    DeviceInfo const &info = device.getDeviceInfo();
    EXPECT_EQ(info.getDeviceName() + info.getMessageIdentifier() + info.getOutputFormatName(), "devicefromas");
    std::string const written = device.getAsString();
    context.createOutputContext();
    return trace + written;
  }

  TransformContext context;
};

TEST_F(OutputFormat, OpensTheDeviceAfterEverythingElse) {
  SmartPtr<PartsFormat> const format = new PartsFormat;
  for (int i = 0; i < 1000; ++i) {
    failAt = "h";
    ASSERT_EQ(write(*format), "header h at h/Output");
    failAt = "trailer";
    ASSERT_EQ(write(*format), "header h data d trailer at trailer/Output");
    failAt = "device";
    ASSERT_EQ(write(*format), "header h data d trailer t device at device/Output");
    failAt = "";
    ASSERT_EQ(write(*format, "s!"), "header h data d trailer t bad s!h/Output");
    ASSERT_EQ(write(*format), "header h data d trailer t device shsdsdt");
  }
  context.setProperty("output.device", "");
  EXPECT_EQ(write(*format), "Device not available at /Output");
}

TEST_F(OutputFormat, HandsNullPartsToTheWriterByDefault) {
  SmartPtr<PlainFormat> const format = new PlainFormat;
  EXPECT_EQ(write(*format), "device ---");
  ExternalObject object(nullptr, line("d").get(), nullptr);
  EXPECT_EQ(str(format->lineWriter.writeExternalMessage(object, context)->getAsString()), "-d-");

  OutputWriter other;
  tvstring const target = Class(typeid(SimpleOutputWriter)).getName();
  for (auto const &[writer, text] : {std::pair<OutputWriter *, tvstring>(nullptr, "Cannot cast NULL to " + target),
                                     {&other, "Cannot cast " + Class(typeid(other)).getName() + "* to " + target}}) {
    format->writer = writer;
    EXPECT_FAILURE(ClassCastException, write(*format), str(text));
  }
}

TEST_F(OutputFormat, WritesTheSourceAsXmlBehindItsDevice) {
  struct Source : Line {
    tvstring toXMLString() override {
      step("xml");
      return "<s/>";
    }
    using Line::toXMLString;
  };
  SmartPtr<IOutputFormat> const format = new SimpleXMLOutputFormat;
  EXPECT_EQ(write(*format), "device " + str(line("s")->toXMLString()));
  SmartPtr<DataObject> const source = new Source;
  EXPECT_EQ(traced([&] { format->write(source.get(), context); }), "device xml ");
}

}  // namespace
}  // namespace tavrone
