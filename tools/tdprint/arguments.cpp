#include "arguments.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <limits>

#include "options_file.h"
#include "print_log/log_time.h"

namespace td {
namespace {

constexpr const char* kExitStatusText =
    "Exit status:\n"
    "  0  printed, and no message was shown\n"
    "  1  not printed\n"
    "  2  wrong usage\n"
    "  3  printed, but a message was shown: part of the bill may be missing\n";

constexpr const char* kPrintExamples =
    "Examples:\n"
    "  tdprint print --db sqlite:shop.db --type 21 \\\n"
    "      --data \"select * from v_sales_order where FInterID=21002\" --pdf order.pdf\n"
    "  tdprint print --db sqlite:shop.db --type 22 --format 销售出库单A4 --only-variant \\\n"
    "      --data \"select * from v_stock_out where FInterID=22001\" --printer 针式打印机\n";

constexpr const char* kCheckExamples =
    "Examples:\n"
    "  tdprint check --db sqlite:shop.db\n"
    "  tdprint check --db sqlite:shop.db --type 21 --format 销售订单三联 \\\n"
    "      --data \"select * from v_sales_order\"\n";

constexpr const char* kCheckExitStatusText =
    "Exit status:\n"
    "  0  nothing was found, or nothing but hints\n"
    "  1  warnings were found\n"
    "  2  errors were found, or wrong usage\n"
    "  3  not checked: the database or the rows can't be read\n";

constexpr const char* kExamples =
    "Examples:\n"
    "  tdprint demo --out /tmp/bills\n"
    "  tdprint print --db sqlite:/tmp/bills/sample.db --type 21 \\\n"
    "      --data \"select * from v_sales_order\" --pdf order.pdf\n"
    "  tdprint print --help\n";

constexpr const char* kDialogExitStatusText =
    "Exit status:\n"
    "  0  the window was shown and has been closed\n"
    "  1  the window can't be shown, or the database can't be opened\n"
    "  2  wrong usage\n";

constexpr const char* kSampleSqlExamples =
    "Examples:\n"
    "  tdprint sample-sql --engine postgresql | psql -v ON_ERROR_STOP=1 shop\n"
    "  tdprint sample-sql --engine sqlserver --only-schema --out tables.sql\n";

constexpr const char* kRecordExamples =
    "Examples:\n"
    "  tdprint record --db sqlite:shop.db --type 21 --mask --out misprint.json \\\n"
    "      --data \"select * from v_sales_order where FInterID=21002\"\n"
    "  td_replay misprint.json\n";

constexpr const char* kRecordExitStatusText =
    "Exit status:\n"
    "  0  recorded, and the scenario prints like the database\n"
    "  1  not recorded\n"
    "  2  wrong usage\n"
    "  3  recorded, but the scenario prints otherwise, as standard error tells\n";

constexpr const char* kRegistrationExitStatusText =
    "Exit status:\n"
    "  0  the registration was written or removed, as standard output tells\n"
    "  1  it was not: the module isn't there, or others could change it or the registration\n"
    "  2  wrong usage\n";

constexpr const char* kLogExamples =
    "Examples:\n"
    "  tdprint log --bill XD-2403-0002\n"
    "  tdprint log --since 2024-03-01 --until \"2024-03-01 12:00\" --json prints.log\n";

constexpr const char* kLogExitStatusText =
    "Exit status:\n"
    "  0  prints were found\n"
    "  1  none was found, or a log can't be read\n"
    "  2  wrong usage\n";

// An empty name is mostly a shell's variable that isn't set: without this the document would go to
// the printer that the format chooses.
std::string RefuseEmpty(const std::string& name) {
  return name.empty() ? "the name is empty" : "";
}

std::string RefuseStandardOutput(const std::string& folder) {
  return folder == "-" ? "standard output is no folder; --pdf - and --html - go there" : "";
}

std::string RefuseOtherThanTime(const std::string& text) {
  return ParseTimeSpan(text) ? "" : text + " is no time such as 2024-03-01 or \"2024-03-01 09:30\"";
}

std::string StandardOutputForDash(const std::string& file) {
  return file == "-" ? "/dev/stdout" : file;
}

std::string RefuseOtherThanFolder(const std::string& folder) {
  return std::filesystem::is_directory(folder) ? "" : "there is no such folder";
}

constexpr int kLargest = std::numeric_limits<std::int16_t>::max();

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

// The format and the rows.
void DescribeRequest(CLI::App& command, PrintArguments& arguments) {
  AddOptionsFile(command);
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  command
      .add_option("--data", arguments.data,
                  "Statement that selects the rows to print, the rows of a bill together")
      ->required()
      ->type_name("SQL");
  command
      .add_option("--format", arguments.format,
                  "Name of the format (without it: the selected format of the bill type)")
      ->type_name("NAME");
  command.add_flag("--only-variant", arguments.onlyVariant,
                   "The sheets are pre-printed: draw only the variable values");
  command
      .add_option("--blank-rows", arguments.blankRows,
                  "Rows that earlier bills have used up on the first sheet")
      ->check(CLI::Range(0, kLargest))
      ->type_name("N");

  command.add_flag("--by-area", arguments.byArea,
                   "Begin a new page at each stock area (FStockArea) instead of each bill");
}

void DescribePrint(CLI::App& command, PrintArguments& arguments) {
  DescribeRequest(command, arguments);
  CLI::Option_group* output = command.add_option_group(
      "Output", "Where the document goes (without it: to the printer that the format chooses)");
  output->add_option("--printer", arguments.printer, "A printer by its name")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  // A file of options that somebody sent must not overwrite anything.
  output->add_option("--pdf", arguments.pdf, "A PDF file (-: standard output)")
      ->configurable(false)
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  output->add_option("--png", arguments.png, "A folder for one PNG file per page")
      ->configurable(false)
      ->check(RefuseEmpty)
      ->check(RefuseStandardOutput)
      ->type_name("FOLDER");
  output->add_option("--html", arguments.html, "A self-contained HTML file (-: standard output)")
      ->configurable(false)
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  output->require_option(0, 1);
  command
      .add_option_function<std::string>(
          "--explain",
          [&arguments](const std::string& file) {
            arguments.explain = file.empty() ? "/dev/stderr" : StandardOutputForDash(file);
          },
          "Tell what became of each item of the format, and why, into a file, as JSON if its name "
          "ends in .json (without FILE: standard error)")
      ->expected(0, 1)
      ->configurable(false)
      ->type_name("FILE");

  command
      .add_option("--log", arguments.log,
                  "Add a line about the print to this file (without it: to the file that "
                  "QBTDPRINTER_LOG_FILE names, if it does)")
      ->configurable(false)
      ->check(RefuseEmpty)
      ->type_name("FILE");

  command.footer(std::string(kPrintExamples) + "\n" + kExitStatusText);
}

void DescribeCheck(CLI::App& command, CheckArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  CLI::Option* type =
      command.add_option("--type", arguments.billType, "Bill type number (without it: all)")
          ->check(CLI::Range(-kLargest - 1, kLargest))
          ->type_name("N");
  command.add_option("--format", arguments.format, "Name of the format (without it: all)")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command
      .add_option("--data", arguments.data,
                  "Statement that selects rows of the bill type, to be checked with the formats")
      ->check(RefuseEmpty)
      ->needs(type)
      ->type_name("SQL");
  command
      .add_option("--printer", arguments.printer,
                  "The printer that the formats go to (without it: the one that each chooses)")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command.add_flag("--by-area", arguments.byArea,
                   "The formats are printed by stock area instead of by bill");
  command.add_flag("--json", arguments.json, "Write the findings as JSON");
  command.footer(std::string(kCheckExamples) + "\n" + kCheckExitStatusText);
}

void DescribeRecord(CLI::App& command, RecordArguments& arguments) {
  DescribeRequest(command, arguments.print);
  command.add_flag("--mask", arguments.mask,
                   "Write other values of the same length and kind in the place of the data");
  command.add_option("--out", arguments.out, "A file (without it: standard output)")
      ->configurable(false)
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  command.footer(std::string(kRecordExamples) + "\n" + kRecordExitStatusText);
}

void DescribeSamples(CLI::App& command, std::string& samples) {
  command
      .add_option("--samples", samples,
                  "Folder of the sample's SQL files (without it: where they were installed)")
      ->check(RefuseEmpty)
      ->type_name("FOLDER");
}

void DescribeDemo(CLI::App& command, DemoArguments& arguments) {
  command.add_option("--out", arguments.out, "Folder for the database and the printed bills")
      ->capture_default_str()
      ->check(RefuseEmpty)
      ->type_name("FOLDER");
  DescribeSamples(command, arguments.samples);
  command
      .add_option("--printer", arguments.printer,
                  "Printer to send one of the bills to, too (without it: files only)")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command.footer(kExitStatusText);
}

void DescribeSampleSql(CLI::App& command, SampleSqlArguments& arguments) {
  command.add_option("--engine", arguments.engine, "sqlite, postgresql, mariadb or sqlserver")
      ->required()
      ->check(CLI::IsMember({"sqlite", "postgresql", "mariadb", "sqlserver"}))
      ->type_name("NAME");
  command.add_flag("--only-schema", arguments.onlySchema,
                   "Only the tables that the component uses, and their indexes, without rows");
  DescribeSamples(command, arguments.samples);
  command.add_option("--out", arguments.out, "A file (without it: standard output)")
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  command.footer(kSampleSqlExamples);
}

void DescribeSettings(CLI::App& command, SettingsArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  command.footer(kDialogExitStatusText);
}

void DescribeDesign(CLI::App& command, DesignArguments& arguments) {
  CLI::Option* database =
      command
          .add_option("--db", arguments.database,
                      "Connection text of the database: sqlite:PATH, or Driver=…;… (without it: "
                      "asked for in a window)")
          ->check(RefuseEmpty)
          ->type_name("TEXT");
  CLI::Option* billType =
      command.add_option("--type", arguments.billType, "Bill type number of the format")
          ->check(CLI::Range(-kLargest - 1, kLargest))
          ->type_name("N");
  database->needs(billType);
  command
      .add_option("--format", arguments.format,
                  "Name of the format (without it: the selected format of the bill type)")
      ->needs(database)
      ->type_name("NAME");
  command
      .add_option("--data", arguments.data,
                  "Statement that selects rows to show: the first bill of them is drawn")
      ->needs(database)
      ->type_name("SQL");
  command.footer(kDialogExitStatusText);
}

void DescribeAreaPrinters(CLI::App& command, AreaPrintersArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  command.footer(kDialogExitStatusText);
}

void DescribeRegistration(CLI::App& command, std::string& module) {
  command
      .add_option("--module", module,
                  "File of the module QbTdPrinter (without it: where it was installed)")
      ->check(RefuseEmpty)
      ->type_name("FILE");
  command.footer(kRegistrationExitStatusText);
}

constexpr const char* kFormatFileExamples =
    "Examples:\n"
    "  tdprint export-format --db sqlite:shop.db --type 21 --format 销售订货单A4 --out a4.json\n"
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

void DescribeExportFormat(CLI::App& command, ExportFormatArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  command
      .add_option("--format", arguments.format,
                  "Name of the format (without it: the selected format of the bill type)")
      ->type_name("NAME");
  command.add_option("--out", arguments.out, "A file (without it: standard output)")
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  command.add_flag("--with-pictures", arguments.withPictures,
                   "Put the picture files of the items into the file");
  command.footer(std::string(kFormatFileExamples) + "\n" + kFormatFileExitStatusText);
}

void DescribeImportFormat(CLI::App& command, ImportFormatArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  command
      .add_option("--type", arguments.billType,
                  "Bill type number for the format (without it: the file's)")
      ->check(CLI::Range(-kLargest - 1, kLargest))
      ->type_name("N");
  command.add_option("--format", arguments.format, "Name for the format (without it: the file's)")
      ->check(RefuseEmpty)
      ->type_name("NAME");
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

void DescribeDiffFormat(CLI::App& command, DiffFormatArguments& arguments) {
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

void DescribeLog(CLI::App& command, LogArguments& arguments) {
  command.add_option("--bill", arguments.bill, "Number of a bill")
      ->check(RefuseEmpty)
      ->type_name("NO");
  command.add_option("--type", arguments.billType, "Bill type number")
      ->check(CLI::Range(-kLargest - 1, kLargest))
      ->type_name("N");
  command.add_option("--format", arguments.format, "Name of a format")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command.add_option("--printer", arguments.printer, "Name of a printer")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command.add_option("--user", arguments.user, "Who printed")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command
      .add_option("--since", arguments.since,
                  "First day, minute or second: 2024-03-01 or \"2024-03-01 09:30\"")
      ->check(RefuseOtherThanTime)
      ->type_name("TIME");
  command
      .add_option("--until", arguments.until, "Last day, minute or second, with the whole of it")
      ->check(RefuseOtherThanTime)
      ->type_name("TIME");
  command.add_flag("--json", arguments.asJson, "The lines as they stand in the log");
  command.add_option("FILE", arguments.files,
                     "Logs (without it: the one that QBTDPRINTER_LOG_FILE names)");
  command.footer(std::string(kLogExamples) + "\n" + kLogExitStatusText);
}

}  // namespace

Command ParseArguments(int argc, const char* const* argv) {
  CLI::App app(
      "Prints bills through the overlay formats that a database holds, and sets the formats up.",
      "tdprint");
  app.require_subcommand(1);
  app.set_version_flag("--version", "tdprint " TDPRINT_VERSION);
  app.footer(std::string(kExamples) + "\n" + kExitStatusText);

  PrintArguments print;
  CLI::App* printCommand =
      app.add_subcommand("print", "Print bills without showing them on the screen");
  DescribePrint(*printCommand, print);

  PrintArguments preview;
  preview.preview = true;
  CLI::App* previewCommand =
      app.add_subcommand("preview", "Show bills in a window, where they can be printed");
  DescribePrint(*previewCommand, preview);

  CheckArguments check;
  CLI::App* checkCommand =
      app.add_subcommand("check", "Look for mistakes in formats, without printing anything");
  DescribeCheck(*checkCommand, check);

  DemoArguments demo;
  DescribeDemo(*app.add_subcommand("demo", "Make a sample database and print all its bills"), demo);

  SettingsArguments settings;
  CLI::App* settingsCommand =
      app.add_subcommand("settings", "Choose and fine-tune the format of a bill type in a window");
  DescribeSettings(*settingsCommand, settings);

  DesignArguments design;
  CLI::App* designCommand =
      app.add_subcommand("design", "Lay formats out in a window, over a scan of the form");
  DescribeDesign(*designCommand, design);

  AreaPrintersArguments areaPrinters;
  CLI::App* areaPrintersCommand = app.add_subcommand(
      "area-printers", "Assign printers to the stock areas of formats in a window");
  DescribeAreaPrinters(*areaPrintersCommand, areaPrinters);

  SampleSqlArguments sampleSql;
  CLI::App* sampleSqlCommand = app.add_subcommand(
      "sample-sql", "Write the sample database as a script for a database engine");
  DescribeSampleSql(*sampleSqlCommand, sampleSql);

  RecordArguments record;
  CLI::App* recordCommand =
      app.add_subcommand("record", "Write down what a print reads, as a scenario for td_replay");
  DescribeRecord(*recordCommand, record);

  RegisterArguments registration;
  CLI::App* registerCommand =
      app.add_subcommand("register", "Make the component's classes known to programs of the user");
  DescribeRegistration(*registerCommand, registration.module);

  UnregisterArguments unregistration;
  CLI::App* unregisterCommand =
      app.add_subcommand("unregister", "Remove what register has written");
  DescribeRegistration(*unregisterCommand, unregistration.module);

  ExportFormatArguments exportFormat;
  CLI::App* exportFormatCommand =
      app.add_subcommand("export-format", "Write a format of a database into a file");
  DescribeExportFormat(*exportFormatCommand, exportFormat);

  ImportFormatArguments importFormat;
  CLI::App* importFormatCommand =
      app.add_subcommand("import-format", "Take a format from a file into a database");
  DescribeImportFormat(*importFormatCommand, importFormat);

  DiffFormatArguments diffFormat;
  CLI::App* diffFormatCommand =
      app.add_subcommand("diff-format", "Tell two files of formats apart, in words");
  DescribeDiffFormat(*diffFormatCommand, diffFormat);

  LogArguments log;
  CLI::App* logCommand =
      app.add_subcommand("log", "Look up in a print log who printed what, when and where");
  DescribeLog(*logCommand, log);

  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool askedForHelp = app.exit(error) == static_cast<int>(CLI::ExitCodes::Success);
    return askedForHelp ? ExitStatus::kPrinted : ExitStatus::kWrongUsage;
  }
  if (printCommand->parsed()) return print;
  if (previewCommand->parsed()) return preview;
  if (checkCommand->parsed()) return check;
  if (settingsCommand->parsed()) return settings;
  if (designCommand->parsed()) return design;
  if (areaPrintersCommand->parsed()) return areaPrinters;
  if (sampleSqlCommand->parsed()) return sampleSql;
  if (recordCommand->parsed()) return record;
  if (registerCommand->parsed()) return registration;
  if (unregisterCommand->parsed()) return unregistration;
  if (exportFormatCommand->parsed()) return exportFormat;
  if (importFormatCommand->parsed()) return importFormat;
  if (diffFormatCommand->parsed()) return diffFormat;
  if (logCommand->parsed()) return log;
  return demo;
}

}  // namespace td
