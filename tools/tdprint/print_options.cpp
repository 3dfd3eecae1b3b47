#include "command_options.h"
#include "common_options.h"
#include "files/output_file.h"
#include "options_file.h"

namespace td {
namespace {

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

std::string RefuseStandardOutput(const std::string& folder) {
  return folder == "-" ? "standard output is no folder; --pdf - and --html - go there" : "";
}

// The format and the rows.
void DescribeRequest(CLI::App& command, PrintArguments& arguments) {
  AddOptionsFile(command);
  DescribeDatabase(command, arguments.database);
  DescribeBillType(command, arguments.billType);
  DescribeData(command, arguments.data,
               "Statement that selects the rows to print, the rows of a bill together")
      ->required();
  DescribeFormat(command, arguments.format);
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

}  // namespace

void Describe(CLI::App& command, PrintArguments& arguments) {
  DescribeRequest(command, arguments);
  CLI::Option_group* output = command.add_option_group(
      "Output", "Where the document goes (without it: to the printer that the format chooses)");
  DescribePrinter(*output, arguments.printer, "A printer by its name");
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
            arguments.explain = file.empty() ? kStandardError : StandardOutputForDash(file);
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

void Describe(CLI::App& command, CheckArguments& arguments) {
  DescribeDatabase(command, arguments.database);
  CLI::Option* type =
      DescribeBillType(command, arguments.billType, "Bill type number (without it: all)");
  DescribeFormat(command, arguments.format, "Name of the format (without it: all)");
  DescribeData(command, arguments.data,
               "Statement that selects rows of the bill type, to be checked with the formats")
      ->check(RefuseEmpty)
      ->needs(type);
  DescribePrinter(command, arguments.printer,
                  "The printer that the formats go to (without it: the one that each chooses)");
  command.add_flag("--by-area", arguments.byArea,
                   "The formats are printed by stock area instead of by bill");
  command.add_flag("--json", arguments.json, "Write the findings as JSON");
  command.footer(std::string(kCheckExamples) + "\n" + kCheckExitStatusText);
}

void Describe(CLI::App& command, RecordArguments& arguments) {
  DescribeRequest(command, arguments.print);
  command.add_flag("--mask", arguments.mask,
                   "Write other values of the same length and kind in the place of the data");
  DescribeOut(command, arguments.out)->configurable(false);
  command.footer(std::string(kRecordExamples) + "\n" + kRecordExitStatusText);
}

}  // namespace td
