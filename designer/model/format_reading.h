// Reads formats within a transaction.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "designer/model/format.h"
#include "designer/model/format_store.h"
#include "platform/failure.h"

namespace td::designer {

// Conditions of the tables that a format lies in.
[[nodiscard]] std::string IdCondition(const Transaction& transaction, const Value& id);
[[nodiscard]] std::string TypeCondition(const Transaction& transaction, int billType);
[[nodiscard]] std::string NameCondition(const Transaction& transaction, const std::string& name);

// Without a name: no format is selected.
[[nodiscard]] Failure NoSuchFormat(const std::string& name);

// The first format of a condition, or nothing; its items band by band.
[[nodiscard]] std::optional<Format> ReadFormat(Transaction& transaction,
                                               const std::string& condition);
// Fails when there is none.
[[nodiscard]] Format ReadFormatById(Transaction& transaction, const Value& id);

[[nodiscard]] std::vector<Variable> ReadVariables(Transaction& transaction, int billType);

// By bill type, the selected format first, then by name.
[[nodiscard]] std::vector<FormatEntry> ReadEntries(Transaction& transaction,
                                                   const std::string& condition);

}  // namespace td::designer
