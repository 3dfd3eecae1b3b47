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

#include "interface/binary_objects.h"
#include "interface/printer_interface.h"
#include "interface/session_interface.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- The settings ---- */

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
