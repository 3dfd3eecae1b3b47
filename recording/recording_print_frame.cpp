#include "recording/recording_print_frame.h"

#include <memory>
#include <utility>

#include "platform/failure.h"
#include "recording/recording_pictures.h"

namespace td::recording {

void RecordingBarcode::PutData(const std::string& data) {
  recorder_.Write("barcode", {{"v", data}});
  recorder_.Request("barcode", data);
  data_ = data;
}

PictureRef RecordingBarcode::GetPicture() {
  recorder_.Request("barcodepicture", data_);
  return std::make_shared<RecordingPicture>("barcode:" + data_);
}

RecordingPrintFrame::RecordingPrintFrame(std::string name, Recorder& recorder, Messages& messages,
                                         User& user, const Scenario& scenario,
                                         const Printers& printers)
    : name_(std::move(name)),
      recorder_(recorder),
      messages_(messages),
      user_(user),
      scenario_(scenario),
      surface_(recorder, printers, scenario.surface),
      barcode_(recorder) {}

void RecordingPrintFrame::Connect(PrintFrameEvents events) {
  events_ = std::move(events);
}

void RecordingPrintFrame::ShowModal() {
  recorder_.Write("show", {{"window", name_}});
  const std::vector<UserStep> steps = user_.Take();
  LoadAndActivate();
  for (const UserStep& step : steps) {
    if (isClosed_) {
      return;
    }
    Follow(step);
  }
  Unload();
}

// A window whose first activation fails is gone without having been unloaded.
void RecordingPrintFrame::LoadAndActivate() {
  try {
    if (!isLoaded_) {
      isLoaded_ = true;
      events_.Load();
    }
    events_.Activate();
  } catch (...) {
    isClosed_ = true;
    throw;
  }
}

void RecordingPrintFrame::Follow(const UserStep& step) {
  try {
    if (std::holds_alternative<ActivateWindow>(step.action)) {
      events_.Activate();
    } else if (const auto* put = std::get_if<PutProperties>(&step.action)) {
      surface_.PutAsUser(put->values);
    } else if (const auto* press = std::get_if<PressKey>(&step.action)) {
      Press(*press);
    }
  } catch (const Failure& failure) {
    messages_.ShowBox(failure.Description(), kInformationIcon);
  }
}

void RecordingPrintFrame::Press(const PressKey& press) {
  if (disabledButtons_.contains(press.key)) {
    return;
  }
  surface_.ExpectPageSetup(PageSetupAnswer{press.confirms, press.put});
  user_.Expect(press.dialogSteps);
  events_.ButtonPressed(press.key);
  surface_.ExpectPageSetup(std::nullopt);
  user_.Expect({});
}

void RecordingPrintFrame::Unload() {
  if (isClosed_) {
    return;
  }
  isClosed_ = true;
  recorder_.Write("unload", {{"window", name_}});
}

void RecordingPrintFrame::EnableButton(std::string_view key, bool enabled) {
  recorder_.Write("enable", {{"k", std::string(key)}, {"v", enabled}});
  if (enabled) {
    disabledButtons_.erase(std::string(key));
  } else {
    disabledButtons_.emplace(key);
  }
}

void RecordingPrintFrame::PutPageText(const std::string& text) {
  recorder_.Write("pagetext", {{"v", text}});
}

}  // namespace td::recording
