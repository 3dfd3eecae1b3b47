// The overlay settings dialog "套打设置": which format a bill type prints with, and its
// fine-tuning.
#pragma once

#include <memory>

#include "platform/platform.h"

namespace td {

class frmAdjuct {
 public:
  explicit frmAdjuct(Platform& platform);

  // Returns when the dialog was closed. The context's format name is empty afterwards, so that the
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
  std::unique_ptr<Dialog> dialog_;
  bool isOk_ = false;
};

}  // namespace td
