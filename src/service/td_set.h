// The public class through which a caller opens the overlay settings.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"

namespace td {

class TDSet {
 public:
  // The platform is borrowed and must outlive this object.
  explicit TDSet(Platform& platform) : platform_(platform) {}

  // Shows the overlay settings of a bill type and returns when the dialog was closed. Fails on a
  // wrong thread, and while a print, a preview or a dialog runs, as Printer does.
  void ShowSettings(const std::string& PromptString, std::int16_t TranType);

 private:
  Platform& platform_;
};

}  // namespace td
