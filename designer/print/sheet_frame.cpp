#include "designer/print/sheet_frame.h"

#include <algorithm>

#include "page_document/windowless_frame.h"
#include "platform/standard_failures.h"

namespace td::designer {

void MessageList::ShowBox(const std::string& text, int /*style*/) {
  Add(text);
}

void MessageList::Add(const std::string& text) {
  if (std::ranges::find(texts_, text) == texts_.end()) texts_.push_back(text);
}

class SheetFrame : public WindowlessFrame {
 public:
  explicit SheetFrame(SheetWindows& windows)
      : windows_(windows),
        host_(windows.messages_),
        document_(host_, windows.pages_),
        barcode_(windows.barcodes_,
                 [&windows](const std::string& reason) { windows.messages_.Add(reason); }) {
    windows_.document_ = &document_;
  }
  ~SheetFrame() override { windows_.document_ = nullptr; }
  SheetFrame(const SheetFrame&) = delete;
  SheetFrame& operator=(const SheetFrame&) = delete;

  PrintSurface& Surface() override { return document_; }
  Barcode& BarcodeMaker() override { return barcode_; }

 private:
  SheetWindows& windows_;
  SheetHost host_;
  SheetDocument document_;
  ZintBarcode barcode_;
};

std::unique_ptr<PrintFrame> SheetWindows::CreatePrintFrame(std::string_view /*name*/) {
  return std::make_unique<SheetFrame>(*this);
}

std::unique_ptr<Dialog> SheetWindows::CreateDialog(std::string_view /*name*/) {
  throw InvalidCallFailure();
}

SheetWindows::Place SheetWindows::Now() const {
  if (document_ == nullptr || document_->Pages().empty()) return {};
  return {document_->Pages().size(), document_->Pages().back().commands.size()};
}

}  // namespace td::designer
