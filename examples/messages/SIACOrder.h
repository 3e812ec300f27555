#pragma once

// An order as a SIAC Canonical message. On the wire, with | for SOH, an order of two legs and one of none:
//
//   10001=Canonical|10002=...|25001=32|10003=ORD|10005=DESK|10006=FLOOR|10007=7|11001=AB-0042|11002=SPREAD|11003=B|
//     11004=300|11005=2.75|11006=20240315-14:30:00|11007=N|
//     11020={|11021=F|11022=1|11023=12.125|26999= |11021=KO|11022=-2|11023=59.875|26999= |26000=}|10=123|
//   10001=Canonical|10002=...|25001=33|10003=ORD|10007=8|11001=AB-0043|11002=IBM|...|11007=Y|
//
// A group is bracketed and each of its instances is ended by a tag of its own. The second message has no CheckSum, and
// its indicator 25001 says so.

#include "examples/messages/OrderFormats.h"
#include "examples/messages/TagValueMessage.h"

namespace examples {

struct SIACWire {
  using InputParser = SIACCanonicalInputParser;
  using Writer = SIACCanonicalOutputWriter;
  using Header = SIACCanonicalHeader;
  using Tokenizer = SIACCanonicalTokenizer;
  using Type = SIACCanonicalType;
  using WriterException = SIACCanonicalWriterException;

  static constexpr char const *BODY_LENGTH_CODE = "SIAC-01";
  static constexpr char const *CHECK_SUM_CODE = "SIAC-02";

  static int bodyLengthOf(SIACCanonicalHeader const &header) {
    return header.isNull(SIACCanonicalHeaderLayout::BODY_LENGTH) ? -1 : Parsing::parseInt(header.getCFT_BodyLength());
  }
  static bool hasCheckSum(TagValueTrailer const &trailer) {
    return trailer.isNull<"CheckSumIndicator">() || trailer.get<"CheckSumIndicator">() != "33";
  }
  // The header passes over the indicator.
  static void keep(SIACCanonicalHeader &, TagValueTrailer &trailer, TagValuePair const &pair) {
    constexpr int CHECK_SUM_INDICATOR = 25001;
    if (pair.tag == CHECK_SUM_INDICATOR) trailer.set<"CheckSumIndicator">(pair.value);
  }
};

// clang-format off
struct SIACLeg : Record<"SIACLeg",
                        Field<"CFT_LegSymbol", tvstring>,       // 11021
                        Field<"CFT_LegRatio", int>,             // 11022
                        Field<"CFT_LegPrice", double>> {};      // 11023

// A null price is "at the market".
struct SIACOrder : Record<"SIACOrder",
                          Field<"CFT_OrderID", tvstring>,       // 11001
                          Field<"CFT_Symbol", tvstring>,        // 11002
                          Field<"CFT_Side", char>,              // 11003, B or S
                          Field<"CFT_Quantity", int>,           // 11004
                          Field<"CFT_Price", double>,           // 11005
                          Field<"CFT_OrderTime", DateTime>,     // 11006
                          Field<"CFT_AllOrNone", bool>,         // 11007
                          Field<"CFT_Account", tvstring>,       // 11008
                          Field<"CFT_Text", tvstring>,          // 11009
                          Section<"CFT_Legs", SIACLeg>> {};     // 11020
// clang-format on

// Failures are those of SIACCanonicalInputParser, SIACCanonicalTokenizer and the conversions; "Unexpected tag <tag>";
// and for a group "Tag '<tag>' opens no group." and "Unexpected tag <tag> in the group of tag '<tag>'."
class SIACOrderParser : public TagValueMessageParser<SIACOrderParser, SIACOrder, SIACWire> {
 public:
  ~SIACOrderParser() noexcept(false) override;

 private:
  friend TagValueMessageParser;

  bool parseField(SIACOrder &order, Pair &pair, Tokenizer &tokens) const;
  bool parseField(SIACLeg &leg, Pair const &pair) const;
  template <class Group>
  void parseGroup(Group &group, Pair const &begin, Tokenizer &tokens) const;
  void assertComplete(SIACOrder &order) const;
};

class SIACOrderWriter : public TagValueMessageWriter<SIACWire> {
 public:
  ~SIACOrderWriter() noexcept(false) override;

  void writeHeader(DataObject *header, TransformContext &context) override;
  void writeData(DataObject *data, TransformContext &context) override;
};

// "Default": side, quantity and price.
class SIACOrderRules : public CodedRules {
 public:
  using CodedRules::validateData;
  void validateData(DataObject *header, DataObject *data) override;
};

using SIACOrderMessage = TagValueMessage<SIACOrder, SIACWire, SIACOrderParser, SIACOrderWriter, SIACOrderRules>;

class SIACOrderToOrder : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override;
};

class OrderToSIACOrder : public NumberedMappingRules {
 protected:
  void mapHeaderFields0(DataObject *source, DataObject *header) override;
  void mapDataFields0(DataObject *source, DataObject *data) override;
};

using SIACOrderFormat = OrderInputFormat<SIACOrderMessage, SIACOrderToOrder>;
using SIACOrderOutputFormat = OrderOutputFormat<SIACCanonicalHeader, SIACOrder, SIACOrderWriter, OrderToSIACOrder>;

}  // namespace examples
