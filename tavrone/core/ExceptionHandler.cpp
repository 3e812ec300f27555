#include "tavrone/core/ExceptionHandler.h"

#include <memory>

#include "tavrone/core/Class.h"
#include "tavrone/core/Exceptions.h"

namespace tavrone {

namespace {

// Ready before any code runs and never destroyed: parsers of other libraries take it while they load.
union DraconianHandler {
  constexpr DraconianHandler() : handler() {}
  ~DraconianHandler() {}

  DraconianExceptionHandler handler;
};
constinit DraconianHandler draconian;

}  // namespace

constinit ExceptionHandler *const ExceptionHandler::DRACONIAN_EXCEPTION_HANDLER = &draconian.handler;

ExceptionHandler::~ExceptionHandler() noexcept(false) = default;
DraconianExceptionHandler::~DraconianExceptionHandler() noexcept(false) = default;
CascadingExceptionHandler::~CascadingExceptionHandler() noexcept(false) = default;

void DraconianExceptionHandler::onException(ExceptionDataObject *record) {
  auto const *const exception = dynamic_cast<TransformException const *>(record);
  if (exception != nullptr) throw TransformException(*exception);
  throw TransformException(*record);
}

void CascadingExceptionHandler::onException(ExceptionDataObject *record) {
  std::unique_ptr<ExceptionDataObject> copy(checkedCast<ExceptionDataObject>(record->clone()));
  exceptions_.push_back(copy.get());
  static_cast<void>(copy.release());
}

}  // namespace tavrone
