#!/usr/bin/env python3
"""Prints bills into a PDF file from rows that are Python's own, without a display and a printer.

    tdprint register                                       # once for each user
    sqlite3 -json sample.db "select * from v_sales_order where FInterID=21002" > rows.json
    PYTHONPATH=/usr/local/share/qbtdprinter/python ./bill_to_pdf.py sqlite:sample.db 21 rows.json bill.pdf

QbTdPrinter.Session prints as QbTdPrinter.Printer does, to an output of the program's choice, tells
the program of each page, and afterwards what became of the document. Its messages are collected, so
that the program can say in its own words what went wrong.
"""

import json
import sys

import qbtdprinter

from print_bill import Rows

COLLECTED = 2


class Progress:
    """Is called while a print runs. An answer of False would end it, as would an exception."""

    def OnPage(self, page):
        print(f"page {page} is ready", file=sys.stderr)

    def OnLockWait(self, seconds):
        if seconds < 1:
            print("another program is writing, please wait", file=sys.stderr)


def print_bills(connection, bill_type, rows, pdf):
    """Raises an error, or returns what there is to say: to the clerk and to the administrator."""
    with qbtdprinter.create("QbTdPrinter.Session") as session:
        session.call("ToPdf", pdf)
        session.put("MessageMode", COLLECTED)
        session.put("LockWaitLimit", 10)
        session.put("Progress", Progress())
        session.put("Explain", True)
        session.call("DoPrint", True, connection, bill_type, False, False, Rows(rows))
        messages = [(session.get("Message", number), session.get("MessagePlace", number))
                    for number in range(1, session.get("MessageCount") + 1)]
        if not session.get("Delivered"):
            return f"Sorry, {pdf} was not made.", messages
        if messages:
            return f"{pdf} is there, but look whether something is missing.", messages
        return None, session.get("Explanation")


def main():
    if len(sys.argv) != 5:
        print("usage: bill_to_pdf.py CONNECTION BILL_TYPE ROWS.json PDF", file=sys.stderr)
        return 2
    connection, bill_type, path, pdf = sys.argv[1:]
    try:
        with open(path, encoding="utf-8") as file:
            rows = json.load(file)
        trouble, details = print_bills(connection, int(bill_type), rows, pdf)
    except (qbtdprinter.Error, OSError, ValueError) as error:
        print(f"Sorry, printing could not begin. The reason: {error}", file=sys.stderr)
        return 1
    if trouble is None:
        print(details, end="")
        return 0
    print(trouble, file=sys.stderr)
    for message, place in details:
        print(f"  {message} ({place})", file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
