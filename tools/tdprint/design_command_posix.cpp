#include "complaint.h"
#include "component_folder.h"
#include "design_command.h"
#include "designer/window/designer.h"
#include "platform/failure.h"

namespace td {

const char* const kDesignHelp = "Lay formats out in a window, over a scan of the form";

// A user who gives up the question for the database has seen a window, too.
ExitStatus DesignFormat(const DesignArguments& arguments) {
  try {
    const ComponentFolder folder;
    const bool wasShown = designer::ShowDesigner({.connection = arguments.database,
                                                  .billType = arguments.billType,
                                                  .format = arguments.format,
                                                  .data = arguments.data,
                                                  .componentFolder = folder.Path()});
    return wasShown || arguments.database.empty() ? ExitStatus::kPrinted : ExitStatus::kNotPrinted;
  } catch (const Failure& failure) {
    ComplainInABox("the designer can't be shown", failure.Description());
    return ExitStatus::kNotPrinted;
  }
}

}  // namespace td
