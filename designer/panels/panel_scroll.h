// The part of a panel that scrolls when its dock is low.
#pragma once

#include <QScrollArea>

namespace td::designer {

// Scrolls down only: the panel is never narrower than its content.
[[nodiscard]] QScrollArea* MakePanelScroll(QWidget* content);

}  // namespace td::designer
