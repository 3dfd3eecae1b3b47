#include "checker/trial_platform.h"

#include <algorithm>
#include <utility>

#include "checker/drawn_text.h"
#include "page_document/pictures.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

TextAlignment AlignmentOf(int code) {
  if (code == kAlignCentre) return TextAlignment::kCentre;
  return code == kAlignRight ? TextAlignment::kRight : TextAlignment::kLeft;
}

PictureSize NaturalSizeOf(const PictureRef& picture) {
  if (const auto* image = dynamic_cast<const ImagePicture*>(picture.get())) {
    return image->NaturalSize();
  }
  const auto* drawing = dynamic_cast<const VectorPicture*>(picture.get());
  return drawing == nullptr ? PictureSize() : drawing->NaturalSize();
}

class TrialFrame : public PrintFrame {
 public:
  TrialFrame(TrialHost& host, const BarcodeSettings& barcodes, TrialListener& listener)
      : document_(host, listener), barcode_(barcodes, listener) {}

  void Connect(PrintFrameEvents /*events*/) override {}
  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }
  void ShowModal() override {}
  void Unload() override {}
  void EnableButton(std::string_view /*key*/, bool /*enabled*/) override {}
  void PutPageText(const std::string& /*text*/) override {}

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

double TrialHost::LineHeight(const TextLine& line) {
  return HeightOf(line);
}

double TrialHost::LineWidth(const TextLine& line) {
  return WidthOf(line);
}

void TrialHost::Print(PageDocument& document, bool /*withDialog*/) {
  usedPrinter_ = printer_.empty() ? document.Device() : printer_;
}

// ---- The document

FontRef TrialDocument::Font() {
  return std::make_shared<const TextFont>(
      TextFont{FontName(), FontSize(), FontBold(), FontItalic()});
}

void TrialDocument::TellBox(const std::string& text, double left, double top, double width,
                            double height, bool wordWrap) {
  if (text.empty()) return;
  listener_.Boxed({text, left, top, width, height, wordWrap, AlignmentOf(TextAlign()), Font()});
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
  const double width = WidthOf(line);
  const double parts[] = {0, width / 2, width};
  const auto before = parts[static_cast<int>(AlignmentOf(TextAlign()))];
  listener_.Written({width, HeightOf(line)}, x - before, y);
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
  const PictureSize size = NaturalSizeOf(picture);
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
