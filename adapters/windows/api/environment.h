// The environment of the process.
#pragma once

#include <string>

namespace td {

// What a variable holds now, whoever has set it; empty where there is none. The run-time library
// has a copy of its own, made when the process began, and from the text of the old code page where
// the program that loads the component has no wide arguments.
[[nodiscard]] std::wstring EnvironmentText(const wchar_t* variable);

}  // namespace td
