#pragma once

#include "tavrone/fix/TagValueWriter.h"
#include "tavrone/siaccanonical/SIACCanonicalFormat.h"

namespace tavrone {

extern template class TagValueWriter<SIACCanonicalFormat>;

// The base of generated SIAC Canonical writers. Repeating groups are bracketed: appendBeginGroup, then for each
// instance its fields and appendEndGroupInstance, then appendEndGroup.
class TAVRONE_API SIACCanonicalOutputWriter : public TagValueWriter<SIACCanonicalFormat> {
 public:
  ~SIACCanonicalOutputWriter() noexcept(false) override;

  // Adds the indicator, BodyLength, which counts the indicator, and CheckSum.
  tvstring endMessage() override;

  // Fields "<tag>={", "26000=}" and "26999= ".
  void appendBeginGroup(char const *tag) { appendField(tag, '{'); }
  void appendEndGroup() { appendField("26000", '}'); }
  void appendEndGroupInstance() { appendField("26999", ' '); }

  // Behind the first field, in either case: 25001=32 for a message with CheckSum, 25001=33 for one without.
  void writeCheckSumIndicator() {
    insertBehindFirstField("25001", hasCheckSum() ? tvstringliteral("32") : tvstringliteral("33"));
  }
};

}  // namespace tavrone
