#pragma once

#include "tavrone/pipeline/OutputFormat.h"

namespace tavrone {

// Two formats that differ in nothing but their class, by which generated code chooses the output.
class TAVRONE_API SIACCanonicalOutputFormat : public AbstractOutputFormat {
 public:
  SIACCanonicalOutputFormat() = default;
  SIACCanonicalOutputFormat(SIACCanonicalOutputFormat const &other)
      : Object(), ObjectRef(), AbstractOutputFormat(other) {}
  ~SIACCanonicalOutputFormat() noexcept(false) override;
};

// The other of the two.
class TAVRONE_API SIACCanonicalSIACOutputFormat : public AbstractOutputFormat {
 public:
  SIACCanonicalSIACOutputFormat() = default;
  SIACCanonicalSIACOutputFormat(SIACCanonicalSIACOutputFormat const &other)
      : Object(), ObjectRef(), AbstractOutputFormat(other) {}
  ~SIACCanonicalSIACOutputFormat() noexcept(false) override;
};

}  // namespace tavrone
