#pragma once

#include <memory>
#include <string>

#include "benchmarks/peers/FIXMessages.h"

// QuickFIX behind a plain interface: its headers need C++14, whose throw(...) lists are gone since.
class QuickFIXPeer {
 public:
  QuickFIXPeer();
  ~QuickFIXPeer();

  // Message::setString without validation; the fields that the message holds then. Fields of raw data need a
  // dictionary that knows them.
  int readFields(std::string const &text, bool hasRawData);

  // A NewOrderSingle read with a dictionary, and its fields by typed getters; the sum of what is a number.
  double readOrder(std::string const &text);

  // A NewOrderSingle read so, its BodyLength, CheckSum and the fields of an order checked, and written as a line:
  // order|account|symbol|B or S|quantity|price|day|time|Y or N for all or none|text. The line is good until the next
  // call.
  std::string const &orderLine(std::string const &text);

  // The message built from its values by typed fields, and its text with BodyLength and CheckSum. The text is good
  // until the next call; message and text use their room again.
  std::string const &write(NewOrderSingleValues<std::string> const &values);
  std::string const &write(ExecutionReportValues<std::string> const &values);

 private:
  struct State;
  std::unique_ptr<State> state_;
};
