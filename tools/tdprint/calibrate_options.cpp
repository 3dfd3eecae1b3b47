#include "calibration_input.h"
#include "command_options.h"
#include "common_options.h"

namespace td {
namespace {

constexpr const char* kCalibrateExamples =
    "The test page goes to the printer first. Measure on it, with a ruler, how far the middle of "
    "three\ncrosses is from the edges of the paper, and say so:\n"
    "  --top-left X,Y     from the left edge, and from the top edge\n"
    "  --top-right X,Y    from the right edge, and from the top edge\n"
    "  --bottom-left X,Y  from the left edge, and from the bottom edge\n\n"
    "Examples:\n"
    "  tdprint calibrate --printer 针式打印机 --paper 241x140\n"
    "  tdprint calibrate --printer 针式打印机 --paper 241x140 \\\n"
    "      --top-left 22.3,20.1 --top-right 17.9,20.4 --bottom-left 22.2,19.7\n"
    "  tdprint calibrate --printer 针式打印机 --paper 241x140 --check\n"
    "  tdprint calibrate --printer 针式打印机 --db sqlite:shop.db --type 21 --form 销售订单三联\n";

constexpr const char* kCalibrateExitStatusText =
    "Exit status:\n"
    "  0  the page was printed, or the calibration was kept, removed or listed\n"
    "  1  it was not: the printer, the file or the distances are no good, as standard error tells\n"
    "  2  wrong usage\n";

std::string RefuseOtherThanSheet(const std::string& text) {
  const auto sheet = SheetNamed(text);
  if (!sheet) return text + " is no sheet such as A4 or 241x140 (millimetres)";
  return CanCalibrate(*sheet) ? "" : "sides of 25 to 3000 mm can be calibrated";
}

std::string RefuseOtherThanDistances(const std::string& text) {
  return ParseDistances(text) ? "" : text + " is no pair of distances such as 22.3,20.1";
}

void DescribeDistances(CLI::App& command, const char* name, std::string& distances,
                       const char* help) {
  command.add_option(name, distances, help)->check(RefuseOtherThanDistances)->type_name("X,Y");
}

}  // namespace

void Describe(CLI::App& command, CalibrateArguments& arguments) {
  command.add_option("--printer", arguments.printer, "The printer by its name")
      ->check(RefuseEmpty)
      ->type_name("NAME");
  command
      .add_option(
          "--paper", arguments.paper,
          "The sheet as it is fed: A4 or another name of the page setup, or WIDTHxHEIGHT in "
          "millimetres")
      ->check(RefuseOtherThanSheet)
      ->type_name("SHEET");
  DescribeDistances(command, "--top-left", arguments.topLeft,
                    "Measured: the top left cross from the left and from the top edge, mm");
  DescribeDistances(command, "--top-right", arguments.topRight,
                    "Measured: the top right cross from the right and from the top edge, mm");
  DescribeDistances(command, "--bottom-left", arguments.bottomLeft,
                    "Measured: the bottom left cross from the left and from the bottom edge, mm");
  command.add_flag("--check", arguments.check,
                   "Print the test page with the calibration, to see that it is right");
  command
      .add_option("--form", arguments.form,
                  "Print the frames of this format's values with the calibration, to be held "
                  "against the pre-printed form")
      ->check(RefuseEmpty)
      ->type_name("FORMAT");
  command
      .add_option("--db", arguments.database,
                  "Connection text of the format's database: sqlite:PATH, or Driver=…;…")
      ->type_name("TEXT");
  command.add_option("--type", arguments.billType, "Bill type number of the format")
      ->check(CLI::Range(-kLargest - 1, kLargest))
      ->type_name("N");
  command
      .add_option("--pdf", arguments.pdf,
                  "Put the page, as it is drawn, into a file in the printer's place (-: standard "
                  "output)")
      ->check(RefuseEmpty)
      ->transform(StandardOutputForDash)
      ->type_name("FILE");
  command.add_flag("--list", arguments.list, "List the calibrations of this machine");
  command.add_flag("--remove", arguments.remove,
                   "Forget the calibration of the printer and the sheet");
  command.add_flag("--all-users", arguments.allUsers,
                   "Keep it, or remove it, for all users of this machine instead of for this one");
  command.footer(std::string(kCalibrateExamples) + "\n" + kCalibrateExitStatusText);
}

}  // namespace td
