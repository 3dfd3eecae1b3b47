#!/usr/bin/env python3
"""Compares the PDF files of one document that a printer has printed without and with a calibration.

    compare_mapped.py PLAIN.pdf CALIBRATED.pdf WIDTHxHEIGHT TOP_LEFT TOP_RIGHT BOTTOM_LEFT

The sheet is in millimetres, as it is fed, and its three crosses were found at these distances, such
as 22.3,20.1. What is dark on a page of one lies within a tenth of a millimetre of what is dark on
the other, where the calibration's map puts it.
"""

import re
import subprocess
import sys

DOTS = 20  # to a millimetre
NEAR = 3  # dots: a tenth of a millimetre, and one for what is cut into dots
DARK = 128


class Sheet:
    """A page as it lies on the sheet: a driver may have it turned when it is shown."""

    def __init__(self, path, page):
        only = ["-f", str(page), "-l", str(page)]
        told = subprocess.run(["pdfinfo", *only, path], check=True, capture_output=True, text=True)
        self.turn = int(re.search(r"rot: +(\d+)", told.stdout)[1])
        command = ["pdftoppm", "-r", str(DOTS * 25.4), "-gray", *only, path]
        data = subprocess.run(command, check=True, capture_output=True).stdout
        _, size, _, self.pixels = data.split(b"\n", 3)
        self.columns, self.rows = (int(side) for side in size.split())

    def dark(self):
        """Where it is dark, in millimetres of the sheet."""
        for row in range(self.rows):
            line = self.pixels[row * self.columns : (row + 1) * self.columns]
            if min(line) >= DARK:
                continue
            for column, shade in enumerate(line):
                if shade < DARK:
                    yield self.to_sheet((column + 0.5) / DOTS, (row + 0.5) / DOTS)

    def to_sheet(self, x, y):
        width, height = self.columns / DOTS, self.rows / DOTS
        return {0: (x, y), 90: (y, width - x), 180: (width - x, height - y), 270: (height - y, x)}[self.turn]

    def from_sheet(self, x, y):
        width, height = self.columns / DOTS, self.rows / DOTS
        return {0: (x, y), 90: (width - y, x), 180: (width - x, height - y), 270: (y, height - x)}[self.turn]

    def is_dark_near(self, x, y):
        x, y = self.from_sheet(x, y)
        column, row = int(x * DOTS), int(y * DOTS)
        if not (NEAR <= column < self.columns - NEAR and NEAR <= row < self.rows - NEAR):
            return True
        return any(
            min(self.pixels[at * self.columns + column - NEAR : at * self.columns + column + NEAR + 1]) < DARK
            for at in range(row - NEAR, row + NEAR + 1)
        )


def map_between(asked, found):
    """The map that takes the crosses from where they were asked for to where they were found."""
    (x0, y0), (x1, _), (_, y2) = asked
    (u0, v0), (u1, v1), (u2, v2) = found
    xx, yx = (u1 - u0) / (x1 - x0), (v1 - v0) / (x1 - x0)
    xy, yy = (u2 - u0) / (y2 - y0), (v2 - v0) / (y2 - y0)
    return lambda x, y: (u0 + xx * (x - x0) + xy * (y - y0), v0 + yx * (x - x0) + yy * (y - y0))


def inverse(forward):
    """Of a map that keeps lines straight."""
    dx, dy = forward(0, 0)
    (ax, ay), (bx, by) = forward(1, 0), forward(0, 1)
    xx, yx, xy, yy = ax - dx, ay - dy, bx - dx, by - dy
    area = xx * yy - xy * yx
    return lambda x, y: (
        (yy * (x - dx) - xy * (y - dy)) / area,
        (xx * (y - dy) - yx * (x - dx)) / area,
    )


def main():
    plain, calibrated = sys.argv[1:3]
    width, height = (float(side) for side in sys.argv[3].split("x"))
    top_left, top_right, bottom_left = (
        tuple(float(number) for number in pair.split(",")) for pair in sys.argv[4:7]
    )
    across, along = min(20, width * 0.2 // 1), min(20, height * 0.2 // 1)
    asked = (across, along), (width - across, along), (across, height - along)
    found = top_left, (width - top_right[0], top_right[1]), (bottom_left[0], height - bottom_left[1])
    printed = map_between(asked, found)
    corrected = inverse(printed)
    pages = [re.search(r"Pages: +(\d+)", subprocess.run(
        ["pdfinfo", path], check=True, capture_output=True, text=True).stdout)[1] for path in (plain, calibrated)]
    if pages[0] != pages[1]:
        sys.exit(f"{pages[0]} pages and {pages[1]}")
    for page in range(1, int(pages[0]) + 1):
        one, other = Sheet(plain, page), Sheet(calibrated, page)
        for sheet, its_map, against, name in (
            (one, corrected, other, calibrated),
            (other, printed, one, plain),
        ):
            lonely = [place for place in sheet.dark() if not against.is_dark_near(*its_map(*place))]
            if lonely:
                x, y = lonely[0]
                sys.exit(f"page {page}: {len(lonely)} dots have nothing near them in {name}, "
                         f"the first one is that of {x:.1f}, {y:.1f} mm")


main()
