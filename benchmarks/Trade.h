#pragma once

// A message of ten fields, five texts and five numbers, and the generated code that reads it.

#include "tavrone/core/Conversion.h"
#include "tavrone/dataobject/Record.h"
#include "tavrone/pipeline/InputSource.h"

namespace tavrone {

// clang-format off
template <FixedText Name>
using TradeRecord = Record<Name, Field<"A", tvstring>, Field<"B", int>, Field<"C", tvstring>, Field<"D", int>,
                           Field<"E", tvstring>, Field<"F", int>, Field<"G", tvstring>, Field<"H", int>,
                           Field<"I", tvstring>, Field<"J", int>>;
// clang-format on
using Trade = TradeRecord<"Trade">;

inline constexpr char TRADE_LINE[] = "ACME|100|XNYS|42|2024-03-01|7|BUY|123456|USD|99|";

// Each field is ended by '|'. The texts are views on one copy of the payload.
inline void parseTrade(InputSource &input, Trade &trade) {
  int length = 0;
  char const *const bytes = input.getAsBytes(length);
  tvstring const text(bytes, static_cast<size_t>(length));
  size_t from = 0;
  auto number = [](tvstring const &digits) { return t_atoi(digits.data(), digits.data() + digits.length()); };
  auto next = [&] {
    size_t const end = text.find('|', from);
    tvstring const field = text.substr(from, end - from);
    from = end + 1;
    return field;
  };
  trade.set<"A">(next());
  trade.set<"B">(number(next()));
  trade.set<"C">(next());
  trade.set<"D">(number(next()));
  trade.set<"E">(next());
  trade.set<"F">(number(next()));
  trade.set<"G">(next());
  trade.set<"H">(number(next()));
  trade.set<"I">(next());
  trade.set<"J">(number(next()));
}

}  // namespace tavrone
