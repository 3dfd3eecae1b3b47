#!/usr/bin/env python3
"""Runs the commands of docs/recipes.md and reads back what they print.

    recipes_test.py TDPRINT SOURCE WORK PART

PART is Forms, Limits or Servers.
"""

import collections
import contextlib
import datetime
import json
import os
import pathlib
import re
import shlex
import shutil
import socket
import sqlite3
import subprocess
import sys
import tempfile
import unittest

from printed_page import read_codes, read_pages

tdprint, source, work = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
recipes = work / "examples/recipes"
database = recipes / "shop.db"

# Each print of the page: the sheet, the number of pages, and the edges that stay free for holes.
Print = collections.namedtuple("Print", "recipe name width height pages margin")
PRINTS = [
    Print("waybill", "waybill", 230, 127, 3, 13),
    Print("cheque", "cheque", 225, 80, 3, 0),
    Print("invoice", "invoice", 241, 140, 4, 13),
    Print("delivery", "delivery", 241, 140, 3, 13),
    Print("delivery", "copies", 241, 140, 9, 13),
    Print("labels", "labels", 210, 297, 2, 5),
    Print("tag", "tag", 54, 86, 3, 2),
]
TWIPS_PER_MM = 1440 / 25.4
SERVER_PASSWORD = "geheim;}1"  # of tests/odbc/database-servers.sh


def run(command, cwd=recipes, **more):
    return subprocess.run(command, check=True, cwd=cwd, env=environment(), **more)


def environment():
    """A user without settings, printers and a display."""
    kept = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
    return {**kept, "PATH": f"{tdprint.parent}:{os.environ['PATH']}", "QT_QPA_PLATFORM": "offscreen",
            "CUPS_SERVER": "localhost:1", "XDG_CONFIG_HOME": str(work / "config"),
            "QBTDPRINTER_STATE_DIR": str(work / "state"), "PGPASSWORD": SERVER_PASSWORD, "MYSQL_PWD": SERVER_PASSWORD}


def setUpModule():
    shutil.rmtree(work, ignore_errors=True)
    work.mkdir(parents=True)
    page = (source / "docs/recipes.md").read_text(encoding="utf-8")
    page = page.replace("/usr/share/qbtdprinter/examples", shlex.quote(str(source / "examples")))
    folder = work  # where the page's first commands make that of all others
    for commands in re.findall(r"^```sh\n(.*?)^```", page, re.DOTALL | re.MULTILINE):
        done = run(["bash", "-euo", "pipefail", "-c", commands], cwd=folder, capture_output=True, text=True)
        if done.stderr:
            raise AssertionError(f"{commands}\nsays: {done.stderr}")
        folder = recipes


def execute(*statements):
    with contextlib.closing(sqlite3.connect(database)) as connection, connection:
        for statement in statements:
            connection.execute(statement)


def ask(statement):
    with contextlib.closing(sqlite3.connect(database)) as connection:
        return connection.execute(statement).fetchall()


def print_pdf(bill_type, data, *options, db="sqlite:shop.db", name="now.pdf"):
    run([tdprint, "print", "--db", db, "--type", str(bill_type), "--data", data, "--pdf", name, *options])
    return read_pages(recipes / name)


class Box(collections.namedtuple("Box", "caption left top right bottom")):
    """Where a text or a barcode of a format stands on the page; the caption is that of a fixed text."""

    def holds(self, word):
        middle = (word.top + word.bottom) / 2
        return self.left - 0.3 <= word.left and word.right <= self.right + 0.3 and self.top <= middle <= self.bottom

    def text_on(self, page):
        words = sorted((word for word in page.words if self.holds(word)), key=lambda word: (round(word.top), word.left))
        return "".join(word.text for word in words)


def boxes_of(recipe):
    content = json.loads((recipes / f"{recipe}.json").read_text(encoding="utf-8"))
    row_height, rows = content["format"]["FRowHeight"], int(content["format"]["FRowsPerPage"])
    boxes = []
    for item in content["items"]:
        if item["FTypeID"] != 0:
            continue
        caption = "" if item["FObjectFieldName"] else "".join(item["FObjectCaption"].split())
        for shift in {1: [0], 3: range(rows), 4: [rows - 1]}[item["FSite"]]:
            left, top = item["FLeft"], item["FTop"] + shift * row_height
            edges = (left, top, left + item["FWidth"], top + item["FHeight"])
            boxes.append(Box(caption, *(length / TWIPS_PER_MM for length in edges)))
    return boxes


class Forms(unittest.TestCase):
    def test_each_print_has_its_sheet_and_its_pages(self):
        for form in PRINTS:
            with self.subTest(form.name):
                pages = read_pages(recipes / f"{form.name}.pdf")
                self.assertEqual(len(pages), form.pages)
                for page in pages:
                    self.assertAlmostEqual(page.width, form.width, delta=0.1)
                    self.assertAlmostEqual(page.height, form.height, delta=0.1)

    def test_each_word_lies_in_a_box_of_the_format_and_off_the_edges(self):
        for form in PRINTS:
            boxes = boxes_of(form.recipe)
            for number, page in enumerate(read_pages(recipes / f"{form.name}.pdf"), 1):
                for word in page.words:
                    with self.subTest(form.name, page=number, word=word):
                        self.assertTrue(any(box.holds(word) for box in boxes))
                        self.assertGreaterEqual(word.left, form.margin)
                        self.assertLessEqual(word.right, form.width - form.margin)

    def test_the_values_alone_stand_where_they_stand_on_the_whole_form(self):
        for form in PRINTS:
            values = recipes / f"{form.name}-values.pdf"
            if not values.exists():
                continue
            for whole, alone in zip(read_pages(recipes / f"{form.name}.pdf"), read_pages(values), strict=True):
                self.assertTrue(alone.words)
                self.assertLess(len(alone.words), len(whole.words))
                self.assertEqual(collections.Counter(alone.words) - collections.Counter(whole.words),
                                 collections.Counter(), form.name)
                for box in boxes_of(form.recipe):
                    if box.caption:
                        with self.subTest(form.name, box=box):
                            self.assertIn(box.caption, box.text_on(whole))
                            self.assertNotIn(box.caption, box.text_on(alone))

    def test_waybills_have_ticks_barcodes_and_nothing_twice(self):
        pages = read_pages(recipes / "waybill.pdf")
        self.assertEqual([[code] for code, in ask("select FOrderNo from t_waybill order by 1")],
                         read_codes(recipes / "waybill.pdf", work))
        for page, receiver in zip(pages, ("陈国栋", "欧阳雪莹", "孙丽"), strict=True):
            self.assertEqual(page.texts().count("√"), 2)  # who pays, insured or not
            self.assertTrue(page.has(receiver))
        self.assertIn("268.50", pages[1].texts())
        self.assertNotIn("0.00", pages[0].texts())

    def test_the_digits_of_a_cheque_stand_in_their_boxes(self):
        pages = read_pages(recipes / "cheque-values.pdf")
        for page, digits in zip(pages, ("¥10700053", "¥32504", "10000000100"), strict=True):
            # The same digits stand on the stub, left of the line where it is torn off.
            in_boxes = sorted((word for word in page.words if word.left > 160 and 36 < word.top < 45),
                              key=lambda word: word.left)
            self.assertEqual("".join(word.text for word in in_boxes), digits)
            if all(len(word.text) == 1 for word in in_boxes):
                for place, word in enumerate(reversed(in_boxes)):
                    middle = (word.left + word.right) / 2
                    self.assertAlmostEqual(middle, 219 - 4.5 * (place + 0.5), delta=0.2)
        self.assertTrue(pages[0].has("壹拾万柒仟元伍角叁分"))
        self.assertTrue(pages[1].has("叁佰贰拾伍元零肆分"))

    def test_amounts_on_cheques_are_written_as_banks_want_them(self):
        amounts = {
            "0.01": "壹分", "0.10": "壹角整", "0.15": "壹角伍分", "1.00": "壹元整", "1.05": "壹元零伍分",
            "16.50": "壹拾陆元伍角整", "325.04": "叁佰贰拾伍元零肆分", "1001.00": "壹仟零壹元整",
            "1010.00": "壹仟零壹拾元整", "1409.50": "壹仟肆佰零玖元伍角整", "6007.14": "陆仟零柒元壹角肆分",
            "10000.00": "壹万元整", "10001.00": "壹万零壹元整", "100100.00": "壹拾万零壹佰元整",
            "107000.53": "壹拾万柒仟元伍角叁分", "1000500.00": "壹佰万零伍佰元整", "1010101.01": "壹佰零壹万零壹佰零壹元零壹分",
            "20000000.00": "贰仟万元整", "100000000.00": "壹亿元整", "100000001.00": "壹亿零壹元整",
            "100010000.00": "壹亿零壹万元整", "110000000.00": "壹亿壹仟万元整", "900000000.09": "玖亿元零玖分",
            "123456789.01": "壹亿贰仟叁佰肆拾伍万陆仟柒佰捌拾玖元零壹分",
            "999999999.99": "玖亿玖仟玖佰玖拾玖万玖仟玖佰玖拾玖元玖角玖分",
        }
        with contextlib.closing(sqlite3.connect(database)) as connection:
            connection.execute("delete from t_cheque")
            connection.executemany("insert into t_cheque values (?, '2024-03-08', 'a', 'b', 'c', ?, 'd')",
                                   enumerate(amounts))
            rows = connection.execute("select FAmountDx, FDigit1 || FDigit2 || FDigit3 || FDigit4 || FDigit5 || FDigit6"
                                      " || FDigit7 || FDigit8 || FDigit9 || FDigit10 || FDigit11"
                                      " from v_cheque order by FChequeID").fetchall()
            self.assertEqual([words for words, _ in rows], list(amounts.values()))
            self.assertEqual([digits for _, digits in rows],
                             [("¥" + amount.replace(".", "")).rjust(11)[-11:] for amount in amounts])
            insert = "insert into t_cheque values (99, '2024-03-08', 'a', 'b', 'c', ?, 'd')"
            for beyond in (0, -1, 1000000000):
                with self.assertRaises(sqlite3.IntegrityError):
                    connection.execute(insert, [beyond])

    def test_dates_on_cheques_are_written_as_banks_want_them(self):
        digits = "零壹贰叁肆伍陆柒捌玖"

        def number(value, with_zero):
            tens, ones = divmod(value, 10)
            return ("零" if with_zero else "") + (digits[tens] + "拾" if tens else "") + (digits[ones] if ones else "")

        days = [datetime.date(2024, 1, 1) + datetime.timedelta(day) for day in range(366)]
        with contextlib.closing(sqlite3.connect(database)) as connection:
            connection.execute("delete from t_cheque")
            connection.executemany("insert into t_cheque values (?, ?, 'a', 'b', 'c', 1, 'd')",
                                   enumerate(day.isoformat() for day in days))
            rows = connection.execute("select FYearDx, FMonthDx, FDayDx from v_cheque order by FChequeID").fetchall()
        self.assertEqual(rows, [("贰零贰肆", number(day.month, day.month in (1, 2, 10)),
                                 number(day.day, day.day <= 10 or day.day in (20, 30))) for day in days])

    def test_each_sheet_of_an_invoice_has_its_lines_and_its_totals(self):
        totals = [("第1张", "6143.66", "593.54", "6737.20", "陆仟柒佰叁拾柒圆贰角整"),
                  ("第1张", "2134.68", "277.52", "2412.20", "贰仟肆佰壹拾贰圆贰角整"),
                  ("第1张", "7408.49", "963.11", "8371.60", "捌仟叁佰柒拾壹圆陆角整"),
                  ("第2张", "6198.41", "563.59", "6762.00", "陆仟柒佰陆拾贰圆整")]
        pages = read_pages(recipes / "invoice.pdf")
        for page, texts, lines in zip(pages, totals, (3, 8, 8, 3), strict=True):
            self.assertEqual(sum(word.text in ("9%", "13%") for word in page.words), lines)
            for text in texts:
                self.assertTrue(page.has(text), text)
            amount, tax, total = (round(100 * float(text)) for text in texts[1:4])
            self.assertEqual(amount + tax, total)

    def test_delivery_notes_have_three_copies_with_their_names(self):
        three_ply = read_pages(recipes / "delivery.pdf")
        self.assertTrue(all(page.has("白联存根／红联客户／黄联回单") for page in three_ply))
        self.assertFalse(any(page.has("白联") for page in read_pages(recipes / "delivery-values.pdf")))
        expected = [("SH-2403-0031", copy, "第1页") for copy in ("第一联", "第二联", "第三联")] + [
            ("SH-2403-0032", copy, sheet) for copy in ("第一联", "第二联", "第三联") for sheet in ("第1页", "第2页")]
        for page, texts in zip(read_pages(recipes / "copies.pdf"), expected, strict=True):
            for text in texts:
                self.assertTrue(page.has(text), text)
            total = "贰仟肆佰壹拾贰圆贰角整" if texts[0].endswith("31") else "壹万伍仟伍佰陆拾伍圆贰角整"
            self.assertTrue(page.has(total))
        by_copy = print_pdf(54, "select * from v_delivery where FCopy>0 order by FCopy, FInterID, FEntryID")
        self.assertEqual([next(copy for copy in "一二三" if page.has(f"第{copy}联")) for page in by_copy],
                         list("一一一二二二三三三"))

    def test_labels_lie_three_by_eight_and_begin_where_the_sheet_is_free(self):
        places = []
        for page in read_pages(recipes / "labels.pdf"):
            units = [word for word in page.words if word.text.startswith("元/")]
            places.append(sorted((round((word.top - 27.5) / 37), round((word.right - 64) / 70)) for word in units))
            for word, (row, column) in zip(sorted(units, key=lambda word: (word.top, word.left)), places[-1]):
                self.assertAlmostEqual(word.right, 64 + 70 * column, delta=0.5)
                self.assertAlmostEqual((word.top + word.bottom) / 2, 30 + 37 * row, delta=0.7)
        every = [(row, column) for row in range(8) for column in range(3)]
        self.assertEqual(places, [every[2:], every[:2]])

    def test_tags_have_readable_codes_and_the_photographs_of_their_persons(self):
        self.assertEqual(read_codes(recipes / "tag.pdf", work), [["WY-00127"], ["WY-00214"], ["WY-00301"]])
        self.assertEqual(read_codes(recipes / "tag-values.pdf", work), [["WY-00127"], ["WY-00214"], ["WY-00301"]])
        images = run(["pdfimages", "-list", "tag.pdf"], capture_output=True, text=True).stdout.split("\n")[2:]
        self.assertEqual([line.split()[0] for line in images if line and line.split()[2] == "image"], ["1", "2"])


class Limits(unittest.TestCase):
    """What the page says that can't be done can't, and what it names instead can."""

    def setUp(self):
        shutil.copy(database, recipes / "kept.db")

    def tearDown(self):
        shutil.move(recipes / "kept.db", database)

    def copy_of(self, recipe, name):
        run([tdprint, "import-format", "--db", "sqlite:shop.db", "--format", name, f"{recipe}.json"],
            capture_output=True)

    def items(self, name):
        return f"FTDBillID=(select FTDBillID from TDBill where FTDBillName='{name}')"

    def test_bills_with_numbers_on_pages_of_one_row_are_printed_twice_but_the_first(self):
        numbered = "select FWaybillID as FInterID, FReceiver, FUserBarCode from v_waybill order by FWaybillID"
        self.assertEqual(len(print_pdf(51, numbered)), 5)

    def test_a_sheet_as_long_as_the_rows_is_followed_by_a_page_without_lines(self):
        execute("update TDBill set FRowsPerPage=8 where FTranType=54")
        self.assertEqual(len(print_pdf(54, "select * from v_delivery where FCopy=0 order by FInterID, FEntryID")), 5)

    def test_a_page_is_as_long_as_its_sheet_and_another_format_may_be_shorter(self):
        self.copy_of("delivery", "短")
        execute("update TDBill set FPaperHeight=5272.44, FRowsPerPage=4 where FTDBillName='短'")
        data = "select * from v_delivery where FBillNo='SH-2403-0032' and FInterID%100=2 and FCopy=0"
        self.assertAlmostEqual(print_pdf(54, data)[0].height, 140, delta=0.1)
        self.assertAlmostEqual(print_pdf(54, data, "--format", "短")[0].height, 93, delta=0.1)

    def test_barcodes_of_rows_lie_on_each_other(self):
        self.copy_of("tag", "行")
        execute("update TDBill set FRowsPerPage=3 where FTDBillName='行'",
                f"update TDBillDetail set FSite=3 where FObjectFieldName='<单号条码图>' and {self.items('行')}")
        print_pdf(56, "select * from v_staff_tag order by FStaffID", "--format", "行")
        self.assertEqual(read_codes(recipes / "now.pdf", work), [["WY-00301"]])

    def test_a_head_has_up_to_three_codes(self):
        self.copy_of("tag", "三码")
        one = f"from TDBillDetail where FObjectFieldName='<单号条码图>' and {self.items('三码')}"
        execute(*(f"insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FObjectFieldName)"
                  f" select FTDBillID, 1, FLeft, {top}, FWidth, FHeight, '{name}' {one}"
                  for top, name in ((1200, "<随机条码图>"), (2400, "<用户条码图>"))))
        print_pdf(56, "select s.*, 'A' || FStaffNo as FBillNoBarCode, 'B' || FStaffNo as FUserBarCode"
                      " from v_staff_tag s where FStaffID=560003", "--format", "三码")
        self.assertEqual(read_codes(recipes / "now.pdf", work), [["AWY-00301", "BWY-00301", "WY-00301"]])

    def test_pictures_of_codes_stand_on_each_row(self):
        # The codes of the tags, as pictures: 5 to 49 mm from the left, 72 to 83 mm from the top.
        run(["pdftoppm", "-r", "300", "-x", "59", "-y", "850", "-W", "520", "-H", "90", "-png",
             "tag-values.pdf", "picture"])
        execute("delete from t_icitem_Picture")
        for number in (1, 2, 3):
            data = (recipes / f"picture-{number}.png").read_bytes().hex()
            execute(f"insert into t_icitem_Picture (FItemID, FPicture) values ({560000 + number}, x'{data}')")
        self.copy_of("labels", "一列")
        execute(f"delete from TDBillDetail where {self.items('一列')}",
                "insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FObjectFieldName)"
                " select FTDBillID, 3, 600, 300, 2494, 624, '<商品图片>' from TDBill where FTDBillName='一列'")
        print_pdf(55, "select 0 as FInterID, FItemiD from v_staff_tag order by FStaffID", "--format", "一列")
        self.assertEqual(read_codes(recipes / "now.pdf", work), [["WY-00127", "WY-00214", "WY-00301"]])

    def test_blank_rows_pass_over_labels(self):
        labels = print_pdf(55, "select * from v_label order by FFirstPlace", "--blank-rows", "1")
        self.assertEqual(sum(page.texts().count("¥59.90") for page in labels), 3)
        whole = read_pages(recipes / "labels.pdf")
        self.assertEqual(sum(page.texts().count("¥59.90") for page in whole), 4)

    def test_the_field_in_capitals_differs_from_what_banks_want(self):
        execute("update t_delivery_line set FQty=1, FPrice=325.04 where FDeliveryID=1 and FEntryID=1",
                "delete from t_delivery_line where FDeliveryID=1 and FEntryID>1")
        pages = print_pdf(54, "select * from v_delivery where FBillNo='SH-2403-0031' and FCopy=0")
        self.assertTrue(pages[0].has("叁佰贰拾伍圆零角肆分"))

    def test_the_head_knows_no_field_in_capitals(self):
        execute("update TDBillDetail set FSite=1 where FObjectFieldName='合计大写'")
        pages = print_pdf(54, "select * from v_delivery where FBillNo='SH-2403-0031' and FCopy=0")
        self.assertFalse(pages[0].has("贰角整"))


class Servers(unittest.TestCase):
    """The prints are the same whichever engine delivers the rows."""

    DATA = {
        "waybill": (51, "select * from v_waybill order by FWaybillID"),
        "cheque": (52, "select * from v_cheque order by FChequeID"),
        "invoice": (53, "select * from v_invoice order by FInterID, FEntryID"),
        "delivery": (54, "select * from v_delivery where FCopy=0 order by FInterID, FEntryID"),
        "labels": (55, "select * from v_label order by FFirstPlace"),
        "tag": (56, "select * from v_staff_tag order by FStaffID"),
    }

    @contextlib.contextmanager
    def server(self, engine):
        """A private server; a bound socket keeps its port from others."""
        script = source / "tests/odbc/database-servers.sh"
        with tempfile.TemporaryDirectory() as folder, socket.socket() as keeper:
            os.chmod(folder, 0o755)
            keeper.bind(("127.0.0.1", 0))
            keeper.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
            port = str(keeper.getsockname()[1])
            subprocess.run([script, "start", engine, folder, port], check=True)
            try:
                yield port
            finally:
                subprocess.run([script, "stop", engine, folder, port], check=True)

    def expect_equal_prints(self, engine, driver, client):
        with self.server(engine) as port, open(recipes / f"{engine}.sql", encoding="utf-8") as script:
            run([part.replace("PORT", port) for part in client], stdin=script)
            db = f"Driver={{{driver}}};Server=127.0.0.1;Port={port};Database=qbtd;UID=clerk;PWD={{geheim;}}}}1}}"
            for recipe, (bill_type, data) in self.DATA.items():
                run([tdprint, "import-format", "--db", db, f"{recipe}.json"], capture_output=True)
                printed = print_pdf(bill_type, data, db=db)
                self.assertEqual([page.words for page in printed],
                                 [page.words for page in read_pages(recipes / f"{recipe}.pdf")], recipe)

    def test_postgresql(self):
        self.expect_equal_prints("postgresql", "PostgreSQL Unicode", [
            "psql", "-q", "-v", "ON_ERROR_STOP=1", "-h", "127.0.0.1", "-p", "PORT", "-U", "clerk", "qbtd"])

    def test_mariadb(self):
        self.expect_equal_prints("mariadb", "MariaDB Unicode", [
            "mariadb", "--no-defaults", "--default-character-set=utf8mb4", "-h", "127.0.0.1", "-P", "PORT",
            "-u", "clerk", "qbtd"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
