#include "windows/printing/document_printing.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "page_document/page_refs.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/api/system_error.h"
#include "windows/api/wide_text.h"
#include "windows/printing/printers.h"
#include "windows/render/page_painter.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

// What a driver doesn't repeat is sent again.
PageRefs Repeated(const PageRefs& pages, int times, bool collated) {
  PageRefs repeated;
  if (collated) {
    for (int i = 0; i < times; ++i) repeated.insert(repeated.end(), pages.begin(), pages.end());
  } else {
    for (const Page* page : pages)
      repeated.insert(repeated.end(), static_cast<std::size_t>(times), page);
  }
  return repeated;
}

// A job that isn't finished is taken back.
class Job {
 public:
  // The settings are those of the first page.
  Job(const PrintChoice& choice, DriverSettings& settings, const Page& first)
      : printer_(choice.printer),
        settings_(settings),
        correction_(choice.correction),
        device_(CreateDCW(L"WINSPOOL", ToWide(printer_).c_str(), nullptr, settings.Mode())),
        sheet_(first.Sheet()),
        isLandscape_(first.landscape) {
    if (!device_) throw Refused();
    const std::wstring name = ToWide(choice.title);
    DOCINFOW info{};
    info.cbSize = sizeof info;
    info.lpszDocName = name.c_str();
    const std::wstring file = ToWide(choice.file);
    if (!file.empty()) info.lpszOutput = file.c_str();
    SetLastError(ERROR_SUCCESS);
    number_ = StartDocW(device_.get(), &info);
    isCancelled_ = number_ <= 0 && GetLastError() == ERROR_CANCELLED;
    if (number_ <= 0 && !isCancelled_) throw Refused();
  }
  ~Job() {
    if (number_ > 0) AbortDoc(device_.get());
  }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

  [[nodiscard]] bool IsCancelled() const { return isCancelled_; }

  void Print(const Page& page) {
    if (!(page.Sheet() == sheet_) || page.landscape != isLandscape_) {
      sheet_ = page.Sheet();
      isLandscape_ = page.landscape;
      settings_.PutSheet(sheet_, page.paperCode);
      settings_.PutLandscape(isLandscape_);
      if (ResetDCW(device_.get(), settings_.Mode()) == nullptr) throw Refused();
    }
    Require(StartPage(device_.get()) > 0);
    DrawPage(device_.get(), PlaceOf(page), page, CorrectionOf(page));
    Require(EndPage(device_.get()) > 0);
  }

  // Returns its number.
  int End() {
    Require(EndDoc(device_.get()) > 0);
    return std::exchange(number_, 0);
  }

 private:
  [[nodiscard]] AffineMap CorrectionOf(const Page& page) const {
    return correction_ ? correction_(page).value_or(AffineMap{}) : AffineMap{};
  }

  // The device begins where the printer can print, and the page at the paper's corner; yet on a
  // sheet that a driver has in whole units of its own the page lies in the middle.
  [[nodiscard]] DevicePlace PlaceOf(const Page& page) const {
    const auto ability = [this](int index) {
      return static_cast<double>(GetDeviceCaps(device_.get(), index));
    };
    const double scaleX = ability(LOGPIXELSX) / kTwipsPerInch;
    const double scaleY = ability(LOGPIXELSY) / kTwipsPerInch;
    const auto shift = [](double sheet, double side) {
      return std::abs(sheet - side) <= kTwipsPerMillimetre ? (sheet - side) / 2 : 0;
    };
    return {
        shift(ability(PHYSICALWIDTH) / scaleX, page.width) * scaleX - ability(PHYSICALOFFSETX),
        shift(ability(PHYSICALHEIGHT) / scaleY, page.height) * scaleY - ability(PHYSICALOFFSETY),
        scaleX, scaleY};
  }

  void Require(bool succeeded) const {
    if (!succeeded) throw Refused();
  }

  [[nodiscard]] Failure Refused() const {
    const DWORD error = GetLastError();
    const std::string words = error == ERROR_SUCCESS ? std::string() : "：" + SystemWords(error);
    return {kDeviceIo, WithoutLockCharacter("打印机“" + printer_ + "”不接受打印任务" + words)};
  }

  const std::string& printer_;
  DriverSettings& settings_;
  const PageCorrection& correction_;
  DeviceOwner device_;
  PaperExtent sheet_;
  bool isLandscape_;
  int number_ = 0;
  bool isCancelled_ = false;
};

// The number of the job; nothing if the user has cancelled it.
std::optional<int> PrintAsOneJob(const PageRefs& pages, const PrintChoice& choice) {
  DriverSettings settings(choice.printer, choice.options.settings);
  if (!settings.IsKnown()) {
    throw Failure(kDeviceIo, WithoutLockCharacter("打印机“" + choice.printer +
                                                  "”已不存在，或者打印系统没有响应，未打印。"));
  }
  const Page& first = *pages.front();
  settings.PutOptions(choice.options);
  settings.PutSheet(first.Sheet(), first.paperCode);
  settings.PutLandscape(first.landscape);
  const int copies = settings.CopiesOfDriver() == choice.options.copies ? 1 : choice.options.copies;

  Job job(choice, settings, first);
  if (job.IsCancelled()) return std::nullopt;
  for (const Page* page : Repeated(pages, copies, choice.options.collated)) job.Print(*page);
  return job.End();
}

}  // namespace

bool PrintDocument(const std::vector<Page>& pages, const PrintChoice& choice,
                   std::vector<int>& jobs) {
  const PageRefs chosen = ChosenPages(pages, choice.pages);
  const auto runs = choice.file.empty() ? SheetRuns(chosen) : std::vector<PageRefs>{chosen};
  for (const PageRefs& run : runs) {
    const std::optional<int> job = PrintAsOneJob(run, choice);
    if (!job) return false;
    jobs.push_back(*job);
  }
  return true;
}

}  // namespace td
