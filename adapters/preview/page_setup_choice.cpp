#include "preview/page_setup_choice.h"

#include <algorithm>
#include <cmath>

#include "page_document/drawing.h"
#include "page_document/offered_papers.h"

namespace td {
namespace {

std::string MillimetreText(double twips) {
  const long tenths = std::lround(twips / kTwipsPerMillimetre * 10);
  const std::string whole = std::to_string(tenths / 10);
  return tenths % 10 == 0 ? whole : whole + "." + std::to_string(std::labs(tenths % 10));
}

}  // namespace

PageSetupChoice ChoiceOf(PageDocument& document) {
  return {.paper = document.PaperSize(),
          .sheet = {document.PaperWidth(), document.PaperHeight()},
          .isLandscape = document.Orientation() == kLandscape,
          .margins = {document.MarginLeft(), document.MarginTop(), document.MarginRight(),
                      document.MarginBottom()}};
}

void PutChoice(PageDocument& document, const PageSetupChoice& choice, const std::string& printer) {
  if (choice.paper == kUserDefinedPaper) {
    document.PutPaperWidth(static_cast<float>(choice.sheet.width));
    document.PutPaperHeight(static_cast<float>(choice.sheet.height));
  } else {
    document.PutPaperSize(choice.paper);
  }
  document.PutOrientation(choice.isLandscape ? kLandscape : kPortrait);
  document.PutMarginLeft(choice.margins.left);
  document.PutMarginTop(choice.margins.top);
  document.PutMarginRight(choice.margins.right);
  document.PutMarginBottom(choice.margins.bottom);
  if (!printer.empty()) document.PutDevice(printer);
}

std::string SizeText(const PaperExtent& sheet) {
  return MillimetreText(sheet.width) + " × " + MillimetreText(sheet.height) + " mm";
}

std::string PaperText(std::int32_t code, const PaperExtent& sheet) {
  const OfferedPaper* const offered = FindOfferedPaper(code);
  const std::string name =
      offered != nullptr ? std::string(offered->chinese) : "纸张 " + std::to_string(code);
  return name + "（" + SizeText(sheet) + "）";
}

std::vector<PaperEntry> PaperEntries(PageDocument& document) {
  std::vector<PaperEntry> entries;
  for (const OfferedPaper& offered : OfferedPapers()) {
    const auto sheet = StandardPaper(offered.code);
    if (sheet) entries.push_back({offered.code, PaperText(offered.code, *sheet)});
  }
  const std::int32_t current = document.PaperSize();
  const bool isOffered = std::ranges::count(entries, current, &PaperEntry::code) > 0;
  if (!isOffered && current != kUserDefinedPaper) {
    entries.push_back(
        {current, PaperText(current, {document.PaperWidth(), document.PaperHeight()})});
  }
  entries.push_back({kUserDefinedPaper, page_setup_words::kUserDefined});
  return entries;
}

std::string ObjectionTo(const PageSetupChoice& choice) {
  const PaperExtent sheet = choice.SheetAsRead();
  if (sheet.width <= 0 || sheet.height <= 0) return "纸张的宽度和高度都必须大于 0。";
  if (choice.margins.left + choice.margins.right >= sheet.width) {
    return "左右页边距之和必须小于纸张的宽度。";
  }
  if (choice.margins.top + choice.margins.bottom >= sheet.height) {
    return "上下页边距之和必须小于纸张的高度。";
  }
  return {};
}

bool IsKept(const PageSetupChoice& choice, const OwnSheets& ownSheets) {
  if (choice.paper != kUserDefinedPaper) return true;
  const auto first = ownSheets.ofNewDocument ? ownSheets.ofNewDocument() : std::nullopt;
  return first && IsSameSheet(*first, choice.sheet);
}

UnkeptSheet UnkeptSheetOf(const PageSetupChoice& choice, const OwnSheets& ownSheets,
                          const std::vector<std::string>& printers) {
  UnkeptSheet unkept;
  unkept.size = SizeText(choice.sheet);
  if (const std::int32_t code = PaperCodeOf(choice.sheet); code != kUserDefinedPaper) {
    unkept.namedPaper = PaperText(code, choice.sheet);
    return unkept;
  }
  for (const std::string& printer : printers) {
    const auto own = ownSheets.ofPrinter ? ownSheets.ofPrinter(printer) : std::nullopt;
    if (own && IsSameSheet(*own, choice.sheet)) unkept.printers.push_back(printer);
  }
  return unkept;
}

}  // namespace td
