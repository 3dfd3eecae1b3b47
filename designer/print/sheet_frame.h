// The print window of a run that nobody prints: a document and its host.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "barcodes/zint_barcode.h"
#include "page_document/page_document.h"
#include "page_outputs/windowless_host.h"
#include "platform/platform.h"

namespace td::designer {

// Keeps what it is told, and shows nothing.
class MessageList : public Messages {
 public:
  void ShowBox(const std::string& text, int style) override;
  void Add(const std::string& text);
  [[nodiscard]] std::vector<std::string> Take() { return std::move(texts_); }

 private:
  std::vector<std::string> texts_;
};

// A machine that has each printer, and sends nothing to any.
class SheetHost : public WindowlessHost {
 public:
  explicit SheetHost(MessageList& messages) : messages_(messages) {}

  std::vector<std::string> Devices() override { return {}; }
  std::string DefaultDevice() override { return {}; }
  bool HasDevice(const std::string&) override { return true; }
  std::optional<PaperExtent> DefaultSheet() override { return std::nullopt; }
  void Print(PageDocument&, bool) override {}
  void Complain(const std::string& text) override { messages_.Add(text); }

 private:
  MessageList& messages_;
};

// Where the pages go when the window is gone.
class SheetDocument : public PageDocument {
 public:
  SheetDocument(DocumentHost& host, std::vector<Page>& pages) : PageDocument(host), pages_(pages) {}
  ~SheetDocument() override { pages_ = Pages(); }
  SheetDocument(const SheetDocument&) = delete;
  SheetDocument& operator=(const SheetDocument&) = delete;

 private:
  std::vector<Page>& pages_;
};

// Makes the one window of a run.
class SheetWindows : public Windows {
 public:
  SheetWindows(MessageList& messages, const BarcodeSettings& barcodes)
      : messages_(messages), barcodes_(barcodes) {}

  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

  // The page that is drawn on and how many commands it has; 0 and 0 before the first.
  struct Place {
    std::size_t page = 0;  // from 1
    std::size_t commands = 0;
  };
  [[nodiscard]] Place Now() const;
  // After the run.
  [[nodiscard]] std::vector<Page>& Pages() { return pages_; }

 private:
  friend class SheetFrame;

  MessageList& messages_;
  const BarcodeSettings& barcodes_;
  std::vector<Page> pages_;
  const PageDocument* document_ = nullptr;  // while the window lives
};

}  // namespace td::designer
