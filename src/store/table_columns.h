// The columns that the component reads in each of its tables. Whatever else stands there belongs to
// the application.
#pragma once

#include <array>
#include <string_view>

namespace td::table_columns {

// TDBill
inline constexpr std::array<std::string_view, 22> kFormats = {
    "FTDBillID",      "FTranType",     "FTDBillName",   "FSelected",    "FPaperSize",
    "FPaperWidth",    "FPaperHeight",  "FOrientation",  "FRowsPerPage", "FRowHeight",
    "FAdjuctLeft",    "FAdjuctTop",    "FAdjuctHeader", "FQtysPerRow",  "FHeaderPerPage",
    "FFooterPerPage", "FIntegralPage", "FPrintDevice",  "FMarginleft",  "FMarginTop",
    "FMarginRight",   "FMarginBottom"};

// TDBillDetail
inline constexpr std::array<std::string_view, 21> kItems = {
    "FTDBillID",      "FSite",     "FLeft",      "FTop",          "FWidth",
    "FHeight",        "FTypeID",   "FIsVariant", "FMustPrint",    "FObjectFieldName",
    "FObjectCaption", "FFontName", "FFontSize",  "FFontBold",     "FFontItalic",
    "FAlignMent",     "FWordWrap", "FAutoSize",  "FFormatString", "Fborderwidth",
    "FPicturePath"};

// The variable that a query finds for an item.
inline constexpr std::string_view kVariableOfItem = "FFieldName";

// TDVariant
inline constexpr std::array<std::string_view, 3> kVariables = {"FTranType", "FVarCaption",
                                                               "FVarName"};

// TDBill_PaperSize
inline constexpr std::array<std::string_view, 7> kMachinePapers = {
    "FIP", "FTDBillName", "FPaperSize", "FPaperWidth", "FPaperHeight", "FOrientation", "FDevice"};

// TDBill_AreaPrinterDevice
inline constexpr std::array<std::string_view, 5> kAreaPrinters = {"FIp", "FTranType", "FTdBillName",
                                                                  "FStockArea", "FPrintDevice"};

// t_icitem_Picture
inline constexpr std::array<std::string_view, 3> kGoodsPictures = {"FItemID", "FPicture",
                                                                   "FPicPath"};

}  // namespace td::table_columns
