// Writes formats within a transaction.
#pragma once

#include <optional>
#include <string>

#include "designer/model/format.h"
#include "designer/model/format_store.h"

namespace td::designer {

// Fails with Failure when another format of the bill type than `except` has the name, or it is
// empty.
void CheckNameIsFree(Transaction& transaction, int billType, const std::string& name,
                     const Value& except);

// Takes the mark off all formats of a bill type but one.
void ClearSelection(Transaction& transaction, int billType, const Value& except);

// What machines have kept under a name goes with it, unless another bill type has a format of that
// name, which shares the machines' papers.
void DeleteMachineRows(Transaction& transaction, int billType, const std::string& name);

// The row of a format: the columns that differ. What machines have kept goes along with its name.
void UpdateFormat(Transaction& transaction, const Format& now, const Format& wanted);

// The whole format with its items and the variables that were changed. `base` is what was loaded,
// `now` what the tables hold, or nothing for a format that is in none yet.
[[nodiscard]] Saved WriteFormat(Transaction& transaction, const Format& base, const Format& wanted,
                                const std::optional<Format>& now);

}  // namespace td::designer
