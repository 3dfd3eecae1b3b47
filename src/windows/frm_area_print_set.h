// The stock-area printer dialog "分库区打印设置": a printer for each machine, bill type, format and
// stock area. No print run reads what it stores.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "state/print_context.h"
#include "store/statements.h"

namespace td {

class frmAreaPrintSet {
 public:
  // Platform and request are borrowed. Of the request only the connection text is read.
  frmAreaPrintSet(Platform& platform, const PrintContext& request);

  // Returns when the dialog was closed.
  void ShowModal();

 private:
  void Load();
  void Click(std::string_view control);
  void ChangeBillType();
  void ShowAreaPrinter();
  void Save();
  [[nodiscard]] AreaPrinterKey SelectedKey();

  Platform& platform_;
  const PrintContext& request_;
  std::unique_ptr<Dialog> dialog_;
};

}  // namespace td
