// Lines for those who look after the machine.
#pragma once

#include <string_view>

namespace td {

// Writes a text of UTF-8 and the end of a line to standard error. What can't be written is lost.
void WriteErrorLine(std::string_view text);

}  // namespace td
