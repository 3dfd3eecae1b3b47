#!/usr/bin/env python3
"""Checks what the pages of the documentation promise each other.

    scripts/check-docs.py [--links] [ROOT]    --links: those alone, as of pages that are installed

- Every relative link of every page leads to a file and, where it names one, to a heading.
- Emphasis ends where it is meant to.
- Each block of code is run by scripts/run-page-commands.py, or says in a note why it can't be.
- A page X.md and its Chinese twin X.zh-CN.md have the same headings, paragraphs, tables, code blocks,
  lists, pictures and links; only the words differ, in code the comments, and what programs say, which
  stands in blocks of the language text.
- Pages that clerks, administrators and programmers read have a twin.
- A man page and its Chinese twin have the same sections, options and examples.
- The newest version among the changes is that of the project.
"""

import collections
import os
import re
import sys

sys.dont_write_bytecode = True
from doc_pages import BEFORE, CODE, COMMANDS, EXITS, NOT_RUN, OUTPUT, RUN, TWIN, ManPage, Page, page_names  # noqa: E402

COMMENT = re.compile(r"(^|\s+)((#|//|--)\s.*|/\*.*\*/)$")
TWIN_PICTURE = ".zh-CN.png"  # of a window that speaks both languages
# Pages for those who work on the component; all others have a twin.
ENGLISH_ONLY = {
    "CHANGELOG.md", "CONTRIBUTING.md", "SECURITY.md",
    *(f"docs/{name}.md" for name in (
        "architecture", "decisions", "developing", "hardening", "performance")),
}
MAN_PAGES = [("tools/tdprint/tdprint.1", "tools/tdprint/tdprint.zh_CN.1"),
             ("tools/td_replay/td_replay.1", "tools/td_replay/td_replay.zh_CN.1")]
SYNOPSIS = 2  # the second section
LINES_BEFORE_TWIN_LINK = 12  # the way to the other language stands at the top

class Check:
    def __init__(self, root):
        self.root = root
        self.complaints = []
        self.pages = {name: Page(root, name) for name in page_names(root)}

    def complain(self, name, line, text):
        self.complaints.append(f"{name}:{line}: {text}")

    def resolve(self, page, link):
        """The file or folder that a link of the page leads to, and the heading; None if it leaves the project."""
        if re.match(r"[a-z]+:", link.target):
            return None
        file, _, heading = link.target.partition("#")
        target = os.path.normpath(os.path.join(os.path.dirname(page.name), file)) if file else page.name
        return target, heading

    def check_links(self, page):
        for link in page.links:
            place = self.resolve(page, link)
            if place is None:
                continue
            target, heading = place
            if not os.path.exists(os.path.join(self.root, target)):
                self.complain(page.name, link.line, f"{link.target} leads nowhere")
            elif heading and target not in self.pages:
                self.complain(page.name, link.line, f"{link.target} names a heading of what is no page")
            elif heading and heading not in self.pages[target].anchors:
                self.complain(page.name, link.line, f"{target} has no heading {heading}")

    def check_emphasis(self, page):
        for line in page.unclosed:
            self.complain(page.name, line, "** between a sign inside and a letter outside is no emphasis")

    def check_notes(self, page):
        for note in page.stray_notes:
            self.complain(page.name, note.line, "the note isn't followed by a block of code")
        self._check_blocks(page)

    def _check_blocks(self, page):
        before = None
        for block in page.code:
            words = {note.word for note in block.notes}
            for note in block.notes:
                if note.word not in (BEFORE, RUN, EXITS, NOT_RUN) or not note.text:
                    self.complain(page.name, note.line, f"“{note.word}: {note.text}” is no note of a block")
            if NOT_RUN in words and len(words) > 1:
                self.complain(page.name, block.line, "the block is run, and isn't")
            is_said = block.language == OUTPUT and before is not None and before.note(NOT_RUN) is None
            if block.language != COMMANDS and not is_said and not words & {RUN, NOT_RUN}:
                self.complain(page.name, block.line, "no note says how the block is run, or why it isn't")
            before = block

    def check_original(self, name):
        original = name.replace(TWIN, ".md")
        if original in self.pages:
            self.check_twins(self.pages[original], self.pages[name])
        else:
            self.complain(name, 1, f"there is no {original}")

    def check_twins(self, page, twin):
        if page.levels != twin.levels:
            self.complain(twin.name, 1, f"the headings' levels are {twin.levels}, in {page.name} {page.levels}")
        elif page.paragraphs != twin.paragraphs:
            self.complain(twin.name, 1, f"the headings have {twin.paragraphs} paragraphs, in {page.name} {page.paragraphs}")
        if page.items != twin.items:
            self.complain(twin.name, 1, f"the lists have {twin.items} items, in {page.name} {page.items}")
        self._compare_tables(page, twin)
        self._compare_code(page, twin)
        self._compare_links(page, twin)

    def _compare_tables(self, page, twin):
        if len(page.tables) != len(twin.tables):
            self.complain(twin.name, 1, f"there are {len(twin.tables)} tables, in {page.name} {len(page.tables)}")
            return
        for table, other in zip(page.tables, twin.tables):
            if len(table.rows) != len(other.rows):
                self.complain(twin.name, other.line, f"the table has {len(other.rows)} rows, "
                                                     f"that at {page.name}:{table.line} {len(table.rows)}")
                continue
            for index, (row, same) in enumerate(zip(table.rows, other.rows)):
                if len(row) != len(same):
                    self.complain(twin.name, other.line + index, f"the row has {len(same)} cells, "
                                                                 f"{page.name}:{table.line + index} {len(row)}")
                    continue
                for cell, twin_cell in zip(row, same):
                    code, twin_code = (sorted(found[1] for found in CODE.findall(text)) for text in (cell, twin_cell))
                    if code != twin_code:
                        self.complain(twin.name, other.line + index, f"the code in the table is {twin_code}, at "
                                                                     f"{page.name}:{table.line + index} {code}")

    def _compare_code(self, page, twin):
        if len(page.code) != len(twin.code):
            self.complain(twin.name, 1, f"there are {len(twin.code)} code blocks, in {page.name} {len(page.code)}")
            return
        for block, other in zip(page.code, twin.code):
            lines, twin_lines = ([COMMENT.sub("", line).rstrip() for line in one.lines] for one in (block, other))
            is_said = block.language == "text"
            if block.language != other.language or lines != twin_lines and not is_said:
                self.complain(twin.name, other.line, f"the code differs from that at {page.name}:{block.line}")
        self._compare_notes(page, twin)

    def _compare_notes(self, page, twin):
        for block, other in zip(page.code, twin.code):
            notes, twin_notes = ([(note.word, None if note.word == NOT_RUN else note.text) for note in one.notes]
                                 for one in (block, other))
            if notes != twin_notes:
                self.complain(twin.name, other.line, f"the notes differ from those at {page.name}:{block.line}")

    def _compare_links(self, page, twin):
        ways = []
        for one, partner in ((page, twin), (twin, page)):
            found = collections.Counter()
            has_twin_link = False
            for link in one.links:
                place = self.resolve(one, link)
                if place is None:
                    found[link.target] += 1
                    continue
                target, heading = place
                if target == partner.name:
                    has_twin_link |= link.line <= LINES_BEFORE_TWIN_LINK
                    continue
                original = target.replace(TWIN, ".md").replace(TWIN_PICTURE, ".png")
                language = original.replace(".md", TWIN) if one.name.endswith(TWIN) else original
                if target != language and language in self.pages:
                    self.complain(one.name, link.line, f"{link.target} leads to the page in the other language")
                anchors = self.pages[target].anchors if target in self.pages else []
                found[original, anchors.index(heading) if heading in anchors else -1] += 1
            if not has_twin_link:
                self.complain(one.name, 1, f"no link at the top leads to {partner.name}")
            ways.append(found)
        for only, name, other in ((ways[0] - ways[1], page.name, twin.name), (ways[1] - ways[0], twin.name, page.name)):
            for way in only:
                self.complain(other, 1, f"the link to {way} of {name} is missing")

    def check_man_pages(self, page, twin):
        outlines = []
        for name in (page, twin):
            try:
                with open(os.path.join(self.root, name), encoding="utf-8") as file:
                    outlines.append(man_outline(file.read().split("\n")))
            except FileNotFoundError:
                self.complain(name, 1, "there is no such man page")
                return
        for entry, same in zip(*outlines):
            if entry[1] != same[1]:
                self.complain(twin, same[0], f"{same[1]!r} stands where {page}:{entry[0]} has {entry[1]!r}")
                return
        if len(outlines[0]) != len(outlines[1]):
            self.complain(twin, 1, f"the page is shorter or longer than {page}")
            return
        pages = [ManPage(self.root, name) for name in (page, twin)]
        for one in pages:
            self._check_blocks(one)
        self._compare_notes(*pages)

    def check_version(self):
        versions = []
        for name, pattern in (("CMakeLists.txt", r"project\(\w+ VERSION ([\d.]+)"), ("CHANGELOG.md", r"## ([\d.]+)")):
            with open(os.path.join(self.root, name), encoding="utf-8") as file:
                versions.append(re.search(pattern, file.read())[1])
        if versions[0] != versions[1]:
            self.complain("CHANGELOG.md", 1, f"the newest version is {versions[1]}, that of the project {versions[0]}")

    def run(self):
        for name in ENGLISH_ONLY - set(self.pages):
            self.complain(name, 1, "there is no such page")
        for name, page in sorted(self.pages.items()):
            self.check_links(page)
            self.check_emphasis(page)
            self.check_notes(page)
            if name.endswith(TWIN):
                self.check_original(name)
            elif (name in ENGLISH_ONLY) == (name.replace(".md", TWIN) in self.pages):
                self.complain(name, 1, "the page has a Chinese twin, and stands in the list of those without"
                              if name in ENGLISH_ONLY else "the page has no Chinese twin")
        for page, twin in MAN_PAGES:
            self.check_man_pages(page, twin)
        self.check_version()


def man_outline(lines):
    """What must be equal in both languages: sections, entries but for the names of values, examples."""
    outline, sections, is_example = [], 0, False
    for number, line in enumerate(lines, 1):
        macro = line.split(" ")[0]
        is_example = is_example and macro != ".Ed"
        sections += macro == ".Sh"
        if is_example:
            outline.append((number, COMMENT.sub("", line).rstrip()))
        elif macro == ".Sh":
            outline.append((number, macro))
        elif macro in (".Dd", ".Dt", ".Ss", ".It", ".Bl", ".El", ".Bd", ".Ed", ".Pp") or \
                macro.startswith(".") and sections == SYNOPSIS:
            outline.append((number, re.sub(r"\bAr \S+", "Ar", line)))
        is_example = is_example or line.startswith(".Bd -literal")
    return outline


def main():
    arguments = sys.argv[1:]
    only_links = arguments[:1] == ["--links"]
    roots = arguments[only_links:] or [os.path.join(os.path.dirname(__file__), "..")]
    check = Check(roots[0])
    if only_links:
        for _, page in sorted(check.pages.items()):
            check.check_links(page)
    else:
        check.run()
    for complaint in check.complaints:
        print(complaint, file=sys.stderr)
    return 1 if check.complaints else 0


if __name__ == "__main__":
    sys.exit(main())
