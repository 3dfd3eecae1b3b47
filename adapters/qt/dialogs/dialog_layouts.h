// What the component's dialogs look like.
#pragma once

#include "dialogs/dialog_contents.h"
#include "qt/dialogs/dialog_window.h"

namespace td {

// Makes and places the controls of an empty window.
void LayOutDialog(DialogWindow& window, const DialogContents& contents);

}  // namespace td
