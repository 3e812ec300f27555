#!/usr/bin/env python3
"""Writes fix_messages.txt: a trading session in FIX 4.2 and FIX 4.4, one message a line.

Every message has a correct BodyLength (9) and CheckSum (10). Two lines are no FIX messages and two are of a version that
the example's host does not take, so that it has something to turn away. The same file comes out at every run:

    python3 make_fix_messages.py > fix_messages.txt
"""
import sys
from datetime import datetime, timedelta

SOH = "\x01"
START = datetime(2024, 3, 15, 14, 30)
STOCKS = [("IBM", 191.07), ("MSFT", 416.42), ("KO", 59.88), ("GE", 168.33), ("F", 12.11), ("XOM", 111.95)]


class Session:
    """One side of a FIX session: counts its messages and stamps their times."""

    def __init__(self, version, sender, target):
        self.version, self.sender, self.target = version, sender, target
        self.number = 0
        self.time = START

    def message(self, kind, *fields):
        self.number += 1
        self.time += timedelta(milliseconds=137)
        stamp = self.time.strftime("%Y%m%d-%H:%M:%S.") + "%03d" % (self.time.microsecond // 1000)
        header = [(35, kind), (49, self.sender), (56, self.target), (34, self.number), (52, stamp)]
        body = "".join(f"{tag}={value}{SOH}" for tag, value in [*header, *fields])
        text = f"8={self.version}{SOH}9={len(body)}{SOH}{body}"
        return f"{text}10={sum(text.encode('latin-1')) % 256:03d}{SOH}"


def trading(version, firm, exchange):
    """Messages of both sides: logon, orders with their executions, a replace, a cancel, market data, logout."""
    buy, sell = Session(version, firm, exchange), Session(version, exchange, firm)
    yield buy.message("A", (98, 0), (108, 30), (141, "Y"))
    yield sell.message("A", (98, 0), (108, 30), (141, "Y"))
    for i, (symbol, price) in enumerate(STOCKS):
        order, shares, side = f"{firm}-{i + 1:04d}", 100 * (i + 1), 1 + i % 2
        now = START.strftime("%Y%m%d-%H:%M:%S")
        yield buy.message("D", (11, order), (21, 1), (55, symbol), (54, side), (60, now), (38, shares), (40, 2),
                          (44, f"{price:.2f}"), (59, 0))
        execution = [(37, f"X{i + 1:05d}"), (11, order), (17, f"E{i + 1:05d}")]
        if version == "FIX.4.2":
            execution += [(20, 0)]
        yield sell.message("8", *execution, (150, 0), (39, 0), (55, symbol), (54, side), (38, shares), (151, shares),
                           (14, 0), (6, 0))
        yield sell.message("8", *execution, (150, 2 if version == "FIX.4.2" else "F"), (39, 2), (55, symbol),
                           (54, side), (38, shares), (32, shares), (31, f"{price:.2f}"), (151, 0), (14, shares),
                           (6, f"{price:.2f}"))
        if i % 2:
            yield buy.message("0")
            yield sell.message("0", (112, f"PING{i}"))
    yield buy.message("G", (41, f"{firm}-0001"), (11, f"{firm}-0101"), (21, 1), (55, "IBM"), (54, 1),
                      (60, START.strftime("%Y%m%d-%H:%M:%S")), (38, 200), (40, 2), (44, "191.10"))
    yield buy.message("F", (41, f"{firm}-0101"), (11, f"{firm}-0102"), (55, "IBM"), (54, 1),
                      (60, START.strftime("%Y%m%d-%H:%M:%S")), (38, 200))
    yield buy.message("V", (262, f"MD-{firm}"), (263, 1), (264, 1), (267, 2), (269, 0), (269, 1), (146, 1), (55, "IBM"))
    yield sell.message("W", (262, f"MD-{firm}"), (55, "IBM"), (268, 2), (269, 0), (270, "191.05"), (271, 300),
                       (269, 1), (270, "191.09"), (271, 500))
    yield sell.message("3", (45, buy.number), (371, 44), (373, 5), (58, "Price out of range"))
    yield buy.message("5", (58, "End of day"))


def main():
    lines = list(trading("FIX.4.2", "BROKER", "EXCHANGE")) + list(trading("FIX.4.4", "FUND", "VENUE"))
    other = Session("FIX.4.3", "LEGACY", "VENUE")
    lines[10:10] = ["20240315 14:30:01 heartbeat lost, reconnecting"]
    lines[30:30] = [other.message("A", (98, 0), (108, 30))]
    lines[50:50] = [other.message("5"), "ISO8583 0200 4000001234562000"]
    sys.stdout.buffer.write("".join(line + "\n" for line in lines).encode("latin-1"))


main()
