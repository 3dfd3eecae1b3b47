// The checker, for a format that is being edited.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "checker/machine.h"
#include "designer/view/findings.h"
#include "memory_rows/memory_rows.h"
#include "platform/database.h"

namespace td::designer {

// What Workspace::check is set to. The machine and the database are borrowed. `data`, the rows that
// are to be printed, may be null; the database is asked for goods pictures and settings when there
// are some. Where the rows or the database fail, the format alone is checked. Needs an application.
[[nodiscard]] std::function<std::vector<FormatFinding>(const Format& format)> CheckWith(
    const checker::CheckedMachine& machine, std::shared_ptr<const MemoryRows> data,
    Database* database = nullptr, std::string connection = {});

}  // namespace td::designer
