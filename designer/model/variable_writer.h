// Writes the variables of a bill type that were changed.
#pragma once

#include <string>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/stored_table.h"

namespace td::designer {

// Whether a save writes the variable of that caption: it was added, changed or removed.
[[nodiscard]] bool IsVariableWritten(const std::vector<Variable>& base,
                                     const std::vector<Variable>& wanted,
                                     const std::string& caption);

// Adds, changes and removes rows by their caption; all others stay. A variable that an item of
// another format of the bill type names is not removed.
void WriteVariables(Transaction& transaction, int billType, const Value& formatId,
                    const std::vector<Variable>& base, const std::vector<Variable>& wanted);

}  // namespace td::designer
