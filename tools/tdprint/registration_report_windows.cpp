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
            << (IsIn(HKEY_LOCAL_MACHINE, module) ? "all users of this machine" : "this user")
            << ", and " << (sizeof(void*) == 8 ? "64" : "32") << "-bit programs\n";
}

bool IsRegistered(const std::filesystem::path& /*module*/) {
  return ModuleIn(HKEY_LOCAL_MACHINE) || ModuleIn(HKEY_CURRENT_USER);
}

void TellRemoved(bool wasRegistered) {
  std::cout << (wasRegistered ? "Removed the classes from the registry\n"
                              : "Nothing was registered\n");
}

}  // namespace td
