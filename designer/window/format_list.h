// Choosing one of the formats of a bill type.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "designer/model/format_store.h"

class QWidget;

namespace td::designer {

// The name of the chosen format, or nothing.
[[nodiscard]] std::optional<std::string> ChooseFormat(QWidget* window,
                                                      const std::vector<FormatEntry>& formats,
                                                      const std::string& current);

}  // namespace td::designer
