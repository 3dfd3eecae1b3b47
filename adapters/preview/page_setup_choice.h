// What can be chosen in the page setup, its words and its rules.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "page_document/page_document.h"
#include "page_document/sheet_margins.h"
#include "preview/unkept_sheet.h"

namespace td {

namespace page_setup_words {
inline constexpr const char* kTitle = "页面设置";
inline constexpr const char* kSheetGroup = "打印机和纸张";
inline constexpr const char* kPrinter = "打印机(&D)：";
inline constexpr const char* kPaper = "纸张(&S)：";
inline constexpr const char* kWidth = "宽度(&W)：";
inline constexpr const char* kHeight = "高度(&H)：";
inline constexpr const char* kDirectionGroup = "方向";
inline constexpr const char* kPortrait = "纵向(&P)";
inline constexpr const char* kLandscape = "横向(&L)";
inline constexpr const char* kMarginGroup = "页边距";
inline constexpr const char* kLeft = "左(&F)：";
inline constexpr const char* kTop = "上(&T)：";
inline constexpr const char* kRight = "右(&R)：";
inline constexpr const char* kBottom = "下(&B)：";
inline constexpr const char* kPictureName = "纸张示意图";
inline constexpr const char* kUserDefined = "自定义";
inline constexpr const char* kNotChosen = "（未选择）";
inline constexpr const char* kNoPrinters = "（没有打印机）";
}  // namespace page_setup_words

inline constexpr double kLongestMillimetres = 5080;  // the longest side that a page can have

// Lengths are twips.
struct PageSetupChoice {
  std::int32_t paper = kUserDefinedPaper;
  PaperExtent sheet;  // upright
  bool isLandscape = false;
  SheetMargins margins;

  [[nodiscard]] PaperExtent SheetAsRead() const {
    return isLandscape ? PaperExtent{sheet.height, sheet.width} : sheet;
  }
};

[[nodiscard]] PageSetupChoice ChoiceOf(PageDocument& document);

// Puts a choice into the document, and its printer unless that is empty. Fails with
// kInvalidProperty when the printer has gone meanwhile; the rest is then put all the same.
void PutChoice(PageDocument& document, const PageSetupChoice& choice, const std::string& printer);

// "230 × 127.5 mm".
[[nodiscard]] std::string SizeText(const PaperExtent& sheet);
// "A5（148 × 210 mm）". A paper that has no name here is called by its number.
[[nodiscard]] std::string PaperText(std::int32_t code, const PaperExtent& sheet);

struct PaperEntry {
  std::int32_t code;
  std::string text;
};
// The entries of the list, the user-defined sheet being the last; the document's paper is among
// them.
[[nodiscard]] std::vector<PaperEntry> PaperEntries(PageDocument& document);

// Why a choice can't be confirmed; empty if it can.
[[nodiscard]] std::string ObjectionTo(const PageSetupChoice& choice);

// What is known of the printers' own sheets; a function that is not set knows of none.
struct OwnSheets {
  std::function<std::optional<PaperExtent>()> ofNewDocument;  // before its paper is set
  std::function<std::optional<PaperExtent>(const std::string& printer)> ofPrinter;
};

// Whether a new document will begin with the sheet: a stored user-defined sheet brings no size
// back, so that the document keeps the one that it begins with.
[[nodiscard]] bool IsKept(const PageSetupChoice& choice, const OwnSheets& ownSheets);
// What is said of a sheet that isn't kept, on a machine with these printers.
[[nodiscard]] UnkeptSheet UnkeptSheetOf(const PageSetupChoice& choice, const OwnSheets& ownSheets,
                                        const std::vector<std::string>& printers);

}  // namespace td
