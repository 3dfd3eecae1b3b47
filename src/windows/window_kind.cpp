#include "windows/window_kind.h"

#include "run/print_run.h"

namespace td {

const WindowKind kPlainWindow{
    .name = "frmTdPrint",
    .isLoadForgiving = true,
    .clearsMargins = true,
    .readsAdvertising = true,
    .runReactions = reactions::kPlainRun,
    .knowsBlankRows = true,
    .setsPaperBeforeOrientation = false,
    .writesExportFile = true,
    .recordsBillPages = true,
    .printRows = PrintRowsByBill,
    .addRowToSums = AddRowToSums,
    .finishLastBill = FinishLastBill,
    .drawsImages = true,
    .clearsRepeatedCaptions = true,
    .keepsCaptionOnNull = true,
    .hasAllSums = true,
};

const WindowKind kStockAreaWindow{
    .name = "frmTdPrint_GroupByStockArea",
    .isLoadForgiving = false,
    .clearsMargins = false,
    .readsAdvertising = false,
    .runReactions = reactions::kStockAreaRun,
    .knowsBlankRows = false,
    .setsPaperBeforeOrientation = true,
    .writesExportFile = false,
    .recordsBillPages = false,
    .printRows = PrintRowsByStockArea,
    .addRowToSums = AddStockAreaRowToSums,
    .finishLastBill = FinishLastStockArea,
    .drawsImages = false,
    .clearsRepeatedCaptions = false,
    .keepsCaptionOnNull = false,
    .hasAllSums = false,
};

}  // namespace td
