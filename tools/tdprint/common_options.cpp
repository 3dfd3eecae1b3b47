#include "common_options.h"

#include "files/output_file.h"

namespace td {
namespace {

CLI::Option* AsBillType(CLI::Option* option) {
  return option->check(CLI::Range(-kLargest - 1, kLargest))->type_name("N");
}

}  // namespace

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

CLI::Option* DescribeDatabase(CLI::App& command, std::string& database) {
  return command
      .add_option("--db", database, "Connection text of the database: sqlite:PATH, or Driver=…;…")
      ->required()
      ->type_name("TEXT");
}

CLI::Option* DescribeBillType(CLI::App& command, std::int16_t& billType) {
  return AsBillType(command.add_option("--type", billType, "Bill type number of the format"))
      ->required();
}

CLI::Option* DescribeBillType(CLI::App& command, std::optional<std::int16_t>& billType,
                              const std::string& text) {
  return AsBillType(command.add_option("--type", billType, text));
}

CLI::Option* DescribeFormat(CLI::App& command, std::string& format, const std::string& text) {
  return command.add_option("--format", format, text)->check(RefuseEmpty)->type_name("NAME");
}

CLI::Option* DescribeFormat(CLI::App& command, std::string& format) {
  return command
      .add_option("--format", format,
                  "Name of the format (without it: the selected format of the bill type)")
      ->type_name("NAME");
}

CLI::Option* DescribeData(CLI::App& command, std::string& data, const std::string& text) {
  return command.add_option("--data", data, text)->type_name("SQL");
}

CLI::Option* DescribePrinter(CLI::App& command, std::string& printer, const std::string& text) {
  return command.add_option("--printer", printer, text)->check(RefuseEmpty)->type_name("NAME");
}

CLI::Option* DescribeOut(CLI::App& command, std::string& out) {
  return command.add_option("--out", out, "A file (without it: standard output)")
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
}

}  // namespace td
