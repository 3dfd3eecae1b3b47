// Names of what is not finished yet, and the end of what a killed process has left.
//
// Such a file or folder has a random name, made exclusively, so that no two processes can meet in
// it, not even where their numbers are equal. Its maker holds a lock on it, which goes with the
// process; what is an hour old and not locked belongs to nobody any more.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "files/descriptor.h"

namespace td {

// The prefix and sixteen random hexadecimal digits.
[[nodiscard]] std::string RandomName(std::string_view prefix);

// Marks an open file or folder as in use, as long as the descriptor is open.
void HoldInUse(const Descriptor& fileOrFolder);

// Hands the name of everything in the folder that has such a name, is the user's own, old and not
// in use to `remove`. Failures are passed over.
void SweepLeftovers(const Descriptor& folder, std::string_view prefix,
                    const std::function<void(const std::string& name)>& remove);

}  // namespace td
