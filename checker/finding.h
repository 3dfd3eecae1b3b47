// What is wrong with a format, one thing at a time.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace td::checker {

enum class Severity {
  kHint,     // worth a look
  kWarning,  // prints something else than was meant, probably
  kError,    // prints wrong, or not at all
};

// Each kind has its words, its severity and a stable name beside the check that finds it: those of
// bill_checks.cpp stand in bill_messages.cpp.
enum class FindingKind {
  // bill_checks.cpp: the format's row.
  kNameQuote,
  kNameBlanks,
  kNoItems,
  kRowsMissing,
  kRowsFraction,
  kRowsOne,
  kRowHeightMissing,
  kRowHeightSmall,
  kPaperMillimetres,
  kPaperUnknown,
  kPaperIncomplete,
  kPaperTurned,
  kPaperKept,
  kItemsMillimetres,
  kPrinterMissing,
  kPrinterSheet,
  kRunMessage,
  kTableColumn,
  // item_checks.cpp: the items one by one.
  kItemBand,
  kItemKind,
  kItemHidden,
  kItemNull,
  kItemFontNull,
  kItemCaptionNull,
  kVariableUnknown,
  kVariableUnmarked,
  kVariableBlanks,
  kVariableTwice,
  kColumnBlanks,
  kImageUnknown,
  kImageBand,
  kFieldBand,
  kItemMillimetres,
  kPlaceMillimetres,
  kFontSize,
  kPictureFile,
  kPicturePath,
  kPreprintedMissing,
  kTotalPagesTaken,
  // sheet_checks.cpp: places on the sheet.
  kRowsOffSheet,
  kImageRepeated,
  kOffSheet,
  kPartlyOffSheet,
  kBehindMargin,
  kNoArea,
  kBoxSize,
  kLineLength,
  // text_checks.cpp: texts and fonts.
  kFontMissing,
  kTextTooLong,
  kTextTooHigh,
  kTextsOverlap,
  // format_string_checks.cpp: pictures of numbers.
  kFormatString,
  kFormatStringConstant,
  kFormatStringDate,
  kFormatStringUnused,
  // barcode_checks.cpp: barcodes.
  kBarcodeRefused,
  kBarcodeNarrow,
  // data_checks.cpp: the rows.
  kDataNoBill,
  kDataNoRows,
  kDataScattered,
  kDataNoArea,
  kAreasScattered,
  kColumnMissing,
  kImageColumnMissing,
  kImageValueNull,
  kNextBill,
  kValueNull,
  kValueAlwaysNull,
  kSumColumnMissing,
  kMarkerColumnMissing,
  kMarkerRows,
  kRowsNowhere,
  kAmountText,
  // settings_checks.cpp: the choice of formats, and the settings of machines.
  kNoFormat,
  kNoneSelected,
  kSeveralSelected,
  kNameTwice,
  kNumberShared,
  kMachineNoFormat,
  kMachineSheet,
  kMachinePaper,
  kMachinePrinter,
  kAreaNoFormat,
  kAreaPrinter,
};

// The item that a finding is about.
struct FoundItem {
  std::size_t index = 0;  // among the format's items
  std::string band;       // the number that the item has, as it is stored
  std::string kind;       // likewise, FTypeID
  std::string caption;    // the name that it is known by: variable, fixed text or file
  std::string variable;   // the column or computed field, empty if it has none
  double left = 0;        // millimetres, as stored
  double top = 0;
};

struct Finding {
  FindingKind kind{};
  std::optional<std::int64_t> billType{};  // none: settings that belong to no bill type
  std::string format{};                    // empty: a finding on the bill type, or on a setting
  std::optional<FoundItem> item{};
  std::vector<std::string> arguments{};  // what the kind's words are filled with
  std::string sql{};                     // the statement that mends it, if one does
};

}  // namespace td::checker
