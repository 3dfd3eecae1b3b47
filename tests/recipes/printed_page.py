"""What stands on the pages of a PDF file, as poppler reads it. Lengths are millimetres."""

import collections
import html
import re
import subprocess

Word = collections.namedtuple("Word", "text left top right bottom")
MM_PER_POINT = 25.4 / 72
WORD = re.compile(r'<word xMin="(.*?)" yMin="(.*?)" xMax="(.*?)" yMax="(.*?)">(.*?)</word>')


class Page:
    def __init__(self, width, height):
        self.width, self.height, self.words = width, height, []

    def texts(self):
        return [word.text for word in self.words]

    def has(self, text):
        """Whether the text stands on the page; blanks don't count."""
        return "".join(text.split()) in "".join("".join(self.texts()).split())


def read_pages(pdf):
    out = subprocess.run(["pdftotext", "-bbox", pdf, "-"], check=True, capture_output=True, text=True).stdout
    pages = []
    for line in out.split("\n"):
        size = re.search(r'<page width="(.*?)" height="(.*?)">', line)
        word = WORD.search(line)
        if size:
            pages.append(Page(*(float(length) * MM_PER_POINT for length in size.groups())))
        elif word:
            left, top, right, bottom = (float(length) * MM_PER_POINT for length in word.groups()[:4])
            pages[-1].words.append(Word(html.unescape(word[5]), left, top, right, bottom))
    return pages


def read_codes(pdf, folder):
    """The texts of the barcodes, page by page, as a reader makes them out at 300 dots per inch."""
    subprocess.run(["pdftoppm", "-r", "300", "-png", pdf, folder / "code"], check=True)
    codes = []
    for image in sorted(folder.glob("code-*.png")):
        found = subprocess.run(["zbarimg", "--quiet", "--raw", image], capture_output=True, text=True)
        codes.append(sorted(found.stdout.split()))
        image.unlink()
    return codes
