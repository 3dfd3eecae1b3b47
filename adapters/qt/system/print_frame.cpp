#include "qt/system/print_frame.h"

#include "qt/system/application.h"

namespace td {

std::optional<Failure> QtPrintFrame::WhyHidden() const {
  if (HasWindowSystem()) return std::nullopt;
  return Failure(kInvalidCall, "没有可用的显示，无法打开预览窗口。");
}

}  // namespace td
