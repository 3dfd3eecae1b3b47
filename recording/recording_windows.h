// The windows of a replay: no screen, and a user who follows a script.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "recording/recorder.h"
#include "recording/recording_surface.h"
#include "recording/scenario.h"

namespace td::recording {

// Hands out what the user does, window by window.
class User {
 public:
  // For the next window that is shown.
  void Expect(std::vector<UserStep> steps) { steps_ = std::move(steps); }
  // The steps for a window that is being shown; the next one gets none.
  [[nodiscard]] std::vector<UserStep> Take() { return std::exchange(steps_, {}); }

 private:
  std::vector<UserStep> steps_;
};

class RecordingMessages : public Messages {
 public:
  explicit RecordingMessages(Recorder& recorder) : recorder_(recorder) {}
  void ShowBox(const std::string& text, int style) override;

 private:
  Recorder& recorder_;
};

class RecordingWindows : public Windows {
 public:
  // Everything outlives the windows.
  RecordingWindows(Recorder& recorder, Messages& messages, User& user, const Scenario& scenario);

  std::unique_ptr<PrintFrame> CreatePrintFrame(std::string_view name) override;
  std::unique_ptr<Dialog> CreateDialog(std::string_view name) override;

 private:
  Recorder& recorder_;
  Messages& messages_;
  User& user_;
  const Scenario& scenario_;
  Printers printers_;
};

}  // namespace td::recording
