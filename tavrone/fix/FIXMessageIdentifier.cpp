#include "tavrone/fix/FIXMessageIdentifier.h"

#include "tavrone/context/Factory.h"

namespace tavrone {

void registerClassFIXMessageIdentifier() {
  registerClass<FIXMessageIdentifier>("FIXMessageIdentifier");
}

namespace {

bool const registered = (registerClassFIXMessageIdentifier(), true);

}  // namespace

}  // namespace tavrone
