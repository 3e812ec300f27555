#pragma once

#include <random>
#include <string>

// The values of messages that several libraries write. fields() lists them with their tags, as numbers and as text, in
// the order that all of them can write. Text is the library's own string. C++14, as the peers need.

class FIXValues {
 public:
  template <class Text>
  Text word(size_t least, size_t most) {
    static constexpr char LETTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    std::string text;
    for (size_t n = least + random_() % (most - least + 1); n != 0; --n) text += LETTERS[random_() % 36];
    return Text(text.data(), text.size());
  }
  template <class Text>
  Text time() {
    std::string const text =
        "20260105-09:" + std::to_string(10 + random_() % 50) + ":" + std::to_string(10 + random_() % 50);
    return Text(text.data(), text.size());
  }
  int number(unsigned limit) { return static_cast<int>(random_() % limit); }
  char digit(unsigned limit) { return static_cast<char>('1' + random_() % limit); }
  // With two decimals, the last of which is no zero.
  double price() { return static_cast<double>(random_() % 10000 * 10 + 1 + random_() % 9) / 100; }

 private:
  std::mt19937 random_{20260105};
};

template <class Text>
struct FIXMessageValues {
  explicit FIXMessageValues(FIXValues &v)
      : number(v.number(100000)),
        sender(v.word<Text>(3, 9)),
        time(v.time<Text>()),
        target(v.word<Text>(3, 9)),
        account(v.word<Text>(4, 10)),
        clOrdID(v.word<Text>(6, 16)),
        quantity(v.number(100000)),
        price(v.price()),
        side(v.digit(2)),
        symbol(v.word<Text>(1, 5)) {}

  template <class Field>
  void headerFields(char type, Field const &field) const {
    field(35, "35", type);
    field(34, "34", number);
    field(49, "49", sender);
    field(52, "52", time);
    field(56, "56", target);
  }

  int number;
  Text sender, time, target, account, clOrdID;
  int quantity;
  double price;
  char side;
  Text symbol;
};

// 17 fields with BeginString, BodyLength and CheckSum, about 170 bytes.
template <class Text>
struct NewOrderSingleValues : FIXMessageValues<Text> {
  static constexpr char TYPE = 'D';
  using FIXMessageValues<Text>::FIXMessageValues;

  template <class Field>
  void fields(Field const &field) const {
    field(1, "1", this->account);
    field(11, "11", this->clOrdID);
    field(21, "21", '1');
    field(38, "38", this->quantity);
    field(40, "40", '2');
    field(44, "44", this->price);
    field(54, "54", this->side);
    field(55, "55", this->symbol);
    field(60, "60", this->time);
  }
};

// 32 fields, about 300 bytes.
template <class Text>
struct ExecutionReportValues : FIXMessageValues<Text> {
  static constexpr char TYPE = '8';
  explicit ExecutionReportValues(FIXValues &v)
      : FIXMessageValues<Text>(v),
        average(v.price()),
        last(v.price()),
        commission(v.price()),
        filled(v.number(100000)),
        lastQuantity(v.number(10000)),
        left(v.number(10000)),
        execID(v.word<Text>(8, 12)),
        market(v.word<Text>(3, 4)),
        orderID(v.word<Text>(8, 14)),
        security(v.word<Text>(9, 12)),
        text(v.word<Text>(1, 40)),
        date("20260105", 8) {}

  template <class Field>
  void fields(Field const &field) const {
    field(1, "1", this->account);
    field(6, "6", average);
    field(11, "11", this->clOrdID);
    field(12, "12", commission);
    field(14, "14", filled);
    field(17, "17", execID);
    field(22, "22", '4');
    field(30, "30", market);
    field(31, "31", last);
    field(32, "32", lastQuantity);
    field(37, "37", orderID);
    field(38, "38", this->quantity);
    field(39, "39", this->side);
    field(40, "40", '2');
    field(44, "44", this->price);
    field(48, "48", security);
    field(54, "54", this->side);
    field(55, "55", this->symbol);
    field(58, "58", text);
    field(59, "59", '0');
    field(60, "60", this->time);
    field(75, "75", date);
    field(150, "150", 'F');
    field(151, "151", left);
  }

  double average, last, commission;
  int filled, lastQuantity, left;
  Text execID, market, orderID, security, text, date;
};
