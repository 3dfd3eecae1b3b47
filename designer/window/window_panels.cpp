#include "designer/window/window_panels.h"

#include <array>

#include "designer/panels/findings_panel.h"
#include "designer/panels/format_panel.h"
#include "designer/panels/item_panel.h"
#include "designer/panels/items_panel.h"
#include "designer/panels/palette_panel.h"
#include "designer/panels/variables_panel.h"

namespace td::designer {
namespace {

template <typename PanelWidget>
QWidget* Make(Workspace& workspace) {
  return new PanelWidget(workspace);
}

constexpr std::array kPanels = {
    Panel{"palette", "Palette", Qt::LeftDockWidgetArea, Make<PalettePanel>},
    Panel{"variables", "Variables", Qt::LeftDockWidgetArea, Make<VariablesPanel>},
    Panel{"items", "Item list", Qt::LeftDockWidgetArea, Make<ItemsPanel>},
    Panel{"item", "Properties", Qt::RightDockWidgetArea, Make<ItemPanel>},
    Panel{"format", "Format", Qt::RightDockWidgetArea, Make<FormatPanel>},
    Panel{"findings", "Findings", Qt::RightDockWidgetArea, Make<FindingsPanel>},
};

}  // namespace

std::span<const Panel> Panels() {
  return kPanels;
}

}  // namespace td::designer
