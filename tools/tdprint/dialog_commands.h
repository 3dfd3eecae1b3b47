// The commands of tdprint that show one of the component's dialogs.
#pragma once

#include "arguments.h"

namespace td {

// Each returns when the user has closed the dialog.
ExitStatus ShowSettings(const SettingsArguments& arguments);
ExitStatus ShowAreaPrinters(const AreaPrintersArguments& arguments);

}  // namespace td
