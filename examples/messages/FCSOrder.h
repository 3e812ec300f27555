#pragma once

// A firm's order, its cancel and the report of its execution as FCS messages, as generated code would hold them:
//
//   AB 0042 03152024          branch, sequence number, date
//   BUY 1200 IBM 191 1/8 AON  side, quantity, symbol, price in eighths or MKT, all or none
//   ACCT FB-137               the account, if any
//   TEXT CALL DESK FIRST      free text, if any
//   000123 FIRM ABCD          the trailer: Input Sequence Number and text
//
// A cancel has the one line "CXL 0042 BUY 1200 IBM", a report "BOT 500 IBM 191 1/8 LEAVES 700 REF 0042" (SLD for a
// sale).

#include "examples/messages/CodedRules.h"
#include "examples/messages/OrderFormats.h"

namespace examples {

// clang-format off
struct FCSOrderHeader : RecordOf<FCSOrderHeader, "FCSOrderHeader",
                                 Field<"Branch", tvstring>,
                                 Field<"Sequence", tvstring>,
                                 Field<"Date", DateOnly>> {};

// A null price is "at the market".
struct FCSOrder : RecordOf<FCSOrder, "FCSOrder",
                           Field<"Side", tvstring>,
                           Field<"Quantity", int>,
                           Field<"Symbol", tvstring>,
                           Field<"Price", double>,
                           Field<"AllOrNone", bool>,
                           Field<"Account", tvstring>,
                           Field<"Text", tvstring>> {};

struct FCSCancel : RecordOf<FCSCancel, "FCSCancel",
                            Field<"Reference", tvstring>,
                            Field<"Side", tvstring>,
                            Field<"Quantity", int>,
                            Field<"Symbol", tvstring>> {};

struct FCSReport : RecordOf<FCSReport, "FCSReport",
                            Field<"Side", tvstring>,
                            Field<"Quantity", int>,
                            Field<"Symbol", tvstring>,
                            Field<"Price", double>,
                            Field<"Leaves", int>,
                            Field<"Reference", tvstring>> {};

struct FCSTrailer : RecordOf<FCSTrailer, "FCSTrailer",
                             Field<"ISN", tvstring>,
                             Field<"Text", tvstring>> {};

// What routing knows of a message: the format "FCS", and "Order", "Cancel" or "Report" as its type.
struct FCSIdentity : RecordOf<FCSIdentity, "FCSIdentity",
                              Field<"MessageFormat", tvstring>,
                              Field<"MessageType", tvstring>> {};
// clang-format on

// What the parsers share: the header, and that every failure is an FCSParseException which tells the line and where in
// it. A handler that collects gets all broken lines of a message.
class FCSMessageParser : public FCSInputParser {
 public:
  using FCSInputParser::parse;
  void parse(ExternalObject *object, Binary const &bytes, TransformContext &context) override;
  ExternalObject *parse(Binary const &bytes, TransformContext &context) override;
  void parseHeader(DataObject *header, LineReader &reader, TransformContext &context) override;
  void parseTrailer(DataObject *trailer, LineReader &reader, TransformContext &context) override;

 protected:
  virtual DataObject *createBody() const = 0;
  // Reads the next line to its end. The name is for failures.
  template <class Read>
  void readLine(char const *name, LineReader &reader, Read const &read);
  // The same for a line that need not be there and begins with the keyword, which is taken.
  template <class Read>
  void readOptionalLine(tvstring const &keyword, LineReader &reader, Read const &read);

 private:
  template <class Body>
  void reporting(LineReader &reader, Body const &body);
  void report(TransformException &failure, int line);

  FCSLineTokenizer tokenizer_;
};

class FCSOrderParser : public FCSMessageParser {
 public:
  void parseData(DataObject *data, LineReader &reader, TransformContext &context) override;

 protected:
  DataObject *createBody() const override { return new FCSOrder; }
};
class FCSCancelParser : public FCSMessageParser {
 public:
  void parseData(DataObject *data, LineReader &reader, TransformContext &context) override;

 protected:
  DataObject *createBody() const override { return new FCSCancel; }
};
class FCSReportParser : public FCSMessageParser {
 public:
  void parseData(DataObject *data, LineReader &reader, TransformContext &context) override;

 protected:
  DataObject *createBody() const override { return new FCSReport; }
};

class FCSMessageWriter : public FCSOutputWriter {
 public:
  FCSMessageWriter() { setUseFractions(true); }
  void writeHeader(DataObject *header, TransformContext &context) override;
};
class FCSOrderWriter : public FCSMessageWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;
};
class FCSCancelWriter : public FCSMessageWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;
};
class FCSReportWriter : public FCSMessageWriter {
 public:
  void writeData(DataObject *data, TransformContext &context) override;
};

// "Default": quantities above zero and prices in eighths, in whichever message.
class FCSRules : public FieldsValidationRules {
 public:
  using FieldsValidationRules::validateData;
  using FieldsValidationRules::validateHeader;
  using FieldsValidationRules::validateTrailer;
  void validateData(DataObject *header, DataObject *data) override;
  void validateHeader(DataObject *) override {}
  void validateTrailer(DataObject *) override {}
};

template <class Body, class Parser, class Writer>
class FCSMessage : public AbstractExternalMessage {
 public:
  FCSMessage() : AbstractExternalMessage(Body::typeMetaInfo()->getName()) {
    // Nothing in a message tells whether its bytes are those that were sent.
    addValidator(tvstringliteral("Integrity"), new CodedRules);
    addValidator(DEFAULT_VALIDATOR, new FCSRules);
  }
  ~FCSMessage() noexcept(false) override = default;

  SmartPtr<ExternalObject> createExternalObject() override {
    SmartPtr<DataObject> const header(new FCSOrderHeader), data(new Body), trailer(new FCSTrailer);
    return new ExternalObject(header.get(), data.get(), trailer.get());
  }
  InputParser *getInputParser() override { return &parser_; }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  Parser parser_;
  Writer writer_;
};

// Bound as "FCSOrder.message", "FCSCancel.message" and "FCSReport.message".
using FCSOrderMessage = FCSMessage<FCSOrder, FCSOrderParser, FCSOrderWriter>;
using FCSCancelMessage = FCSMessage<FCSCancel, FCSCancelParser, FCSCancelWriter>;
using FCSReportMessage = FCSMessage<FCSReport, FCSReportParser, FCSReportWriter>;

// From an FCS order to the internal one; an order at the market gets no price.
class FCSOrderToOrderRules : public InputMappingRules {
 protected:
  void mapFields0(ExternalObject *source, DataObject *target) override;
};

// The input channel, bound as "FCSOrder": FCS orders for the internal message "Order".
using FCSOrderFormat = OrderInputFormat<FCSOrderMessage, FCSOrderToOrderRules>;

// Knows the three messages by the first token of their second line. The format itself has no mark to be known by.
class FCSOrderIdentifier : public MessageIdentifier {
 public:
  DataObject *identifyMessage(InputSource &input) override;
};

}  // namespace examples
