#include <fcntl.h>
#include <unistd.h>

#include "arguments.h"
#include "calibrate_command.h"
#include "check_command.h"
#include "demo_command.h"
#include "design_command.h"
#include "dialog_commands.h"
#include "format_commands.h"
#include "log_command.h"
#include "print_command.h"
#include "record_command.h"
#include "registration_commands.h"
#include "sample_sql_command.h"

namespace {

struct Runner {
  td::ExitStatus operator()(const td::PrintArguments& arguments) const {
    return td::PrintBills(arguments);
  }
  td::ExitStatus operator()(const td::CheckArguments& arguments) const {
    return td::CheckFormats(arguments);
  }
  td::ExitStatus operator()(const td::DemoArguments& arguments) const {
    return td::MakeDemo(arguments);
  }
  td::ExitStatus operator()(const td::SettingsArguments& arguments) const {
    return td::ShowSettings(arguments);
  }
  td::ExitStatus operator()(const td::DesignArguments& arguments) const {
    return td::DesignFormat(arguments);
  }
  td::ExitStatus operator()(const td::AreaPrintersArguments& arguments) const {
    return td::ShowAreaPrinters(arguments);
  }
  td::ExitStatus operator()(const td::SampleSqlArguments& arguments) const {
    return td::WriteSampleSql(arguments);
  }
  td::ExitStatus operator()(const td::RecordArguments& arguments) const {
    return td::RecordScenario(arguments);
  }
  td::ExitStatus operator()(const td::RegisterArguments& arguments) const {
    return td::RegisterModule(arguments);
  }
  td::ExitStatus operator()(const td::UnregisterArguments& arguments) const {
    return td::UnregisterModule(arguments);
  }
  td::ExitStatus operator()(const td::ExportFormatArguments& arguments) const {
    return td::ExportFormat(arguments);
  }
  td::ExitStatus operator()(const td::ImportFormatArguments& arguments) const {
    return td::ImportFormat(arguments);
  }
  td::ExitStatus operator()(const td::DiffFormatArguments& arguments) const {
    return td::DiffFormats(arguments);
  }
  td::ExitStatus operator()(const td::LogArguments& arguments) const {
    return td::ShowLog(arguments);
  }
  td::ExitStatus operator()(const td::CalibrateArguments& arguments) const {
    return td::CalibratePrinter(arguments);
  }
  td::ExitStatus operator()(td::ExitStatus status) const { return status; }
};

// What is closed of the standard input and outputs is opened the wrong way round: nothing else,
// such as the database, gets its number, and who reads or writes there is told that it can't be.
void KeepStandardDescriptors() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(number, F_GETFD) >= 0) continue;
    if (open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY) < 0) return;
  }
}

}  // namespace

int main(int argc, char** argv) {
  KeepStandardDescriptors();
  return static_cast<int>(std::visit(Runner{}, td::ParseArguments(argc, argv)));
}
