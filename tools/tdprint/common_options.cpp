#include "common_options.h"

#include "files/output_file.h"

namespace td {

const char* const kExitStatusText =
    "Exit status:\n"
    "  0  printed, and no message was shown\n"
    "  1  not printed\n"
    "  2  wrong usage\n"
    "  3  printed, but a message was shown: part of the bill may be missing\n";

const char* const kDialogExitStatusText =
    "Exit status:\n"
    "  0  the window was shown and has been closed\n"
    "  1  the window can't be shown, or the database can't be opened\n"
    "  2  wrong usage\n";

std::string RefuseEmpty(const std::string& name) {
  return name.empty() ? "the name is empty" : "";
}

std::string StandardOutputForDash(const std::string& file) {
  return file == "-" ? kStandardOutput : file;
}

void DescribeDatabase(CLI::App& command, std::string& database) {
  command
      .add_option("--db", database, "Connection text of the database: sqlite:PATH, or Driver=…;…")
      ->required()
      ->type_name("TEXT");
}

void DescribeBillType(CLI::App& command, std::int16_t& billType) {
  command.add_option("--type", billType, "Bill type number of the format")
      ->required()
      ->check(CLI::Range(-kLargest - 1, kLargest))
      ->type_name("N");
}

}  // namespace td
