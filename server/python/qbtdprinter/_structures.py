"""The structures of the binary interface, its strings, and calls through its tables."""

import ctypes
import struct
import sys
import uuid

OK = 0
NOT_IMPLEMENTED = 0x80004001
NO_INTERFACE = 0x80004002
BAD_POINTER = 0x80004003
FAILURE = 0x80004005
FILE_NOT_FOUND = 0x80070002
NO_ACCESS = 0x80070005
MEMBER_NOT_FOUND = 0x80020003
TYPE_MISMATCH = 0x80020005
UNKNOWN_NAME = 0x80020006
EXCEPTION = 0x80020009
BAD_ARGUMENT_COUNT = 0x8002000E
ARGUMENT_NOT_OPTIONAL = 0x8002000F
CLASS_NOT_AVAILABLE = 0x80040111
WRONG_THREAD = 0x8001010E
NAME_NOT_REGISTERED = 0x800401F3

NOTHING_TO_PRINT = 0x800403E9
NO_SUCH_COLUMN = 3265
NO_CURRENT_ROW = 3021

METHOD, GET, PUT = 1, 2, 4
PUT_NAME = -3

# The places of operations in an object's table.
ADD_REF, RELEASE, CREATE_INSTANCE, GET_IDS_OF_NAMES, INVOKE = 1, 2, 3, 5, 6

UTF16 = {"little": "utf-16-le", "big": "utf-16-be"}[sys.byteorder]


_DESCRIPTIONS = {
    MEMBER_NOT_FOUND: "the object has no such member",
    UNKNOWN_NAME: "the object has no such member",
    TYPE_MISMATCH: "an argument is of the wrong kind",
    BAD_ARGUMENT_COUNT: "there are too few or too many arguments",
    ARGUMENT_NOT_OPTIONAL: "an argument is missing",
    CLASS_NOT_AVAILABLE: "the module has no such class",
    WRONG_THREAD: "another thread owns the component",
}


class Error(Exception):
    """An error with the number and the description that cross the component's boundary."""

    def __init__(self, number, description=""):
        super().__init__(number, description)
        self.number = number if number >= 0 else number + (1 << 32)
        self.description = description or _DESCRIPTIONS.get(self.number, "the call failed")

    def __str__(self):
        number = f"0x{self.number:08x}" if self.number > 0xFFFF else str(self.number)
        return f"{number}: {self.description}"


class _Value(ctypes.Union):
    _fields_ = [("integer32", ctypes.c_int32), ("integer64", ctypes.c_int64),
                ("real64", ctypes.c_double), ("flag", ctypes.c_int16),
                ("pointer", ctypes.c_void_p), ("pair", ctypes.c_void_p * 2)]


class Variant(ctypes.Structure):
    _fields_ = [("type", ctypes.c_uint16), ("decimal", ctypes.c_uint8 * 6), ("value", _Value)]


class Array(ctypes.Structure):
    _fields_ = [("dimensions", ctypes.c_uint16), ("features", ctypes.c_uint16),
                ("element_size", ctypes.c_uint32), ("locks", ctypes.c_uint32),
                ("data", ctypes.c_void_p), ("count", ctypes.c_uint32), ("lowest", ctypes.c_int32)]


class Arguments(ctypes.Structure):
    _fields_ = [("arguments", ctypes.POINTER(Variant)), ("names", ctypes.POINTER(ctypes.c_int32)),
                ("count", ctypes.c_uint32), ("name_count", ctypes.c_uint32)]


class ExceptionInfo(ctypes.Structure):
    _fields_ = [("code", ctypes.c_uint16), ("reserved", ctypes.c_uint16),
                ("source", ctypes.c_void_p), ("description", ctypes.c_void_p),
                ("help_file", ctypes.c_void_p), ("help_context", ctypes.c_uint32),
                ("reserved_pointer", ctypes.c_void_p), ("fill_later", ctypes.c_void_p),
                ("result", ctypes.c_int32)]


def guid(text):
    return ctypes.create_string_buffer(uuid.UUID(text).bytes_le, 16)


OBJECT_ID = guid("{00000000-0000-0000-C000-000000000046}")
FACTORY_ID = guid("{00000001-0000-0000-C000-000000000046}")
DISPATCH_ID = guid("{00020400-0000-0000-C000-000000000046}")

# The arguments of the operations, without the object itself.
PLACE = ctypes.POINTER(ctypes.c_void_p)
OF_QUERY_INTERFACE = (ctypes.c_void_p, PLACE)
OF_CREATE_INSTANCE = (ctypes.c_void_p, ctypes.c_void_p, PLACE)
OF_GET_TYPE_INFO_COUNT = (ctypes.POINTER(ctypes.c_uint32),)
OF_GET_TYPE_INFO = (ctypes.c_uint32, ctypes.c_uint32, PLACE)
OF_GET_IDS_OF_NAMES = (ctypes.c_void_p, PLACE, ctypes.c_uint32, ctypes.c_uint32,
                       ctypes.POINTER(ctypes.c_int32))
OF_INVOKE = (ctypes.c_int32, ctypes.c_void_p, ctypes.c_uint32, ctypes.c_uint16,
             ctypes.POINTER(Arguments), ctypes.POINTER(Variant), ctypes.POINTER(ExceptionInfo),
             ctypes.POINTER(ctypes.c_uint32))

libc = ctypes.CDLL(None)
libc.malloc.restype = ctypes.c_void_p
libc.malloc.argtypes = [ctypes.c_size_t]
libc.free.argtypes = [ctypes.c_void_p]


def signed(result):
    return ctypes.c_int32(result).value


def operation(pointer, index, *argument_types):
    """The operation at a place of an object's table, to be called without the object."""
    table = ctypes.cast(pointer, ctypes.POINTER(ctypes.POINTER(ctypes.c_void_p)))[0]
    kind = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *argument_types)
    return lambda *arguments: kind(table[index])(pointer, *arguments)


def release(pointer):
    operation(pointer, RELEASE)()


def make_block(content):
    """Memory as both sides give it back, with a copy of the content."""
    block = libc.malloc(max(1, len(content)))
    if not block:
        raise MemoryError
    ctypes.memmove(block, content, len(content))
    return block


def make_string(text):
    """A string that belongs to who receives it: the units behind their length in bytes."""
    units = text.encode(UTF16, "surrogatepass")
    return make_block(struct.pack("=I", len(units)) + units + b"\0\0") + 4


def read_string(address):
    if not address:
        return ""
    length = ctypes.c_uint32.from_address(address - 4).value
    return ctypes.string_at(address, length).decode(UTF16, "replace")


def free_string(address):
    if address:
        libc.free(address - 4)


def read_name(address):
    """A text that a zero unit ends."""
    length = 0
    while ctypes.c_uint16.from_address(address + length).value:
        length += 2
    return ctypes.string_at(address, length).decode(UTF16, "replace")
