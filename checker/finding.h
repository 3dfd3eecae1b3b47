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

// Each kind has its words, its severity and a stable name in finding_messages.h.
enum class FindingKind {
  // The format.
  kNoFormat,
  kNoneSelected,
  kSeveralSelected,
  kNameTwice,
  kNameQuote,
  kNameBlanks,
  kNumberShared,
  kNoItems,
  kRowsMissing,
  kRowsFraction,
  kRowsOne,
  kRowHeightMissing,
  kRowHeightSmall,
  kRowsOffSheet,
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
  // Items.
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
  kImageRepeated,
  kFieldBand,
  kOffSheet,
  kPartlyOffSheet,
  kBehindMargin,
  kNoArea,
  kBoxSize,
  kItemMillimetres,
  kPlaceMillimetres,
  kLineLength,
  kFontMissing,
  kFontSize,
  kPictureFile,
  kPicturePath,
  kFormatString,
  kFormatStringConstant,
  kFormatStringDate,
  kFormatStringUnused,
  kPreprintedMissing,
  kTotalPagesTaken,
  kTextTooLong,
  kTextTooHigh,
  kTextsOverlap,
  kBarcodeRefused,
  kBarcodeNarrow,
  // The rows.
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
  // Settings of machines.
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
