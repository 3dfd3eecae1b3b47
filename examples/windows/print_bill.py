"""Prints a bill from Python on Windows, with rows of the program's own.

    regsvr32 QbTdPrinter.dll                       once, see README.txt
    pip install pywin32
    python print_bill.py sqlite:C:\\shop\\sample.db 21

A 64-bit Python needs the DLL of the folder x64, a 32-bit one that of x86.
"""

import sys

import pythoncom
import win32com.client
from win32com.server.exception import COMException
from win32com.server.util import wrap

NO_SUCH_COLUMN = 0x800A0CC1 - 0x100000000  # what shows such a column stays blank


class Field:
    """What Fields(name) answers."""

    _public_methods_ = []
    _public_attrs_ = ["Value"]

    def __init__(self, value):
        self.Value = value


class Rows:
    """A record set over dictionaries: the component calls these five members."""

    _public_methods_ = ["Fields", "MoveNext", "MoveFirst", "Clone"]
    _public_attrs_ = ["EOF"]

    def __init__(self, rows):
        self._rows = rows
        self._current = 0

    @property
    def EOF(self):
        return self._current >= len(self._rows)

    def Fields(self, name):
        # Called for every value that a format shows, so it should be quick.
        for column, value in self._rows[self._current].items():
            if column.lower() == name.lower():
                return wrap(Field(value))
        raise COMException(f"there is no column {name}", scode=NO_SUCH_COLUMN)

    def MoveNext(self):
        self._current += 1

    def MoveFirst(self):
        self._current = 0

    def Clone(self):
        """A second cursor over the same rows."""
        return wrap(Rows(self._rows))


def main():
    if len(sys.argv) < 3:
        print("usage: print_bill.py CONNECTION BILLTYPE [FORMAT]", file=sys.stderr)
        return 2
    connection, bill_type = sys.argv[1], int(sys.argv[2])
    bill_format = sys.argv[3] if len(sys.argv) > 3 else ""
    # FInterID tells the bills apart; the rows of a bill stand together.
    rows = [
        {"FInterID": 1, "FEntryID": 1, "FBillNo": "XD-0001", "FItemName": "禾田珍珠米", "FQty": 25},
        {"FInterID": 1, "FEntryID": 2, "FBillNo": "XD-0001", "FItemName": "精制食盐", "FQty": 10},
    ]
    try:
        session = win32com.client.Dispatch("QbTdPrinter.Session")
        session.DoPrint(True, connection, bill_type, False, False, wrap(Rows(rows)), bill_format)
        if not session.Delivered:
            print("not printed:", session.Messages, file=sys.stderr)
            return 1
        print("printed, pages:", session.Pages)
        return 0
    except pythoncom.com_error as error:
        print("not printed:", error, file=sys.stderr)
        return 1


if __name__ == "__main__":
    sys.exit(main())
