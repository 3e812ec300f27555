#pragma once

// An order with its legs, declared in a line a field. GeneratedOrder.h is the same message written out in full.

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// clang-format off
struct Leg : Record<"Leg",
                    Field<"Symbol", tvstring>,
                    Field<"Ratio", int>,
                    Field<"Price", double>> {};

struct Order : Record<"Order",
                      Field<"OrderID", tvstring>,
                      Field<"Account", tvstring>,
                      Field<"Symbol", tvstring>,
                      Field<"Side", char>,
                      Field<"Quantity", int>,
                      Field<"ExecutedQuantity", long long>,
                      Field<"Price", double>,
                      Field<"Rate", float>,
                      Field<"Notional", BigDecimal>,
                      Field<"TradeDate", DateOnly>,
                      Field<"TransactTime", DateTime>,
                      Field<"AllOrNone", bool>,
                      Field<"Signature", Binary>,
                      Field<"Text", tvstring>,
                      Section<"Legs", Leg, 0, 100>> {};
// clang-format on

}  // namespace examples
