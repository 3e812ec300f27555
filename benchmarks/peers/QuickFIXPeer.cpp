#include "benchmarks/peers/QuickFIXPeer.h"

#include <quickfix/DataDictionary.h>
#include <quickfix/Message.h>

struct QuickFIXPeer::State {
  State() { dictionary.addFieldType(FIX::FIELD::RawData, FIX::TYPE::Data); }

  FIX::DataDictionary dictionary;
  FIX::Message message;
};

QuickFIXPeer::QuickFIXPeer() : state_(new State) {}
QuickFIXPeer::~QuickFIXPeer() = default;

int QuickFIXPeer::readFields(std::string const &text, bool hasRawData) {
  state_->message.setString(text, false, hasRawData ? &state_->dictionary : nullptr);
  return state_->message.totalFields();
}
