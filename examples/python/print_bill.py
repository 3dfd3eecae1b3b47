#!/usr/bin/env python3
"""Prints bills from rows that are Python's own, through the module QbTdPrinter.

    tdprint register                                       # once for each user
    sqlite3 -json sample.db "select * from v_sales_order where FInterID=21002" > rows.json
    PYTHONPATH=/usr/local/share/qbtdprinter/python ./print_bill.py sqlite:sample.db 21 rows.json

The formats come from the database that the connection text names; the rows come from the file, as a
list of objects that have one member for each column. The rows of a bill stand together, and FInterID
tells the bills apart.
"""

import json
import sys

import qbtdprinter


class Field:
    """What Fields(name) answers: an object with a value."""

    def __init__(self, value):
        self.Value = value


class Rows:
    """A record set: a cursor over rows that are dictionaries. The component calls these five."""

    def __init__(self, rows):
        # Names are found without regard to case; a row may lack a column that another one has.
        self._rows = [{name.lower(): value for name, value in row.items()} for row in rows]
        self._columns = {name for row in self._rows for name in row}
        self._current = 0

    @property
    def EOF(self):
        return self._current >= len(self._rows)

    def Fields(self, name):
        # Called for every value that a format shows, so it should be quick. A column that the rows
        # don't have is an error with the usual number; what shows it stays blank.
        if name.lower() not in self._columns:
            raise qbtdprinter.Error(qbtdprinter.NO_SUCH_COLUMN, f"there is no column {name}")
        self._check_not_at_end()
        return Field(self._rows[self._current].get(name.lower()))

    def MoveNext(self):
        self._check_not_at_end()
        self._current += 1

    def MoveFirst(self):
        self._current = 0

    def Clone(self, lock_type=None):
        """A second cursor over the same rows, on the first row."""
        return Rows(self._rows)

    def _check_not_at_end(self):
        if self.EOF:
            raise qbtdprinter.Error(qbtdprinter.NO_CURRENT_ROW, "there is no current row")


def print_bills(connection, bill_type, rows):
    """Whether the document was sent to the printer."""
    at_once = True        # False shows the preview window and returns when it is closed
    only_values = False   # True when the forms are pre-printed
    border = False        # has no effect
    data = Rows(rows) if rows else None
    with qbtdprinter.create("QbTdPrinter.Printer") as printer:
        printer.call("DoPrint", at_once, connection, bill_type, only_values, border, data)
        return printer.get("PrintOk")


def main():
    if len(sys.argv) != 4:
        print("usage: print_bill.py CONNECTION BILL_TYPE ROWS.json", file=sys.stderr)
        return 2
    connection, bill_type, path = sys.argv[1:]
    try:
        with open(path, encoding="utf-8") as file:
            rows = json.load(file)
        if print_bills(connection, int(bill_type), rows):
            return 0
        print("The bills were not printed.", file=sys.stderr)
    except (qbtdprinter.Error, OSError, ValueError) as error:
        print(error, file=sys.stderr)
    return 1


if __name__ == "__main__":
    sys.exit(main())
