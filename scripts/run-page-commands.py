#!/usr/bin/env python3
"""Runs the commands of the pages of the documentation as they are printed there.

    scripts/run-page-commands.py PAGES WORK [PAGE…]

PAGES is the folder of the installed documentation or man pages, WORK a folder that is made. Each page has a folder,
a home and a state of its own, and speaks the language of its readers. Its blocks run in their order in
one shell, so that what one exports holds for the next; what isn't run says so in a note of the page
(doc_pages.py). Some commands are an administrator's and change the system: this is for a bare one that
is thrown away, see scripts/test-packages.sh.
"""

import os
import subprocess
import sys

sys.dont_write_bytecode = True
from doc_pages import BEFORE, COMMANDS, EXITS, NOT_RUN, OUTPUT, RUN, TWIN, ManPage, Page, page_names  # noqa: E402

END = "The_end_of_the_block"
HELPERS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "page-commands.bash")


def is_chinese(page):
    return page.name.endswith(TWIN) or page.name.startswith("zh_CN/")


def page_of(root, name):
    return Page(root, name) if name.endswith(".md") else ManPage(root, name)


def is_run(block):
    return block.note(NOT_RUN) is None and (block.language == COMMANDS or block.note(RUN) is not None)


def is_said(block):
    return block.language == OUTPUT and block.note(NOT_RUN) is None and block.note(RUN) is None


class Run:
    """The blocks of a page that are run, in one shell."""

    def __init__(self, page, work):
        self.page = page
        self.folder = os.path.join(work, page.name)
        self.said = os.path.join(work, "said", page.name)
        for folder in (self.folder, os.path.join(self.said, "home")):
            os.makedirs(folder)

    def said_by(self, index):
        try:
            with open(os.path.join(self.said, str(index)), encoding="utf-8", errors="replace") as file:
                return file.read()
        except FileNotFoundError:
            return None

    def complaint(self):
        """What is wrong with the page; None if all its blocks do what it says."""
        done = subprocess.run(["bash", "-c", self._script()], cwd=self.folder, env=self._environment(),
                              stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, check=False)
        blocks = self.page.code
        begun = [index for index in range(len(blocks)) if self.said_by(index) is not None]
        if done.returncode:
            line = blocks[begun[-1]].line if begun else 1
            return f"{self.page.name}:{line}: status {done.returncode}\n{self.said_by(begun[-1]) if begun else ''}"
        for index, block in enumerate(blocks):
            if is_said(block) and self.said_by(index - 1) != "".join(line + "\n" for line in block.lines):
                return f"{self.page.name}:{block.line}: this is said:\n{self.said_by(index - 1)}"
        return None

    def _environment(self):
        home = os.path.join(self.said, "home")
        return {"PATH": os.environ["PATH"], "HOME": home, "XDG_CONFIG_HOME": os.path.join(home, "config"),
                "ODBCINI": os.path.join(home, ".odbc.ini"),
                "QBTDPRINTER_STATE_DIR": os.path.join(home, "state"), "LC_CTYPE": "C.UTF-8", "PERL_BADLANG": "0",
                "LANG": "zh_CN.UTF-8" if is_chinese(self.page) else "C.UTF-8"}

    def _script(self):
        lines = ["set -euo pipefail", f". '{HELPERS}'", "said_before=/dev/null"]
        for index, block in enumerate(self.page.code):
            if is_run(block):
                lines += self._lines_of(index, block)
        return "\n".join(lines) + "\n"

    def _lines_of(self, index, block):
        said = f"'{self.said}/{index}'"
        lines = [f": >{said}"]
        if block.note(BEFORE) is not None:
            lines += ["{", block.note(BEFORE), f"}} >>{said} 2>&1", f": >{said}"]
        expected = block.note(EXITS)
        if expected is not None:
            lines += ["failures=0", "trap '((++failures))' ERR", "set +e"]
        if block.note(RUN) is None:
            lines += ["{", *block.lines, f"}} >>{said} 2>&1"]
        else:
            lines += ["{", block.note(RUN), f"}} >>{said} 2>&1 <<'{END}'", *block.lines, END]
        if expected is not None:
            lines += ["status=$?", "trap - ERR", "set -e", f'[ "$status" -eq {expected} ]', '[ "$failures" -le 1 ]']
        return lines + [f"said_before={said}"]


def main():
    root, work, *names = sys.argv[1:]
    pages = [page_of(root, name) for name in names or sorted(page_names(root))]
    count = failed = 0
    for page in pages:
        blocks = sum(is_run(block) or is_said(block) for block in page.code)
        if not blocks:
            continue
        count += blocks
        complaint = Run(page, os.path.abspath(work)).complaint()
        failed += complaint is not None
        print(complaint or f"{page.name}: as printed: {blocks} of {len(page.code)} blocks", flush=True)
    if not count:
        print(f"{root}: nothing to run")
    return 0 if count and not failed else 1


if __name__ == "__main__":
    sys.exit(main())
