#include "tavrone/fcs/FCSMessageIdentifier.h"

#include "tavrone/context/Factory.h"

namespace tavrone {

namespace {

Registrar const registrar(registerClassFCSMessageIdentifier);

}  // namespace

void registerClassFCSMessageIdentifier() {
  registerClass<FCSMessageIdentifier>("FCSMessageIdentifier");
}

DataObject *FCSMessageIdentifier::identifyMessage(InputSource &input) {
  int length = 0;
  input.getAsBytes(length);
  return nullptr;
}

tvstring FCSMessageIdentifier::getMessageFormat() {
  return tvstringliteral("FCS");
}
bool FCSMessageIdentifier::isMatch(char const *, int) {
  return true;
}
bool FCSMessageIdentifier::checkFCS(char const *, int) {
  return true;
}

}  // namespace tavrone
