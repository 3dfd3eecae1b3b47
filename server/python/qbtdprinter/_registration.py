"""The user's registration of the component's classes, which nobody else may have written."""

import os
import pathlib
import stat

from ._structures import Error, NO_ACCESS


def registration_file():
    data = os.environ.get("XDG_DATA_HOME", "")
    folder = pathlib.Path(data) if data.startswith("/") else pathlib.Path.home() / ".local/share"
    return folder / "qbtdprinter/classes"


def read_trusted(file):
    if not file.exists():
        return ""
    check_trusted(file)
    return file.read_text(encoding="utf-8")


def check_trusted(file):
    """The file, its folder and the folders on the way belong to the user or to root, and only on
    the way can there be one for everybody, where nobody can replace what is another's."""
    place = file.parent.resolve() / file.name
    for part in (place, *place.parents):
        state = part.lstat()
        on_the_way = part not in (place, place.parent) and state.st_mode & stat.S_ISVTX
        writable = state.st_mode & (stat.S_IWGRP | stat.S_IWOTH) and not on_the_way
        if stat.S_ISLNK(state.st_mode) or state.st_uid not in (0, os.geteuid()) or writable:
            raise Error(NO_ACCESS, f"others could have changed {part}")
