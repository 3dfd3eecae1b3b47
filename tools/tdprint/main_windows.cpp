#include <cstddef>
#include <string>
#include <vector>

#include "arguments.h"
#include "run_command.h"
#include "standard_streams.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <shellapi.h>

namespace {

// The line as it was given: what the run-time library hands over has file names in the place of
// each *, which statements are full of.
std::vector<std::string> GivenArguments() {
  int count = 0;
  wchar_t** const given = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 0; given != nullptr && i < count; ++i) arguments.push_back(td::FromWide(given[i]));
  LocalFree(static_cast<HLOCAL>(given));
  return arguments;
}

}  // namespace

int wmain() {
  td::PrepareStandardStreams();
  const std::vector<std::string> given = GivenArguments();
  std::vector<const char*> arguments;
  for (const std::string& argument : given) arguments.push_back(argument.c_str());
  return static_cast<int>(
      td::RunCommand(td::ParseArguments(static_cast<int>(arguments.size()), arguments.data())));
}
