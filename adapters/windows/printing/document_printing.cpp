#include "windows/printing/document_printing.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "page_document/page_refs.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/api/system_error.h"
#include "windows/api/wide_text.h"
#include "windows/printing/forms.h"
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

bool IsAlmost(double side, double other) {
  return std::abs(side - other) <= kTwipsPerMillimetre;
}

// "241.0 × 140.0"
std::string Millimetres(const PaperExtent& sheet) {
  const auto length = [](double twips) {
    const int tenths = Tenths(twips);
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
  };
  return length(sheet.width) + " × " + length(sheet.height);
}

// In a dialog of the driver's or of the port's.
bool IsOfCancel(DWORD error) {
  return error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED;
}

// A job that isn't finished is taken back.
class Job {
 public:
  // The settings are those of the first page.
  Job(const PrintChoice& choice, DriverSettings& settings, const Page& first,
      const Complain& complain)
      : printer_(choice.printer),
        settings_(settings),
        complain_(complain),
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
    isCancelled_ = number_ <= 0 && IsOfCancel(GetLastError());
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
    CompareSheet(page);
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
  [[nodiscard]] double Ability(int index) const { return GetDeviceCaps(device_.get(), index); }

  // The sheet that the driver has taken, as it lies.
  [[nodiscard]] PaperExtent DeviceSheet() const {
    return {Ability(PHYSICALWIDTH) * kTwipsPerInch / Ability(LOGPIXELSX),
            Ability(PHYSICALHEIGHT) * kTwipsPerInch / Ability(LOGPIXELSY)};
  }

  [[nodiscard]] AffineMap CorrectionOf(const Page& page) const {
    return correction_ ? correction_(page).value_or(AffineMap{}) : AffineMap{};
  }

  // The device begins where the printer can print, and the page at the paper's corner; yet on a
  // sheet that a driver has in whole units of its own the page lies in the middle.
  [[nodiscard]] DevicePlace PlaceOf(const Page& page) const {
    const double scaleX = Ability(LOGPIXELSX) / kTwipsPerInch;
    const double scaleY = Ability(LOGPIXELSY) / kTwipsPerInch;
    const auto shift = [](double sheet, double side) {
      return IsAlmost(sheet, side) ? (sheet - side) / 2 : 0;
    };
    const PaperExtent sheet = DeviceSheet();
    return {shift(sheet.width, page.width) * scaleX - Ability(PHYSICALOFFSETX),
            shift(sheet.height, page.height) * scaleY - Ability(PHYSICALOFFSETY), scaleX, scaleY};
  }

  // Drivers that don't know a sheet take another one without a word.
  void CompareSheet(const Page& page) {
    const PaperExtent sheet = DeviceSheet();
    if (isTold_ || (IsAlmost(sheet.width, page.width) && IsAlmost(sheet.height, page.height))) {
      return;
    }
    isTold_ = true;
    complain_(WithoutLockCharacter("打印机“" + printer_ + "”没有 " +
                                   Millimetres({page.width, page.height}) + " 毫米的纸，印在 " +
                                   Millimetres(sheet) + " 毫米的纸上。"));
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
  const Complain& complain_;
  const PageCorrection& correction_;
  DeviceOwner device_;
  PaperExtent sheet_;
  bool isLandscape_;
  int number_ = 0;
  bool isCancelled_ = false;
  bool isTold_ = false;  // that the sheet is another one
};

// The number of the job; nothing if the user has cancelled it.
std::optional<int> PrintAsOneJob(const PageRefs& pages, const PrintChoice& choice,
                                 const Complain& complain) {
  DriverSettings settings(choice.printer, choice.options.settings);
  if (!settings.IsKnown()) {
    throw Failure(kDeviceIo, WithoutLockCharacter("打印机“" + choice.printer +
                                                  "”已不存在，或者打印系统没有响应，未打印。"));
  }
  const Page& first = *pages.front();
  const int times = settings.PutOptions(choice.options);
  settings.PutSheet(first.Sheet(), first.paperCode);
  settings.PutLandscape(first.landscape);

  Job job(choice, settings, first, complain);
  if (job.IsCancelled()) return std::nullopt;
  for (const Page* page : Repeated(pages, times, choice.options.collated)) job.Print(*page);
  return job.End();
}

}  // namespace

bool PrintDocument(const std::vector<Page>& pages, const PrintChoice& choice,
                   std::vector<int>& jobs, const Complain& complain) {
  const PageRefs chosen = ChosenPages(pages, choice.pages);
  const auto runs = choice.file.empty() ? SheetRuns(chosen) : std::vector<PageRefs>{chosen};
  for (const PageRefs& run : runs) {
    const std::optional<int> job = PrintAsOneJob(run, choice, complain);
    if (!job) return false;
    jobs.push_back(*job);
  }
  return true;
}

}  // namespace td
