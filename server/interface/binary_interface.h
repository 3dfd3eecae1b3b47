/* The binary interface of the print component, for programs in any language.
 *
 * The module QbTdPrinter.so exports four functions (TdGetClassObjectFunction and the following).
 * Through them a program gets objects of three classes:
 *
 *   QbTdPrinter.Printer   prints bills, or shows them in a preview
 *   QbTdPrinter.Session   does the same to an output of the program's choice, and tells what became
 *                         of it
 *   QbTdPrinter.TDSet     shows the settings of a bill type's formats
 *
 * Each object answers calls by name (TdDispatch), and has an interface of its own whose operations
 * are called directly (TdPrinter, TdSession, TdSettings). client/client.h makes the usual steps
 * short.
 *
 * Tables, structures, numbers and result codes are laid out as late-binding languages expect them
 * of a component. The memory of strings and arrays comes from the C library, which every language
 * reaches.
 *
 * An object is a pointer to a structure whose first member points to a table of functions:
 *
 *   printer->table->PrintBlankRows(printer, 3);
 *
 * References. An object counts its references: who gets one from a function owns it and calls
 * Release; who keeps one that it was given calls AddRef. Arguments are lent for the call.
 *
 * Memory. Strings and byte arrays are blocks of malloc and free of the C library; on Windows they
 * are those of the system's automation (SysAllocString, SafeArrayCreate):
 *   - what a caller passes in stays the caller's;
 *   - what comes back through a pointer belongs to who called, and so do the strings of a
 *     TdExceptionInfo and the content of a result variant.
 * Where a result is written, its former content is not freed: set it to empty before the call.
 *
 * Threads. The thread that gets the first class object owns the component until the last object and
 * the last lock are gone. Looking up interfaces and names, counting references and LastError may
 * happen on any thread, and so may a session's Cancel; on another than the owner every other
 * operation fails with TD_WRONG_THREAD, which Invoke reports as an exception.
 *
 * No C++ exception leaves any of these functions, and none may leave a function that the component
 * calls.
 */
#ifndef QBTDPRINTER_BINARY_INTERFACE_H
#define QBTDPRINTER_BINARY_INTERFACE_H

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

/* Every object of the component has this interface. */
typedef struct TdErrorSource {
  const struct TdErrorSourceTable* table;
} TdErrorSource;
typedef struct TdErrorSourceTable {
  TD_OBJECT_OPERATIONS(TdErrorSource)
  /* Number and description of the last direct call on this thread that failed, once: TD_FALSE, and
   * a record of zeros, if there is none or it was fetched already. */
  TdResult(TD_CALL* LastError)(TdErrorSource* self, TdExceptionInfo* info);
} TdErrorSourceTable;

/* ---- The classes ---- */

/* Prints bills. All objects share one request state: whichever call came last wins. */
typedef struct TdPrinter {
  const struct TdPrinterTable* table;
} TdPrinter;
typedef struct TdPrinterTable {
  TD_DISPATCH_OPERATIONS(TdPrinter)
  /*   New_DoPrint               print at once; otherwise show the preview, until it is closed
   *   New_PromptString          database connection text
   *   New_TranType              bill type number
   *   New_OnlyPrintVariantItem  the sheet is pre-printed: draw only variable items
   *   New_PrintBorder           has no effect
   *   PrintData                 any object that answers by name EOF, Fields(name).Value, MoveNext,
   *                             MoveFirst and Clone; TdRecordset is used where the object has it.
   *                             The component keeps a reference after the call, until it gets
   *                             other data or the last object is gone
   *   TDBillName                format name; null or empty: the format marked as selected
   *   PrintDevice               has no effect; may be null
   * Fails with TD_NOTHING_TO_PRINT when `PrintData` or what it points to is null, with number 5
   * while another print or dialog runs, and with a number and a description when the component
   * can't start, as with a wrong settings file; nothing is stored then, and PrintOk stays as it
   * was. What goes wrong while it prints shows itself as a message; PrintOk tells. */
  TdResult(TD_CALL* DoPrint)(TdPrinter* self, TdFlag New_DoPrint, TdString New_PromptString,
                             int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                             TdFlag New_PrintBorder, TdDispatch** PrintData, TdString TDBillName,
                             TdVariant* PrintDevice);
  /* The same with a new page at each new stock area instead of each new bill. */
  TdResult(TD_CALL* DoPrint_GroupByArea)(TdPrinter* self, TdFlag New_DoPrint,
                                         TdString New_PromptString, int16_t New_TranType,
                                         TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                                         TdDispatch** PrintData, TdString TDBillName,
                                         TdVariant* PrintDevice);
  /* Property get: whether the document of the last call was sent to the printer. */
  TdResult(TD_CALL* PrintOk)(TdPrinter* self, TdFlag* value);
  /* Property put: rows to leave blank at the start of the following runs, until used up. */
  TdResult(TD_CALL* PrintBlankRows)(TdPrinter* self, int16_t NewValue);
} TdPrinterTable;

/* Who sees the messages of a session's prints. The session has their texts in any case. */
enum {
  TD_MESSAGES_SHOWN = 0,             /* a box where there is a display, else as the next one */
  TD_MESSAGES_ON_STANDARD_ERROR = 1, /* a line for each */
  TD_MESSAGES_COLLECTED = 2          /* nobody */
};

/* Prints bills as TdPrinter does, to an output of the program's choice, and tells afterwards what
 * became of the document. What a session is told holds for its own prints alone, until it is told
 * otherwise; the request state is that of all printers. */
typedef struct TdSession {
  const struct TdSessionTable* table;
} TdSession;
typedef struct TdSessionTable {
  TD_DISPATCH_OPERATIONS(TdSession)
  /* The four of TdPrinter. A print call fails with number 380, and stores nothing, when the session
   * was sent to a printer that isn't installed. */
  TdResult(TD_CALL* DoPrint)(TdSession* self, TdFlag New_DoPrint, TdString New_PromptString,
                             int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,
                             TdFlag New_PrintBorder, TdDispatch** PrintData, TdString TDBillName,
                             TdVariant* PrintDevice);
  TdResult(TD_CALL* DoPrint_GroupByArea)(TdSession* self, TdFlag New_DoPrint,
                                         TdString New_PromptString, int16_t New_TranType,
                                         TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder,
                                         TdDispatch** PrintData, TdString TDBillName,
                                         TdVariant* PrintDevice);
  TdResult(TD_CALL* PrintOk)(TdSession* self, TdFlag* value);
  TdResult(TD_CALL* PrintBlankRows)(TdSession* self, int16_t NewValue);

  /* Where the documents go from now on; in a preview, when its user prints. The last of the four
   * counts. An empty text, and a session that was told nothing: the printer that the format
   * chooses. Files are replaced whole or not at all. Without a display, too. */
  TdResult(TD_CALL* ToPrinter)(TdSession* self, TdString Name);
  TdResult(TD_CALL* ToPdf)(TdSession* self, TdString File);
  /* One file for each page: page-001.png and so on. 1 to 2400 dots, 0: 150. */
  TdResult(TD_CALL* ToPng)(TdSession* self, TdString Folder, double DotsPerInch);
  /* One file that needs no other. */
  TdResult(TD_CALL* ToHtml)(TdSession* self, TdString File);

  /* Property put: TD_MESSAGES_SHOWN, which holds at first, or one of the others. */
  TdResult(TD_CALL* MessageMode)(TdSession* self, int32_t NewValue);
  /* Property put: seconds for which a print waits for rows and tables that others have locked,
   * print data included. Then it ends with a message, and nothing is printed. 0: not at all;
   * negative, as at first: without limit. */
  TdResult(TD_CALL* LockWaitLimit)(TdSession* self, double NewValue);
  /* Property put: an object that is called by name while a print runs. It may have either method:
   *   OnPage(page)          the page of that number is finished
   *   OnLockWait(seconds)   something is locked, and was for that long; called after each try
   * The answer False (TD_BOOLEAN) ends the print with a message, and nothing is printed; an
   * exception does so with its description. Null: nobody is called. The session keeps a reference.
   */
  TdResult(TD_CALL* Progress)(TdSession* self, TdDispatch* NewValue);
  /* Property put: whether Explanation tells what became of each item of the format. At first it
   * doesn't: a print then looks each column up twice. */
  TdResult(TD_CALL* Explain)(TdSession* self, TdFlag NewValue);
  /* Property put: the file to which a line is added for each print call; see the docs. Empty: none.
   * At first: the one in the environment variable QBTDPRINTER_LOG_FILE. */
  TdResult(TD_CALL* LogFile)(TdSession* self, TdString NewValue);
  /* Ends the print of this session that runs, if one does, at its next page, row, or try of what is
   * locked, with a message; nothing is printed. On any thread. */
  TdResult(TD_CALL* Cancel)(TdSession* self);

  /* Property gets: what became of the session's last print call. */
  /* Whether all pages that were asked for have gone where they were to go. */
  TdResult(TD_CALL* Delivered)(TdSession* self, TdFlag* value);
  /* "printed", "written" (to a file), "cancelled" (in the printer dialog), "refused" (not handed
   * over, or not whole), "not printed"; empty before the first call. */
  TdResult(TD_CALL* Result)(TdSession* self, TdString* value);
  /* Of a refusal, in the words of the message. */
  TdResult(TD_CALL* Reason)(TdSession* self, TdString* value);
  /* How many pages the run has finished. */
  TdResult(TD_CALL* Pages)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* PrinterName)(TdSession* self, TdString* value);
  /* The document's number in the printing system, 0 if there is none; Jobs has all of them with
   * blanks between them: pages on different sheets are jobs of their own. */
  TdResult(TD_CALL* JobNumber)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* Jobs)(TdSession* self, TdString* value);
  /* The messages, one by one, counted from 1 (number 9 for another index), and together, with line
   * feeds between them. */
  TdResult(TD_CALL* MessageCount)(TdSession* self, int32_t* value);
  TdResult(TD_CALL* Message)(TdSession* self, int32_t Index, TdString* value);
  TdResult(TD_CALL* Messages)(TdSession* self, TdString* value);
  /* Where the print was at a message: format, band, item, column, bill, row and page, as far as
   * they are known, in the language of the process's locale. */
  TdResult(TD_CALL* MessagePlace)(TdSession* self, int32_t Index, TdString* value);
  /* What the document goes on without, such as a paper code that nobody knows, in the same way. */
  TdResult(TD_CALL* Complaints)(TdSession* self, TdString* value);
  /* What became of each item of the format, and why, with Explain; empty without. As lines for an
   * administrator, in the language of the process's locale, and as a JSON object. */
  TdResult(TD_CALL* Explanation)(TdSession* self, TdString* value);
  TdResult(TD_CALL* ExplanationJson)(TdSession* self, TdString* value);
} TdSessionTable;

/* Shows the settings of a bill type's formats; returns when the dialog was closed. */
typedef struct TdSettings {
  const struct TdSettingsTable* table;
} TdSettings;
typedef struct TdSettingsTable {
  TD_DISPATCH_OPERATIONS(TdSettings)
  TdResult(TD_CALL* TDSet)(TdSettings* self, TdString PromptString, int16_t TranType);
} TdSettingsTable;

/* ---- Print data without names, for speed ---- */

/* An object that is print data may have this interface beside TdDispatch. At the end MoveNext and
 * FieldValue need not fail by themselves: the component asks AtEnd. Failures are result
 * codes (TD_RESULT_OF_NUMBER(3265): no such column); a description is fetched through
 * TdErrorSource, if the object has that. */
typedef struct TdRecordset {
  const struct TdRecordsetTable* table;
} TdRecordset;
typedef struct TdRecordsetTable {
  TD_DISPATCH_OPERATIONS(TdRecordset)
  TdResult(TD_CALL* AtEnd)(TdRecordset* self, TdFlag* atEnd);
  /* The value of a column in the current row, by the column's name in any case. */
  TdResult(TD_CALL* FieldValue)(TdRecordset* self, TdString column, TdVariant* value);
  TdResult(TD_CALL* MoveNext)(TdRecordset* self);
  TdResult(TD_CALL* MoveFirst)(TdRecordset* self);
  /* A second cursor over the same rows, on the first row. */
  TdResult(TD_CALL* Clone)(TdRecordset* self, TdRecordset** clone);
} TdRecordsetTable;

/* ---- What the module exports ---- */

/* "DllGetClassObject": gives the factory of a class. */
typedef TdResult(TD_CALL* TdGetClassObjectFunction)(const TdGuid* classId,
                                                    const TdGuid* interfaceId, void** factory);
/* "DllCanUnloadNow": TD_OK if there is no object and no lock, otherwise TD_FALSE. */
typedef TdResult(TD_CALL* TdCanUnloadNowFunction)(void);
/* "DllRegisterServer", "DllUnregisterServer": write and remove the user's registration of the
 * module's file. client/client.h tells where it lies. Fail with TD_NO_ACCESS when somebody else
 * could change the module or the registration. */
typedef TdResult(TD_CALL* TdRegisterServerFunction)(void);

/* ---- Published names and identifiers ---- */

#define TD_PRINTER_CLASS_NAME "QbTdPrinter.Printer"
#define TD_SESSION_CLASS_NAME "QbTdPrinter.Session"
#define TD_SETTINGS_CLASS_NAME "QbTdPrinter.TDSet"

/* No identifier: what `reserved` points to. */
static const TdGuid kTdNoId = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};

/* The three interfaces that every platform shares. */
static const TdGuid kTdObjectId = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static const TdGuid kTdClassFactoryId = {1, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
static const TdGuid kTdDispatchId = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/* The classes. */
static const TdGuid kTdPrinterClass = {
    0x2389511E, 0xAE07, 0x4A8F, {0xBF, 0x68, 0xF2, 0xD1, 0x55, 0x42, 0xC8, 0x7E}};
static const TdGuid kTdSessionClass = {
    0xBEC9E21A, 0x8357, 0x4EC5, {0xB2, 0x61, 0x5C, 0xEC, 0x43, 0xB8, 0x2E, 0x3B}};
static const TdGuid kTdSettingsClass = {
    0xA15FD0B3, 0x9AE9, 0x4BD7, {0x91, 0x65, 0x60, 0x0A, 0xB8, 0xD4, 0x0F, 0xD1}};

/* The component's own interfaces. */
static const TdGuid kTdPrinterId = {
    0x136F0717, 0xEE88, 0x4E14, {0xBE, 0x20, 0x17, 0xF1, 0x15, 0xF0, 0xDC, 0xAB}};
static const TdGuid kTdSessionId = {
    0xD0C96F7D, 0x0D70, 0x479A, {0x82, 0xAD, 0x82, 0x87, 0x83, 0xE9, 0x04, 0xB2}};
static const TdGuid kTdSettingsId = {
    0xEE531EA5, 0x2136, 0x4D71, {0xBD, 0x6E, 0x2A, 0xD8, 0x6F, 0x12, 0x21, 0x19}};
static const TdGuid kTdRecordsetId = {
    0x350B0D1E, 0x80DD, 0x4237, {0xB0, 0x57, 0x10, 0x91, 0x18, 0x37, 0x65, 0x36}};
static const TdGuid kTdErrorSourceId = {
    0xDD8EFB2F, 0x8722, 0x4F45, {0x84, 0xE2, 0x01, 0xF0, 0xED, 0xB5, 0xF3, 0x60}};

#ifdef __cplusplus
}
#endif

#endif
