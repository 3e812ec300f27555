#pragma once

#include <memory>
#include <string>

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

 private:
  struct State;
  std::unique_ptr<State> state_;
};
