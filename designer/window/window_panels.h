// The panels that stand around the sheet.
#pragma once

#include <QWidget>
#include <functional>
#include <span>

#include "designer/view/workspace.h"

namespace td::designer {

struct Panel {
  const char* name;   // of the dock, for tests and for the places that the user gave the docks
  const char* title;  // in English words, as Say knows them
  Qt::DockWidgetArea area;
  // The workspace outlives the widget, which listens to its document and its selection.
  QWidget* (*make)(Workspace& workspace);
};

// Panels of one area stand as tabs upon each other, the first in front.
[[nodiscard]] std::span<const Panel> Panels();

}  // namespace td::designer
