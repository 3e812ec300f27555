#!/usr/bin/env python3
"""Writes fix_session.txt: the order entry side of a day's FIX 4.4 session, one message a line.

Over a thousand messages, mostly NewOrderSingles, with a logon, heartbeats and a logout between them. Every message has
a correct BodyLength (9) and CheckSum (10), but for every hundredth or so, which was damaged on its way: a byte changed,
a field lost, the end cut off, two digits that changed places, a length of another message. The same file comes out at
every run:

    python3 make_fix_session.py > fix_session.txt
"""
import random
import sys
from datetime import datetime, timedelta

SOH = "\x01"
STOCKS = [("IBM", 191), ("MSFT", 416), ("KO", 59), ("GE", 168), ("F", 12), ("XOM", 111), ("T", 17), ("BRK", 402)]
DESKS = ["AB", "CD", "NYC", "FUND"]
NOTES = ["CALL DESK FIRST", "WORK OVER THE DAY", "NOT BEFORE 10", "PART OF A BASKET"]


class Session:
    def __init__(self, seed):
        self.random = random.Random(seed)
        self.number = 0
        self.time = datetime(2024, 3, 15, 13, 30)

    def message(self, kind, *fields):
        self.number += 1
        self.time += timedelta(milliseconds=self.random.randrange(40, 9000))
        stamp = self.time.strftime("%Y%m%d-%H:%M:%S.") + "%03d" % (self.time.microsecond // 1000)
        header = [(35, kind), (49, "FLOOR"), (56, "GATEWAY"), (34, self.number), (52, stamp)]
        return sealed([*header, *fields])

    def order(self, i):
        pick = self.random
        symbol, price = pick.choice(STOCKS)
        is_market = pick.random() < 0.2
        # Three of four prices are in eighths; of the rest some have a zero at the end, which no number keeps.
        price = f"{price + pick.randrange(1, 64) / 8:g}" if pick.random() < 0.75 else f"{price + pick.random():.2f}"
        fields = [(11, f"{pick.choice(DESKS)}-{i:04d}")]
        if pick.random() < 0.3:
            fields += [(453, 2), (448, "TRADER7"), (447, "D"), (452, 12), (448, "CLEAR1"), (447, "D"), (452, 4)]
        if pick.random() < 0.8:
            fields += [(1, f"{pick.choice(['FB', 'PB'])}-{pick.randrange(100, 999)}")]
        if pick.random() < 0.1:
            fields += [(78, 2), (79, "FUND-A"), (80, 100), (79, "FUND-B"), (80, 250.5)]
        fields += [(21, 1)]
        if pick.random() < 0.15:
            fields += [(18, "G")]
        fields += [(55, symbol), (54, pick.choice([1, 2])), (60, self.time.strftime("%Y%m%d-%H:%M:%S")),
                   (38, 100 * pick.randrange(1, 60)), (40, 1 if is_market else 2)]
        if not is_market:
            fields += [(44, price)]
        if pick.random() < 0.3:
            fields += [(15, "USD")]
        fields += [(59, pick.choice([0, 0, 1, 3]))]
        if pick.random() < 0.2:
            fields += [(58, pick.choice(NOTES))]
        return self.message("D", *fields)


def sealed(fields):
    body = "".join(f"{tag}={value}{SOH}" for tag, value in fields)
    text = f"8=FIX.4.4{SOH}9={len(body)}{SOH}{body}"
    return f"{text}10={sum(text.encode('latin-1')) % 256:03d}{SOH}"


def changed(text, old, new):
    assert old in text
    return text.replace(old, new, 1)


# What happens to a message on its way.
DAMAGES = [
    lambda text: changed(text, SOH + "38=", SOH + "38=9"),
    lambda text: text[: len(text) // 2],
    lambda text: changed(text, SOH + "55=", SOH + "55=~"),
    lambda text: changed(text, SOH + "59=0", "") if SOH + "59=0" in text else text[:-1],
    lambda text: changed(text, SOH + "9=", SOH + "9=1"),
    lambda text: changed(text, "=", "@"),
    lambda text: changed(text, SOH + "54=1", SOH + "54=2") if SOH + "54=1" in text else changed(text, "54=2", "54=1"),
    lambda text: changed(text, SOH + "40=", SOH + "4O="),
    lambda text: changed(text, SOH + "11=", SOH + "11=A" + SOH + "11="),
    lambda text: changed(text, "8=FIX.4.4", "8=F1X.4.4"),
]


def main():
    session = Session(20240315)
    lines = [session.message("A", (98, 0), (108, 30), (141, "Y"))]
    for i in range(1, 1101):
        line = session.order(i)
        lines.append(DAMAGES[i // 91 % len(DAMAGES)](line) if i % 91 == 0 else line)
        if i % 40 == 0:
            lines.append(session.message("0"))
    # Whole messages that the rules refuse: no order to buy or sell, half a share, a limit without a price.
    now = (60, session.time.strftime("%Y%m%d-%H:%M:%S"))
    lines.append(session.message("D", (11, "AB-2001"), (55, "IBM"), (54, 5), now, (38, 100), (40, 1)))
    lines.append(session.message("D", (11, "AB-2002"), (55, "IBM"), (54, 1), now, (38, 0.5), (40, 1)))
    lines.append(session.message("D", (11, "AB-2003"), (55, "IBM"), (54, 1), now, (38, 100), (40, 2)))
    lines.append(session.message("D", (11, "AB-2004"), (55, "IBM"), (54, 1), now, (38, 100), (40, 3), (99, 190)))
    lines.append(session.message("5", (58, "End of day")))
    sys.stdout.buffer.write("".join(line + "\n" for line in lines).encode("latin-1"))


main()
