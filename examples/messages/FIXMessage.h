#pragma once

#include "examples/messages/TagValueMessage.h"

namespace examples {

struct FIXWire {
  using InputParser = FIXInputParser;
  using Writer = FIXOutputWriter;
  using Header = FIXHeader;
  using Tokenizer = FIXTokenizer;
  using Type = FIXType;
  using WriterException = FIXWriterException;

  static constexpr char const *BODY_LENGTH_CODE = "FIX-01";
  static constexpr char const *CHECK_SUM_CODE = "FIX-02";

  static int bodyLengthOf(FIXHeader const &header) {
    return header.isNull(FIXHeaderLayout::BODY_LENGTH) ? -1 : header.getBodyLength();
  }
  static bool hasCheckSum(TagValueTrailer const &) { return true; }
  // The header passes over the time of sending; what is to be written as it was read needs it.
  static void keep(FIXHeader &header, TagValueTrailer &, TagValuePair const &pair) {
    constexpr int SENDING_TIME = 52;
    if (pair.tag == SENDING_TIME) header.setSendingTime(pair.value);
  }
};

// A parser of one FIX message, its standard header included. Failures are those of FIXInputParser, FIXTokenizer and the
// conversions; "Unexpected tag <tag>" for a tag that the message does not have; and "Tag '<tag>' counts <n> elements,
// found <m>." for a group.
template <class Self, class Body>
class FIXMessageParser : public TagValueMessageParser<Self, Body, FIXWire> {
 public:
  ~FIXMessageParser() noexcept(false) override = default;

 protected:
  // Each element begins with the same tag; the first tag that is none of the group's goes back.
  template <class Group>
  void parseGroup(Group &group, TagValuePair const &counter, FIXTokenizer &tokens, int firstTag) const {
    this->assertSectionEmpty(&group, counter.tag);
    int const expected = counter.toInt();
    for (TagValuePair pair; tokens.next(pair);) {
      if (pair.tag == firstTag) group.add();
      if (group.size() != 0 && this->self().parseField(group[group.size() - 1], pair)) continue;
      tokens.pushBack(pair);
      break;
    }
    if (group.size() == expected) return;
    raise<FIXParsingException>("Tag '" + intToString(counter.tag) + "' counts " + intToString(expected) +
                                   " elements, found " + intToString(group.size()) + ".",
                               "examples/FIXMessageParser");
  }

  // The data behind the field that counts its bytes.
  template <FixedText Name, class Type>
  void storeData(Type &record, TagValuePair &pair, FIXTokenizer &tokens, int tag) const {
    if (!tokens.nextDataTag(pair, pair.toInt()) || pair.tag != tag) this->missingTag(tag);
    this->template store<Name>(record, pair);
  }
};

// Writes the standard header; BeginString, MsgType and MsgSeqNum must be set.
class FIXMessageWriter : public TagValueMessageWriter<FIXWire> {
 public:
  ~FIXMessageWriter() noexcept(false) override;

  void writeHeader(DataObject *header, TransformContext &context) override;

 protected:
  // An element's first field is required: a reader knows the element by it.
  template <class Group, class WriteElement>
  void writeGroup(char const *counterTag, Group &group, WriteElement const &writeElement) {
    if (group.size() == 0) return;
    appendField(counterTag, group.size());
    for (auto &element : group) writeElement(element);
  }
  // The same for a group that must have elements: without any it fails as a required field does.
  template <FixedText Name, class Type, class WriteElement>
  void writeRequiredGroup(char const *counterTag, Type &record, WriteElement const &writeElement) {
    auto &group = record.template section<Name>();
    if (group.size() == 0) requiredFieldMissing(&record, Type::template index<Name>, Parsing::parseInt(counterTag));
    writeGroup(counterTag, group, writeElement);
  }
};

}  // namespace examples
