#!/usr/bin/env python3
"""Writes payments.txt and payments_broken.txt beside itself: a bank's payments of one day, a record a line.

payments.txt is a good file. payments_broken.txt is the same file with failures of every kind, each in a line of its own.
The layout is that of examples/messages/PaymentFile.h. The same files come out at every run:

    python3 make_payments.py
"""
from pathlib import Path

COMPANIES = [("ACME SUPPLIES", "1840055501", 220, "PAYROLL"), ("NORTH POWER", "1840055502", 225, "UTILITIES"),
             ("HARBOUR TOOLS", "1840055503", 200, "SETTLEMENT")]
NAMES = ["ANNA BERG", "JOHN SMITH", "MARIA ROSSI", "PETER NOVAK", "LUCY CHEN", "OMAR HADDAD", "EVA LIND", "TOM BAKER"]
BANKS = ["07100001", "02100002", "12200049", "03110020"]


def number(value, width):
    return f"{value:0{width}d}"


def text(value, width):
    return f"{value:<{width}}"


def line(*fields):
    record = "".join(fields)
    assert len(record) == 94, (len(record), record)
    return record


class Totals:
    def __init__(self):
        self.batches = self.entries = self.hash = self.debit = self.credit = 0

    def add(self, bank, code, amount):
        self.entries += 1
        self.hash = (self.hash + int(bank)) % 10**10
        if code % 10 == 7:
            self.debit += amount
        else:
            self.credit += amount

    def sums(self):
        return number(self.hash, 10), number(self.debit, 12), number(self.credit, 12)


def payments():
    file = Totals()
    yield line("1", text("0210000021", 10), text("0310000031", 10), "202403151430", "A", text("FIRST HARBOUR BANK", 23),
               text("NORTHERN CLEARING", 23), text("PAY-0315", 8), text("", 6))
    trace = 0
    for batch, (company, company_id, service_class, description) in enumerate(COMPANIES, 1):
        totals = Totals()
        yield line("5", text(company, 16), text(company_id, 10), number(service_class, 3), text(description, 10),
                   "20240318", BANKS[0], number(batch, 7), text("", 31))
        for i in range(4 + 4 * batch):
            trace += 1
            code = {220: 22, 225: 27}.get(service_class, (22, 27, 32, 37)[i % 4])
            bank = BANKS[(i * 3 + batch) % len(BANKS)]
            amount = 1250 + trace * 7919 % 250000
            totals.add(bank, code, amount)
            file.add(bank, code, amount)
            yield line("6", number(code, 2), bank, str(sum(map(int, bank)) * 7 % 10), text(f"{40001000 + trace * 137}", 17),
                       number(amount, 10), text(f"ID-{trace:05d}", 15), text(NAMES[trace % len(NAMES)], 22), "  ", "0",
                       number(int(BANKS[0]) * 10**7 + trace, 15))
        yield line("8", number(service_class, 3), number(totals.entries, 6), *totals.sums(), text(company_id, 10), BANKS[0],
                   number(batch, 7), text("", 25))
        file.batches += 1
    yield line("9", number(file.batches, 6), number(file.entries, 8), *file.sums(), text("", 45))


def replaced(record, at, value):
    return record[:at] + value + record[at + len(value):]


def broken(lines):
    lines = list(lines)
    lines[0] = replaced(lines[0], 21, "20241315")       # no such month
    lines[2] = replaced(lines[2], 1, "99")              # no such transaction code
    lines[4] = replaced(lines[4], 30, "12.50")          # an amount is digits only
    lines[6] = lines[6][:50]                            # cut
    lines[8] = lines[8] + "X"                           # too long
    lines[9] = replaced(lines[9], 79, "-00000000000001")
    lines[10] = replaced(lines[10], 0, "7")             # no such record, and so a batch without a control
    lines[11] = replaced(lines[11], 40, "2024 318")     # not a date
    lines[24] = replaced(lines[24], 20, "000000000001") # the sum of the debits; the credits go unread
    lines[28] = replaced(lines[28], 3, "0710000A")      # not a bank
    lines[31] = ""                                      # nothing at all
    lines[42] = replaced(lines[42], 1, "2x0")           # not a service class
    del lines[43]                                       # no file control
    return lines


def main():
    folder = Path(__file__).parent
    good = list(payments())
    (folder / "payments.txt").write_text("\n".join(good) + "\n")
    (folder / "payments_broken.txt").write_text("\n".join(broken(good)) + "\n")


if __name__ == "__main__":
    main()
