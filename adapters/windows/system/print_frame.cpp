#include "windows/system/print_frame.h"

#include "windows/system/message_boxes.h"

namespace td {

std::optional<Failure> NativePrintFrame::WhyHidden() const {
  if (HasVisibleDesktop()) return std::nullopt;
  return Failure(kInvalidCall, "没有可用的窗口，无法打开预览。");
}

}  // namespace td
