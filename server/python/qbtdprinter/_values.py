"""Values of Python as variants, and objects of Python as objects that the component can call."""

import ctypes
import datetime
import decimal

from ._structures import (
    BAD_POINTER, DISPATCH_ID, EXCEPTION, FAILURE, GET, MEMBER_NOT_FOUND, METHOD,
    NO_INTERFACE, NOT_IMPLEMENTED, OBJECT_ID, OF_GET_IDS_OF_NAMES, OF_GET_TYPE_INFO,
    OF_GET_TYPE_INFO_COUNT, OF_INVOKE, OF_QUERY_INTERFACE, OK, TYPE_MISMATCH, UNKNOWN_NAME, Array,
    Error, ExceptionInfo, Variant, free_string, libc, make_block, make_string, read_name,
    read_string, release, signed)

_BY_REFERENCE = 0x4000
_EMPTY, _NULL, _DATE, _STRING, _DISPATCH, _BOOLEAN, _VARIANT, _BYTES = 0, 1, 7, 8, 9, 11, 12, 0x2011
_NUMBERS = {2: ctypes.c_int16, 3: ctypes.c_int32, 4: ctypes.c_float, 5: ctypes.c_double,
            16: ctypes.c_int8, 17: ctypes.c_uint8, 18: ctypes.c_uint16, 19: ctypes.c_uint32,
            20: ctypes.c_int64, 21: ctypes.c_uint64, 22: ctypes.c_int32, 23: ctypes.c_uint32}
_FIRST_DAY = datetime.datetime(1899, 12, 30)


# ---- Values ----


def _make_array(content):
    array = Array(1, 0, 1, 0, make_block(content), len(content), 0)
    return make_block(bytes(array))


def _integer_kind(value):
    for kind, bits in ((3, 31), (20, 63)):
        if -(1 << bits) <= value < 1 << bits:
            return kind
    raise OverflowError(f"{value} has more than 64 bits")


def make_variant(value):
    """A variant that owns what it holds; clear() frees that."""
    variant = Variant()
    if value is None:
        variant.type = _NULL
    elif isinstance(value, bool):
        variant.type, variant.value.flag = _BOOLEAN, -1 if value else 0
    elif isinstance(value, int):
        variant.type, variant.value.integer64 = _integer_kind(value), value
    elif isinstance(value, (float, decimal.Decimal)):
        variant.type, variant.value.real64 = 5, float(value)
    elif isinstance(value, str):
        variant.type, variant.value.pointer = _STRING, make_string(value)
    elif isinstance(value, (bytes, bytearray)):
        variant.type, variant.value.pointer = _BYTES, _make_array(bytes(value))
    elif isinstance(value, datetime.date):
        if not isinstance(value, datetime.datetime):
            value = datetime.datetime.combine(value, datetime.time())
        days = (value.replace(tzinfo=None) - _FIRST_DAY) / datetime.timedelta(days=1)
        variant.type, variant.value.real64 = _DATE, days
    else:
        variant.type, variant.value.pointer = _DISPATCH, _own_object(value)
    return variant


def read_variant(variant):
    """A Python value; an object among them is lent."""
    kind, place = variant.type, ctypes.addressof(variant.value)
    if kind & _BY_REFERENCE:
        kind, place = kind & ~_BY_REFERENCE, variant.value.pointer
        if kind == _VARIANT:
            return read_variant(Variant.from_address(place))
    if kind in (_EMPTY, _NULL):
        return None
    if kind in _NUMBERS:
        return _NUMBERS[kind].from_address(place).value
    if kind == _BOOLEAN:
        return ctypes.c_int16.from_address(place).value != 0
    if kind == _STRING:
        return read_string(ctypes.c_void_p.from_address(place).value)
    if kind == _DATE:
        return _FIRST_DAY + datetime.timedelta(days=ctypes.c_double.from_address(place).value)
    raise Error(TYPE_MISMATCH, f"values of kind {kind} can't be read")


def clear(variant):
    if variant.type == _STRING:
        free_string(variant.value.pointer)
    elif variant.type == _BYTES:
        libc.free(Array.from_address(variant.value.pointer).data)
        libc.free(variant.value.pointer)
    elif variant.type == _DISPATCH and variant.value.pointer:
        release(variant.value.pointer)


# ---- Objects of the program ----


class _OwnObject(ctypes.Structure):
    """What the component sees of a Python object: a pointer to the table of operations.

    It lives as long as it has references. Members are numbered as they are asked for, from 1.
    """

    _fields_ = [("table", ctypes.c_void_p)]


_own_objects = {}  # by address


def _own_object(target):
    """The address of a new object that has one reference."""
    own = _OwnObject(ctypes.addressof(_table))
    own.target, own.names, own.references = target, [], 1
    address = ctypes.addressof(own)
    _own_objects[address] = own
    return address


def _query_interface(address, wanted, found):
    if not found:
        return signed(BAD_POINTER)
    if ctypes.string_at(wanted, 16) not in (OBJECT_ID.raw, DISPATCH_ID.raw):
        found[0] = None
        return signed(NO_INTERFACE)
    found[0] = address
    _add_reference(address)
    return OK


def _add_reference(address):
    _own_objects[address].references += 1
    return _own_objects[address].references


def _give_back(address):
    own = _own_objects[address]
    own.references -= 1
    if own.references == 0:
        del _own_objects[address]
    return own.references


def _type_info_count(_address, count):
    count[0] = 0
    return OK


def _type_info(_address, _index, _language, _info):
    return signed(NOT_IMPLEMENTED)


def _get_ids(address, _reserved, names, count, _language, ids):
    own = _own_objects[address]
    for place in range(count):
        ids[place] = -1
    wanted = read_name(names[0]).lower()
    for name in dir(own.target):
        if name.lower() == wanted and count == 1:
            if name not in own.names:
                own.names.append(name)
            ids[0] = own.names.index(name) + 1
            return OK
    return signed(UNKNOWN_NAME)


def _invoke_own(address, member, _reserved, _language, kind, arguments, result, info, _bad):
    own = _own_objects[address]
    if not 1 <= member <= len(own.names) or not kind & (METHOD | GET):
        return signed(MEMBER_NOT_FOUND)
    try:
        given = arguments[0]
        values = [read_variant(given.arguments[place]) for place in range(given.count)]
        value = getattr(own.target, own.names[member - 1])
        if callable(value):
            value = value(*reversed(values))
        if result:
            result[0] = make_variant(value)
        return OK
    except BaseException as error:  # no exception may cross the boundary
        if info:
            info[0] = _info_of(error)
        return signed(EXCEPTION)


def _info_of(error):
    number = error.number if isinstance(error, Error) else FAILURE
    text = error.description if isinstance(error, Error) else f"{type(error).__name__}: {error}"
    if 0 < number <= 0xFFFF:
        number |= 0x800A0000
    return ExceptionInfo(description=make_string(text), result=signed(number))


def _function(action, *argument_types):
    return ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *argument_types)(action)


_functions = [
    _function(_query_interface, *OF_QUERY_INTERFACE),
    _function(_add_reference),
    _function(_give_back),
    _function(_type_info_count, *OF_GET_TYPE_INFO_COUNT),
    _function(_type_info, *OF_GET_TYPE_INFO),
    _function(_get_ids, *OF_GET_IDS_OF_NAMES),
    _function(_invoke_own, *OF_INVOKE),
]
_table = (ctypes.c_void_p * len(_functions))(
    *(ctypes.cast(function, ctypes.c_void_p).value for function in _functions))
