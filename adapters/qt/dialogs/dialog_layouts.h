// What the component's dialogs look like.
#pragma once

#include <string_view>

#include "qt/dialogs/dialog_window.h"

namespace td {

struct DialogLayout {
  std::string_view name;  // "frmAdjuct", "frmAreaPrintSet"
  const char* title;
  void (*layOut)(DialogWindow& window);  // makes and places the controls of an empty window
};

// Nothing for a name that no dialog has.
[[nodiscard]] const DialogLayout* FindDialogLayout(std::string_view name);

}  // namespace td
