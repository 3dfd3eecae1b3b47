#include "check_command.h"

#include <iostream>

#include "checker/checker.h"
#include "checker/desktop_machine.h"
#include "checker/report.h"
#include "complaint.h"
#include "component_folder.h"
#include "desktop/desktop_platform.h"
#include "explanation/language.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

constexpr const char* kNotChecked = "not checked";

// Waits for other users of the database as the component itself does: by trying again.
template <typename Operation>
auto WaitingForLocks(Operation operation) {
  for (;;) {
    try {
      return operation();
    } catch (const Failure& failure) {
      if (!IsLockConflict(failure)) throw;
    }
  }
}

ExitStatus StatusOf(const std::vector<checker::Finding>& findings) {
  switch (checker::WorstOf(findings)) {
    case checker::Severity::kError:
      return ExitStatus::kErrorsFound;
    case checker::Severity::kWarning:
      return ExitStatus::kWarningsFound;
    case checker::Severity::kHint:
      break;
  }
  return ExitStatus::kNothingFound;
}

ExitStatus Check(const CheckArguments& arguments) {
  const ComponentFolder folder;
  DesktopOptions desktopOptions;
  desktopOptions.messages = MessageMode::kStandardError;
  desktopOptions.componentFolder = folder.Path();
  DesktopPlatform desktop(desktopOptions);
  if (!arguments.printer.empty() && !desktop.HasPrinter(arguments.printer)) {
    Complain(kNotChecked, "there is no printer named " + arguments.printer);
    return ExitStatus::kNotChecked;
  }
  Database& database = desktop.Get().database;
  WaitingForLocks([&] { return database.Connect(arguments.database) != nullptr; });

  const checker::DesktopMachine machine(desktop.Get());
  checker::CheckOptions options{.byArea = arguments.byArea, .printer = arguments.printer};
  if (!arguments.data.empty()) {
    options.rows =
        WaitingForLocks([&] { return desktop.OpenReadOnly(arguments.database, arguments.data); });
  }
  const checker::CheckResult result = checker::CheckDatabase(
      database, arguments.database, {arguments.billType, arguments.format}, machine, options);
  const Language language = LanguageOfLocale();
  std::cout << (arguments.json ? checker::ReportJson(result, language)
                               : checker::ReportText(result, language))
            << std::flush;
  if (!std::cout) {
    Complain(kNotChecked, "standard output can't be written");
    return ExitStatus::kNotChecked;
  }
  return StatusOf(result.findings);
}

}  // namespace

ExitStatus CheckFormats(const CheckArguments& arguments) {
  try {
    return Check(arguments);
  } catch (const Failure& failure) {
    Complain(kNotChecked, failure.Description());
    return ExitStatus::kNotChecked;
  }
}

}  // namespace td
