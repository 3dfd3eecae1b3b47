// The print window of a run that nobody looks at.
#pragma once

#include <string>
#include <string_view>

#include "platform/windows.h"

namespace td {

// Has a surface and a barcode maker, which are its descendant's, and nothing to be seen.
class WindowlessFrame : public PrintFrame {
 public:
  void Connect(PrintFrameEvents /*events*/) override {}
  std::string MemoText() override { return {}; }
  std::string MemoTextRtf() override { return {}; }
  void ShowModal() override {}
  void Unload() override {}
  void EnableButton(std::string_view /*key*/, bool /*enabled*/) override {}
  void PutPageText(const std::string& /*text*/) override {}
};

}  // namespace td
