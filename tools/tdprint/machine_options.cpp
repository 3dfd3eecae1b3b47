#include "command_options.h"
#include "common_options.h"
#include "print_log/log_time.h"

namespace td {
namespace {

constexpr const char* kSampleSqlExamples =
    "Examples:\n"
    "  tdprint sample-sql --engine postgresql | psql -v ON_ERROR_STOP=1 shop\n"
    "  tdprint sample-sql --engine sqlserver --only-schema --out tables.sql\n";

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

std::string RefuseOtherThanTime(const std::string& text) {
  return ParseTimeSpan(text) ? "" : text + " is no time such as 2024-03-01 or \"2024-03-01 09:30\"";
}

void DescribeSamples(CLI::App& command, std::string& samples) {
  command
      .add_option("--samples", samples,
                  "Folder of the sample's SQL files (without it: where they were installed)")
      ->check(RefuseEmpty)
      ->type_name("FOLDER");
}

void DescribeRegistration(CLI::App& command, std::string& module) {
  command
      .add_option("--module", module,
                  "File of the module QbTdPrinter (without it: where it was installed)")
      ->check(RefuseEmpty)
      ->type_name("FILE");
  command.footer(kRegistrationExitStatusText);
}

}  // namespace

void Describe(CLI::App& command, DemoArguments& arguments) {
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

void Describe(CLI::App& command, SampleSqlArguments& arguments) {
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

void Describe(CLI::App& command, LogArguments& arguments) {
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

void Describe(CLI::App& command, RegisterArguments& arguments) {
  DescribeRegistration(command, arguments.module);
}

void Describe(CLI::App& command, UnregisterArguments& arguments) {
  DescribeRegistration(command, arguments.module);
}

}  // namespace td
