#include "benchmarks/peers/QuickFIXPeer.h"

#include <quickfix/DataDictionary.h>
#include <quickfix/Message.h>
#include <quickfix/fix44/NewOrderSingle.h>

namespace {

// Sets one field of a message or its header.
struct FieldSetter {
  void operator()(int tag, char const *, std::string const &value) const { map.setField(FIX::StringField(tag, value)); }
  void operator()(int tag, char const *, int value) const { map.setField(FIX::IntField(tag, value)); }
  void operator()(int tag, char const *, double value) const { map.setField(FIX::DoubleField(tag, value)); }
  void operator()(int tag, char const *, char value) const { map.setField(FIX::CharField(tag, value)); }

  FIX::FieldMap &map;
};

}  // namespace

struct QuickFIXPeer::State {
  State() {
    dictionary.addFieldType(FIX::FIELD::RawData, FIX::TYPE::Data);
    dictionary.addFieldType(FIX::FIELD::EncodedText, FIX::TYPE::Data);
    dictionary.addMsgType("D");
    addGroup(FIX::FIELD::NoPartyIDs, FIX::FIELD::PartyID, {FIX::FIELD::PartyIDSource, FIX::FIELD::PartyRole});
    addGroup(FIX::FIELD::NoAllocs, FIX::FIELD::AllocAccount, {FIX::FIELD::AllocQty});
  }

  void addGroup(int count, int first, std::initializer_list<int> others) {
    FIX::DataDictionary group;
    group.addField(first);
    for (int field : others) group.addField(field);
    dictionary.addGroup("D", count, first, group);
  }

  template <class Field, class Fields>
  static Field get(Fields const &fields) {
    Field field;
    fields.getField(field);
    return field;
  }

  template <class Values>
  std::string const &write(Values const &values) {
    message.clear();
    FIX::Header &header = message.getHeader();
    header.setField(FIX::BeginString("FIX.4.4"));
    values.headerFields(Values::TYPE, FieldSetter{header});
    values.fields(FieldSetter{message});
    return message.toString(text);
  }

  FIX::DataDictionary dictionary;
  FIX::Message message;
  FIX44::NewOrderSingle order;
  std::string text;
};

QuickFIXPeer::QuickFIXPeer() : state_(new State) {}
QuickFIXPeer::~QuickFIXPeer() = default;

int QuickFIXPeer::readFields(std::string const &text, bool hasRawData) {
  state_->message.setString(text, false, hasRawData ? &state_->dictionary : nullptr);
  return state_->message.totalFields();
}

double QuickFIXPeer::readOrder(std::string const &text) {
  using namespace FIX;
  FIX44::NewOrderSingle &order = state_->order;
  order.setString(text, false, &state_->dictionary);
  FIX::Header const &header = order.getHeader();
  std::size_t lengths =
      State::get<BeginString>(header).getValue().size() + State::get<MsgType>(header).getValue().size() +
      State::get<SenderCompID>(header).getValue().size() + State::get<TargetCompID>(header).getValue().size();
  lengths += State::get<ClOrdID>(order).getValue().size() + State::get<Account>(order).getValue().size() +
             State::get<Symbol>(order).getValue().size();
  int const numbers = State::get<BodyLength>(header).getValue() + State::get<MsgSeqNum>(header).getValue() +
                      State::get<HandlInst>(order).getValue() + State::get<Side>(order).getValue() +
                      State::get<OrdType>(order).getValue() + State::get<TransactTime>(order).getValue().getSecond();
  return State::get<OrderQty>(order).getValue() + State::get<Price>(order).getValue() + numbers +
         static_cast<double>(lengths);
}

std::string const &QuickFIXPeer::write(NewOrderSingleValues<std::string> const &values) {
  return state_->write(values);
}
std::string const &QuickFIXPeer::write(ExecutionReportValues<std::string> const &values) {
  return state_->write(values);
}
