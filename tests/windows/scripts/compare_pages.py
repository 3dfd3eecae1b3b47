#!/usr/bin/env python3
"""Compares two PDF files of one document, made on two platforms: texts, places and ink.

    compare_pages.py FIRST.pdf SECOND.pdf [MILLIMETRES]

Both have the same number of pages, of the same sizes; the same words stand on each; and each word of
one begins within so many millimetres (0.2) of the same one of the other. What the two files say of a
font's height may differ; where that matters, the ink of the words decides. And whatever ink is on one page,
of letters, lines, bars and pictures, has some as near on the other.
"""

import collections
import functools
import math
import re
import subprocess
import sys

MILLIMETRES_OF_A_POINT = 25.4 / 72
FINE = 600  # dots to an inch, for single words
DOTS_OF_A_MILLIMETRE = FINE / 25.4
COARSE = 300  # for whole pages
INK = 192  # pale pictures, too
TRACE = 248  # a thin stroke is paler where it falls between two rows of dots


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def sizes_of_pages(path):
    """As they are shown: a driver may lay a page along its sheet and have it turned."""
    sizes = []
    for line in output_of("pdfinfo", "-l", "10000", path).splitlines():
        if size := re.search(r"size: +([\d.]+) x ([\d.]+) pts", line):
            sizes.append([float(side) * MILLIMETRES_OF_A_POINT for side in size.groups()])
        elif re.search(r"rot: +(90|270)", line):
            sizes[-1].reverse()
    return sizes


def characters_of(path, page):
    text = output_of("pdftotext", "-f", str(page), "-l", str(page), path, "-")
    return collections.Counter("".join(text.split()))


Word = collections.namedtuple("Word", "x y width height")  # y: the middle


def words_of(path, page):
    """The words of a page and their places, in millimetres."""
    listing = output_of("pdftotext", "-bbox", "-f", str(page), "-l", str(page), path, "-")
    words = collections.defaultdict(list)
    pattern = r'<word xMin="([-\d.]+)" yMin="([-\d.]+)" xMax="([-\d.]+)" yMax="([-\d.]+)">([^<]*)<'
    for *sides, text in re.findall(pattern, listing):
        left, top, right, bottom = (float(side) * MILLIMETRES_OF_A_POINT for side in sides)
        words[text].append(Word(left, (top + bottom) / 2, right - left, bottom - top))
    return words


@functools.lru_cache(maxsize=4)
def picture_of(path, page, resolution):
    command = ["pdftoppm", "-r", str(resolution), "-gray", "-f", str(page), "-l", str(page), path]
    data = subprocess.run(command, check=True, capture_output=True).stdout
    _, size, _, pixels = data.split(b"\n", 3)
    return int(size.split()[0]), pixels


def rows_of_ink(path, page, word):
    """The first and the last row of what is dark where a word stands, in millimetres."""
    width, pixels = picture_of(path, page, FINE)
    first, last = int(word.x * DOTS_OF_A_MILLIMETRE), int((word.x + word.width) * DOTS_OF_A_MILLIMETRE)
    top = int((word.y - word.height / 2 - 0.2) * DOTS_OF_A_MILLIMETRE)
    bottom = int((word.y + word.height / 2 + 0.2) * DOTS_OF_A_MILLIMETRE)
    rows = [y for y in range(top, bottom) if min(pixels[y * width + first : y * width + last]) < 100]
    return rows[0] / DOTS_OF_A_MILLIMETRE, rows[-1] / DOTS_OF_A_MILLIMETRE


def distance(path, word, other_path, others, page, allowed):
    other = min(others, key=lambda it: max(abs(it.x - word.x), abs(it.y - word.y)), default=None)
    if other is None:
        return 999.0
    height = abs(other.y - word.y)
    if allowed < height < 3 * allowed:
        rows = rows_of_ink(path, page, word), rows_of_ink(other_path, page, other)
        height = max(abs(one - two) for one, two in zip(*rows))
    return max(abs(other.x - word.x), height)


def rows_of_dots(path, page, lightest):
    """The rows of a page from the top as numbers, with a bit from the left for each dot that is so dark."""
    width, pixels = picture_of(path, page, COARSE)
    digits = pixels.translate(bytes(ord("1" if shade <= lightest else "0") for shade in range(256)))
    return [int(digits[at : at + width][::-1], 2) for at in range(0, len(digits), width)]


def widened(rows, dots):
    """What is near a dot, too."""
    for _ in range(dots):
        rows = [row | row << 1 | row >> 1 for row in rows]
    for _ in range(dots):
        rows = [above | row | below for above, row, below in zip([0, *rows], rows, [*rows[1:], 0])]
    return rows


def complaint_of_ink(path, other_path, page, allowed):
    """What is on a page of one file alone; nothing if all of it is on both."""
    near = widened(rows_of_dots(other_path, page, TRACE), math.ceil(allowed * COARSE / 25.4))
    ink = rows_of_dots(path, page, INK)
    lonely = [(row & ~around, y) for y, (row, around) in enumerate(zip(ink, near)) if row & ~around]
    if not lonely:
        return None
    bits, y = lonely[0]
    x = (bits & -bits).bit_length() - 1
    return (
        f"page {page}: {sum(row.bit_count() for row, _ in lonely)} dots of {path} have nothing near them, "
        f"the first one is that of {x * 25.4 / COARSE:.1f}, {y * 25.4 / COARSE:.1f} mm"
    )


def main():
    first, second = sys.argv[1:3]
    allowed = float(sys.argv[3]) if len(sys.argv) > 3 else 0.2
    complaints = []
    sizes = sizes_of_pages(first), sizes_of_pages(second)
    if len(sizes[0]) != len(sizes[1]):
        sys.exit(f"{len(sizes[0])} pages and {len(sizes[1])}")
    worst = 0.0
    for page, (one, other) in enumerate(zip(*sizes), start=1):
        if max(abs(one[0] - other[0]), abs(one[1] - other[1])) > allowed:
            complaints.append(f"page {page}: the sheet is {one} and {other}")
        texts = characters_of(first, page), characters_of(second, page)
        if texts[0] != texts[1]:
            complaints.append(
                f"page {page}: only in the first {dict(texts[0] - texts[1])}, "
                f"only in the second {dict(texts[1] - texts[0])}"
            )
        words = words_of(first, page), words_of(second, page)
        for text, places in words[0].items():
            for word in places:
                way = distance(first, word, second, words[1][text], page, allowed)
                worst = max(worst, way)
                if way > allowed:
                    complaints.append(f"page {page}: {text} is {way:.3f} mm from {word.x}, {word.y}")
        for paths in ((first, second), (second, first)):
            if complaint := complaint_of_ink(*paths, page, allowed):
                complaints.append(complaint)
    print(f"{len(sizes[0])} pages, at most {worst:.3f} mm apart")
    if complaints:
        sys.exit("\n".join(complaints))


main()
