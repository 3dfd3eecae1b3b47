// What several commands have in common on the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <limits>
#include <optional>
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

// The options that are alike in several commands, each under its name. They are required unless
// they come with a text of their own, which says what holds without them.
CLI::Option* DescribeDatabase(CLI::App& command, std::string& database);
CLI::Option* DescribeBillType(CLI::App& command, std::int16_t& billType);
CLI::Option* DescribeBillType(CLI::App& command, std::optional<std::int16_t>& billType,
                              const std::string& text);
CLI::Option* DescribeFormat(CLI::App& command, std::string& format, const std::string& text);
// The selected format of the bill type where none is named.
CLI::Option* DescribeFormat(CLI::App& command, std::string& format);
CLI::Option* DescribeData(CLI::App& command, std::string& data, const std::string& text);
CLI::Option* DescribePrinter(CLI::App& command, std::string& printer, const std::string& text);
// A file to write, or standard output.
CLI::Option* DescribeOut(CLI::App& command, std::string& out);

}  // namespace td
