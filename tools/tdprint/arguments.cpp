#include "arguments.h"

#include <CLI/CLI.hpp>
#include <functional>
#include <memory>
#include <vector>

#include "command_options.h"
#include "common_options.h"
#include "design_command.h"
#include "registration_report.h"

namespace td {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  tdprint demo --out /tmp/bills\n"
    "  tdprint print --db sqlite:/tmp/bills/sample.db --type 21 \\\n"
    "      --data \"select * from v_sales_order\" --pdf order.pdf\n"
    "  tdprint print --help\n";

// The commands of the program, each with what it was given.
class Commands {
 public:
  explicit Commands(CLI::App& app) : app_(app) {}

  template <class Arguments>
  void Add(const char* name, const char* help, Arguments defaults = {}) {
    const auto arguments = std::make_shared<Arguments>(std::move(defaults));
    CLI::App* const command = app_.add_subcommand(name, help);
    Describe(*command, *arguments);
    commands_.push_back({command, [arguments] { return Command(*arguments); }});
  }

  // The command that the line holds; there is exactly one.
  [[nodiscard]] Command Given() const {
    for (const auto& [command, arguments] : commands_) {
      if (command->parsed()) return arguments();
    }
    return ExitStatus::kWrongUsage;
  }

 private:
  struct Known {
    CLI::App* command;
    std::function<Command()> arguments;
  };

  CLI::App& app_;
  std::vector<Known> commands_;
};

void AddAll(Commands& commands) {
  commands.Add<PrintArguments>("print", "Print bills without showing them on the screen");
  PrintArguments preview;
  preview.preview = true;
  commands.Add("preview", "Show bills in a window, where they can be printed", preview);
  commands.Add<CheckArguments>("check", "Look for mistakes in formats, without printing anything");
  commands.Add<DemoArguments>("demo", "Make a sample database and print all its bills");
  commands.Add<SettingsArguments>("settings",
                                  "Choose and fine-tune the format of a bill type in a window");
  commands.Add<DesignArguments>("design", kDesignHelp);
  commands.Add<AreaPrintersArguments>("area-printers",
                                      "Assign printers to the stock areas of formats in a window");
  commands.Add<SampleSqlArguments>("sample-sql",
                                   "Write the sample database as a script for a database engine");
  commands.Add<RecordArguments>("record",
                                "Write down what a print reads, as a scenario for td_replay");
  commands.Add<RegisterArguments>("register", kRegisterHelp);
  commands.Add<UnregisterArguments>("unregister", "Remove what register has written");
  commands.Add<ExportFormatArguments>("export-format", "Write a format of a database into a file");
  commands.Add<ImportFormatArguments>("import-format", "Take a format from a file into a database");
  commands.Add<DiffFormatArguments>("diff-format", "Tell two files of formats apart, in words");
  commands.Add<LogArguments>("log", "Look up in a print log who printed what, when and where");
  commands.Add<CalibrateArguments>("calibrate",
                                   "Measure how a printer misses on a sheet, and make up for it");
}

}  // namespace

Command ParseArguments(int argc, const char* const* argv) {
  CLI::App app(
      "Prints bills through the overlay formats that a database holds, and sets the formats up.",
      "tdprint");
  app.require_subcommand(1);
  app.allow_windows_style_options(false);  // one command line for both platforms
  app.set_version_flag("--version", "tdprint " TDPRINT_VERSION);
  app.footer(std::string(kExamples) + "\n" + kExitStatusText);
  Commands commands(app);
  AddAll(commands);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    const bool askedForHelp = app.exit(error) == static_cast<int>(CLI::ExitCodes::Success);
    return askedForHelp ? ExitStatus::kPrinted : ExitStatus::kWrongUsage;
  }
  return commands.Given();
}

}  // namespace td
