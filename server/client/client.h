/* Helpers for programs that use the print component through its binary interface: strings,
 * variants, objects by name, calls by name. For C and C++; texts are UTF-8.
 *
 *   TdDispatch* printer;
 *   TdCreateObject(TD_PRINTER_CLASS_NAME, &printer, NULL);
 *   TdPut(printer, "PrintBlankRows", TdIntegerVariant(3), NULL);
 *
 * The functions that can fail return a result code. Where they take a TdExceptionInfo, it may be
 * null; otherwise it is filled when they fail, its former content is not freed, and the caller
 * clears it with TdClearException.
 *
 * Any thread may call these functions; what they say of objects holds on the thread that owns the
 * component. None throws.
 */
#ifndef QBTDPRINTER_CLIENT_H
#define QBTDPRINTER_CLIENT_H

#include "interface/binary_interface.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Strings ---- */

/* A new string; bytes that are no valid UTF-8 become U+FFFD. Null if memory runs out. */
TdString TdMakeString(const char* utf8);
/* A new string of `count` units, copied from `units`. Null if memory runs out. */
TdString TdMakeStringOfUnits(const TdUnit* units, uint32_t count);
/* Null does nothing. */
void TdFreeString(TdString string);
/* The length in units; 0 for null. */
uint32_t TdStringLength(TdString string);
/* The text with a zero byte behind it, to be given to free(). Null if memory runs out. */
char* TdTextOfString(TdString string);

/* ---- Variants ---- */

/* New variants. That of an object holds a reference of its own. */
TdVariant TdEmptyVariant(void);
TdVariant TdNullVariant(void);
TdVariant TdLeftOutVariant(void); /* an optional argument that is left out */
TdVariant TdFlagVariant(int flag);
TdVariant TdIntegerVariant(int32_t number);
TdVariant TdNumberVariant(double number);
TdVariant TdDateVariant(double daysSince30December1899);
TdVariant TdTextVariant(const char* utf8);
TdVariant TdBytesVariant(const void* bytes, uint32_t count);
TdVariant TdDispatchVariant(TdDispatch* object); /* null: an object variable set to nothing */

/* Frees what the variant holds, unless it holds it by reference, and makes it empty. */
void TdClearVariant(TdVariant* variant);
/* Frees the strings of a record and sets it to zeros. */
void TdClearException(TdExceptionInfo* info);

/* ---- Objects ---- */

/* Makes an object of a class that the user has registered, by its name in any case. Fails with
 *   TD_NAME_NOT_REGISTERED  nothing is registered under that name
 *   TD_NO_ACCESS            others could have changed the registration, the module or their folders
 *   TD_FILE_NOT_FOUND       the module is gone
 *   TD_FAILURE              the module can't be loaded, or the registration can't be read
 * or as the module does. */
TdResult TdCreateObject(const char* className, TdDispatch** object, TdExceptionInfo* info);

/* The same from a module's file, with no registration: the caller vouches for the file. An empty
 * path is TD_FILE_NOT_FOUND. */
TdResult TdCreateObjectFromModule(const char* path, const TdGuid* classId, TdDispatch** object,
                                  TdExceptionInfo* info);

/* Unloads the modules that these functions have loaded and that no object or lock keeps in use. */
void TdUnloadUnusedModules(void);

/* The path of the user's registration, to be given to free(): qbtdprinter/classes in the folder
 * $XDG_DATA_HOME, else in ~/.local/share. Null if memory runs out or the user has no folder. */
char* TdRegistrationFile(void);

/* ---- Calls by name ---- */

/* Calls a method. `arguments` stand in their order, the first one first, and stay the caller's, as
 * does the object. `result` may be null; otherwise it is overwritten, and the caller clears it. */
TdResult TdCall(TdDispatch* object, const char* method, TdVariant* arguments, uint32_t count,
                TdVariant* result, TdExceptionInfo* info);
/* Reads a property; the caller clears the value. */
TdResult TdGet(TdDispatch* object, const char* property, TdVariant* value, TdExceptionInfo* info);
/* Writes a property. The value is cleared in any case. */
TdResult TdPut(TdDispatch* object, const char* property, TdVariant value, TdExceptionInfo* info);

#ifdef __cplusplus
}
#endif

#endif
