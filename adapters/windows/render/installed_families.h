// The families of outline fonts that the machine has.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace td {

struct InstalledFamily {
  std::wstring name;  // as the system spells it
  bool hasBold = false;
};

// Read once; sorted by name.
[[nodiscard]] const std::vector<InstalledFamily>& InstalledFamilies();

// Without regard to case; nothing if there is no such family. A family may have several names.
[[nodiscard]] const InstalledFamily* FindFamily(std::wstring_view name);

}  // namespace td
