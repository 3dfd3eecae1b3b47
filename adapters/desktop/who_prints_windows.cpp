#include "desktop/who_prints.h"
#include "windows/api/environment.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"
#include "windows/system/message_boxes.h"

// Behind the system's other headers.
#include <lmcons.h>

namespace td {

std::string UserName() {
  std::wstring name(UNLEN + 1, L'\0');
  auto length = static_cast<DWORD>(name.size());
  return GetUserNameW(name.data(), &length) == FALSE ? std::string() : FromWide(name.c_str());
}

std::string MachineName() {
  DWORD length = 0;
  GetComputerNameExW(ComputerNameDnsHostname, nullptr, &length);
  std::wstring name(length, L'\0');
  if (GetComputerNameExW(ComputerNameDnsHostname, name.data(), &length) == FALSE) return {};
  return FromWide(name.c_str());
}

std::string NameOfProgram() {
  return ProgramName();
}

std::filesystem::path LogFileOfEnvironment() {
  return EnvironmentText(L"QBTDPRINTER_LOG_FILE");
}

}  // namespace td
