/* A program in C: the header's layout, and the way from a name to an error. */
#include <stddef.h>
#include <stdio.h>
#include <string.h>

#include "client/client.h"
#include "client/recordsets.h"
#include "interface/binary_interface.h"

_Static_assert(sizeof(TdGuid) == 16, "an identifier");
_Static_assert(sizeof(TdUnit) == 2, "a unit of a string");
_Static_assert(sizeof(TdVariant) == 8 + 2 * sizeof(void*), "a variant");
_Static_assert(offsetof(TdVariant, value) == 8, "the value of a variant");
_Static_assert(offsetof(TdVariant, decimalHigh) == 4, "the upper part of a decimal");
_Static_assert(offsetof(TdArguments, count) == 2 * sizeof(void*), "the number of arguments");
_Static_assert(offsetof(TdExceptionInfo, result) == 4 * sizeof(void*) + 8 + 2 * sizeof(void*),
               "the result code of an exception");
_Static_assert(offsetof(TdDispatchTable, Invoke) == 6 * sizeof(void*), "three, and four");
_Static_assert(offsetof(TdPrinterTable, DoPrint) == 7 * sizeof(void*), "the first own operation");
_Static_assert(offsetof(TdPrinterTable, PrintBlankRows) == 10 * sizeof(void*), "the last one");
_Static_assert(offsetof(TdSessionTable, PrintBlankRows) == 10 * sizeof(void*),
               "a session begins as a printer does");
_Static_assert(offsetof(TdSessionTable, ExplanationJson) == 34 * sizeof(void*), "its last one");
_Static_assert(offsetof(TdClassFactoryTable, LockServer) == 4 * sizeof(void*), "a factory");
#if UINTPTR_MAX == 0xFFFFFFFFFFFFFFFF
_Static_assert(sizeof(TdArray) == 32 && offsetof(TdArray, bounds) == 24, "an array");
_Static_assert(sizeof(TdExceptionInfo) == 64, "an exception");
#endif

static int Expect(int holds, const char* what) {
  if (!holds) fprintf(stderr, "failed: %s\n", what);
  return holds ? 0 : 1;
}

/* Loads the module that the argument names, and prints nothing. */
int main(int argc, char** argv) {
  if (argc != 2) return 2;
  int failures = 0;
  TdDispatch* printer = NULL;
  failures += Expect(TdCreateObjectFromModule(argv[1], &kTdPrinterClass, &printer, NULL) == TD_OK,
                     "an object");
  if (printer == NULL) return 1;
  failures += Expect(TdPut(printer, "printblankrows", TdIntegerVariant(0), NULL) == TD_OK, "a put");

  TdVariant arguments[6] = {TdFlagVariant(1),     TdTextVariant("sqlite:none.db"),
                            TdIntegerVariant(21), TdFlagVariant(0),
                            TdFlagVariant(0),     TdDispatchVariant(NULL)};
  TdExceptionInfo info;
  failures +=
      Expect(TdCall(printer, "DoPrint", arguments, 6, NULL, &info) == TD_EXCEPTION, "an error");
  failures += Expect(info.result == TD_NOTHING_TO_PRINT, "its number");
  failures += Expect(info.description != NULL && info.description[0] == u"没"[0], "its words");
  TdClearException(&info);
  for (int i = 0; i < 6; ++i) TdClearVariant(&arguments[i]);

  failures += Expect(printer->table->Release(printer) == 0, "the last reference");
  TdUnloadUnusedModules();
  return failures == 0 ? 0 : 1;
}
