#pragma once

#include <map>
#include <string>
#include <vector>

#include "tavrone/tavrone.h"
#include "tests/Failure.h"
#include "tests/Tracked.h"

namespace tavrone {

// A header of text fields that counts how often it is read and how many headers live; the text "null" stands for null.
struct TestHeader : GenericDataObject {
  explicit TestHeader(Properties const &values) : GenericDataObject(typeOf(values), true) {
    ++alive;
    for (auto const &[name, value] : values)
      if (value != "null") setField(name, value);
  }
  ~TestHeader() noexcept(false) override { --alive; }

  using GenericDataObject::getField;
  Object *getField(tvstring const &name) const override {
    ++reads[name];
    return GenericDataObject::getField(name);
  }
  tvstring toXMLString() override { return "<Header/>"; }

  static DataObjectMetaInfo *typeOf(Properties const &values) {
    std::vector<FieldMetaInfo> made;
    for (auto const &[name, value] : values) made.emplace_back(name, DesignerTypes::STRING_TYPE, true);
    std::vector<FieldMetaInfo *> fields;
    for (FieldMetaInfo &field : made) fields.push_back(&field);
    return new DataObjectMetaInfo("Header", fields.data(), static_cast<int>(fields.size()));
  }

  static inline int alive = 0;
  mutable std::map<tvstring, int> reads;
};

// Answers with a header whose "MessageType" is the payload, or with null to an empty payload.
struct TestIdentifierBase : MessageIdentifier {
  DataObject *identifyMessage(InputSource &input) override {
    int length = 0;
    char const *bytes = input.getAsBytes(length);
    ++asked;
    if (length == 0) return nullptr;
    return new TestHeader({{"MessageFormat", "FIX"}, {"MessageType", tvstring(bytes, static_cast<size_t>(length))}});
  }
  void setProperty(tvstring const &name, tvstring const &value) override { properties[name] = value; }

  int asked = 0;
  Properties properties;
};
using TestIdentifier = Tracked<TestIdentifierBase>;

// Notes what it was handed; fails with a warning on the payload "fail".
struct TestFormat : IInputFormat {
  DataObject *handleInput(InputSource &input, TransformContext &context) override {
    processInput(input, context);
    return new TestHeader({{"MessageFormat", context.getProperty("input.source")}});
  }
  void processInput(InputSource &input, TransformContext &context) override {
    int length = 0;
    char const *bytes = input.getAsBytes(length);
    tvstring const text(bytes, static_cast<size_t>(length));
    log.push_back(context.getProperty("input.format") + ":" + text + context.getProperty("extra"));
    context.setProperty("extra", "+");
    if (text != "fail") return;
    auto failure = failureAt<TransformRuntimeException>("failed", "test", 1);
    failure.setSeverity("warn");
    throw failure;
  }

  static inline std::vector<tvstring> log;
};

// Binds a factory of T for the length of a scope, and counts what it makes.
template <class T>
class BoundFormat {
 public:
  explicit BoundFormat(tvstring const &name) : name_(name) { directory()->bind(name, new Factory(*this)); }
  ~BoundFormat() { directory()->unbind(name_); }

  static SmartPtr<ILookupContext> directory() { return LookupContextFactory::getLookupContext(); }

  int made = 0;

 private:
  struct Factory : ObjectFactory {
    explicit Factory(BoundFormat &owner) : owner_(owner) {}
    Object *create() override {
      ++owner_.made;
      return new T;
    }
    BoundFormat &owner_;
  };
  tvstring name_;
};

}  // namespace tavrone
