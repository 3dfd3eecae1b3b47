#include <filesystem>

#include "command_options.h"
#include "common_options.h"
#include "files/path_text.h"

namespace td {
namespace {

constexpr const char* kFormatFileExamples =
    "Examples:\n"
    "  tdprint export-format --db sqlite:shop.db --type 21 --format 销售订单A4 --out a4.json\n"
    "  tdprint import-format --db \"DSN=branch\" --dry-run a4.json\n"
    "  tdprint diff-format old.json a4.json\n";

constexpr const char* kFormatFileExitStatusText =
    "Exit status:\n"
    "  0  written, or with --dry-run: it could be\n"
    "  1  nothing was written\n"
    "  2  wrong usage\n";

constexpr const char* kDiffExitStatusText =
    "Exit status:\n"
    "  0  the formats are equal\n"
    "  1  they differ\n"
    "  2  a file can't be read, or wrong usage\n";

std::string RefuseOtherThanFolder(const std::string& folder) {
  return std::filesystem::is_directory(PathOf(folder)) ? "" : "there is no such folder";
}

}  // namespace

void Describe(CLI::App& command, SettingsArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  command.footer(kDialogExitStatusText);
}

void Describe(CLI::App& command, DesignArguments& arguments) {
  CLI::Option* database =
      command
          .add_option("--db", arguments.database,
                      "Connection text of the database: sqlite:PATH, or Driver=…;… (without it: "
                      "asked for in a window)")
          ->check(RefuseEmpty)
          ->type_name("TEXT");
  CLI::Option* billType =
      DescribeBillType(command, arguments.billType, "Bill type number of the format");
  database->needs(billType);
  DescribeFormat(command, arguments.format)->needs(database);
  DescribeData(command, arguments.data,
               "Statement that selects rows to show: the first bill of them is drawn")
      ->needs(database);
  command.footer(kDialogExitStatusText);
}

void Describe(CLI::App& command, AreaPrintersArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  command.footer(kDialogExitStatusText);
}

void Describe(CLI::App& command, ExportFormatArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  DescribeFormat(command, arguments.format);
  DescribeOut(command, arguments.out);
  command.add_flag("--with-pictures", arguments.withPictures,
                   "Put the picture files of the items into the file");
  command.footer(std::string(kFormatFileExamples) + "\n" + kFormatFileExitStatusText);
}

void Describe(CLI::App& command, ImportFormatArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType,
                   "Bill type number for the format (without it: the file's)");
  DescribeFormat(command, arguments.format, "Name for the format (without it: the file's)");
  command.add_flag("--replace", arguments.replace,
                   "Replace the format of that name, if there is one");
  command.add_flag("--dry-run", arguments.dryRun, "Only tell what would be written");
  command
      .add_option("--pictures", arguments.pictures,
                  "Folder to put the pictures of the file into (without it: they stay in the file)")
      ->check(RefuseOtherThanFolder)
      ->type_name("FOLDER");
  command.add_option("file", arguments.file, "A file that export-format has written")
      ->required()
      ->check(RefuseEmpty)
      ->type_name("FILE");
  command.footer(std::string(kFormatFileExamples) + "\n" + kFormatFileExitStatusText);
}

void Describe(CLI::App& command, DiffFormatArguments& arguments) {
  command.add_option("first", arguments.first, "A file that export-format has written")
      ->required()
      ->check(RefuseEmpty)
      ->type_name("FILE");
  command.add_option("second", arguments.second, "Another one")
      ->required()
      ->check(RefuseEmpty)
      ->type_name("FILE");
  command.footer(std::string(kFormatFileExamples) + "\n" + kDiffExitStatusText);
}

}  // namespace td
