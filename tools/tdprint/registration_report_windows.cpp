#include <iostream>
#include <optional>
#include <string>

#include "client/client.h"
#include "client/registration.h"
#include "files/path_text.h"
#include "registration_report.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

namespace td {
namespace {

// The module of the first class as one part of the registry has it.
std::optional<std::wstring> ModuleIn(HKEY scope) {
  const std::wstring path =
      L"Software\\Classes\\CLSID\\" + ToWide(TextOfGuid(kTdPrinterClass)) + L"\\InprocServer32";
  std::wstring module(32'768, L'\0');
  auto bytes = static_cast<DWORD>(module.size() * sizeof(wchar_t));
  if (RegGetValueW(scope, path.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, module.data(), &bytes) !=
      ERROR_SUCCESS) {
    return std::nullopt;
  }
  return module.c_str();
}

constexpr const char* kAllUsers = "all users of this machine";
constexpr const char* kThisUser = "this user";

bool IsIn(HKEY scope, const std::filesystem::path& module) {
  const std::optional<std::wstring> registered = ModuleIn(scope);
  return registered &&
         CompareStringOrdinal(registered->c_str(), -1, module.c_str(), -1, TRUE) == CSTR_EQUAL;
}

}  // namespace

const char* const kRegisterHelp =
    "Make the component's classes known: to all users as administrator, else to this one";

void TellRegistered(const std::filesystem::path& module) {
  std::cout << "Registered " << TextOf(module) << " for "
            << (IsIn(HKEY_LOCAL_MACHINE, module) ? kAllUsers : kThisUser) << ", and "
            << (sizeof(void*) == 8 ? "64" : "32") << "-bit programs\n";
}

std::vector<std::string> Registrations() {
  std::vector<std::string> lines;
  for (const HKEY scope : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
    if (const auto module = ModuleIn(scope)) {
      lines.push_back(FromWide(*module) + " for " +
                      (scope == HKEY_LOCAL_MACHINE ? kAllUsers : kThisUser));
    }
  }
  return lines;
}

void TellRemoved(const std::vector<std::string>& before) {
  const std::vector<std::string> after = Registrations();
  if (after.size() < before.size()) std::cout << "Removed the classes from the registry\n";
  if (before.empty()) std::cout << "Nothing was registered\n";
  for (const std::string& line : after) std::cout << "Still registered: " << line << "\n";
}

}  // namespace td
