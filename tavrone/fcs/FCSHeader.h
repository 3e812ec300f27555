#pragma once

#include "tavrone/dataobject/Record.h"
#include "tavrone/pipeline/MessageHeader.h"

namespace tavrone {

// The header of an FCS message as routing sees it: a record of the one field "MessageFormat", which is "FCS" from the
// start.
class TAVRONE_API FCSHeader : public RecordOf<FCSHeader, "FCSHeader", Field<"MessageFormat", tvstring>>,
                              public MessageHeader {
 public:
  FCSHeader();
  FCSHeader(FCSHeader const &other);
  FCSHeader &operator=(FCSHeader const &) = default;
  ~FCSHeader() noexcept(false) override;

  // "FCS", whatever the field holds.
  tvstring getMessageFormat() override;
  // Empty: FCS tells neither.
  tvstring getMessageType() override { return tvstring(); }
  tvstring getMessageVersion() override { return tvstring(); }
  // Empty for an unknown name and for a null field.
  tvstring getHeaderField(tvstring const &name) override;
  // Unless the field was changed.
  bool tellsItsFields() const override;
};

}  // namespace tavrone
