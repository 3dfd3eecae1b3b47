#include "checker/barcode_checks.h"

#include <cmath>

#include "barcodes/code_symbol.h"
#include "page_document/commands.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

using enum FindingKind;

constexpr double kDotsPerInch = 203;  // of the coarsest printers in use
constexpr double kFewestDots = 1.5;   // of a bar that a good scanner reads
constexpr double kWantedDots = 2;     // of one that every scanner reads
constexpr const char* kUsualText = "123456789012";

double DotsOf(double twips) {
  return twips / kTwipsPerInch * kDotsPerInch;
}

}  // namespace

void BarcodeCheck::Draws(const Drawing& drawing) {
  if (!drawing.isBarcode) return;
  if (hasValues_ && !drawing.refusal.empty()) {
    refused_.try_emplace(drawing.item,
                         Refusal{std::string(drawing.barcode), std::string(drawing.refusal)});
    return;
  }
  const std::string text = hasValues_ ? std::string(drawing.barcode) : kUsualText;
  const CodeSymbol symbol = EncodeSymbol(settings_.symbology, text);
  const double box = drawing.right - drawing.left;
  if (!symbol.refusal.empty() || box <= 0) return;
  const double module = box / symbol.width;
  const auto [found, isNew] = narrowest_.try_emplace(drawing.item, Narrow{text, module, box});
  if (!isNew && module < found->second.module) found->second = {text, module, box};
}

void BarcodeCheck::Report(FindingList& findings) const {
  for (const auto& [item, refusal] : refused_) {
    findings.AddItem(item, kBarcodeRefused, {Shortened(refusal.text), refusal.reason});
  }
  for (const auto& [item, narrow] : narrowest_) {
    const double dots = DotsOf(narrow.module);
    if (dots >= kFewestDots) continue;
    const double wanted = narrow.box * kWantedDots / dots;
    findings.AddItem(item, kBarcodeNarrow,
                     {Shortened(narrow.text),
                      ToText(std::round(narrow.module / kTwipsPerMillimetre * 100) / 100),
                      ToText(std::round(dots * 10) / 10), MillimetresText(wanted)});
  }
}

}  // namespace td::checker
