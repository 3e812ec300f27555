#!/usr/bin/env python3
"""Writes orders.txt and broken_orders.txt beside itself: orders of one trading day, one a line.

orders.txt is what a desk gets on a usual day: nearly all orders are good, a few are not. In broken_orders.txt every line
is broken, each in a way of its own. The same files come out at every run:

    python3 make_orders.py
"""
from pathlib import Path

DAY = "20240315"
STOCKS = [("IBM", "191.07"), ("MSFT", "416.42"), ("KO", "59.88"), ("GE", "168.33"), ("F", "12.11"), ("XOM", "111.95")]
COLUMNS = ["id", "account", "symbol", "side", "quantity", "price", "date", "time", "all_or_none", "legs", "text"]


def order(number, **changes):
    """A good order, with the given columns changed."""
    symbol, price = STOCKS[number % len(STOCKS)]
    time = f"{DAY}-{14 + number // 60:02d}:{number % 60:02d}:{number * 7 % 60:02d}"
    values = {"id": f"ORD-{1000 + number}", "account": f"{'PF'[number % 2]}B-{100 + number * 37 % 900}", "symbol": symbol,
              "side": "BS"[number * 3 // 2 % 2], "quantity": 100 * (1 + number * number % 23), "price": price, "date": DAY,
              "time": time, "all_or_none": "", "legs": "", "text": ""}
    if number % 5 == 0:
        values.update(date="", all_or_none="true")
    if number % 7 == 0:
        values.update(symbol="SPREAD", price="2.75", legs=f"{symbol}:1:{price},KO:-2:59.88", text="Calendar spread")
    if number % 11 == 0:
        values.update(quantity=25000, text="Work over the day")
    return line({**values, **changes})


def line(values):
    return "|".join(str(values[column]) for column in COLUMNS).encode("latin-1")


def usual_day():
    lines = [order(number) for number in range(1, 41)]
    lines[6] = order(7, side="X", quantity=-100)             # two checks fail at once
    lines[13] = order(14, quantity="1,500")                  # not a number
    lines[22] = order(23, account="")                        # required
    lines[30] = order(31, text="Sold; see yesterday's note") # good, but the ticket has no way to write it
    return lines


def broken_orders():
    yield b"20240315 14:30:01 connection lost, reconnecting"
    yield b"|".join([b""] * len(COLUMNS))
    yield b"||||||||||||"
    yield order(50, account="", time="")
    yield order(51, account="12-PB", quantity=2000000, price="-3.5", date="20240314")
    yield order(52, quantity="99999999999", price="1.2.3", date="2024-03-15")
    yield order(53, side="BUY", all_or_none="perhaps")
    yield order(54, price="NaN")
    yield order(55, date="20240230")
    yield order(56, time="20240315-25:61:00")
    yield order(57, legs="IBM:1:191.07,KO:-2")
    yield order(58, legs="IBM:0:191.07,KO:1:59.88")
    yield order(59, account="PB-\x00\xff\x1b[2J")
    yield order(60, price="1e999999")
    yield order(61, quantity="1" * 5000)


def main():
    here = Path(__file__).parent
    (here / "orders.txt").write_bytes(b"".join(text + b"\n" for text in usual_day()))
    (here / "broken_orders.txt").write_bytes(b"".join(text + b"\n" for text in broken_orders()))


main()
