#include "tests/pipeline/Walk.h"

namespace tavrone {
namespace {

struct Parser : InputParser {
  using InputParser::parse;
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &) override {
    static_cast<Line *>(object->getData())->set<"Text">(bytes.toASCIIString());
    walk(exceptionHandler, str(bytes));
  }
  ExternalObject *parse(Binary const &, TransformContext &) override { return nullptr; }
};
struct Validator : FieldsValidationRules {
  void validateHeader(DataObject *header) override { see(header, "h"); }
  void validateData(DataObject *header, DataObject *data) override { see(data, (textOf(header) + "d").c_str()); }
  void validateTrailer(DataObject *trailer) override { see(trailer, "t"); }
  void see(DataObject *part, char const *label) {
    seen += label + textOf(part);
    walk(exceptionHandler, textOf(part));
  }
  using FieldsValidationRules::exceptionHandler;
  std::string seen;
};
struct Message : AbstractExternalMessage {
  Message() : AbstractExternalMessage("test") {
    for (char const *name : {"Default", "Other"}) addValidator(name, validator);
  }
  using AbstractExternalMessage::addValidator;
  SmartPtr<ExternalObject> createExternalObject() override { return new ExternalObject(nullptr, new Line, nullptr); }
  InputParser *getInputParser() override { return &parser; }
  OutputWriter *getOutputWriter() override { return &writer; }

  Validator *const validator = new Validator;
  Parser parser;
  LineWriter writer;
};

SmartPtr<DataObject> body(tvstring const &text) {
  return new ExternalObject(nullptr, line(text).get(), nullptr);
}
std::string data(SmartPtr<DataObject> const &object) {
  return textOf(checkedCast<ExternalObject>(object.get())->getData());
}

struct ExternalMessage : testing::Test {
  ~ExternalMessage() noexcept override = default;
  SmartPtr<Message> held = new Message;
  Message &message = *held;
  TransformContext context;
};

TEST_F(ExternalMessage, RunsEachOperationInThreeForms) {
  auto const parsed = valueInThreeForms(
      message.parser.exceptionHandler, [&](auto t) { message.parse(Binary(t), context); },
      [&](auto t, auto *handler) { message.parse(Binary(t), handler, context); },
      [&](auto t) { return message.parse2(Binary(t), context); });
  EXPECT_EQ(data(parsed), "a!b!");
  auto const validated = valueInThreeForms(
      message.validator->exceptionHandler, [&](auto t) { message.validate(body(t), context); },
      [&](auto t, auto *handler) { message.validate(body(t), handler, context); },
      [&](auto t) { return message.validate2(body(t), context); });
  EXPECT_TRUE(validated.isNull());
  auto const bytes = valueInThreeForms(
      message.writer.exceptionHandler, [&](auto t) { message.serialize(body(t), context); },
      [&](auto t, auto *handler) { message.serialize(body(t), handler, context); },
      [&](auto t) { return message.serialize2(body(t), context); });
  EXPECT_EQ(str(bytes), "-a!b!-");
}

TEST_F(ExternalMessage, ChoosesTheFormByTheContext) {
  auto const object = body("abc");
  struct {
    char const *form;
    std::string bytes, parsed;
  } const cases[] = {{"", "-abc-", "-abc-"},
                     {"XML", "-abc-", "-abc-"},
                     {"tavrone", str(DataObjectIO::serialize(object.get())), "abc"},
                     {"xml", str(object->toXMLString()), "XML parsing is not supported"}};
  for (auto const &c : cases) {
    context.setProperty("message.format", c.form);
    RawMessage const raw = message.serializeMessage2(object, context).value;
    EXPECT_EQ(str(raw->getAsString()), c.bytes);
    EXPECT_EQ(str(message.serialize(object, context)), c.bytes);
    EXPECT_EQ(data(message.parse(raw, context)), c.bytes) << "raw messages have the wire form";
    std::string parsed;
    Failure const failure = failureOf<TransformException>([&] { parsed = data(message.parse(*raw, context)); });
    EXPECT_EQ(parsed + failure.text, c.parsed);
    EXPECT_EQ(failure.line, parsed.empty() ? 129 : 0);
    EXPECT_FAILURE(TransformException, message.parse2(*raw, context), failure.text);
  }
  EXPECT_FAILURE(TransformRuntimeException, message.parse(RawMessage(), context), "Unexpected null raw message");
}

TEST_F(ExternalMessage, ValidatesPartByPartOrRaises) {
  Validator refused;  // its name is taken, so it stays ours
  message.addValidator("Other", &refused);
  message.validate("Other", new ExternalObject(line("1").get(), line("2").get(), line("3").get()), context);
  message.validate(body("b"), context);
  EXPECT_EQ(message.validator->seen, "h11d2t3h--dbt-");
  std::tuple<char const *, SmartPtr<DataObject>, tvstring> const cases[] = {
      {"none", nullptr, "Validator by name 'none' is not defined for the message"},
      {"Other", nullptr, "Unexpected null object. Expected external object"},
      {"Other", new Line, "Unexpected object of type " + Class(typeid(Line)).getName() + ". Expected external object"}};
  for (auto const &[name, object, text] : cases) {
    Failure const failure =
        failureOf<TransformRuntimeException>([&, n = name, &o = object] { message.validate2(n, o, context); });
    EXPECT_EQ(failure.text + failure.source, str(text) + "cpp/AbstractExternalMessage");
    EXPECT_TRUE(tvstring(name) != "none" || failure.line == 210);
  }
}

// The texts of the parts, "-" for a null one; "?" behind a field that does not count as set.
std::string shown(ExternalObject const &object) {
  std::string text;
  DataObject *const parts[] = {object.getHeader(), object.getData(), object.getTrailer()};
  for (int i = 0; i < 3; ++i) {
    text += textOf(parts[i]);
    if (object.isNull(i)) text += "?";
  }
  return text;
}

TEST(ExternalObject, HandsOutItsPartsAsTheyAre) {
  SmartPtr<DataObject> const h = line("h"), d = line("d");
  ExternalObject object(h.get(), d.get(), nullptr);
  EXPECT_EQ(shown(ExternalObject()) + " " + shown(object), "-?-?-? hd-");
  EXPECT_EQ(object.getFieldVal("Data").get(), d.get());
  EXPECT_TRUE(object.getFieldVal("Trailer").isNull());
  object.setField(1, object.getFieldVal(1).get());
  object.setField(2, *line("t"));
  object.setNull("Header");
  EXPECT_EQ(shown(object), "h?dt");
  EXPECT_EQ(object.getField0(0), h.get());
  // A part changes its place, though nobody else holds it.
  object.setExternalObjects(object.getTrailer(), object.getHeader(), nullptr);
  EXPECT_EQ(shown(object), "th-");
  EXPECT_EQ(d->getRefCount(), 1);
}

TEST(ExternalObject, RefusesWhatIsNoPart) {
  ExternalObject object(nullptr, line("d").get(), nullptr);
  StringObject text("x");
  EXPECT_FAILURE(FieldNotFoundException, object.setField(3, text), "Field index out of bounds - 3");
  EXPECT_FAILURE(FieldNotFoundException, object.getField(-1), "Field index out of bounds - -1");
  EXPECT_THROW(object.setField(1, text), ClassCastException);
  EXPECT_FAILURE(TransformException, object.getField(1, text), "Cannot convert Object to String");
  EXPECT_EQ(shown(object), "-d-");
}

TEST(ExternalObject, CopiesItsPartsAndResetsThemInPlace) {
  ExternalObject object;
  object.setField(1, *line("d"));
  SmartPtr<ExternalObject> const clone(checkedCast<ExternalObject>(object.clone()));
  ExternalObject assigned(line("h").get(), nullptr, line("t").get());
  assigned = object;
  object.reset();
  EXPECT_TRUE(object.getData()->isNull(0));
  EXPECT_EQ(shown(*clone) + shown(assigned), "-?d-?-?d-?");
}

TEST(ExternalObject, ShowsThePartsThatAreThere) {
  EXPECT_EQ(ExternalObject(nullptr, line("d").get(), nullptr).toXMLString(),
            "<ExternalObject>\n\t<Line>\n\t\t<Text>d</Text>\n\t</Line>\n</ExternalObject>\n");
  EXPECT_EQ(ExternalObject(nullptr, nullptr, nullptr).toXMLString(2), "\t<ExternalObject>\n\t</ExternalObject>\n");
}

}  // namespace
}  // namespace tavrone
