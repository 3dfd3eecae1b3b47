// The one-line errors of tdprint.
#pragma once

#include <string>

namespace td {

// Writes "tdprint: <what>: <why>" as one line on standard error.
void Complain(const std::string& what, const std::string& why);

}  // namespace td
