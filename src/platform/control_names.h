// The names by which the logic and the windows of a platform call the controls of the dialogs and
// the buttons of the toolbar.
#pragma once

namespace td::controls {

// Both dialogs.
inline constexpr const char* kPrinterList = "cmbPrintDevice";
inline constexpr const char* kConfirm = "cmdOk";
inline constexpr const char* kLeave = "cmdExit";

// `frmAdjuct`.
inline constexpr const char* kFormats = "cmbTdBillName";
inline constexpr const char* kLeft = "txtLeft";
inline constexpr const char* kTop = "txtTop";
inline constexpr const char* kHeader = "txtHeader";
inline constexpr const char* kRowHeight = "txtRowHeight";
inline constexpr const char* kRowsPerPage = "txtRowsPerPage";
inline constexpr const char* kQtysPerRow = "txtQtysPerRow";
inline constexpr const char* kOrientation = "optOrientation";
inline constexpr const char* kHeaderPerPage = "chkHeaderPerPage";
inline constexpr const char* kFooterPerPage = "chkFooterPerPage";
inline constexpr const char* kIntegralPage = "chkIntegralPage";

// `frmAreaPrintSet`.
inline constexpr const char* kBillTypes = "cmbBillType";
inline constexpr const char* kAreaFormats = "cmbPrintFmt";
inline constexpr const char* kStockAreas = "cmbStockArea";

}  // namespace td::controls
