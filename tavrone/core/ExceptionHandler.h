#pragma once

#include <vector>

#include "tavrone/core/Object.h"

namespace tavrone {

class ExceptionDataObject;

// What happens to a failure that a parser, writer or rule meets: stop, or collect and go on.
class TAVRONE_API ExceptionHandler : public Object {
 public:
  // The one that everybody shares; never delete it.
  static ExceptionHandler *const DRACONIAN_EXCEPTION_HANDLER;

  ~ExceptionHandler() noexcept(false) override;

  // Reads the record, which is not null, and does not keep it. Returns where the caller is to go on, else throws.
  virtual void onException(ExceptionDataObject *record) = 0;
};

// Throws the record as a TransformException at once. An exception's class is reduced to that; it keeps the rest.
class TAVRONE_API DraconianExceptionHandler : public ExceptionHandler {
 public:
  ~DraconianExceptionHandler() noexcept(false) override;

  [[noreturn]] void onException(ExceptionDataObject *record) override;
};

// Keeps a clone of each record, in order of arrival. Whoever takes the list owns the records: the handler frees none.
class TAVRONE_API CascadingExceptionHandler : public ExceptionHandler {
 public:
  CascadingExceptionHandler() = default;
  // Copies share the records.
  CascadingExceptionHandler(CascadingExceptionHandler const &) = default;
  CascadingExceptionHandler &operator=(CascadingExceptionHandler const &) = default;
  ~CascadingExceptionHandler() noexcept(false) override;

  void onException(ExceptionDataObject *record) override;

  // The list is the caller's to take.
  std::vector<ExceptionDataObject *> &getExceptions() { return exceptions_; }
  std::vector<ExceptionDataObject *> const &getExceptions() const { return exceptions_; }

 private:
  std::vector<ExceptionDataObject *> exceptions_;
};

}  // namespace tavrone
