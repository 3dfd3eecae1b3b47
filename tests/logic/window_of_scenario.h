// A print window on the tables and the print data of a scenario, for tests that call one routine of
// the window instead of a whole run.
#pragma once

#include <memory>

#include "recording/recording_database.h"
#include "recording/recording_platform.h"
#include "scenario.h"
#include "windows/open_window.h"

namespace td {

// The cursor and the clone stand on the first row, and page 1 of the document has begun.
class WindowOfScenario {
 public:
  explicit WindowOfScenario(const Scenario& scenario)
      : platform_(recording::ReadScenario(scenario.Document())) {
    const auto& call = std::get<recording::Print>(platform_.GetScenario().calls.front().action);
    request_.New_TranType = call.New_TranType;
    request_.New_OnlyPrintVariantItem = call.New_OnlyPrintVariantItem;
    request_.TDBillName = "销售单";
    const auto& rows = std::get<recording::PrintRows>(call.data).table;
    request_.PrintData = std::make_shared<recording::RecordingRecordset>(
        platform_.GetRecorder(), std::make_shared<recording::TableData>(rows), true);
    request_.PrintDataClone = request_.PrintData->Clone();
    window_ = OpenWindow(platform_.Get(), request_, kPlainWindow);
    window_->vp.StartDoc();
    (void)Lines();
  }
  WindowOfScenario(const WindowOfScenario&) = delete;
  WindowOfScenario& operator=(const WindowOfScenario&) = delete;
  ~WindowOfScenario() = default;

  [[nodiscard]] PrintWindow& Window() { return *window_; }
  [[nodiscard]] RunState& State() { return window_->state; }
  // What was asked of the platform since the last call.
  [[nodiscard]] Trace Lines() { return Trace(platform_.GetRecorder().TakeLines(), Json::object()); }

 private:
  recording::RecordingPlatform platform_;
  PrintContext request_;
  std::unique_ptr<PrintWindow> window_;
};

}  // namespace td
