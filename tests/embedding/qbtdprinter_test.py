"""The helper for Python programs: what crosses the boundary in both directions."""

import datetime
import decimal
import gc
import os
import pathlib
import tempfile
import threading
import unittest

import print_bill
import qbtdprinter
from qbtdprinter import _values

SAMPLE = pathlib.Path(os.environ["XDG_DATA_HOME"]).parent / "sample.db"
EXPORT = pathlib.Path(os.environ["QBTDPRINTER_STATE_DIR"]) / "订单.html"


class Field:
    def __init__(self, value):
        self.value = value


class Rows:
    """One line of an order, with members in another case than usual, and no Clone."""

    def __init__(self, **columns):
        self.columns = {"FInterID": 7, **columns}
        self.current = 0
        self.asked = []

    @property
    def eof(self):
        return self.current > 0

    def fields(self, name):
        self.asked.append(name)
        for column, value in self.columns.items():
            if column.lower() == name.lower():
                if isinstance(value, Exception):
                    raise value
                return Field(value)
        raise qbtdprinter.Error(qbtdprinter.NO_SUCH_COLUMN)

    def movenext(self):
        self.current += 1

    def movefirst(self):
        self.current = 0


class Printing(unittest.TestCase):
    def setUp(self):
        self.printer = qbtdprinter.create("qbtdprinter.PRINTER")

    def tearDown(self):
        self.printer.close()
        gc.collect()
        self.assertEqual(_values._own_objects, {}, "objects were not given back")

    def print(self, data, *more):
        self.printer.call("DoPrint", True, f"sqlite:{SAMPLE}", 21, False, False, data, *more)
        return EXPORT.read_text(encoding="utf-8")

    def test_values_of_each_kind_are_printed(self):
        page = self.print(Rows(FBillNo="A-1", FItemName="米", FQty=3, FPrice=2.5,
                               FAmount=decimal.Decimal("7.50"), FDate=datetime.date(2024, 3, 1)))
        for text in ("A-1", "米", "7.50", "2024-03-01"):
            self.assertIn(text, page)
        self.assertTrue(self.printer.get("printok"))

    def test_null_and_missing_columns_are_left_out(self):
        page = self.print(Rows(FBillNo=None, FItemName="盐"))
        self.assertIn("盐", page)

    def test_an_error_of_the_data_reaches_the_component_and_comes_back_as_a_message_only(self):
        page = self.print(Rows(FItemName="糖", FBillNo=ValueError("broken")))
        self.assertIn("糖", page)

    def test_a_property_is_written(self):
        self.printer.put("PrintBlankRows", 1)
        self.assertNotIn("茶", self.print(Rows(FItemName="茶")))
        self.assertIn("茶", self.print(Rows(FItemName="茶")))

    def test_nothing_as_data_is_an_error_with_number_and_description(self):
        with self.assertRaises(qbtdprinter.Error) as raised:
            self.print(None)
        self.assertEqual(raised.exception.number, qbtdprinter.NOTHING_TO_PRINT)
        self.assertEqual(raised.exception.description, "没有可供打印的数据!")

    def test_wrong_calls_are_told_apart(self):
        for number, call in ((0x80020006, lambda: self.printer.call("Copy")),
                             (0x80020006, lambda: self.printer.get("Copy")),
                             (0x80020005, lambda: self.print(7))):
            with self.assertRaises(qbtdprinter.Error) as raised:
                call()
            self.assertEqual(raised.exception.number, number)

    def test_another_thread_gets_an_error(self):
        errors = []

        def read():
            try:
                self.printer.get("PrintOk")
            except qbtdprinter.Error as error:
                errors.append(error.number)

        thread = threading.Thread(target=read)
        thread.start()
        thread.join()
        self.assertEqual(errors, [0x8001010E])

    def test_a_closed_object_is_not_called(self):
        with qbtdprinter.create("QbTdPrinter.TDSet") as settings:
            pass
        with self.assertRaises(ValueError):
            settings.call("TDSet", "", 21)


class Sessions(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.pdf = pathlib.Path(self.folder.name) / "order.pdf"
        self.session = qbtdprinter.create("QbTdPrinter.Session")
        self.session.call("ToPdf", str(self.pdf))
        self.session.put("MessageMode", 2)

    def tearDown(self):
        self.session.close()
        gc.collect()
        self.assertEqual(_values._own_objects, {}, "objects were not given back")
        self.folder.cleanup()

    def print(self, data, bill_type=21):
        self.session.call("DoPrint", True, f"sqlite:{SAMPLE}", bill_type, False, False, data)

    def listen(self, answer):
        pages = []

        class Progress:
            def OnPage(self, page):
                pages.append(page)
                return answer()

        self.session.put("Progress", Progress())
        return pages

    def test_a_pdf_is_written_and_told_of(self):
        pages = self.listen(lambda: None)
        self.print(Rows(FBillNo="A-1", FItemName="米"))
        self.assertTrue(self.pdf.read_bytes().startswith(b"%PDF"))
        self.assertTrue(self.session.get("Delivered"))
        self.assertEqual(self.session.get("Result"), "written")
        self.assertEqual(pages, [1])
        self.assertEqual(self.session.get("Pages"), 1)

    def test_false_ends_the_print(self):
        self.listen(lambda: False)
        self.print(Rows(FItemName="米"))
        self.assertFalse(self.pdf.exists())
        self.assertEqual(self.session.get("Message", 1), "打印被调用程序取消。")

    def test_an_exception_ends_the_print_in_its_words(self):
        def fail():
            raise qbtdprinter.Error(94, "没有纸")

        self.listen(fail)
        self.print(Rows(FItemName="米"))
        self.assertFalse(self.session.get("Delivered"))
        self.assertEqual(self.session.get("Messages"), "没有纸")

    def test_another_thread_may_cancel_and_do_nothing_else(self):
        errors = []

        def cancel():
            self.session.call("Cancel")
            try:
                self.session.get("Pages")
            except qbtdprinter.Error as error:
                errors.append(error.number)

        def on_another_thread():
            thread = threading.Thread(target=cancel)
            thread.start()
            thread.join()

        self.listen(on_another_thread)
        self.print(Rows(FItemName="米"))
        self.assertFalse(self.pdf.exists())
        self.assertEqual(errors, [0x8001010E])


class RowsOfTheExample(unittest.TestCase):
    def setUp(self):
        self.rows = print_bill.Rows([{"FInterID": 1, "FQty": 2}, {"FInterID": 1, "FNote": "x"}])

    def expect_error(self, number, call):
        with self.assertRaises(qbtdprinter.Error) as raised:
            call()
        self.assertEqual(raised.exception.number, number)

    def test_are_walked_and_found_in_any_case(self):
        self.assertEqual(self.rows.Fields("fqty").Value, 2)
        self.rows.MoveNext()
        self.assertIsNone(self.rows.Fields("FQty").Value)
        self.assertEqual(self.rows.Fields("FNOTE").Value, "x")
        self.assertEqual(self.rows.Clone().Fields("FQty").Value, 2)

    def test_know_their_columns_at_the_end_and_go_no_further(self):
        self.rows.MoveNext()
        self.rows.MoveNext()
        self.assertTrue(self.rows.EOF)
        self.expect_error(qbtdprinter.NO_CURRENT_ROW, self.rows.MoveNext)
        self.expect_error(qbtdprinter.NO_CURRENT_ROW, lambda: self.rows.Fields("FQty"))
        self.expect_error(qbtdprinter.NO_SUCH_COLUMN, lambda: self.rows.Fields("FPrice"))


class Values(unittest.TestCase):
    def test_values_stay_what_they_are(self):
        for value in (None, True, False, 0, -1, 2**31, -2**31, 2**40, 1.5, "", "锁𠮷", "a\0b",
                      datetime.datetime(2024, 3, 1, 12, 30), datetime.datetime(1899, 12, 29)):
            variant = _values.make_variant(value)
            self.assertEqual(_values.read_variant(variant), value)
            _values.clear(variant)

    def test_a_number_of_more_than_64_bits_is_refused(self):
        with self.assertRaises(OverflowError):
            _values.make_variant(2**63)

    def test_bytes_are_handed_over_and_freed(self):
        for content in (b"", b"\x00\xff"):
            variant = _values.make_variant(content)
            self.assertEqual(variant.type, 0x2011)
            _values.clear(variant)


class Registration(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.data = os.environ["XDG_DATA_HOME"]
        os.environ["XDG_DATA_HOME"] = self.folder.name

    def tearDown(self):
        os.environ["XDG_DATA_HOME"] = self.data
        self.folder.cleanup()

    def expect_refused(self, number):
        with self.assertRaises(qbtdprinter.Error) as raised:
            qbtdprinter.create("QbTdPrinter.Printer")
        self.assertEqual(raised.exception.number, number)

    def copy_registration(self):
        original = pathlib.Path(self.data) / "qbtdprinter/classes"
        copy = qbtdprinter.registration_file()
        copy.parent.mkdir(mode=0o700)
        copy.write_bytes(original.read_bytes())
        copy.chmod(0o600)
        return copy

    def test_without_one_no_class_is_known(self):
        self.expect_refused(0x800401F3)

    def test_of_the_user_alone_is_used(self):
        self.copy_registration()
        qbtdprinter.create("QbTdPrinter.Printer").close()

    def test_that_others_could_have_written_is_not_used(self):
        copy = self.copy_registration()
        copy.chmod(0o602)
        self.expect_refused(0x80070005)
        copy.chmod(0o600)
        copy.parent.chmod(0o1777)
        self.expect_refused(0x80070005)

    def test_that_is_damaged_is_an_error_of_the_component(self):
        copy = self.copy_registration()
        whole = copy.read_bytes()
        name, class_id, module = whole.splitlines()[1].split(b"\t")
        for content in (
                name, name + b"\t" + class_id, b"\0\xff\xfe", b"\t\t\t",
                b"\t".join((name, class_id, b"relative.so")),
                b"\t".join((name, b"{no identifier}", module)),
                b"\t".join((name, class_id[:-1], module)),
                whole + b"x" * 70000):
            copy.write_bytes(content + b"\n")
            self.expect_refused(0x80004005)

    def test_that_is_no_file_is_an_error_of_the_component(self):
        copy = self.copy_registration()
        copy.unlink()
        os.mkfifo(copy, 0o600)
        self.expect_refused(0x80004005)
        copy.unlink()
        copy.mkdir(mode=0o700)
        self.expect_refused(0x80004005)

    def test_whose_module_is_gone_or_none_is_an_error_of_the_component(self):
        copy = self.copy_registration()
        name, class_id, _ = copy.read_text(encoding="utf-8").splitlines()[1].split("\t")
        module = pathlib.Path(self.folder.name) / "module.so"
        copy.write_text(f"{name}\t{class_id}\t{module}\n", encoding="utf-8")
        self.expect_refused(0x80070002)
        module.write_text("no module", encoding="utf-8")
        module.chmod(0o600)
        self.expect_refused(0x80004005)
        module.unlink()
        module.mkdir(mode=0o700)
        self.expect_refused(0x80004005)

    def test_a_module_without_a_name_is_refused(self):
        with self.assertRaises(qbtdprinter.Error) as raised:
            qbtdprinter.create_from_module("", "{2389511E-AE07-4A8F-BF68-F2D15542C87E}")
        self.assertEqual(raised.exception.number, 0x80070002)

    def test_that_is_a_link_is_not_used(self):
        copy = self.copy_registration()
        copy.rename(copy.with_name("elsewhere"))
        copy.symlink_to("elsewhere")
        self.expect_refused(0x80070005)


if __name__ == "__main__":
    unittest.main()
