#include "dialog_commands.h"

#include "complaint.h"
#include "desktop/desktop_platform.h"
#include "platform/failure.h"
#include "service/print_context.h"
#include "service/td_set.h"
#include "windows/frm_area_print_set.h"

namespace td {
namespace {

bool CanBeOpened(const std::string& database, Platform& platform) {
  try {
    platform.database.Connect(database);
    return true;
  } catch (const Failure& failure) {
    ComplainInABox("the database can't be opened", failure.Description());
    return false;
  }
}

template <class Action>
ExitStatus ShowOn(const std::string& database, Action show) {
  try {
    DesktopPlatform desktop;
    if (!CanBeOpened(database, desktop.Get())) return ExitStatus::kNotPrinted;
    show(desktop.Get());
    return ExitStatus::kPrinted;
  } catch (const Failure& failure) {
    ComplainInABox("the window can't be shown", failure.Description());
    return ExitStatus::kNotPrinted;
  }
}

}  // namespace

ExitStatus ShowSettings(const SettingsArguments& arguments) {
  return ShowOn(arguments.database, [&](Platform& platform) {
    TDSet(platform).ShowSettings(arguments.database, arguments.billType);
  });
}

ExitStatus ShowAreaPrinters(const AreaPrintersArguments& arguments) {
  return ShowOn(arguments.database, [&](Platform& platform) {
    Context().New_PromptString = arguments.database;
    frmAreaPrintSet(platform).ShowModal();
  });
}

}  // namespace td
