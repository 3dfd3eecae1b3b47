// What differs between the two print windows. All else is shared.
#pragma once

#include <string_view>

#include "store/error_policy.h"

namespace td {

struct PrintRun;

struct WindowKind {
  std::string_view name;

  // Loading. Not every surface starts with margins of 0, so a window that leaves them keeps the
  // surface's own; a window whose load is not forgiving ends it at the first error.
  bool isLoadForgiving;
  bool clearsMargins;
  bool readsAdvertising;  // at the first activation

  // The run.
  Reactions runReactions;
  bool knowsBlankRows;              // PrintBlankRows counts; otherwise it is not looked at
  bool setsPaperBeforeOrientation;  // of the machine's paper row
  bool writesExportFile;
  bool recordsBillPages;
  void (*printRows)(PrintRun&);
  void (*addRowToSums)(PrintRun&);
  void (*finishLastBill)(PrintRun&);

  // The items.
  bool drawsImages;             // barcodes and goods pictures by their special names
  bool clearsRepeatedCaptions;  // a label equal to the item's name is not printed
  bool keepsCaptionOnNull;      // a Null label leaves the label of the item before it
  bool hasAllSums;              // otherwise some sum fields are absent and some have no value
};

// `frmTdPrint`: bill by bill. `frmTdPrint_GroupByStockArea`: a new page at each new stock area.
extern const WindowKind kPlainWindow;
extern const WindowKind kStockAreaWindow;

}  // namespace td
