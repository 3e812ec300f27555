#include "tavrone/dataobject/DataObjectIO.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"
#include "tests/Cases.h"
#include "tests/Failure.h"
#include "tests/core/AllocationCount.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;
using examples::GeneratedOrder;

std::string hexOf(ByteBuffer const &buffer) {
  return str(Binary(buffer.str(), static_cast<size_t>(buffer.length())).toHexString());
}
std::string hexOf(DataObject *object) {
  ByteBuffer out;
  DataObjectIO::write(object, out);
  return hexOf(out);
}
Binary bytes(std::string const &hex) {
  return Binary::fromHexString(tvstring(hex.data(), hex.size()));
}

void fill(DataObject &order) {
  setFields(order, 0, StringObject("ab"), StringObject("\xE9!"), StringObject(), CharObject('\xE9'), IntObject(-2),
            LongObject(0x0102030405060708), DoubleObject(1.5), FloatObject(-2), BigDecimalObject("-120.50"),
            DateObject(DateTime(2026, 2, 3, 0, 0, 0, 0)), DateObject(DateTime(-1, 12, 31, 23, 59, 58, 999)),
            BoolObject(true), BinaryObject(Binary("\x01\xFF", 2)));
  for (int ratio : {0, 1}) addLeg(order, ratio);
}

constexpr char FILLED[] =
    "010261620202E9FFFFFF0F21030004E9FFFFFF0F"
    "05FFFFFFFE060102030405060708073FF800000000000008C000000009062D3132302E35"
    "0AEA0F02030BFFFFFFFF0F0C1F173B3AE7070C04747275650D0430314646"
    "0F0202000000000002000000010000";

DataObjectMetaInfo *genericOrder() {
  static DataObjectMetaInfo *const type = [] {
    auto *leg = new DataObjectMetaInfo(*GeneratedLeg::metaInfoOfType());
    std::vector<FieldMetaInfo *> fields;
    DataObjectMetaInfo const &order = *GeneratedOrder::metaInfoOfType();
    for (int i = 0; i < GeneratedOrder::LEGS; ++i) fields.push_back(order.getFieldMetaInfo(i));
    SectionMetaInfo legs(leg, "Legs", 0, -1);
    SectionMetaInfo owner(leg, "Owner", "DataObject", 0, 1, false);
    FieldMetaInfo stamp("Stamp", "ISODateTime", true);
    fields.insert(fields.end(), {&legs, &owner, &stamp});
    return new DataObjectMetaInfo("Order", fields.data(), static_cast<int>(fields.size()));
  }();
  return type;
}

enum class Form { GENERATED, DECLARED, GENERIC };
constexpr Form FORMS[] = {Form::GENERATED, Form::DECLARED, Form::GENERIC};

SmartPtr<DataObject> newOrder(Form form) {
  if (form == Form::GENERIC) return SmartPtr<DataObject>(new GenericDataObject(genericOrder(), false));
  return form == Form::DECLARED ? SmartPtr<DataObject>(new examples::Order) : SmartPtr<DataObject>(new GeneratedOrder);
}

// A record that holds another one itself, when it has one.
class Envelope : public AbstractDataObject {
 public:
  explicit Envelope(bool hasLeg) : AbstractDataObject(metaInfoOfType(), flags_, nullptr) {
    if (hasLeg) leg = new GeneratedLeg;
    setNotNull(0);
  }
  ~Envelope() noexcept(false) override = default;
  SmartPtr<GeneratedLeg> leg;

 protected:
  using AbstractDataObject::getField0;
  Object *getField0(int, Object *) const override { return leg.get(); }

 private:
  static DataObjectMetaInfo *metaInfoOfType() {
    static char const *names[] = {"Leg"};
    static char const *types[] = {"DataObject"};
    static DataObjectMetaInfo type("Envelope", names, types, 1);
    return &type;
  }
  bool flags_[1];
};

// Records of classes that only know how to make wrappers, and take no notice of one that they are to fill.
class Maker : public AbstractDataObject {
 public:
  explicit Maker(DataObjectSection *parent = nullptr) : AbstractDataObject(metaInfoOfType(), flags_, parent) {}
  ~Maker() noexcept(false) override = default;
  static bool fillsNothing;  // else it fails
  int const number = 7;
  DataObjectSectionImpl parts{this, "Parts", 0, -1};

  DataObject *createSectionElement(tvstring const &, DataObjectSection *section) const override {
    return new Maker(section);
  }

 protected:
  void setField0(int, Object const *value) override { EXPECT_EQ(value->getInt(), number); }
  Object *getField0(int index, Object *out) const override {
    return fillsNothing ? getField0(index) : AbstractDataObject::getField0(index, out);
  }
  Object *getField0(int index) const override {
    if (index == 0) return new IntObject(number);
    return new SectionObject(const_cast<DataObjectSectionImpl *>(&parts), false);
  }

 private:
  static DataObjectMetaInfo *metaInfoOfType() {
    static char const *names[] = {"Number", "Parts"};
    static char const *types[] = {"Integer", "Section"};
    static DataObjectMetaInfo type("Maker", names, types, 2);
    return &type;
  }
  bool flags_[2];
};
bool Maker::fillsNothing = false;

TEST(DataObjectIO, FastUnsignedIntsTakeOneToFiveBytes) {
  expectEach({"0 -> 00", "7F -> 7F", "80 -> 8001", "3FFF -> FF7F", "4000 -> 808001", "1FFFFF -> FFFF7F",
              "200000 -> 80808001", "FFFFFFF -> FFFFFF7F", "10000000 -> 8080808001", "FFFFFFE9 -> E9FFFFFF0F"},
             [](auto &input) {
               unsigned value = 0;
               input >> std::hex >> value;
               ByteBuffer buffer;
               DataObjectIO::writeFastUnsignedInt(buffer, value);
               std::string const hex = hexOf(buffer);
               EXPECT_EQ(DataObjectIO::readFastUnsignedInt(buffer), value);
               EXPECT_FALSE(buffer.hasMore());
               return hex;
             });
  ByteBuffer endless("\xFF\xFF\xFF\xFF\xFF\x01", 6);  // five bytes at most, whatever the fifth says
  EXPECT_EQ(DataObjectIO::readFastUnsignedInt(endless), 0xFFFFFFFF);
  EXPECT_EQ(DataObjectIO::readFastUnsignedInt(endless), 1U);
}

TEST(DataObjectIO, FixedWidthsAndDatesReadBack) {
  ByteBuffer buffer;
  DataObjectIO::writeIntBigEndian(buffer, INT_MIN);
  DataObjectIO::writeLongBigEndian(buffer, LLONG_MAX);
  DataObjectIO::writeFloatBigEndian(buffer, 1.5F);
  DataObjectIO::writeDoubleBigEndian(buffer, -0.0);
  DateTime const moment(2026, 11, 21, 20, 5, 30, 7);
  DataObjectIO::writeCompactDateTime(buffer, moment, true, false);
  DataObjectIO::writeCompactDateTime(buffer, moment, false, true);
  EXPECT_EQ(hexOf(buffer), "800000007FFFFFFFFFFFFFFF3FC000008000000000000000EA0F0B1514051E07");
  EXPECT_EQ(DataObjectIO::readIntBigEndian(buffer), INT_MIN);
  EXPECT_EQ(DataObjectIO::readLongBigEndian(buffer), LLONG_MAX);
  EXPECT_EQ(DataObjectIO::readFloatBigEndian(buffer), 1.5F);
  EXPECT_TRUE(std::signbit(DataObjectIO::readDoubleBigEndian(buffer)));
  EXPECT_EQ(DataObjectIO::readCompactDateTime(buffer, true, false), DateTime(2026, 11, 21, 0, 0, 0, 0));
  EXPECT_EQ(DataObjectIO::readCompactDateTime(buffer, false, true), DateTime(1970, 1, 1, 20, 5, 30, 7));
  EXPECT_FAILURE(TransformException, DataObjectIO::readIntBigEndian(buffer), "Out of bounds");
}

TEST(DataObjectIO, StringsOfAnyBytesReadBack) {
  for (size_t length = 0; length <= 40; ++length) {
    for (size_t high = 0; high <= length; ++high) {  // none at the last
      std::string text(length, 'x');
      if (high < length) text[high] = '\xE9';
      ByteBuffer buffer(1);
      DataObjectIO::writeString(buffer, tvstring(text.data(), length));
      std::string expected(1, static_cast<char>(length));
      for (char c : text) expected += c == 'x' ? std::string("x") : std::string("\xE9\xFF\xFF\xFF\x0F");
      EXPECT_EQ(std::string(buffer.str(), static_cast<size_t>(buffer.length())), expected);
      EXPECT_EQ(DataObjectIO::readString(buffer), tvstring(text.data(), length));
    }
  }
}

TEST(DataObjectIO, ValuesAreWrittenByTheTypeText) {
  struct {
    Object const &value;
    char const *type, *hex;
  } const cases[] = {
      {LongObject(1), "Integer", "00000001"},
      {DateObject(DateTime(2026, 2, 3, 4, 5, 6, 7)), "TimeOnly", "04050607"},
      {BoolObject(false), "Boolean", "0566616C7365"},
      {BigIntegerObject("120"), "BigInteger", "03313230"},
      {BinaryObject(Binary("\xAB", 1)), "Binary", "024142"},
      {ISODateObject(DateTime(2026, 2, 3, 4, 5, 6, 7)), "ISOTime", "17323032362D30322D30335430343A30353A30362E303037"},
      {IntObject(5), "Price", "0135"}};
  for (auto const &c : cases) {
    ByteBuffer buffer;
    DataObjectIO::writeField(buffer, const_cast<Object *>(&c.value), c.type);
    EXPECT_EQ(hexOf(buffer), c.hex) << c.type;
  }
  // Records and sections by their class, whatever the text says.
  GeneratedLeg leg;
  leg.setField(0, StringObject("a"));
  GeneratedOrder order;
  addLeg(order, 1);
  SmartPtr<Object> const legs(order.getField(order.getFieldIndex("Legs")));
  ByteBuffer parts, expected;
  for (char const *type : {"Integer", "DataObject"}) DataObjectIO::writeField(parts, &leg, type);
  DataObjectIO::writeField(parts, legs.get(), "Section");
  DataObjectIO::write(order.getSection("Legs")->getElement(0), expected);
  EXPECT_EQ(hexOf(parts), hexOf(&leg) + hexOf(&leg) + "01" + hexOf(expected));
  ByteBuffer buffer;
  EXPECT_EQ(failureOf<TransformException>([&] {
              StringObject text("1");
              DataObjectIO::writeField(buffer, &text, "Integer");
            }).text,
            "Cannot convert String to Integer");
  EXPECT_EQ(buffer.length(), 0);
}

TEST(DataObjectIO, RecordsOfEveryClassAreStoredAlike) {
  for (Form form : FORMS) {
    SmartPtr<DataObject> const order = newOrder(form);
    EXPECT_EQ(hexOf(order.get()), "00");
    fill(*order);
    EXPECT_EQ(hexOf(order.get()), FILLED) << static_cast<int>(form);
    SmartPtr<DataObject> const copy = newOrder(form);
    for (int i = 0; i < 2; ++i) DataObjectIO::parse(copy.get(), bytes(FILLED));
    // A "Binary" is read as its own hexadecimal text.
    EXPECT_EQ(copy->getFieldVal("Signature")->getBinary(), Binary("01FF", 4));
    copy->setField("Signature", BinaryObject(Binary("\x01\xFF", 2)));
    EXPECT_EQ(hexOf(copy.get()), FILLED) << static_cast<int>(form);
  }
  std::vector<char const *> const names(128, "f"), types(128, "Integer");
  DataObjectMetaInfo wide("Wide", const_cast<char const **>(names.data()), const_cast<char const **>(types.data()),
                          128);
  SmartPtr<DataObject> const last(new GenericDataObject(&wide, false));
  last->setField(127, IntObject(1));
  EXPECT_EQ(hexOf(last.get()), "80010000000100");
}

TEST(DataObjectIO, ClassesNeedOnlyMakeWrappers) {
  for (bool fillsNothing : {false, true}) {
    Maker::fillsNothing = fillsNothing;
    SmartPtr<Maker> const record(new Maker), copy(new Maker);
    for (int i : {0, 1}) {
      record->setNotNull(i);
      copy->setNotNull(i);
    }
    record->parts.addNewElement()->setField(0, IntObject(7));
    EXPECT_EQ(hexOf(record.get()), "0100000007020101000000070000");
    EXPECT_EQ(str(record->toXMLString()),
              "<Maker>\n\t<Number>7</Number>\n\t<Parts>\n\t\t<Number>7</Number>\n\t</Parts>\n</Maker>\n");
    DataObjectIO::parse(copy.get(), DataObjectIO::serialize(record.get()));
    EXPECT_EQ(copy->parts.getElementCount(), 1);
  }
}

TEST(DataObjectIO, NestedRecordsNeedAnObjectToReadInto) {
  SmartPtr<Envelope> const full(new Envelope(true)), empty(new Envelope(false));
  EXPECT_EQ(hexOf(empty.get()), "00");  // counts as set, reads null
  full->leg->setRatio(7);
  std::string const stored = hexOf(full.get());
  EXPECT_EQ(stored, "0102000000070000");
  full->leg->setPrice(1);
  DataObjectIO::parse(full.get(), bytes(stored));
  EXPECT_EQ(full->leg->getRatio(), 7);
  EXPECT_TRUE(full->leg->isNull(GeneratedLeg::PRICE));
  // Nothing is read without one, so that the stream no longer fits.
  EXPECT_FAILURE(FieldNotFoundException, DataObjectIO::parse(empty.get(), bytes(stored)),
                 "Field at index 1 not defined");

  SmartPtr<DataObject> const generic = newOrder(Form::GENERIC);
  DataObjectIO::parse(generic.get(), bytes("100102000000070000"));
  EXPECT_EQ(hexOf(generic.get()), "100102000000070000");
  EXPECT_FAILURE(FieldNotFoundException, DataObjectIO::parse(generic.get(), bytes("1002000000")),
                 "Cannot add more than one element to this section");
}

TEST(DataObjectIO, BrokenStreamsFail) {
  constexpr char const *END = "Out of bounds";
  for (Form form : FORMS) {
    SmartPtr<DataObject> const order = newOrder(form);
    Binary const whole = bytes(FILLED);
    for (int length = 0; length < static_cast<int>(whole.length()); ++length) {
      std::unique_ptr<char[]> const part(new char[static_cast<size_t>(length)]);  // for the sanitizer's guard behind it
      std::copy_n(whole.data(), length, part.get());
      Failure const failure =
          failureOf<TransformException>([&] { DataObjectIO::parse(order.get(), part.get(), length); });
      EXPECT_EQ(failure.text, END) << length;
      EXPECT_EQ(failure.source, "cpp/ByteBuffer");
    }
    std::pair<char const *, char const *> const cases[] = {
        {"01FFFFFFFF0F", END},
        {"01016100FF", "Unexpected characters at the end of serialzied message"},
        {"0FFFFFFFFF0F0000", END},
        {"0F8080808008", END},
        {"0C02746F00", "Cannot convert to to boolean"},
        {"0901787800", "'m_apm_set_string', Non-digit char found in parse"}};
    for (auto const &[hex, text] : cases)
      EXPECT_EQ(failureOf<TransformException>([&, h = hex] { DataObjectIO::parse(order.get(), bytes(h)); }).text, text);
    // What cannot be read leaves the value that is there.
    SmartPtr<DataObject> const kept = newOrder(form);
    EXPECT_FAILURE(TransformException, DataObjectIO::parse(kept.get(), bytes("0C04747275650C02747200000000")),
                   "Cannot convert tr to boolean");
    EXPECT_EQ(hexOf(kept.get()), "0C047472756500");
    EXPECT_FAILURE(FieldNotFoundException, DataObjectIO::parse(order.get(), bytes("FFFFFFFF0F")),
                   "Field at index -2 not defined");
    EXPECT_FAILURE(TransformException, DataObjectIO::parse(order.get(), "", -1), END);
  }
  SmartPtr<DataObject> const order = newOrder(Form::GENERIC);
  EXPECT_FAILURE(TransformException, DataObjectIO::parse(order.get(), bytes("11016100")),
                 "Cannot convert 'a' to ISODateTime");
  // Left over bytes are found when the record is filled already.
  SmartPtr<GeneratedOrder> const filled(new GeneratedOrder);
  EXPECT_EQ(failureOf<TransformException>([&] { DataObjectIO::parse(filled.get(), bytes("050000000700FF")); }).source,
            "cpp/DataObjectIO");
  EXPECT_EQ(filled->getQuantity(), 7);
}

TEST(DataObjectIO, NestsFiveHundredDeep) {
  DataObjectMetaInfo type("Node", nullptr, nullptr, 0);
  SectionMetaInfo children(&type, "Children", 0, -1);
  FieldMetaInfo *fields[] = {&children};
  type = DataObjectMetaInfo("Node", fields, 1);
  auto const nested = [](int depth) {
    std::string hex;
    for (int i = 0; i < depth; ++i) hex += "0101";
    return hex + std::string(2 * static_cast<size_t>(depth) + 2, '0');
  };
  SmartPtr<DataObject> const node(new GenericDataObject(&type, false));
  DataObjectIO::parse(node.get(), bytes(nested(500)));
  EXPECT_EQ(hexOf(node.get()), nested(500));
  Failure const failure = failureOf<TransformException>([&] { DataObjectIO::parse(node.get(), bytes(nested(501))); });
  EXPECT_EQ(failure.text, "Nesting too deep");
  EXPECT_EQ(failure.source, "cpp/DataObjectIO");
  ByteBuffer out;
  out.append('x');
  EXPECT_FAILURE(TransformException, DataObjectIO::write(node.get(), out), "Nesting too deep");
  EXPECT_EQ(out.length(), 1);
}

TEST(DataObjectIO, AllocatesNothingWhereThereIsRoom) {
  for (Form form : {Form::GENERATED, Form::DECLARED}) {
    SmartPtr<DataObject> const order = newOrder(form);
    fill(*order);
    ByteBuffer out(1000);
    AllocationCount const allocations;
    DataObjectIO::write(order.get(), out);
    EXPECT_EQ(allocations.soFar(), 0);
  }
  Binary const stored = bytes(FILLED);
  SmartPtr<DataObject> const order = newOrder(Form::DECLARED);
  auto const parse = [&] {
    order->reset();
    DataObjectIO::parse(order.get(), stored);
  };
  for (int i = 0; i < 2; ++i) parse();
  DataObject const *leg = order->getSection("Legs")->getElement(0);
  AllocationCount const allocations;
  parse();
  EXPECT_EQ(allocations.soFar(), 0);
  EXPECT_EQ(order->getSection("Legs")->getElement(0), leg);
  // What shares a text with the record keeps it.
  tvstring const kept = order->getFieldVal("OrderID")->getString();
  DataObjectIO::parse(order.get(), bytes("0102787900"));
  EXPECT_EQ(kept, "ab");
}

}  // namespace
}  // namespace tavrone
