// What tdprint tells of the registration.
#pragma once

#include <filesystem>

namespace td {

// What the list of commands says of `register`.
extern const char* const kRegisterHelp;

// On standard output: where the classes of the module stand now.
void TellRegistered(const std::filesystem::path& module);

// Whether the classes of the module are registered.
[[nodiscard]] bool IsRegistered(const std::filesystem::path& module);

// On standard output, behind a removal.
void TellRemoved(bool wasRegistered);

}  // namespace td
