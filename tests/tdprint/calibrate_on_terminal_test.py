#!/usr/bin/env python3
"""Calibrates a printer on a terminal, where the program asks for what was measured.

    calibrate_on_terminal_test.py TDPRINT PROJECT FOLDER

The folder is for what the test writes.
"""

import json
import os
import pathlib
import pty
import select
import shutil
import subprocess
import sys

PATIENCE = 60  # seconds for a word of the program
TOP_LEFT = "top left cross, from the left edge and from the top edge: "
TOP_RIGHT = "top right cross, from the right edge and from the top edge: "
BOTTOM_LEFT = "bottom left cross, from the left edge and from the bottom edge: "
ASKED = "Measure how far the middle of each cross is from the edges of the paper: two numbers"

program, project, folder = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
kept_file = folder / "user/qbtdprinter/calibration.json"


class Terminal:
    """The program on a terminal of its own."""

    def __init__(self, *options, locale="C.UTF-8"):
        passed_on = ("PATH", "ASAN_OPTIONS", "LSAN_OPTIONS")
        environment = {name: os.environ[name] for name in passed_on if name in os.environ}
        environment |= {
            "HOME": str(folder / "home"),
            "XDG_CONFIG_HOME": str(folder / "user"),
            "XDG_CONFIG_DIRS": str(folder / "machine"),
            "QT_QPA_PLATFORM": "offscreen",
            "LC_ALL": locale,
        }
        arguments = [program, "calibrate", "--printer", "QbTd-PDF", "--paper", "A4", *options]
        self.pid, self.terminal = pty.fork()
        if self.pid == 0:
            os.execve(program, arguments, environment)
        self.said = ""
        self.raw = b""

    def read(self):
        """What comes next; nothing at the end."""
        ready, _, _ = select.select([self.terminal], [], [], PATIENCE)
        assert ready, f"it says nothing more after: {self.said}"
        try:
            part = os.read(self.terminal, 4096)
        except OSError:  # how a terminal tells that the program has gone
            part = b""
        self.raw += part
        self.said = self.raw.decode(errors="replace")
        return part

    def hears(self, words, answer):
        """Waits for a question at the end of what was said, and answers it."""
        while not self.said.endswith(words):
            assert self.read(), f"it ended without “{words}”: {self.said}"
        os.write(self.terminal, answer.encode())

    def ends(self, status):
        while self.read():
            pass
        os.close(self.terminal)
        _, ended = os.waitpid(self.pid, 0)
        assert os.waitstatus_to_exitcode(ended) == status, self.said
        return self.said


def kept():
    return json.loads(kept_file.read_text())["calibrations"] if kept_file.exists() else []


def asks_until_all_is_known():
    terminal = Terminal()
    terminal.hears(TOP_LEFT, "twenty\n")
    terminal.hears(TOP_LEFT, "22.3 20.1\n")
    terminal.hears(TOP_RIGHT, "17.7，20.1\n")
    terminal.hears(BOTTOM_LEFT, " 22.3 , 19.9 \n")
    said = terminal.ends(0)
    assert said.index("The page went to QbTd-PDF.") < said.index(ASKED) < said.index(TOP_LEFT), said
    assert said.count(ASKED) == 1, said
    assert "Two numbers in millimetres are wanted, such as 20.3 19.8." in said, said
    assert f"Kept in {kept_file}:" in said, said
    assert "shift 2.30 mm to the right and 0.10 mm down" in said, said
    [calibration] = kept()
    assert calibration["topLeft"] == {"fromLeft": 22.3, "fromTop": 20.1}, calibration
    assert calibration["topRight"] == {"fromRight": 17.7, "fromTop": 20.1}, calibration
    assert calibration["bottomLeft"] == {"fromLeft": 22.3, "fromBottom": 19.9}, calibration


def asks_for_the_rest_alone():
    terminal = Terminal("--top-left", "21,20", "--bottom-left", "21,20")
    terminal.hears(TOP_RIGHT, "19 20\n")
    said = terminal.ends(0)
    assert TOP_LEFT not in said and BOTTOM_LEFT not in said, said
    assert "The page went to" not in said, said
    [calibration] = kept()
    assert calibration["topRight"] == {"fromRight": 19, "fromTop": 20}, calibration


def keeps_nothing_of_what_is_broken_off(answer):
    before = kept()
    terminal = Terminal("--top-left", "25,20")
    terminal.hears(TOP_RIGHT, "15 20\n")
    terminal.hears(BOTTOM_LEFT, answer)
    said = terminal.ends(0)
    assert "Kept in" not in said, said
    assert kept() == before


def refuses_what_no_printer_does():
    before = kept()
    terminal = Terminal("--top-left", "22,20", "--top-right", "22,20")
    terminal.hears(BOTTOM_LEFT, "22 45\n")
    assert "not calibrated: the distances would mean" in terminal.ends(1)
    assert kept() == before


def asks_in_chinese():
    terminal = Terminal(locale="zh_CN.UTF-8")
    terminal.hears("左上十字：到左边缘、到上边缘: ", "\n")
    assert "用尺量出各十字中心到纸边的距离" in terminal.ends(0)


subprocess.run([project / "scripts/cups-for-tests.sh"], check=True)
shutil.rmtree(folder, ignore_errors=True)
(folder / "home").mkdir(parents=True)
asks_until_all_is_known()
asks_for_the_rest_alone()
keeps_nothing_of_what_is_broken_off("\n")
keeps_nothing_of_what_is_broken_off("\x04")
refuses_what_no_printer_does()
asks_in_chinese()
