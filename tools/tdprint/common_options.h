// What several commands have in common on the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <string>

namespace td {

// Bill type numbers, and counts of rows.
inline constexpr int kLargest = std::numeric_limits<std::int16_t>::max();

// How a print ends.
extern const char* const kExitStatusText;
// How a window ends that was opened for its user.
extern const char* const kDialogExitStatusText;

// Checks and changes of a value, as CLI11 wants them: what is wrong, or the value to take.
// An empty name is mostly a shell's variable that isn't set: without this the document would go to
// the printer that the format chooses.
std::string RefuseEmpty(const std::string& name);
std::string StandardOutputForDash(const std::string& file);

void DescribeDatabase(CLI::App& command, std::string& database);
void DescribeBillType(CLI::App& command, std::int16_t& billType);

}  // namespace td
