#include "calibration_pages.h"

#include <functional>
#include <vector>

#include "barcodes/barcode_settings.h"
#include "calibration/calibration.h"
#include "calibration/test_page.h"
#include "calibration_input.h"
#include "complaint.h"
#include "component_folder.h"
#include "designer/model/format_store.h"
#include "designer/print/sheet_boxes.h"
#include "designer/print/sheet_print.h"
#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"

namespace td {
namespace {

constexpr double kHairline = 0.1 * kTwipsPerMillimetre;

constexpr Sentence kTitle{"Calibration of {0}", "打印机校准：{0}"};
constexpr Sentence kHowTo{
    "Measure from the middle of each cross to the edges of the paper, in millimetres",
    "用尺量出各十字中心到纸边的距离，单位毫米"};
constexpr Sentence kAsked{"Asked for: {0} mm from the sides, {1} mm from top and bottom",
                          "应为：距左右边 {0} 毫米，距上下边 {1} 毫米"};
constexpr Sentence kUncalibrated{"Printed without a calibration", "打印时未使用校准"};
constexpr Sentence kCalibrated{"Printed with the calibration: the distances should be right",
                               "打印时使用了校准：各距离应与上述相符"};
constexpr Sentence kTopLeft{"to the left edge and to the top edge", "到左边缘、到上边缘"};
constexpr Sentence kTopRight{"to the right edge and to the top edge", "到右边缘、到上边缘"};
constexpr Sentence kBottomLeft{"to the left edge and to the bottom edge", "到左边缘、到下边缘"};

TestPageWords WordsOf(const CalibrateArguments& arguments, const PaperExtent& sheet,
                      Language language) {
  const Distances crosses = CrossesOf(sheet);
  const std::string subject =
      (arguments.printer.empty() ? "" : arguments.printer + ", ") + SheetText(MillimetresOf(sheet));
  const auto say = [language](const Sentence& sentence) {
    return std::string(sentence.In(language));
  };
  return {.lines = {Fill(language, kTitle, subject),
                    Fill(language, kAsked, NumberText(crosses.across), NumberText(crosses.along)),
                    say(kHowTo), say(arguments.check ? kCalibrated : kUncalibrated)},
          .topLeft = say(kTopLeft),
          .topRight = say(kTopRight),
          .bottomLeft = say(kBottomLeft)};
}

// A document by the ordinary way of a print window.
void Send(Platform& platform, const std::function<void(PrintSurface& surface)>& draw) {
  const std::unique_ptr<PrintFrame> frame = platform.windows.CreatePrintFrame("frmTdPrint");
  draw(frame->Surface());
  frame->Surface().PrintDoc();
  frame->Unload();
}

// No print of a bill: nothing goes into the log.
DesktopOptions OptionsFor(const CalibrateArguments& arguments, bool calibrated) {
  DesktopOptions options;
  options.messages = MessageMode::kStandardError;
  options.logFile = std::string();
  options.calibrated = calibrated;
  options.onComplaint = [](const std::string& text) { Complain("printed, but", text); };
  if (arguments.pdf.empty()) {
    options.printer = arguments.printer;
  } else {
    options.documentSink = [&arguments](const PageDocument& document) {
      WritePdf(document.Pages(), arguments.pdf, "QbTdPrinter");
    };
  }
  return options;
}

void DrawFrame(PrintSurface& surface, const designer::Box& box) {
  surface.DrawLine(box.left, box.top, box.Right(), box.top);
  surface.DrawLine(box.Right(), box.top, box.Right(), box.Bottom());
  surface.DrawLine(box.Right(), box.Bottom(), box.left, box.Bottom());
  surface.DrawLine(box.left, box.Bottom(), box.left, box.top);
}

void DrawForm(PrintSurface& surface, const designer::SheetPicture& picture,
              const designer::Format& format) {
  const designer::SheetPage& first = picture.pages.front();
  surface.PutOrientation(first.landscape ? kLandscape : kPortrait);
  surface.PutPaperWidth(static_cast<float>(first.landscape ? first.height : first.width));
  surface.PutPaperHeight(static_cast<float>(first.landscape ? first.width : first.height));
  surface.PutPenWidth(kHairline);
  surface.StartDoc();
  for (const designer::SheetPage& page : picture.pages) {
    if (&page != &first) surface.NewPage();
    for (const designer::Box& frame : FramesOn(page, format, LayoutOf(format))) {
      DrawFrame(surface, frame);
    }
  }
  surface.EndDoc();
}

}  // namespace

void SendTestPage(const CalibrateArguments& arguments, const PaperExtent& sheet,
                  Language language) {
  DesktopPlatform desktop(OptionsFor(arguments, arguments.check));
  Send(desktop.Get(), [&](PrintSurface& surface) {
    DrawTestPage(surface, sheet, WordsOf(arguments, sheet, language));
  });
}

void SendForm(const CalibrateArguments& arguments) {
  const ComponentFolder folder;
  DesktopOptions options = OptionsFor(arguments, true);
  options.componentFolder = folder.Path();
  DesktopPlatform desktop(std::move(options));
  Databases databases;
  const designer::Format format = designer::FormatStore(databases, arguments.database)
                                      .Load(arguments.billType.value_or(0), arguments.form);
  const designer::SheetPicture picture =
      designer::SheetPrinter(desktop.Get(), arguments.database,
                             ReadBarcodeSettings(BarcodeSettingsFile()))
          .Print(format, designer::SheetContents::kCaptions, true);
  for (const std::string& message : picture.messages) Complain("the run of the format", message);
  if (picture.pages.empty()) throw Failure(kInvalidCall, "the format has no page");
  Send(desktop.Get(), [&](PrintSurface& surface) { DrawForm(surface, picture, format); });
}

}  // namespace td
