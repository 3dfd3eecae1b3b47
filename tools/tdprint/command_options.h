// The options of each command, with the texts of its help.
#pragma once

#include "arguments.h"

namespace CLI {
class App;
}

namespace td {

// Adds a command's options. They write into `arguments`, which lives until the line is parsed.
void Describe(CLI::App& command, PrintArguments& arguments);
void Describe(CLI::App& command, CheckArguments& arguments);
void Describe(CLI::App& command, RecordArguments& arguments);
void Describe(CLI::App& command, SettingsArguments& arguments);
void Describe(CLI::App& command, DesignArguments& arguments);
void Describe(CLI::App& command, AreaPrintersArguments& arguments);
void Describe(CLI::App& command, ExportFormatArguments& arguments);
void Describe(CLI::App& command, ImportFormatArguments& arguments);
void Describe(CLI::App& command, DiffFormatArguments& arguments);
void Describe(CLI::App& command, DemoArguments& arguments);
void Describe(CLI::App& command, SampleSqlArguments& arguments);
void Describe(CLI::App& command, RegisterArguments& arguments);
void Describe(CLI::App& command, UnregisterArguments& arguments);
void Describe(CLI::App& command, LogArguments& arguments);
void Describe(CLI::App& command, CalibrateArguments& arguments);

}  // namespace td
