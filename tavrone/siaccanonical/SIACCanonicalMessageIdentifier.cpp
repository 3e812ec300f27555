#include "tavrone/siaccanonical/SIACCanonicalMessageIdentifier.h"

#include "tavrone/context/Factory.h"

namespace tavrone {

void registerClassSIACCanonicalMessageIdentifier() {
  registerClass<SIACCanonicalMessageIdentifier>("SIACCanonicalMessageIdentifier");
}

namespace {

bool const registered = (registerClassSIACCanonicalMessageIdentifier(), true);

}  // namespace

}  // namespace tavrone
