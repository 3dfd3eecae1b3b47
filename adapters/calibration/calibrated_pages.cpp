#include "calibration/calibrated_pages.h"

#include <algorithm>
#include <optional>

#include "calibration/machine_calibrations.h"

namespace td {
namespace {

// What a printer does to a sheet.
struct KnownSheet {
  PaperExtent sheet;
  std::optional<AffineMap> printed;
};

}  // namespace

PageCorrection CorrectionFor(const std::string& printer, const std::vector<Page>& pages,
                             const std::function<LandscapeTurn(const std::string& printer)>& turnOf,
                             const std::function<void(const std::string& text)>& complain) {
  const CalibrationFiles files = CalibrationFiles::OfThisMachine();
  const auto onBrokenFile = [&complain](const std::string& why) {
    complain("打印机校准文件有误，打印时不使用：" + why);
  };
  std::vector<KnownSheet> sheets;  // few, often one
  bool isAcross = false;
  for (const Page& page : pages) {
    const PaperExtent sheet = page.Sheet();
    if (std::ranges::find(sheets, sheet, &KnownSheet::sheet) == sheets.end()) {
      const auto calibration = CalibrationInForce(files, printer, sheet, onBrokenFile);
      sheets.push_back({sheet, calibration ? PlausibleMap(*calibration) : std::nullopt});
    }
    isAcross = isAcross || page.landscape;
  }
  const bool isCalibrated = std::ranges::any_of(
      sheets, [](const KnownSheet& known) { return known.printed.has_value(); });
  if (!isCalibrated) return {};
  const LandscapeTurn turn = isAcross ? turnOf(printer) : LandscapeTurn::kTopLeft;
  return [sheets, turn](const Page& page) -> std::optional<AffineMap> {
    const auto known = std::ranges::find(sheets, page.Sheet(), &KnownSheet::sheet);
    if (known == sheets.end() || !known->printed) return std::nullopt;
    return CorrectionOn(page, *known->printed, turn);
  };
}

}  // namespace td
