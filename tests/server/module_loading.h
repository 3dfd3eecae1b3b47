// What the platforms load a module with, and where they keep a user's settings.
#pragma once

#include <string>

namespace td {

// Fails with a runtime_error.
[[nodiscard]] void* LoadModule(const std::string& path);
void UnloadModule(void* module);
// Null if the module exports no such function.
[[nodiscard]] void* ExportOf(void* module, const char* name);

// Of this process, for the module, too.
void PutVariable(const char* name, const std::string& value);

// The environment variable that names the folder above qbtdprinter/barcode.conf.
extern const char* const kSettingsVariable;

}  // namespace td
