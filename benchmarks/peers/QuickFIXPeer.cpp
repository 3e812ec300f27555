#include "benchmarks/peers/QuickFIXPeer.h"

#include <quickfix/DataDictionary.h>
#include <quickfix/Message.h>
#include <quickfix/fix44/NewOrderSingle.h>

#include <cmath>
#include <cstdio>
#include <stdexcept>

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

std::string const &QuickFIXPeer::orderLine(std::string const &text) {
  using namespace FIX;
  FIX44::NewOrderSingle &order = state_->order;
  order.setString(text, true, &state_->dictionary);
  if (State::get<MsgType>(order.getHeader()).getValue() != MsgType_NewOrderSingle) throw UnsupportedMessageType();
  ClOrdID const number = State::get<ClOrdID>(order);
  Account const account = State::get<Account>(order);
  Symbol const symbol = State::get<Symbol>(order);
  char const side = State::get<Side>(order).getValue();
  double const quantity = State::get<OrderQty>(order).getValue();
  double const price = State::get<Price>(order).getValue();
  UtcTimeStamp const time = State::get<TransactTime>(order).getValue();
  bool const isAllOrNone = order.isSetField(FIELD::ExecInst) &&
                           State::get<ExecInst>(order).getString().find(ExecInst_ALL_OR_NONE) != std::string::npos;
  std::string const note = order.isSetField(FIELD::Text) ? State::get<Text>(order).getString() : std::string();
  if (State::get<OrdType>(order).getValue() != OrdType_LIMIT || (side != Side_BUY && side != Side_SELL) ||
      quantity <= 0 || quantity != std::floor(quantity) || price <= 0)
    throw IncorrectTagValue();
  int year, month, day, hour, minute, second, millisecond;
  time.getYMD(year, month, day);
  time.getHMS(hour, minute, second, millisecond);
  char line[512];
  int const length =
      std::snprintf(line, sizeof line, "%s|%s|%s|%c|%d|%.2f|%04d%02d%02d|%04d%02d%02d-%02d:%02d:%02d|%c|%s\n",
                    number.getString().c_str(), account.getString().c_str(), symbol.getString().c_str(),
                    side == Side_BUY ? 'B' : 'S', static_cast<int>(quantity), price, year, month, day, year, month, day,
                    hour, minute, second, isAllOrNone ? 'Y' : 'N', note.c_str());
  if (length < 0 || length >= static_cast<int>(sizeof line)) throw std::length_error("A line of an order");
  return state_->text.assign(line, static_cast<std::size_t>(length));
}

std::string const &QuickFIXPeer::write(NewOrderSingleValues<std::string> const &values) {
  return state_->write(values);
}
std::string const &QuickFIXPeer::write(ExecutionReportValues<std::string> const &values) {
  return state_->write(values);
}
