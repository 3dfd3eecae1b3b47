/* What every interface of the component is made of: result codes, values, objects, calls by name.
 * binary_interface.h tells how references, memory and threads are treated. */
#ifndef QBTDPRINTER_BINARY_OBJECTS_H
#define QBTDPRINTER_BINARY_OBJECTS_H

#include <stdint.h>

#if defined(_WIN32) && !defined(_WIN64)
#define TD_CALL __stdcall
#else
#define TD_CALL
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Result codes: negative means failure ---- */

typedef int32_t TdResult;

#define TD_RESULT(code) ((TdResult)(code))
#define TD_FAILED(result) ((result) < 0)
#define TD_OK TD_RESULT(0)
#define TD_FALSE TD_RESULT(1) /* success, and the answer is no */
#define TD_NOT_IMPLEMENTED TD_RESULT(0x80004001u)
#define TD_NO_INTERFACE TD_RESULT(0x80004002u)
#define TD_BAD_POINTER TD_RESULT(0x80004003u) /* a pointer that must not be null is */
#define TD_FAILURE TD_RESULT(0x80004005u)
#define TD_NO_ACCESS TD_RESULT(0x80070005u) /* others could have changed the file or its folder */
#define TD_FILE_NOT_FOUND TD_RESULT(0x80070002u)
#define TD_OUT_OF_MEMORY TD_RESULT(0x8007000Eu)
#define TD_WRONG_THREAD TD_RESULT(0x8001010Eu)
#define TD_UNKNOWN_INTERFACE TD_RESULT(0x80020001u)
#define TD_MEMBER_NOT_FOUND TD_RESULT(0x80020003u)
#define TD_PARAMETER_NOT_FOUND TD_RESULT(0x80020004u) /* as an argument: it is left out */
#define TD_TYPE_MISMATCH TD_RESULT(0x80020005u)
#define TD_UNKNOWN_NAME TD_RESULT(0x80020006u)
#define TD_BAD_VARIANT_TYPE TD_RESULT(0x80020008u)
#define TD_EXCEPTION TD_RESULT(0x80020009u) /* number and description: in the TdExceptionInfo */
#define TD_VALUE_OVERFLOW TD_RESULT(0x8002000Au)
#define TD_BAD_ARGUMENT_COUNT TD_RESULT(0x8002000Eu)
#define TD_ARGUMENT_NOT_OPTIONAL TD_RESULT(0x8002000Fu)
#define TD_NO_AGGREGATION TD_RESULT(0x80040110u)
#define TD_CLASS_NOT_AVAILABLE TD_RESULT(0x80040111u)
#define TD_CLASS_NOT_REGISTERED TD_RESULT(0x80040154u)
#define TD_NAME_NOT_REGISTERED TD_RESULT(0x800401F3u)
#define TD_CANNOT_REGISTER TD_RESULT(0x80040201u)

/* An error number from 1 to 65535 (3265: no such column, 94: Null, …) as a result code. Negative
 * numbers are result codes already. */
#define TD_RESULT_OF_NUMBER(number) TD_RESULT(0x800A0000u | (uint32_t)(number))

/* A print call got nothing to print: "没有可供打印的数据!". */
#define TD_NOTHING_TO_PRINT TD_RESULT(0x800403E9u)

/* ---- Identifiers ---- */

typedef struct TdGuid {
  uint32_t first;
  uint16_t second;
  uint16_t third;
  uint8_t rest[8];
} TdGuid;

/* ---- Strings: 16-bit units, the byte length in front ---- */

#ifdef __cplusplus
typedef char16_t TdUnit;
#else
typedef uint_least16_t TdUnit; /* the type of the units of u"…" */
#endif

/* Points to the first unit; a zero unit follows the last one. The four bytes before the first unit
 * hold the length in bytes, without that zero, and are the start of the block from malloc. A null
 * pointer is the empty string. The units are UTF-16; halves of a character that stand alone are
 * allowed and read as U+FFFD. */
typedef TdUnit* TdString;

/* ---- Variants: a value with its type ---- */

typedef int16_t TdFlag;
#define TD_TRUE_FLAG ((TdFlag)-1)
#define TD_FALSE_FLAG ((TdFlag)0)

enum {
  TD_EMPTY = 0,
  TD_NULL = 1,
  TD_INT16 = 2,
  TD_INT32 = 3,
  TD_FLOAT = 4,
  TD_DOUBLE = 5,
  TD_CURRENCY = 6, /* integer64, in ten thousandths */
  TD_DATE = 7,     /* real64: days since 30 December 1899, the fraction is the time of day */
  TD_STRING = 8,
  TD_DISPATCH = 9,
  TD_ERROR = 10,
  TD_BOOLEAN = 11,
  TD_VARIANT = 12, /* only together with TD_BY_REFERENCE */
  TD_OBJECT = 13,
  TD_DECIMAL = 14,
  TD_INT8 = 16,
  TD_UINT8 = 17,
  TD_UINT16 = 18,
  TD_UINT32 = 19,
  TD_INT64 = 20,
  TD_UINT64 = 21,
  TD_INT = 22,             /* as TD_INT32 */
  TD_UINT = 23,            /* as TD_UINT32 */
  TD_BYTES = 0x2011,       /* TdArray of bytes, one dimension */
  TD_BY_REFERENCE = 0x4000 /* flag: `reference` points to a value of the type */
};

typedef struct TdArrayBound {
  uint32_t count;
  int32_t lowest; /* the first index */
} TdArrayBound;

/* An array; the structure and its data are two blocks from malloc. */
typedef struct TdArray {
  uint16_t dimensions; /* 1 */
  uint16_t features;   /* 0 */
  uint32_t elementSize;
  uint32_t locks; /* 0 */
  void* data;
  TdArrayBound bounds[1];
} TdArray;

typedef struct TdVariant {
  uint16_t type;
  uint8_t decimalScale; /* of a TD_DECIMAL: the power of ten to divide by, 0 to 28 */
  uint8_t decimalSign;  /* of a TD_DECIMAL: 0x80 if negative */
  uint32_t decimalHigh; /* of a TD_DECIMAL: the upper 32 of its 96 bits; the lower: unsigned64 */
  union {
    int8_t integer8;
    int16_t integer16;
    int32_t integer32;
    int64_t integer64;
    uint8_t unsigned8;
    uint16_t unsigned16;
    uint32_t unsigned32;
    uint64_t unsigned64;
    float real32;
    double real64;
    TdFlag flag;
    TdResult error;
    TdString string;
    struct TdDispatch* dispatch; /* null: the object variable is set to nothing */
    struct TdObject* object;
    TdArray* array;
    void* reference;
    void* pair[2]; /* gives the structure its size */
  } value;
} TdVariant;

/* ---- Objects ---- */

/* The operations that each table begins with.
 *   QueryInterface  gives another interface of the object, counted, or TD_NO_INTERFACE and null
 *   AddRef, Release return the new count; at 0 the object is gone */
#define TD_OBJECT_OPERATIONS(Self)                                                                \
  TdResult(TD_CALL* QueryInterface)(Self * self, const TdGuid* interfaceId, void** interfaceOut); \
  uint32_t(TD_CALL* AddRef)(Self * self);                                                         \
  uint32_t(TD_CALL* Release)(Self * self);

typedef struct TdObject {
  const struct TdObjectTable* table;
} TdObject;
typedef struct TdObjectTable {
  TD_OBJECT_OPERATIONS(TdObject)
} TdObjectTable;

/* Makes the objects of one class. */
typedef struct TdClassFactory {
  const struct TdClassFactoryTable* table;
} TdClassFactory;
typedef struct TdClassFactoryTable {
  TD_OBJECT_OPERATIONS(TdClassFactory)
  /* A new object; `outer` must be null (TD_NO_AGGREGATION). */
  TdResult(TD_CALL* CreateInstance)(TdClassFactory* self, TdObject* outer,
                                    const TdGuid* interfaceId, void** object);
  /* Keeps the module loaded, and its state and its database connections in use, as an object
   * would: 1 takes a lock, 0 gives one back. */
  TdResult(TD_CALL* LockServer)(TdClassFactory* self, int32_t lock);
} TdClassFactoryTable;

/* ---- Calls by name ---- */

/* What a call does; several may be set, as a language that can't tell a method from a property
 * does. */
enum { TD_CALL_METHOD = 1, TD_CALL_GET = 2, TD_CALL_PUT = 4, TD_CALL_PUT_REFERENCE = 8 };

enum {
  TD_MEMBER_VALUE = 0,    /* the default member */
  TD_MEMBER_UNKNOWN = -1, /* GetIDsOfNames: no such name */
  TD_MEMBER_PUT = -3      /* names the argument that holds a property's new value */
};

/* Arguments stand in reverse order: the last one first. Those with names stand in front. An
 * argument is left out by passing fewer, or as a TD_ERROR variant with TD_PARAMETER_NOT_FOUND. A
 * variant with TD_BY_REFERENCE lends a variable of the caller. */
typedef struct TdArguments {
  TdVariant* arguments;
  int32_t* names; /* identifiers of the first `nameCount` arguments */
  uint32_t count;
  uint32_t nameCount;
} TdArguments;

/* What a failed call leaves behind. The strings belong to who called. */
typedef struct TdExceptionInfo {
  uint16_t code; /* an error number, or 0 if `result` holds one */
  uint16_t reserved;
  TdString source;
  TdString description;
  TdString helpFile;
  uint32_t helpContext;
  void* reservedPointer;
  TdResult(TD_CALL* fillLater)(struct TdExceptionInfo* info); /* null, or completes the record */
  TdResult result;
} TdExceptionInfo;

/* Names are zero-terminated, and found without regard to case. `reserved` is null, or points to
 * zeros; `language` has no effect.
 *   GetTypeInfoCount  gives 0; on Windows 1
 *   GetTypeInfo       fails with TD_NOT_IMPLEMENTED; on Windows it gives the system's description
 *                     of the class's own interface
 *   GetIDsOfNames     gives the number of a member, and behind it those of its arguments' names;
 *                     TD_UNKNOWN_NAME and TD_MEMBER_UNKNOWN where there is none
 *   Invoke            calls a member. `result`, `info` and `badArgument` may be null;
 *                     `badArgument` gets the index of the argument that TD_TYPE_MISMATCH,
 *                     TD_VALUE_OVERFLOW or TD_ARGUMENT_NOT_OPTIONAL is about */
#define TD_DISPATCH_OPERATIONS(Self)                                                              \
  TD_OBJECT_OPERATIONS(Self)                                                                      \
  TdResult(TD_CALL* GetTypeInfoCount)(Self * self, uint32_t * count);                             \
  TdResult(TD_CALL* GetTypeInfo)(Self * self, uint32_t index, uint32_t language, void** info);    \
  TdResult(TD_CALL* GetIDsOfNames)(Self * self, const TdGuid* reserved,                           \
                                   const TdUnit* const* names, uint32_t count, uint32_t language, \
                                   int32_t* ids);                                                 \
  TdResult(TD_CALL* Invoke)(Self * self, int32_t member, const TdGuid* reserved,                  \
                            uint32_t language, uint16_t kind, TdArguments* arguments,             \
                            TdVariant* result, TdExceptionInfo* info, uint32_t* badArgument);

typedef struct TdDispatch {
  const struct TdDispatchTable* table;
} TdDispatch;
typedef struct TdDispatchTable {
  TD_DISPATCH_OPERATIONS(TdDispatch)
} TdDispatchTable;

/* ---- The errors of direct calls ---- */

/* Every object of the component has this interface; on Windows ISupportErrorInfo, too, and the
 * description is in the thread's error object (GetErrorInfo). */
typedef struct TdErrorSource {
  const struct TdErrorSourceTable* table;
} TdErrorSource;
typedef struct TdErrorSourceTable {
  TD_OBJECT_OPERATIONS(TdErrorSource)
  /* Number and description of the last direct call on this thread that failed, once: TD_FALSE, and
   * a record of zeros, if there is none or it was fetched already. */
  TdResult(TD_CALL* LastError)(TdErrorSource* self, TdExceptionInfo* info);
} TdErrorSourceTable;

#ifdef __cplusplus
}
#endif

#endif
