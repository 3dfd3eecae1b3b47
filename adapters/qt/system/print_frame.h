// A print window on Qt.
#pragma once

#include "print_windows/shown_frame.h"
#include "qt/preview/preview_window.h"
#include "qt/system/desktop_host.h"

namespace td {

// Needs EnsureApplication().
class QtPrintFrame : public ShownFrame<DesktopHost, PreviewWindow> {
 public:
  using ShownFrame::ShownFrame;

 protected:
  [[nodiscard]] std::optional<Failure> WhyHidden() const override;
};

}  // namespace td
