#pragma once

#include "tavrone/context/TransformContext.h"
#include "tavrone/core/Raise.h"

namespace tavrone {

// What rules and mappings share: the context of a call stands in the object for the length of the call, so that
// generated bodies take the data alone.

// Stores the context, runs the body, clears. A failure leaves the context stored until the next call replaces it, which
// is meant.
template <class Body>
void withStoredContext(TransformContext *&stored, TransformContext &context, Body const &body) {
  stored = &context;
  body();
  stored = nullptr;
}

inline TransformContext &storedContext(TransformContext *stored, char const *source) {
  if (stored == nullptr) raise<TransformRuntimeException>("No transform context outside of a call", source);
  return *stored;
}

}  // namespace tavrone
