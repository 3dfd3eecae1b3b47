"""The user's registration of the component's classes, which nobody else may have written."""

import os
import pathlib
import re
import stat

from ._structures import Error, FAILURE, FILE_NOT_FOUND, NO_ACCESS

LARGEST_FILE = 65536
CLASS_LINE = re.compile(
    r"([^\t\0]+)\t(\{[0-9A-Fa-f]{8}(?:-[0-9A-Fa-f]{4}){3}-[0-9A-Fa-f]{12}\})\t(/[^\0]*)")


def registration_file():
    data = os.environ.get("XDG_DATA_HOME", "")
    folder = pathlib.Path(data) if data.startswith("/") else pathlib.Path.home() / ".local/share"
    return folder / "qbtdprinter/classes"


def registered_classes():
    """The name, the identifier and the module of each class; none where nothing is registered."""
    try:
        content = _read_trusted(registration_file())
    except Error as error:
        if error.number == FILE_NOT_FOUND:
            return []
        raise
    lines = content.decode("utf-8", "surrogateescape").split("\n")
    return [_class_of(line) for line in lines if line and not line.startswith("#")]


def check_trusted(file):
    """The file, its folder and the folders on the way belong to the user or to root, and only on
    the way can there be one for everybody, where nobody can replace what is another's."""
    try:
        place = file.parent.resolve() / file.name
        states = [(part, part.lstat()) for part in (place, *place.parents)]
    except OSError as error:
        raise _error_of(file, error) from error
    for part, state in states:
        on_the_way = part not in (place, place.parent) and state.st_mode & stat.S_ISVTX
        writable = state.st_mode & (stat.S_IWGRP | stat.S_IWOTH) and not on_the_way
        if stat.S_ISLNK(state.st_mode) or state.st_uid not in (0, os.geteuid()) or writable:
            raise Error(NO_ACCESS, f"others could have changed {part}")
    if not stat.S_ISREG(states[0][1].st_mode):
        raise Error(FAILURE, f"{file} is no regular file")


def _class_of(line):
    match = CLASS_LINE.fullmatch(line)
    if not match:
        raise Error(FAILURE, "the registration is damaged; tdprint register writes it anew")
    return match.groups()


def _read_trusted(file):
    check_trusted(file)
    try:
        # What was a regular file a moment ago may be a pipe by now, which must not hold us up.
        opened = os.open(file, os.O_RDONLY | os.O_NOFOLLOW | os.O_NONBLOCK | os.O_CLOEXEC)
        with open(opened, "rb") as stream:
            content = stream.read(LARGEST_FILE + 1)
    except OSError as error:
        raise _error_of(file, error) from error
    if len(content) > LARGEST_FILE:
        raise Error(FAILURE, "the registration is too large")
    return content


def _error_of(file, error):
    numbers = {FileNotFoundError: FILE_NOT_FOUND, PermissionError: NO_ACCESS}
    return Error(numbers.get(type(error), FAILURE), f"{file}: {error.strerror}")
