#include "tavrone/routing/MessageIdentificationService.h"

#include <typeinfo>
#include <vector>

#include "tavrone/context/UserClassManager.h"
#include "tavrone/core/Class.h"
#include "tavrone/core/OwnedPointers.h"
#include "tavrone/pipeline/InputSources.h"

namespace tavrone {

namespace {

// Asked in this order.
constexpr char const *DEFAULT_IDENTIFIERS[] = {"FIXMessageIdentifier", "SIACCanonicalMessageIdentifier"};

MessageIdentificationService *defaultService = nullptr;

}  // namespace

class MessageIdentificationService::Identifiers : public ObjectRef {
 public:
  ~Identifiers() noexcept(false) override { deleteOwned(list); }

  std::vector<MessageIdentifier *> list;
};

MessageIdentificationService *MessageIdentificationService::getDefault() {
  struct DefaultService : MessageIdentificationService {
    DefaultService() {
      for (tvstringliteral const className : DEFAULT_IDENTIFIERS) registerMessageIdentifer(className);
      defaultService = this;
    }
  };
  static DefaultService service;
  return &service;
}

bool MessageIdentificationService::isDefault() const {
  return this == defaultService;
}

MessageIdentificationService::MessageIdentificationService() : identifiers_(new Identifiers) {}
MessageIdentificationService::MessageIdentificationService(MessageIdentificationService const &other) = default;
MessageIdentificationService::~MessageIdentificationService() noexcept(false) = default;

MessageIdentificationService &MessageIdentificationService::operator=(MessageIdentificationService const &other) {
  // The smart pointer lets go before it takes, so a list must not be assigned to itself.
  if (identifiers_.get() != other.identifiers_.get()) identifiers_ = other.identifiers_;
  return *this;
}

void MessageIdentificationService::registerMessageIdentifer(MessageIdentifier *identifier) {
  if (identifier != nullptr) pushOwned(identifiers_->list, identifier);
}

void MessageIdentificationService::registerMessageIdentifer(tvstring const &className) {
  Object *const instance = UserClassManager::createInstance(className);
  auto *const identifier = dynamic_cast<MessageIdentifier *>(instance);
  if (identifier == nullptr) {
    SmartPtr<Object> const refused = instance;
    throwClassCastException(instance == nullptr ? nullptr : &typeid(*instance), typeid(MessageIdentifier));
  }
  registerMessageIdentifer(identifier);
}

void MessageIdentificationService::setMessageIdentiferProperty(tvstring const &name, tvstring const &value) {
  if (!identifiers_->list.empty()) identifiers_->list.back()->setProperty(name, value);
}

DataObject *MessageIdentificationService::identifyMessage(InputSource &input) {
  // By index: an identifier may register another.
  std::vector<MessageIdentifier *> const &list = identifiers_->list;
  for (size_t i = 0; i < list.size(); ++i)
    if (DataObject *header = list[i]->identifyMessage(input)) return header;
  return nullptr;
}

MessageHeader *MessageIdentificationService::parseMessageHeader(char const *bytes, int length) {
  ByteArrayInputSource input(Binary(bytes, length < 0 ? 0 : static_cast<size_t>(length), false));
  SmartPtr<DataObject> const header = identifyMessage(input);
  return header.isNull() ? nullptr : new MessageHeaderAdapter(header.get(), true);
}

}  // namespace tavrone
