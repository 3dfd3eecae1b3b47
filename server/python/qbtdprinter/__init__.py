"""The print component for Python programs: its module's binary interface, with ctypes alone.

    import qbtdprinter

    with qbtdprinter.create("QbTdPrinter.Printer") as printer:
        printer.put("PrintBlankRows", 3)
        printer.call("DoPrint", True, "sqlite:shop.db", 21, False, False, rows)
        if not printer.get("PrintOk"): ...

`rows` is any object that has, in any case, EOF, Fields(name).Value, MoveNext(), MoveFirst() and
Clone(). Such objects, and all others of the program's own, are handed over as they are: their
attributes are properties, their callables are methods. An Error that they raise reaches the
component with its number and description, and an error of the component is raised here.

None is Null as a value, and nothing as PrintData. Numbers, texts, bytes, dates and Decimals stand
for themselves. All calls must come from the thread that made the first object.
"""

import ctypes
import os
import pathlib

from ._registration import check_trusted, registered_classes, registration_file
from ._structures import (
    CREATE_INSTANCE, DISPATCH_ID, EXCEPTION, FACTORY_ID, FAILURE, FILE_NOT_FOUND, GET, GET_IDS_OF_NAMES, INVOKE, METHOD,
    NAME_NOT_REGISTERED, NO_CURRENT_ROW, NO_SUCH_COLUMN, NOTHING_TO_PRINT, OF_CREATE_INSTANCE,
    OF_GET_IDS_OF_NAMES, OF_INVOKE, PUT, PUT_NAME, UTF16, Arguments, Error, ExceptionInfo, Variant,
    free_string, guid, operation, read_string, release, signed)
from ._values import clear, make_variant, read_variant

__all__ = ["Error", "NO_CURRENT_ROW", "NO_SUCH_COLUMN", "NOTHING_TO_PRINT", "Object", "create",
           "create_from_module", "registration_file"]


class Object:
    """An object of the component. It is given back at the end of its `with`, or by close()."""

    def __init__(self, pointer):
        self.pointer = pointer

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        if self.pointer:
            release(self.pointer)
        self.pointer = None

    def call(self, name, *arguments):
        """Calls a method."""
        return self._invoke(name, METHOD, arguments)

    def get(self, name, *arguments):
        """Reads a property."""
        return self._invoke(name, GET, arguments)

    def put(self, name, value):
        """Writes a property."""
        self._invoke(name, PUT, (value,))

    def _member(self, name):
        text = ctypes.create_string_buffer(name.encode(UTF16) + b"\0\0")
        names = (ctypes.c_void_p * 1)(ctypes.addressof(text))
        ids = (ctypes.c_int32 * 1)()
        result = operation(self.pointer, GET_IDS_OF_NAMES, *OF_GET_IDS_OF_NAMES)(
            None, names, 1, 0, ids)
        if result < 0:
            raise Error(result)
        return ids[0]

    def _invoke(self, name, kind, values):
        if not self.pointer:
            raise ValueError("the object is closed")
        member = self._member(name)
        variants = (Variant * len(values))()
        put_name = ctypes.c_int32(PUT_NAME)
        arguments = Arguments(variants, ctypes.pointer(put_name) if kind == PUT else None,
                              len(values), 1 if kind == PUT else 0)
        result, info = Variant(), ExceptionInfo()
        try:
            for place, value in enumerate(reversed(values)):
                variants[place] = make_variant(value)
            outcome = operation(self.pointer, INVOKE, *OF_INVOKE)(
                member, None, 0, kind, arguments, result, info, None)
            if outcome < 0:
                raise _error_of(outcome, info)
            return read_variant(result)
        finally:
            for variant in variants:
                clear(variant)
            clear(result)


def _error_of(outcome, info):
    """The error that a failed call has left behind."""
    description = read_string(info.description)
    for text in (info.source, info.description, info.help_file):
        free_string(text)
    number = outcome if outcome != signed(EXCEPTION) else info.code or info.result
    return Error(number, description)


def create(class_name):
    """An object of a class that `tdprint register` has made known."""
    for name, class_id, module in registered_classes():
        if name.lower() == class_name.lower():
            check_trusted(pathlib.Path(module))
            return create_from_module(module, class_id)
    raise Error(NAME_NOT_REGISTERED, f"{class_name} isn't registered; tdprint register does it")


def create_from_module(module, class_id):
    """The same from a module's file; the program vouches for the file."""
    factory, created = ctypes.c_void_p(), ctypes.c_void_p()
    get_class_object = _load(module)
    _check(get_class_object(guid(class_id), FACTORY_ID, ctypes.byref(factory)))
    create_instance = operation(factory.value, CREATE_INSTANCE, *OF_CREATE_INSTANCE)
    result = create_instance(None, DISPATCH_ID, created)
    release(factory.value)
    _check(result)
    return Object(created.value)


def _load(module):
    if not module:
        raise Error(FILE_NOT_FOUND, "no module is named")
    try:
        return ctypes.CDLL(os.path.abspath(module)).DllGetClassObject
    except OSError as error:
        raise Error(FAILURE, f"the module can't be loaded: {error}") from error
    except AttributeError as error:
        raise Error(FAILURE, f"{module} isn't the module QbTdPrinter") from error


def _check(result):
    if result < 0:
        raise Error(result)
