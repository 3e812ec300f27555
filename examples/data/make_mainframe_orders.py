#!/usr/bin/env python3
"""Writes mainframe_orders.bin and mainframe_orders_broken.bin beside itself: records of a mainframe, with binary fields.

mainframe_orders.bin is a good file. mainframe_orders_broken.bin is the same file with failures of every kind. The layout
is that of examples/messages/MainframeOrder.h. The same files come out at every run:

    python3 make_mainframe_orders.py
"""
import base64
import hashlib
import struct
from pathlib import Path

LENGTH = 116
SYMBOL, PRICE, DAY, ALL_OR_NONE, SIGNATURE, TOKEN = 20, 45, 58, 71, 76, 92  # where fields begin

ORDERS = [("F-0001", "AB-1001", "ACME", "B", 500, 0, 41235, "20240315", "093005", True),
          ("F-0002", "AB-1002", "NORTH", "S", 1200, 200, 1750, "20240315", "093140", False),
          ("F-0003", "CD-2001", "ACME A", "B", 75, 75, 9806, "20240315", "100211", False),
          ("F-0004", "CD-2001", "HARBOUR", "S", 40, 0, 120475, "20240315", "111500", True),
          ("F-0005", "EF-3001", "LIND", "B", 70000, 9000000000, 99, "20240315", "155959", False)]


def text(value, width):
    return f"{value:<{width}}".encode("ascii")


def packed(value, digits):
    return bytes.fromhex(f"{abs(value):0{digits}d}" + ("D" if value < 0 else "C"))


def record(order, account, symbol, side, quantity, executed, price, day, time, all_or_none):
    digest = hashlib.sha256(order.encode("ascii")).digest()
    fields = (struct.pack(">h", 17), text(order, 8), text(account, 10), text(symbol, 12), text(side, 1),
              struct.pack(">iq", quantity, executed), packed(price, 9), packed(quantity * price, 15),
              packed(int(day), 9), packed(int(day + time), 15), struct.pack(">?f", all_or_none, 1.0625),
              digest[:8].hex().upper().encode("ascii"), base64.b64encode(digest[8:24]))
    whole = b"".join(fields)
    assert len(whole) == LENGTH, len(whole)
    return whole


def replaced(whole, at, value):
    return whole[:at] + value + whole[at + len(value):]


def broken(records):
    records = list(records)
    records[0] = replaced(records[0], PRICE + 4, b"\x51")          # no such sign
    records[0] = replaced(records[0], DAY, packed(20241315, 9))    # no such month
    records[1] = replaced(records[1], 0, b"\x00\x12")              # no such record
    records[1] = replaced(records[1], SIGNATURE, b"XY")            # not hexadecimal
    records[2] = replaced(records[2], SYMBOL, text("", 12))        # nothing at all
    records[2] = replaced(records[2], TOKEN + 5, b"*")             # not base 64
    records[3] = replaced(records[3], DAY, packed(240315, 9))      # a year of two digits
    records[4] = records[4][:100]                                  # cut
    return records


def main():
    folder = Path(__file__).parent
    good = [record(*order) for order in ORDERS]
    (folder / "mainframe_orders.bin").write_bytes(b"".join(good))
    (folder / "mainframe_orders_broken.bin").write_bytes(b"".join(broken(good)))


if __name__ == "__main__":
    main()
