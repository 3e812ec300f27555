#pragma once

#include "examples/messages/NewOrderSingle.h"

namespace examples {

// Reads a NewOrderSingle, its standard header included. The values share the storage of the bytes.
//
// Failures are those of FIXInputParser, FIXTokenizer and the conversions; "Unexpected tag <tag>" for a tag that the
// message does not have; and "Tag '<tag>' counts <n> elements, found <m>." for a group.
class NewOrderSingleParser : public FIXInputParser {
 public:
  ~NewOrderSingleParser() noexcept(false) override;

  using FIXInputParser::parse;
  // An object that an earlier message was parsed into is filled again, its parts with it.
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &context) override;
  ExternalObject *parse(Binary const &bytes, TransformContext &context) override;

 private:
  using Pair = FIXTokenizer::TagValuePair;

  void parseMessage(FIXHeader &header, NewOrderSingle &order, tvstring const &message) const;
  // False for a tag that the record does not have.
  bool parseField(NewOrderSingle &order, Pair &pair, FIXTokenizer &tokens) const;
  bool parseField(OrderParty &party, Pair const &pair) const;
  bool parseField(OrderAllocation &allocation, Pair const &pair) const;
  template <class Group>
  void parseGroup(Group &group, Pair const &counter, FIXTokenizer &tokens, int firstTag) const;
  void assertComplete(NewOrderSingle &order) const;

  // Stores a value that must not have come before.
  template <FixedText Name, class Type>
  void store(Type &record, Pair const &pair) const;
};

}  // namespace examples
