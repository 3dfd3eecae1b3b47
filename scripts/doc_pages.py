"""What stands on a page of the documentation.

A block of code may have notes, comments of the page right above it, which no reader sees:

    <!-- before: COMMANDS -->      run these first
    <!-- run: COMMANDS -->         run these, and give them the block to read
    <!-- exits: STATUS -->         the last command of the block, and no other, ends with this status
    <!-- not run: REASON -->       what keeps the block from being run

Blocks of the language sh are commands, and run as they stand; blocks of the language text are what the
block before says. Any other block has a note that says how it is run, or why it isn't. The examples of a
man page are commands; its notes are comments of its own kind: .\\" before: COMMANDS
"""

import collections
import gzip
import os
import re

TWIN = ".zh-CN.md"
BEFORE, RUN, EXITS, NOT_RUN = "before", "run", "exits", "not run"
COMMANDS, OUTPUT = "sh", "text"

Link = collections.namedtuple("Link", "target line")  # pictures are links, too
Note = collections.namedtuple("Note", "word text line")
Table = collections.namedtuple("Table", "rows line")


class CodeBlock(collections.namedtuple("CodeBlock", "language lines line notes")):
    def note(self, word):
        """What the first note with that word says; None without one."""
        return next((note.text for note in self.notes if note.word == word), None)


CODE = re.compile(r"(`+)(.+?)\1")
LINK = re.compile(r"\[([^\]]*)\]\(([^)\s]*)\)")  # the words may go on in the next line
EMPHASIS = re.compile(r"\*\*(.+?)\*\*", re.DOTALL)
MAN_NOTE = re.compile(r'\.\\" ([a-z ]+): (.*)$')
NOTE = re.compile(r" *<!-- *([a-z ]+): *(.*?) *-->$", re.DOTALL)


def page_names(root):
    for folder, folders, files in os.walk(root):
        folders[:] = [name for name in folders if name not in ("build", "out") and name[0] != "."]
        for name in files:
            if name.endswith(".md"):
                yield os.path.relpath(os.path.join(folder, name), root)


def cells(line):
    return [cell.strip() for cell in re.split(r"(?<!\\)\|", line.strip().strip("|"))]


def anchor(heading):
    """The name by which a link finds a heading."""
    words = LINK.sub(r"\1", heading).replace("`", "").strip().lower()
    return re.sub(r"[^\w\- ]", "", words).replace(" ", "-")


def is_letter(text):
    return bool(re.match(r"\w", text))


def is_sign(text):
    return bool(re.match(r"[^\w\s]", text))


def read_note(comment, line):
    found = NOTE.match(comment)
    return Note(found[1], found[2], line) if found else Note("", comment, line)


class ManPage:
    """A man page, compressed or not. Its blocks are those behind its heading of examples."""

    def __init__(self, root, name):
        self.name = name
        self.code = []
        path = os.path.join(root, name)
        with (gzip.open if name.endswith(".gz") else open)(path, "rt", encoding="utf-8") as file:
            self._read(file.read().split("\n"))

    def _read(self, lines):
        is_example, is_block, notes = False, False, []
        for number, line in enumerate(lines, 1):
            if line.startswith(".Sh "):
                is_example = line in (".Sh EXAMPLES", ".Sh 示例")
            elif line.startswith(".Bd -literal") and is_example:
                self.code.append(CodeBlock(COMMANDS, [], number, notes))
                is_block = True
            elif line == ".Ed":
                is_block = False
            elif is_block:
                self.code[-1].lines.append(line.replace("\\e", "\\"))
            found = MAN_NOTE.match(line)
            notes = notes + [Note(found[1], found[2], number)] if found else []


class Page:
    def __init__(self, root, name):
        self.name = name
        self.levels, self.anchors = [], []
        self.tables, self.code, self.links = [], [], []
        self.unclosed, self.stray_notes = [], []
        self.items, self.paragraphs = 0, [0]  # the latter below each heading
        with open(os.path.join(root, name), encoding="utf-8") as file:
            self._read(file.read().split("\n"))

    def _read(self, lines):
        seen = collections.Counter()
        fence, is_in_table, is_in_text = None, False, False
        notes, comment = [], []
        prose = [""] * len(lines)
        for number, line in enumerate(lines, 1):
            opening = re.match(r" *(```+)(.*)$", line)
            if fence:
                if opening and opening[1] == fence:
                    fence = None
                else:
                    self.code[-1].lines.append(line)
                continue
            if opening:
                fence = opening[1]
                self.code.append(CodeBlock(opening[2].strip(), [], number, notes))
                notes, is_in_text = [], False
                continue
            if comment or line.lstrip().startswith("<!--"):
                comment.append(line)
                if line.endswith("-->"):
                    notes.append(read_note("\n".join(comment), number))
                    comment = []
                continue
            self.stray_notes += notes
            notes = []
            if line.startswith("|"):
                if not is_in_table:
                    self.tables.append(Table([], number))
                self.tables[-1].rows.append(cells(line))
            is_in_table = line.startswith("|")
            heading = re.match(r"(#+) +(.*)$", line)
            if heading:
                name = anchor(heading[2])
                self.levels.append(len(heading[1]))
                self.paragraphs.append(0)
                self.anchors.append(f"{name}-{seen[name]}" if seen[name] else name)
                seen[name] += 1
            item = re.match(r" *(-|\d+\.) ", line)
            self.items += bool(item)
            is_text = bool(line.strip()) and not is_in_table and not heading
            self.paragraphs[-1] += is_text and not is_in_text and not item
            is_in_text = is_text
            prose[number - 1] = CODE.sub("", line)
        self.stray_notes += notes
        self._read_prose("\n".join(prose))

    def _read_prose(self, text):
        for bold in EMPHASIS.finditer(text):
            before, after = text[bold.start() - 1:bold.start()], text[bold.end():bold.end() + 1]
            if is_sign(bold[1][0]) and is_letter(before) or is_sign(bold[1][-1]) and is_letter(after):
                self.unclosed.append(text.count("\n", 0, bold.start()) + 1)
        for link in LINK.finditer(text):
            self.links.append(Link(link[2], text.count("\n", 0, link.start()) + 1))
