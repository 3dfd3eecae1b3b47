#include "recording/recording_windows.h"

#include <algorithm>
#include <array>
#include <utility>

#include "recording/recording_dialog.h"
#include "recording/recording_print_frame.h"

namespace td::recording {
namespace {

// Boxes that the component itself words. All others show what an engine or a conversion says.
bool IsWordedByComponent(std::string_view text) {
  static constexpr std::array<std::string_view, 3> kBeginnings = {"未指定套打格式，打印被取消！",
                                                                  "找不到打印“", "保存成功！"};
  return std::any_of(kBeginnings.begin(), kBeginnings.end(),
                     [&](std::string_view beginning) { return text.starts_with(beginning); });
}

}  // namespace

void RecordingMessages::ShowBox(const std::string& text, int style) {
  if (IsWordedByComponent(text) || recorder_.IsInjected(text)) {
    recorder_.Write("box", {{"text", text}, {"style", style}});
  } else {
    recorder_.Write("box", {{"text", text}, {"style", style}, {"free", true}});
  }
}

RecordingWindows::RecordingWindows(Recorder& recorder, Messages& messages, User& user,
                                   const Scenario& scenario)
    : recorder_(recorder),
      messages_(messages),
      user_(user),
      scenario_(scenario),
      printers_{scenario.printers, scenario.defaultPrinter} {}

std::unique_ptr<PrintFrame> RecordingWindows::CreatePrintFrame(std::string_view name) {
  return std::make_unique<RecordingPrintFrame>(std::string(name), recorder_, messages_, user_,
                                               scenario_, printers_);
}

std::unique_ptr<Dialog> RecordingWindows::CreateDialog(std::string_view name) {
  return std::make_unique<RecordingDialog>(std::string(name), recorder_, messages_, user_,
                                           scenario_, printers_);
}

}  // namespace td::recording
