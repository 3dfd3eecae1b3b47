// From the text of a statement to its tree.
#pragma once

#include <string_view>

#include "recording/sql_syntax.h"

namespace td::recording {

// One statement with nothing behind its end. Fails with kDatabaseFailed.
[[nodiscard]] Statement Parse(std::string_view sql);

}  // namespace td::recording
