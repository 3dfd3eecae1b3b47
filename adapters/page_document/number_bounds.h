// Numbers that a document refuses, so that no output meets them.
#pragma once

#include <cmath>
#include <string>

#include "page_document/commands.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td {

// Fails with kInvalidCall if `number` isn't finite, and with kOverflow outside the bounds; `name`
// says in Chinese what it is.
inline void RequireInRange(const char* name, double number, double least, double most) {
  if (!std::isfinite(number)) {
    throw Failure(kInvalidCall, std::string(name) + "不是有效的数");
  }
  if (number < least || number > most) {
    throw Failure(kOverflow, std::string(name) + "超出允许的范围：" + ToText(number));
  }
}

// The same for a place or a length on a page.
inline void RequireCoordinate(const char* name, double number) {
  RequireInRange(name, number, -kMaxCoordinate, kMaxCoordinate);
}

}  // namespace td
