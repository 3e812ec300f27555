#include "tavrone/dataobject/DataObjectXML.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>

#include "examples/messages/GeneratedOrder.h"
#include "examples/messages/Order.h"
#include "tests/Text.h"
#include "tests/dataobject/Orders.h"

namespace tavrone {
namespace {

using examples::GeneratedLeg;
using examples::GeneratedOrder;

TEST(DataObjectXML, MakesTextSafe) {
  std::pair<std::string, char const *> const cases[] = {{"", ""},
                                                        {"a<b", "a&lt;b"},
                                                        {"it's", "it's"},
                                                        {"\"&>\t\r\n\xE9", "&quot;&amp;&gt;\t\r\n\xE9"},
                                                        {std::string("\0\x01\x1F\x20", 4), "&#0;&#1;&#31; "},
                                                        {"&lt;", "&amp;lt;"}};
  for (auto const &[text, safe] : cases)
    EXPECT_EQ(str(DataObjectXML::fixXMLCharData(tvstring(text.data(), text.size()))), safe);

  for (size_t length = 1; length <= 50; ++length) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string text(length, 'x');
      size_t const place = static_cast<size_t>(byte * 7) % length;
      text[place] = static_cast<char>(byte);
      bool const isControl = byte < 32 && byte != '\t' && byte != '\n' && byte != '\r';
      bool const isMark = byte != 0 && std::strchr("<>&'\"", byte) != nullptr;
      tvstring const value(text.data(), length);
      EXPECT_EQ(DataObjectXML::hasNonXMLCharacters(value), isControl || isMark) << byte;
      if (isControl) text.replace(place, 1, "&#" + std::to_string(byte) + ";");
      if (byte == '&') text.replace(place, 1, "&amp;");
      if (byte < '"' || byte == '&' || byte > '>') {
        EXPECT_EQ(str(DataObjectXML::fixXMLCharData(value)), text);
      }
    }
  }
  tvstring const clean("nothing to do");
  EXPECT_EQ(DataObjectXML::fixXMLCharData(clean).data(), clean.data());
}

TEST(DataObjectXML, RendersEveryKindOfField) {
  SmartPtr<DataObject> const orders[] = {new GeneratedOrder, new examples::Order,
                                         new GenericDataObject(examples::Order::typeMetaInfo(), false)};
  for (SmartPtr<DataObject> const &order : orders) {
    EXPECT_EQ(str(order->toXMLString()), "<Order>\n</Order>\n");
    DataObjectSection *legs = order->getSection("Legs");
    EXPECT_EQ(str(order->toXMLString()), "<Order>\n</Order>\n");
    order->setField("OrderID", StringObject("a long text that has one < in it"));
    setFields(*order, 3, CharObject('&'), IntObject(INT_MIN), LongObject(LLONG_MIN), DoubleObject(412.35),
              FloatObject(-0.5F), BigDecimalObject("-1E+3"), DateObject(DateTime(2026, 2, 3, 1, 1, 1, 1)),
              DateObject(DateTime(2026, 2, 3, 4, 5, 6, 0)), BoolObject(false), BinaryObject(Binary("\x01\xFF", 2)));
    for (int ratio : {0, 1}) addLeg(*order, ratio);
    std::string const fields =
        "\t<OrderID>a long text that has one &lt; in it</OrderID>\n\t<Side>&amp;</Side>\n"
        "\t<Quantity>-2147483648</Quantity>\n\t<ExecutedQuantity>-9223372036854775808</ExecutedQuantity>\n"
        "\t<Price>412.35</Price>\n\t<Rate>-0.5</Rate>\n\t<Notional>-1000</Notional>\n"
        "\t<TradeDate>2026-02-03</TradeDate>\n\t<TransactTime>2026-02-03T04:05:06</TransactTime>\n"
        "\t<AllOrNone>false</AllOrNone>\n\t<Signature>01FF</Signature>\n";
    std::string const section =
        "\t<Legs>\n\t\t<Ratio>0</Ratio>\n\t</Legs>\n\t<Legs>\n\t\t<Ratio>1</Ratio>\n\t</Legs>\n";
    EXPECT_EQ(str(order->toXMLString()), "<Order>\n" + fields + section + "</Order>\n");
    EXPECT_EQ(str(order->toXMLStringImpl(1)), fields + section);
    auto &list = dynamic_cast<AbstractDataObjectSection &>(*legs);
    EXPECT_EQ(str(list.toXMLString()), section);
    EXPECT_EQ(str(list.toXMLString("L", 0)), "<L>\n\t<Ratio>0</Ratio>\n</L>\n<L>\n\t<Ratio>1</Ratio>\n</L>\n");
    EXPECT_EQ(str(legs->getElement(1)->toXMLString(2)), "\t\t<Ratio>1</Ratio>\n");
  }
}

// The text of what the accessors give, even where the metadata says another type.
TEST(DataObjectXML, RendersTheValuesOfMembersOfOtherTypes) {
  struct Odd : AbstractDataObject {
    explicit Odd(DataObjectMetaInfo *type) : AbstractDataObject(type, flags, nullptr) {}
    Object *clone() const override { return nullptr; }
    Object *getField0(int index, Object *out) const override {
      if (out == nullptr) return index == 0 ? static_cast<Object *>(new LongObject(5000000000)) : new DoubleObject(2.5);
      index == 0 ? out->setLong(5000000000) : out->setDouble(2.5);
      return out;
    }
    bool flags[2] = {true, true};
  };
  char const *names[] = {"Long", "Double"}, *types[] = {"Integer", "Long"};
  DataObjectMetaInfo type("Odd", names, types, 2);
  SmartPtr<Odd> const odd(new Odd(&type));
  EXPECT_EQ(str(odd->toXMLString()), "<Odd>\n\t<Long>5000000000</Long>\n\t<Double>2.5</Double>\n</Odd>\n");
}

TEST(DataObjectXML, IndentsAsDeepAsTold) {
  SmartPtr<DataObject> const leg(new GeneratedLeg);
  leg->setField("Symbol", StringObject("<"));
  for (int level : {INT_MIN, -1, 0, 1, 2, 300}) {
    std::string const inner(static_cast<size_t>(std::max(level, 0)), '\t');
    std::string const outer(static_cast<size_t>(std::max(level, 1) - 1), '\t');
    EXPECT_EQ(str(leg->toXMLString(level)), outer + "<Leg>\n" + inner + "<Symbol>&lt;</Symbol>\n" + outer + "</Leg>\n");
  }
}

}  // namespace
}  // namespace tavrone
