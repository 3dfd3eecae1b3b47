// Reads connection texts that are lists of KEY=VALUE.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/failure.h"

namespace td {

struct ConnectionEntry {
  std::string key;  // as written, without the blanks around it
  std::string value;
};

// The entries of a text in their order, parted by semicolons; empty ones are left out. A value may
// stand in single quotes, double quotes or braces, the closing one doubled inside it. Fails on text
// that is no such list. No description shows a value, so that a password can't leak.
[[nodiscard]] std::vector<ConnectionEntry> ReadConnectionEntries(std::string_view text);

// The failure of a connection text that can't be used, for a reason in Chinese.
[[nodiscard]] Failure WrongConnectionText(std::string_view reason);

}  // namespace td
