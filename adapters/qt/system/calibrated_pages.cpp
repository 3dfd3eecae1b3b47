#include "qt/system/calibrated_pages.h"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <optional>

#include "calibration/machine_calibrations.h"
#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/read_file.h"
#include "qt/system/cups_handles.h"

namespace td {
namespace {

// The driver's file of a queue; empty if it has none, or none that can be had.
std::string DriverOf(const std::string& printer) {
  constexpr std::size_t kLargest = 4 << 20;
  const Descriptor file(memfd_create("driver", MFD_CLOEXEC));
  const std::string resource = "/printers/" + printer + ".ppd";
  if (!file.IsOpen() || !HasCups() ||
      Cups().cupsGetFd(CUPS_HTTP_DEFAULT, resource.c_str(), file.Number()) != HTTP_STATUS_OK ||
      lseek(file.Number(), 0, SEEK_SET) != 0) {
    return {};
  }
  try {
    return ReadRegularFile(file, kLargest);
  } catch (const FileError&) {
    return {};
  }
}

// The printing system turns a page that lies across its sheet as the driver says, and where it says
// nothing, with the top to the right.
PageTurn TurnOf(const std::string& printer) {
  const std::string driver = DriverOf(printer);
  const std::size_t at = driver.find("\n*LandscapeOrientation:");
  if (at == std::string::npos) return PageTurn::kTopRight;
  const std::string line = driver.substr(at + 1, driver.find('\n', at + 1) - at - 1);
  return line.find("Plus90") == std::string::npos ? PageTurn::kTopRight : PageTurn::kTopLeft;
}

// What a printer does to a sheet.
struct KnownSheet {
  PaperExtent sheet;
  std::optional<AffineMap> printed;
};

}  // namespace

PageCorrection CorrectionFor(const std::string& printer, const std::vector<Page>& pages,
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
  const PageTurn turn = isAcross ? TurnOf(printer) : PageTurn::kTopLeft;
  return [sheets, turn](const Page& page) -> std::optional<AffineMap> {
    const auto known = std::ranges::find(sheets, page.Sheet(), &KnownSheet::sheet);
    if (known == sheets.end() || !known->printed) return std::nullopt;
    return CorrectionOn(page, *known->printed, turn);
  };
}

}  // namespace td
