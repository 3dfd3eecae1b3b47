// What tdprint tells of the registration.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace td {

// What the list of commands says of `register`.
extern const char* const kRegisterHelp;

// On standard output: where the classes of the module stand now.
void TellRegistered(const std::filesystem::path& module);

// What is registered now: one line for each place.
[[nodiscard]] std::vector<std::string> Registrations();

// On standard output, behind a removal: what has become of these.
void TellRemoved(const std::vector<std::string>& before);

}  // namespace td
