#include "windows/system/print_frame.h"

#include <utility>

#include "platform/failure.h"

namespace td {

HiddenPrintFrame::HiddenPrintFrame(std::shared_ptr<const FrameSettings> settings,
                                   Messages& messages, const BarcodeSettings& barcodeSettings)
    : settings_(std::move(settings)),
      call_(*settings_),
      messages_(messages),
      host_(*settings_, messages),
      document_(host_, *settings_),
      barcode_(barcodeSettings, [this](const std::string& reason) { host_.Complain(reason); }) {}

void HiddenPrintFrame::ShowModal() {
  const Failure failure(kInvalidCall, "没有可用的窗口，无法打开预览。");
  messages_.ShowBox(failure.Description(), kInformationIcon);
  throw failure;
}

}  // namespace td
