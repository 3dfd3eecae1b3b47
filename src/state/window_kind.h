// What differs between the two print windows. All else is shared.
#pragma once

#include <string_view>

#include "policy/error_policy.h"

namespace td {

// What the rows of a run are grouped by: a page begins with each new group.
enum class Grouping { kBill, kStockArea };

struct WindowKind {
  std::string_view name;
  Grouping grouping;  // decides the walk over the rows, what a row adds to the sums, and what ends
                      // the last group

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

  // The items.
  bool drawsImages;             // barcodes and goods pictures by their special names
  bool clearsRepeatedCaptions;  // a label equal to the item's name is not printed
  bool keepsCaptionOnNull;      // a Null label leaves the label of the item before it
  bool hasAllSums;              // otherwise some sum fields are absent and some have no value
};

inline constexpr WindowKind kPlainWindow{
    .name = "frmTdPrint",
    .grouping = Grouping::kBill,
    .isLoadForgiving = true,
    .clearsMargins = true,
    .readsAdvertising = true,
    .runReactions = reactions::kPlainRun,
    .knowsBlankRows = true,
    .setsPaperBeforeOrientation = false,
    .writesExportFile = true,
    .recordsBillPages = true,
    .drawsImages = true,
    .clearsRepeatedCaptions = true,
    .keepsCaptionOnNull = true,
    .hasAllSums = true,
};

inline constexpr WindowKind kStockAreaWindow{
    .name = "frmTdPrint_GroupByStockArea",
    .grouping = Grouping::kStockArea,
    .isLoadForgiving = false,
    .clearsMargins = false,
    .readsAdvertising = false,
    .runReactions = reactions::kStockAreaRun,
    .knowsBlankRows = false,
    .setsPaperBeforeOrientation = true,
    .writesExportFile = false,
    .recordsBillPages = false,
    .drawsImages = false,
    .clearsRepeatedCaptions = false,
    .keepsCaptionOnNull = false,
    .hasAllSums = false,
};

}  // namespace td
