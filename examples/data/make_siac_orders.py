#!/usr/bin/env python3
"""Writes siac_orders.txt: SIAC Canonical orders, one a line, some with legs, some without CheckSum, some broken.

    python3 make_siac_orders.py > siac_orders.txt
"""
import sys

SOH = "\x01"


def message(number, fields, has_sum=True, length=None):
    header = [(25001, 32 if has_sum else 33), (10003, "ORD"), (10005, "DESK"), (10006, "FLOOR"), (10007, number)]
    body = "".join(f"{tag}={value}{SOH}" for tag, value in [*header, *fields])
    text = f"10001=Canonical{SOH}10002={len(body) if length is None else length}{SOH}{body}"
    return text + (f"10={sum(text.encode('latin-1')) % 256:03d}{SOH}" if has_sum else "")


def order(number, symbol, side, quantity, price, legs=(), all_or_none="N"):
    fields = [(11001, f"SF-{number:04d}"), (11002, symbol), (11003, side), (11004, quantity)]
    if price is not None:
        fields.append((11005, price))
    fields += [(11006, "20240315-14:%02d:00" % (number % 60)), (11007, all_or_none), (11008, f"PB-{100 + number}")]
    if legs:
        fields.append((11020, "{"))
        for leg in legs:
            fields += [*zip((11021, 11022, 11023), leg), (26999, " ")]
        fields.append((26000, "}"))
    return fields


def main():
    spread = [("F", 1, 12.125), ("KO", -2, 59.875)]
    stocks = [("IBM", 191.125), ("KO", 59.875), ("GE", 168.5), ("F", 12.25), ("XOM", None)]
    lines = [message(i, order(i, *stocks[i % 5][:1], "BS"[i % 2], 100 * i, stocks[i % 5][1]), has_sum=i % 4 != 0)
             for i in range(1, 21)]
    lines += [message(i, order(i, "SPREAD", "B", 300, 2.75, spread, "Y")) for i in range(21, 25)]
    lines += [
        message(25, order(25, "IBM", "B", 100, 191)).replace("11004=100", "11004=900"),
        message(26, order(26, "IBM", "B", 100, 191), has_sum=False, length=12),
        message(27, order(27, "SPREAD", "B", 300, 2.75, spread)[:-1]),
        message(28, order(28, "SPREAD", "B", 300, 2.75, spread)[:10]),
        message(29, order(29, "IBM", "X", 0, 191)),
        message(30, [*order(30, "IBM", "B", 100, 191), (11020, 2)]),
        message(31, [*order(31, "IBM", "B", 100, 191), (11020, "{"), (11009, "x"), (26000, "}")]),
    ]
    sys.stdout.buffer.write("".join(line + "\n" for line in lines).encode("latin-1"))


main()
