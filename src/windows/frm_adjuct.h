// The overlay settings dialog "套打设置": which format a bill type prints with, and its
// fine-tuning.
#pragma once

#include <memory>

#include "platform/platform.h"
#include "state/print_context.h"

namespace td {

class frmAdjuct {
 public:
  // Platform and request are borrowed. The request says which bill type, in which database.
  frmAdjuct(Platform& platform, PrintContext& request);

  // Returns when the dialog was closed. The request's format name is empty afterwards, so that the
  // next run goes by the selected format.
  void ShowModal();

  // The settings were saved and the dialog closed.
  [[nodiscard]] bool IsOk() const { return isOk_; }

 private:
  void Load();
  void Click(std::string_view control);
  void ChangeFormat();
  void Save();
  void Cancel();

  Platform& platform_;
  PrintContext& request_;
  std::unique_ptr<Dialog> dialog_;
  bool isOk_ = false;
};

}  // namespace td
