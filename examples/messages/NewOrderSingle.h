#pragma once

// NewOrderSingle of FIX 4.4, message type D, with the fields of a plain order. Its parser and its writer have headers
// of their own.

#include "tavrone/tavrone.h"

namespace examples {

using namespace tavrone;

// clang-format off
struct OrderParty : Record<"OrderParty",
                           Field<"PartyID", tvstring>,          // 448
                           Field<"PartyIDSource", char>,        // 447
                           Field<"PartyRole", int>> {};         // 452

struct OrderAllocation : Record<"OrderAllocation",
                                Field<"AllocAccount", tvstring>,  // 79
                                Field<"AllocQty", double>> {};    // 80

struct NewOrderSingle : Record<"NewOrderSingle",
                               Field<"ClOrdID", tvstring>,        // 11
                               Section<"PartyIDs", OrderParty>,   // 453
                               Field<"Account", tvstring>,        // 1
                               Section<"Allocs", OrderAllocation>,  // 78
                               Field<"HandlInst", char>,          // 21
                               Field<"ExecInst", tvstring>,       // 18
                               Field<"Symbol", tvstring>,         // 55
                               Field<"Side", char>,               // 54
                               Field<"TransactTime", DateTime>,   // 60
                               Field<"OrderQty", double>,         // 38
                               Field<"OrdType", char>,            // 40
                               Field<"Price", double>,            // 44
                               Field<"StopPx", double>,           // 99
                               Field<"Currency", tvstring>,       // 15
                               Field<"TimeInForce", char>,        // 59
                               Field<"Text", tvstring>,           // 58
                               Field<"EncodedText", Binary>> {};  // 355, its length 354
// clang-format on

}  // namespace examples
