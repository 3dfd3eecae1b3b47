#include <iostream>

#include "client/registration.h"
#include "registration_report.h"

namespace td {

const char* const kRegisterHelp = "Make the component's classes known to programs of the user";

void TellRegistered(const std::filesystem::path& /*module*/) {
  std::cout << "Written to " << RegistrationFile().string() << ":\n";
  for (const RegisteredClass& one : ReadRegistration()) {
    std::cout << "  " << one.name << "  " << TextOfGuid(one.id) << "  " << one.module.string()
              << "\n";
  }
}

std::vector<std::string> Registrations() {
  const std::filesystem::path file = RegistrationFile();
  if (!std::filesystem::exists(file)) return {};
  return {file.string()};
}

void TellRemoved(const std::vector<std::string>& before) {
  std::cout << (before.empty() ? "Nothing was registered in " : "Removed ")
            << RegistrationFile().string() << "\n";
}

}  // namespace td
