#include "checker/trial_platform.h"

#include <algorithm>
#include <utility>

#include "checker/drawn_text.h"
#include "page_document/pictures.h"
#include "page_document/windowless_frame.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

class TrialFrame : public WindowlessFrame {
 public:
  TrialFrame(TrialHost& host, const BarcodeSettings& barcodes, TrialListener& listener)
      : document_(host, listener), barcode_(barcodes, listener) {}

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }

 private:
  TrialDocument document_;
  TrialBarcode barcode_;
};

}  // namespace

// ---- The host

TrialHost::TrialHost(const CheckedMachine& machine, std::string printer, TrialListener& listener)
    : machine_(machine),
      printers_(machine.Printers()),
      defaultPrinter_(machine.DefaultPrinter()),
      printer_(std::move(printer)),
      listener_(listener) {}

bool TrialHost::HasDevice(const std::string& name) {
  return std::ranges::find(printers_, name) != printers_.end();
}

std::optional<PaperExtent> TrialHost::DefaultSheet() {
  const std::string& printer = printer_.empty() ? defaultPrinter_ : printer_;
  return printer.empty() ? std::nullopt : machine_.OwnSheet(printer);
}

void TrialHost::Print(PageDocument& document, bool /*withDialog*/) {
  usedPrinter_ = printer_.empty() ? document.Device() : printer_;
}

// ---- The document

void TrialDocument::TellBox(const std::string& text, double left, double top, double width,
                            double height, bool wordWrap) {
  if (text.empty()) return;
  listener_.Boxed({text, left, top, width, height, wordWrap, Alignment(), Font()});
}

void TrialDocument::TextBox(const std::string& text, double left, double top, double width,
                            double height) {
  PageDocument::TextBox(text, left, top, width, height);
  TellBox(text, left, top, width, height, false);
}

void TrialDocument::TextBox(const std::string& text, double left, double top, double width,
                            double height, const StoredFlag& wordWrap) {
  PageDocument::TextBox(text, left, top, width, height, wordWrap);
  TellBox(text, left, top, width, height, IsSet(wordWrap));
}

void TrialDocument::TellWritten(const std::string& text, double x, double y) {
  if (text.empty()) return;
  const TextLine line = {{text, Font()}};
  const double width = LineWidth(line);
  const double parts[] = {0, width / 2, width};
  const auto before = parts[static_cast<int>(Alignment())];
  listener_.Written({width, LineHeight(line)}, x - before, y);
}

void TrialDocument::PutParagraph(const std::string& text) {
  const double x = CurrentX();
  const double y = CurrentY();
  PageDocument::PutParagraph(text);
  TellWritten(text, x, y);
}

void TrialDocument::PutText(const std::string& text) {
  const double x = CurrentX();
  const double y = CurrentY();
  PageDocument::PutText(text);
  TellWritten(text, x, y);
}

void TrialDocument::DrawLine(double x1, double y1, double x2, double y2) {
  PageDocument::DrawLine(x1, y1, x2, y2);
  listener_.Ruled(x1, y1, x2, y2);
}

// The base draws it by the operation below.
void TrialDocument::DrawPicture(const PictureRef& picture, double left, double top) {
  const PictureSize size = picture ? NaturalSize(*picture) : PictureSize();
  DrawPicture(picture, left, top, size.width, size.height);
}

void TrialDocument::DrawPicture(const PictureRef& picture, double left, double top, double width,
                                double height) {
  PageDocument::DrawPicture(picture, left, top, width, height);
  if (picture) listener_.Pictured({picture, left, top, width, height});
}

// ---- The platform

TrialPlatform::TrialPlatform(const CheckedMachine& machine, const std::string& printer,
                             Database& database, TrialListener& listener, RunWitness& witness)
    : machine_(machine),
      listener_(listener),
      host_(machine, printer, listener),
      platform_{database, machine.PictureFiles(), *this, *this, *this, &witness} {}

std::unique_ptr<PrintFrame> TrialPlatform::CreatePrintFrame(std::string_view /*name*/) {
  return std::make_unique<TrialFrame>(host_, machine_.Barcodes(), listener_);
}

std::unique_ptr<Dialog> TrialPlatform::CreateDialog(std::string_view /*name*/) {
  throw Failure(kInvalidCall, "检查套打格式时不打开窗口。");
}

}  // namespace td::checker
