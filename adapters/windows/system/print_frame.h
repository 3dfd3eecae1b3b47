// A print window of Windows itself.
#pragma once

#include "print_windows/shown_frame.h"
#include "windows/preview/preview_window.h"
#include "windows/system/desktop_host.h"

namespace td {

class NativePrintFrame : public ShownFrame<DesktopHost, PreviewWindow> {
 public:
  using ShownFrame::ShownFrame;

 protected:
  [[nodiscard]] std::optional<Failure> WhyHidden() const override;
};

}  // namespace td
