// How the system itself hands the description of a failed direct call to the caller, for languages
// that bind early and don't know TdErrorSource: on Windows by ISupportErrorInfo and the error
// object of the thread. Elsewhere there is no such way.
#pragma once

#include <string>

#include "interface/binary_interface.h"

namespace td {

// The interface by which an object says so, as a part of that object.
struct SystemErrorsPart {
  // `whole` is the object that this is a part of: references are counted there.
  explicit SystemErrorsPart(TdObject* whole);

  // Whether the interface has this identifier.
  [[nodiscard]] static bool Is(const TdGuid& id);

  const struct SystemErrorsTable* table;
  TdObject* whole;
};

// Leaves the description of a failed call for its caller, on this thread. An empty one takes back
// what an earlier call has left.
void PutSystemError(const std::string& description) noexcept;

}  // namespace td
