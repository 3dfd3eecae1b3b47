// The windows of the component as the logic sees them: widgets without behaviour of their own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/barcode.h"
#include "platform/dialog.h"
#include "platform/print_surface.h"

namespace td {

// What a print window calls back, on the same thread.
struct PrintFrameEvents {
  std::function<void()> Load;      // before it becomes visible for the first time
  std::function<void()> Activate;  // each time that it gets the focus
  std::function<void(std::string_view key)> ButtonPressed;  // an enabled toolbar button, by its key
};

// One print window with its toolbar, page text box and print surface, and its hidden companions.
class PrintFrame {
 public:
  virtual ~PrintFrame() = default;

  virtual void Connect(PrintFrameEvents events) = 0;

  virtual PrintSurface& Surface() = 0;  // `vp`
  virtual Barcode& BarcodeMaker() = 0;  // `barcode`
  virtual std::string MemoText() = 0;   // `rtbMemo`: plain text and rich text
  virtual std::string MemoTextRtf() = 0;

  // Loads the window if that has not happened, shows it and returns when it was closed. A failure
  // that leaves the first Activate closes the window and leaves this call; later ones are shown.
  virtual void ShowModal() = 0;
  // Closes the window, shown or not. Closing it twice is no error.
  virtual void Unload() = 0;

  virtual void EnableButton(std::string_view key, bool enabled) = 0;
  virtual void PutPageText(const std::string& text) = 0;  // `txtPageNo`
};

// Makes windows by name: the print windows "frmTdPrint" and "frmTdPrint_GroupByStockArea", the
// dialogs "frmAdjuct" and "frmAreaPrintSet". The caller owns them.
class Windows {
 public:
  virtual ~Windows() = default;
  // Fails with kWrongThread on a thread where no window can be made; asked before a request changes
  // anything.
  virtual void CheckThread() const {}
  virtual std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) = 0;
  virtual std::unique_ptr<Dialog> CreateDialog(std::string_view name) = 0;
};

}  // namespace td
