/* The class QbTdPrinter.Printer, called directly. */
#ifndef QBTDPRINTER_PRINTER_INTERFACE_H
#define QBTDPRINTER_PRINTER_INTERFACE_H

#include "interface/binary_objects.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Printers and sessions begin with these operations, behind those of TdDispatch.
 *
 * DoPrint prints bills, or shows them in a preview.
 *   New_DoPrint               print at once; otherwise show the preview, until it is closed
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
 * was. What goes wrong while it prints shows itself as a message; PrintOk tells.
 *
 * DoPrint_GroupByArea does the same with a new page at each new stock area instead of each new
 * bill.
 *
 * PrintOk is read: whether the document of the last call was sent to the printer.
 *
 * PrintBlankRows is written: rows to leave blank at the start of the following runs, until used up.
 */
#define TD_PRINT_OPERATIONS(Self)                                                                  \
  TdResult(TD_CALL* DoPrint)(Self * self, TdFlag New_DoPrint, TdString New_PromptString,           \
                             int16_t New_TranType, TdFlag New_OnlyPrintVariantItem,                \
                             TdFlag New_PrintBorder, TdDispatch * *PrintData, TdString TDBillName, \
                             TdVariant * PrintDevice);                                             \
  TdResult(TD_CALL* DoPrint_GroupByArea)(                                                          \
      Self * self, TdFlag New_DoPrint, TdString New_PromptString, int16_t New_TranType,            \
      TdFlag New_OnlyPrintVariantItem, TdFlag New_PrintBorder, TdDispatch * *PrintData,            \
      TdString TDBillName, TdVariant * PrintDevice);                                               \
  TdResult(TD_CALL* PrintOk)(Self * self, TdFlag * value);                                         \
  TdResult(TD_CALL* PrintBlankRows)(Self * self, int16_t NewValue);

/* Prints bills. All objects share one request state: whichever call came last wins. */
typedef struct TdPrinter {
  const struct TdPrinterTable* table;
} TdPrinter;
typedef struct TdPrinterTable {
  TD_DISPATCH_OPERATIONS(TdPrinter)
  TD_PRINT_OPERATIONS(TdPrinter)
} TdPrinterTable;

#ifdef __cplusplus
}
#endif

#endif
