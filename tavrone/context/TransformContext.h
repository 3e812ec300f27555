#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>

#include "tavrone/context/ObjectPtrMap.h"
#include "tavrone/core/SmartPtr.h"

namespace tavrone {

class IOutputContext;

// What one transformation carries through parse, validate, map and write: text properties, object properties, and the
// output context that collects what writers produce. Both maps are made on first need. A context may be reused from
// message to message: the keys that stand stay allocated. It belongs to one thread at a time.
class TAVRONE_API TransformContext : public Object {
 public:
  static tvstringliteral const INPUT_FORMAT_PROPERTY;                // "input.format"
  static tvstringliteral const INPUT_SOURCE_PROPERTY;                // "input.source": where a message came from
  static tvstringliteral const INPUT_MODE_PROPERTY;                  // "input.mode": BATCH_MODE or RECORD_MODE
  static tvstringliteral const INPUT_BATCH_CONTEXT_PROPERTY;         // "input.batch.context"
  static tvstringliteral const INPUT_BATCH_ID_PROPERTY;              // "input.batch.id"
  static tvstringliteral const INPUT_BATCH_SIZE_PROPERTY;            // "input.batch.size"
  static tvstringliteral const OUTPUT_DESTINATION_PROPERTY;          // "output.destination"
  static tvstringliteral const DEFAULT_OUTPUT_DESTINATION_PROPERTY;  // "output.destination.default"
  static tvstringliteral const OUTPUT_FORMAT_PROPERTY;               // "output.format"
  static tvstringliteral const OUTPUT_PROTOCOL_PROPERTY;             // "output.protocol"
  static tvstringliteral const OUTPUT_DEVICE_PROPERTY;               // "output.device"
  static tvstringliteral const OUTPUT_FORMAT_SUFFIX;                 // "output.format.suffix"
  static tvstringliteral const BATCH_MODE;                           // "batch"
  static tvstringliteral const RECORD_MODE;                          // "record"

  // What a wrapper without a context reads through, from any thread; nothing may write into it.
  static TransformContext EMPTY;

  TransformContext();
  // Takes what copyTo hands on.
  TransformContext(TransformContext const &other);
  TransformContext &operator=(TransformContext const &other);
  ~TransformContext() noexcept(false) override;

  // Calls setProperty, and so lands in whichever layer the receiver is.
  virtual void setContextProperty(tvstring const &key, tvstring const &value);
  // The last write under a key wins.
  virtual void setProperty(tvstring const &key, tvstring const &value);
  // Releases what the key held and adds a reference to the value; null is stored, too. Storing the object that is
  // already there changes nothing.
  virtual void setObjectProperty(tvstring const &key, Object *value);
  // Empty for an unknown key.
  virtual tvstring getProperty(tvstring const &key);
  // Borrowed; null for an unknown key.
  virtual Object *getObjectProperty(tvstring const &key);
  // Makes the output context, or empties the one that is there.
  virtual void createOutputContext();
  // Raises TransformException unless createOutputContext was called: output is for those who ask for it.
  virtual SmartPtr<IOutputContext> getOutputContext();
  // The target's text properties become a copy of these, and it shares this output context; both may be none. Object
  // properties stay behind.
  virtual void copyTo(TransformContext &target);
  // Drops text properties and output context; object properties stay.
  virtual void clear();
  // What getOutputContext gives, for those who can do without: null if there is none.
  virtual SmartPtr<IOutputContext> findOutputContext();
  // Puts the given output context in place of the one that is there, which it returns. Both may be null.
  virtual SmartPtr<IOutputContext> exchangeOutputContext(SmartPtr<IOutputContext> output);

  // Adds what is not there yet; keys that exist keep their values.
  void putAll(std::map<tvstring, tvstring> const &properties);

 protected:
  // Made if missing.
  ObjectPtrMap<Object> &getObjectPropertyMap();
  // The value of this layer, or null.
  tvstring *findProperty(tvstring const &key) const;

 private:
  using Strings = std::map<tvstring, tvstring>;
  struct Constant {};

  constexpr explicit TransformContext(Constant) noexcept;  // makes EMPTY before any code runs

  Strings &strings();

  std::unique_ptr<Strings> strings_;         // null until first needed
  ObjectPtrMap<Object> *objects_ = nullptr;  // owned; null until first needed. Raw, since its destructor may throw
  SmartPtr<IOutputContext> outputContext_;
  // The entries that were found last, by a few bits of their keys: most look-ups are for the same handful of keys.
  mutable std::array<Strings::value_type *, 16> found_{};
  uint64_t keyBits_ = 0;  // a bit for each key that is there: most keys that are not have none
};

// A private layer of text properties over a context that it borrows. The output context and clear() are the wrapped
// context's; object properties and copyTo are the wrapper's own.
class TAVRONE_API TransformContextWrapper : public TransformContext {
 public:
  // Over TransformContext::EMPTY.
  TransformContextWrapper() : TransformContextWrapper(&EMPTY) {}
  // REQUIRES: context is not null and outlives the wrapper
  TransformContextWrapper(TransformContext *context) : context_(context) {}
  TransformContextWrapper(TransformContextWrapper const &) = default;
  TransformContextWrapper &operator=(TransformContextWrapper const &) = default;
  ~TransformContextWrapper() noexcept(false) override;

  // Its own layer first, then the wrapped context.
  tvstring getProperty(tvstring const &key) override;
  void createOutputContext() override;
  SmartPtr<IOutputContext> getOutputContext() override;
  // Leaves the wrapper's own properties in place.
  void clear() override;
  SmartPtr<IOutputContext> findOutputContext() override;
  SmartPtr<IOutputContext> exchangeOutputContext(SmartPtr<IOutputContext> output) override;

  TransformContext *getTransformContext() const { return context_; }

 private:
  TransformContext *context_;
};

}  // namespace tavrone
