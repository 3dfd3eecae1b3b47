#include "run_command.h"

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

namespace td {
namespace {

struct Runner {
  ExitStatus operator()(const PrintArguments& arguments) const { return PrintBills(arguments); }
  ExitStatus operator()(const CheckArguments& arguments) const { return CheckFormats(arguments); }
  ExitStatus operator()(const DemoArguments& arguments) const { return MakeDemo(arguments); }
  ExitStatus operator()(const SettingsArguments& arguments) const {
    return ShowSettings(arguments);
  }
  ExitStatus operator()(const DesignArguments& arguments) const { return DesignFormat(arguments); }
  ExitStatus operator()(const AreaPrintersArguments& arguments) const {
    return ShowAreaPrinters(arguments);
  }
  ExitStatus operator()(const SampleSqlArguments& arguments) const {
    return WriteSampleSql(arguments);
  }
  ExitStatus operator()(const RecordArguments& arguments) const {
    return RecordScenario(arguments);
  }
  ExitStatus operator()(const RegisterArguments& arguments) const {
    return RegisterModule(arguments);
  }
  ExitStatus operator()(const UnregisterArguments& arguments) const {
    return UnregisterModule(arguments);
  }
  ExitStatus operator()(const ExportFormatArguments& arguments) const {
    return ExportFormat(arguments);
  }
  ExitStatus operator()(const ImportFormatArguments& arguments) const {
    return ImportFormat(arguments);
  }
  ExitStatus operator()(const DiffFormatArguments& arguments) const {
    return DiffFormats(arguments);
  }
  ExitStatus operator()(const LogArguments& arguments) const { return ShowLog(arguments); }
  ExitStatus operator()(const CalibrateArguments& arguments) const {
    return CalibratePrinter(arguments);
  }
  ExitStatus operator()(ExitStatus status) const { return status; }
};

}  // namespace

ExitStatus RunCommand(const Command& command) {
  return std::visit(Runner{}, command);
}

}  // namespace td
