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

bool IsRegistered(const std::filesystem::path& /*module*/) {
  return std::filesystem::exists(RegistrationFile());
}

void TellRemoved(bool wasRegistered) {
  std::cout << (wasRegistered ? "Removed " : "Nothing was registered in ")
            << RegistrationFile().string() << "\n";
}

}  // namespace td
