#pragma once

#include <climits>
#include <type_traits>

#include "examples/messages/Order.h"

namespace examples {

// An input channel of orders whose parts are at hand, for a host that takes the steps one by one and collects what
// fails on the way.
class OrderChannel : public AbstractInputFormat {
 public:
  ~OrderChannel() noexcept(false) override = default;

  virtual AbstractExternalMessage &message() = 0;
  virtual InputMappingRules &mapping() = 0;

  DataObject *createInputObject() override { return new Order; }

 protected:
  OrderChannel() : AbstractInputFormat("Order") {}
};

// The input channel of a wire format that orders come in: reads a message, asks its validators "Integrity" and
// "Default", and maps it to the internal message "Order" by the Rules.
template <class Message, class Rules>
class OrderInputFormat : public OrderChannel {
 public:
  OrderInputFormat() : external_(message_.createExternalObject()) {}
  ~OrderInputFormat() noexcept(false) override = default;

  void parseInput(InputSource &input, DataObject *object, TransformContext &context) override {
    external_->reset();
    parseExternal(input, context);
    SmartPtr<DataObject> const external(external_.get());
    message_.validate(tvstringliteral("Integrity"), external, context);
    message_.validate(external, context);
    rules_.mapFields(external_.get(), object, context);
  }
  Message &message() override { return message_; }
  Rules &mapping() override { return rules_; }

 private:
  void parseExternal(InputSource &input, TransformContext &context) {
    try {
      message_.getInputParser()->parse(external_.get(), input, context);
    } catch (TransformException &failure) {
      failure.fillErrorType(ExceptionObject::ERROR_TYPE_PARSING);
      throw;
    }
  }

  Message message_;
  SmartPtr<ExternalObject> external_;
  Rules rules_;
};

// The mapping to a format that numbers its messages. A number is used up when its message was written: one that fails
// leaves no gap.
class NumberedMappingRules : public OutputMappingRules {
 public:
  void confirmNumber() { lastNumber_ = nextNumber(); }

 protected:
  int nextNumber() const { return lastNumber_ == INT_MAX ? 1 : lastNumber_ + 1; }

 private:
  int lastNumber_ = 0;
};

// The output channel of a wire format that orders go out in. The Header is void for a format that has none.
template <class Header, class Body, class Writer, class Rules>
class OrderOutputFormat : public AbstractOutputFormat {
 public:
  OrderOutputFormat() = default;
  OrderOutputFormat(OrderOutputFormat const &) = delete;
  ~OrderOutputFormat() noexcept(false) override = default;

  void write(DataObject *source, TransformContext &context) override {
    AbstractOutputFormat::write(source, context);
    if constexpr (std::is_base_of_v<NumberedMappingRules, Rules>) rules_.confirmNumber();
  }
  DataObject *createHeader() override {
    if constexpr (std::is_void_v<Header>)
      return nullptr;
    else
      return new Header;
  }
  DataObject *createRecordData() override { return new Body; }
  void mapHeader(DataObject *source, DataObject *header, TransformContext &context) override {
    mapPart([&] { rules_.mapHeaderFields(source, header, context); });
  }
  void mapData(DataObject *source, DataObject *data, TransformContext &context) override {
    mapPart([&] { rules_.mapDataFields(source, data, context); });
  }
  void mapTrailer(DataObject *source, DataObject *data, DataObject *trailer, TransformContext &context) override {
    mapPart([&] { rules_.mapTrailerFields(source, data, trailer, context); });
  }
  OutputWriter *getOutputWriter() override { return &writer_; }

 private:
  template <class Map>
  static void mapPart(Map const &map) {
    try {
      map();
    } catch (TransformException &failure) {
      failure.fillErrorType(ExceptionObject::ERROR_TYPE_MAPPING);
      throw;
    }
  }

  Writer writer_;
  Rules rules_;
};

// For mappings: raises TransformException "<message> cannot carry <what>" of the field for what an order holds and
// the target has no place for. Nothing is left out in silence.
inline void requirePlace(bool hasPlace, char const *message, char const *what, char const *field) {
  if (hasPlace) return;
  TransformException failure(tvstring(message) + " cannot carry " + what);
  failure.setFFieldName(field);
  throw failure;
}

// Sets a field of the target if that of the source is not null.
template <FixedText To, FixedText From, class Target, class Source>
void copyField(Target &target, Source const &source) {
  if (!source.template isNull<From>()) target.template set<To>(source.template get<From>());
}

}  // namespace examples
