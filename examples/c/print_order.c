/* Prints an order through the module QbTdPrinter, from C, with rows that the program makes itself.
 *
 *   tdprint register                             once for each user
 *   print_order sqlite:sample.db 21 销售订单三联
 *
 * The database that the connection text names holds the formats. The module is found by the name of
 * its class, and the calls are made by name, as a language without header files makes them.
 */
#include <stdio.h>
#include <stdlib.h>

#include "client/client.h"
#include "client/recordsets.h"

/* One row for each line of the order. The columns of its head stand in every row, and FInterID
 * tells one order from the next. A column that is missing here stays blank on the sheet. */
enum { kColumnCount = 8, kRowCount = 2 };

static const char* const kColumns[kColumnCount] = {"FInterID",  "FBillNo", "FCustName", "FEntryID",
                                                   "FItemName", "FQty",    "FPrice",    "FAmount"};

static TdResult MakeRows(TdDispatch** rows, TdExceptionInfo* info) {
  TdVariant values[kRowCount * kColumnCount] = {
      TdIntegerVariant(7), TdTextVariant("XD-7"),     TdTextVariant("江南食品"),
      TdIntegerVariant(1), TdTextVariant("珍珠米"),   TdNumberVariant(12),
      TdNumberVariant(90), TdNumberVariant(1080),

      TdIntegerVariant(7), TdTextVariant("XD-7"),     TdTextVariant("江南食品"),
      TdIntegerVariant(2), TdTextVariant("精制食盐"), TdNumberVariant(20),
      TdNumberVariant(3),  TdNumberVariant(60),
  };
  TdResult result = TdMakeRecordset(kColumns, kColumnCount, values, kRowCount, rows, info);
  /* The values were copied. */
  for (int i = 0; i < kRowCount * kColumnCount; ++i) TdClearVariant(&values[i]);
  return result;
}

static TdResult Print(TdDispatch* printer, const char* connection, int billType, const char* format,
                      TdDispatch* rows, TdExceptionInfo* info) {
  TdVariant arguments[] = {
      TdFlagVariant(1),          /* print at once; 0 shows the preview until it is closed */
      TdTextVariant(connection), /* where the formats are */
      TdIntegerVariant(billType),
      TdFlagVariant(0), /* 1: the sheet is pre-printed, draw only the variable values */
      TdFlagVariant(0), /* has no effect */
      TdDispatchVariant(rows),
      TdTextVariant(format), /* may be left out: the selected format of the bill type */
  };
  const uint32_t count = sizeof arguments / sizeof *arguments;
  TdResult result = TdCall(printer, "DoPrint", arguments, count, NULL, info);
  for (uint32_t i = 0; i < count; ++i) TdClearVariant(&arguments[i]);
  return result;
}

/* Tells what failed. An error of the component has its number in the record: 0x800403e9 is
 * "没有可供打印的数据!". */
static void Complain(const char* what, TdResult result, TdExceptionInfo* info) {
  TdResult number = result;
  if (result == TD_EXCEPTION) number = info->code != 0 ? info->code : info->result;
  char* description = TdTextOfString(info->description);
  fprintf(stderr, "%s: 0x%08x: %s\n", what, (unsigned)number, description ? description : "");
  free(description);
  TdClearException(info);
}

/* Whether the document was sent to the printer. */
static int PrintOrder(TdDispatch* printer, const char* connection, int billType,
                      const char* format) {
  TdExceptionInfo info = {0};
  TdDispatch* rows = NULL;
  TdResult result = MakeRows(&rows, &info);
  if (TD_FAILED(result)) {
    Complain("The rows can't be made", result, &info);
    return 0;
  }
  result = Print(printer, connection, billType, format, rows, &info);
  rows->table->Release(rows); /* the component has a reference of its own */
  if (TD_FAILED(result)) {
    Complain("DoPrint", result, &info);
    return 0;
  }
  /* What went wrong inside the print was shown as a message; PrintOk tells the rest. */
  TdVariant ok;
  result = TdGet(printer, "PrintOk", &ok, &info);
  if (TD_FAILED(result)) {
    Complain("PrintOk", result, &info);
    return 0;
  }
  return ok.value.flag == TD_TRUE_FLAG;
}

int main(int argc, char** argv) {
  if (argc != 4) {
    fprintf(stderr, "usage: print_order CONNECTION BILL_TYPE FORMAT\n");
    return 2;
  }
  TdExceptionInfo info = {0};
  TdDispatch* printer = NULL;
  TdResult result = TdCreateObject(TD_PRINTER_CLASS_NAME, &printer, &info);
  if (TD_FAILED(result)) {
    Complain(TD_PRINTER_CLASS_NAME, result, &info);
    return 1;
  }
  const int printed = PrintOrder(printer, argv[1], atoi(argv[2]), argv[3]);
  printer->table->Release(printer);
  TdUnloadUnusedModules();
  if (!printed) fprintf(stderr, "The order was not printed.\n");
  return printed ? 0 : 1;
}
