#include "qt/system/print_job.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "page_document/drawing.h"
#include "print_calls/device_failure.h"
#include "qt/system/cups_handles.h"
#include "qt/system/printers.h"

namespace td {
namespace {

// Settings of a user or a printer under which a page would not lie on its sheet as it was drawn.
constexpr std::array<std::string_view, 24> kPlacingOptions = {
    "media",       "media-col",   "PageSize",        "PageRegion",   "orientation-requested",
    "landscape",   "number-up",   "fit-to-page",     "fitplot",      "fill",
    "crop-to-fit", "scaling",     "natural-scaling", "ppi",          "position",
    "page-left",   "page-right",  "page-top",        "page-bottom",  "mirror",
    "page-border", "page-ranges", "page-set",        "print-scaling"};

bool IsPlacingOption(std::string_view name) {
  for (const std::string_view placing : kPlacingOptions) {
    if (placing == name) return true;
  }
  return false;
}

// The printing system counts in points of 1/72 inch and takes three decimals of them, with a point
// as the decimal sign whatever the locale.
std::string PointsText(double twips) {
  const long long thousandths = std::llround(twips / kTwipsPerPoint * 1000);
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%lld.%03lld", thousandths / 1000, thousandths % 1000);
  return text.data();
}

// A printer with fixed sheets only may have a wide one that is fed with its short side first: the
// printing system turns the pages on it.
void AskForSheet(const PrintJob& job, CupsOptions& options) {
  if (const auto name = SheetName(job.printer, job.sheet)) {
    options.Set("media", *name);
    return;
  }
  if (!TakesAnySize(job.printer)) {
    if (const auto name = SheetName(job.printer, {job.sheet.height, job.sheet.width})) {
      options.Set("media", *name);
      return;
    }
  }
  options.Set("PageSize",
              "Custom." + PointsText(job.sheet.width) + "x" + PointsText(job.sheet.height));
}

void FillOptions(const PrintJob& job, const CupsPrinter& queue, CupsOptions& options) {
  const cups_dest_t& destination = *queue.Destination();
  for (int i = 0; i < destination.num_options; ++i) {
    const cups_option_t& setting = destination.options[i];
    if (!IsPlacingOption(setting.name)) options.Set(setting.name, setting.value);
  }
  for (const auto& [name, value] : job.options) {
    if (!IsPlacingOption(name)) options.Set(name, value);
  }
  options.Set("print-scaling", "none");
  AskForSheet(job, options);
}

// The reason is that of the last request: it is to be taken before the next one.
Failure RefusedFailure(const PrintJob& job) {
  return DeviceFailure(
      kDeviceIo, "打印机“" + job.printer + "”不接受打印任务：" + Cups().cupsLastErrorString());
}

// Sends the job's only document as it is made. Returns False when the printing system stops taking
// it.
bool SendDocument(const PrintJob& job, const CupsPrinter& queue, int number) {
  if (Cups().cupsStartDestDocument(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), number,
                                   job.title.c_str(), CUPS_FORMAT_PDF, 0, nullptr,
                                   1) != HTTP_STATUS_CONTINUE) {
    return false;
  }
  bool isTaken = true;
  const auto finish = [&] {
    return Cups().cupsFinishDestDocument(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details()) <=
           IPP_STATUS_OK_EVENTS_COMPLETE;
  };
  try {
    job.pdf([&isTaken](std::string_view part) {
      if (part.empty()) return;  // a chunk of no bytes would end the document
      isTaken = isTaken && Cups().cupsWriteRequestData(CUPS_HTTP_DEFAULT, part.data(),
                                                       part.size()) == HTTP_STATUS_CONTINUE;
    });
  } catch (...) {
    finish();
    Cups().cupsCancelDestJob(CUPS_HTTP_DEFAULT, queue.Destination(), number);
    throw;
  }
  return finish() && isTaken;
}

const char* NoPassword(const char* /*prompt*/, http_t* /*http*/, const char* /*method*/,
                       const char* /*resource*/, void* /*data*/) {
  return nullptr;
}

}  // namespace

int SubmitPrintJob(const PrintJob& job) {
  // The printing system's library would ask on the terminal and wait there.
  Cups().cupsSetPasswordCB2(NoPassword, nullptr);
  const CupsPrinter queue(job.printer);
  if (queue.Destination() == nullptr) {
    throw DeviceFailure(kDeviceIo,
                        "打印机“" + job.printer + "”已不存在，或者打印系统没有响应，未打印。");
  }
  if (!queue.IsReachable()) throw RefusedFailure(job);

  CupsOptions options;
  FillOptions(job, queue, options);
  int number = 0;
  if (Cups().cupsCreateDestJob(CUPS_HTTP_DEFAULT, queue.Destination(), queue.Details(), &number,
                               job.title.c_str(), options.Count(),
                               options.List()) > IPP_STATUS_OK_EVENTS_COMPLETE) {
    throw RefusedFailure(job);
  }
  if (!SendDocument(job, queue, number)) {
    const Failure failure = RefusedFailure(job);
    Cups().cupsCancelDestJob(CUPS_HTTP_DEFAULT, queue.Destination(), number);
    throw failure;
  }
  return number;
}

}  // namespace td
