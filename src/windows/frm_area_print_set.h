// The stock-area printer dialog "分库区打印设置": a printer for each machine, bill type, format and
// stock area. No print run reads what it stores.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "store/statements.h"

namespace td {

class frmAreaPrintSet {
 public:
  explicit frmAreaPrintSet(Platform& platform);

  // Reads the connection text of the context; returns when the dialog was closed.
  void ShowModal();

 private:
  void Load();
  void Click(std::string_view control);
  void ChangeBillType();
  void ShowAreaPrinter();
  void Save();
  [[nodiscard]] AreaPrinterKey SelectedKey();

  Platform& platform_;
  std::unique_ptr<Dialog> dialog_;
};

}  // namespace td
