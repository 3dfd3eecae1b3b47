// The interface by which an object tells of the errors of direct calls, as a part of that object.
#pragma once

#include "interface/binary_interface.h"

namespace td {

struct ErrorSourcePart : TdErrorSource {
  // `whole` is the object that this is a part of: references are counted there.
  explicit ErrorSourcePart(TdObject* whole);

  TdObject* whole;
};

}  // namespace td
