// A print window of a replay.
#pragma once

#include <set>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "recording/recorder.h"
#include "recording/recording_surface.h"
#include "recording/recording_windows.h"
#include "recording/scenario.h"

namespace td::recording {

class RecordingBarcode : public Barcode {
 public:
  explicit RecordingBarcode(Recorder& recorder) : recorder_(recorder) {}
  void PutData(const std::string& data) override;
  PictureRef GetPicture() override;

 private:
  Recorder& recorder_;
  std::string data_ = "110101-234234-1/6";
};

class RecordingPrintFrame : public PrintFrame {
 public:
  RecordingPrintFrame(std::string name, Recorder& recorder, Messages& messages, User& user,
                      const Scenario& scenario, const Printers& printers);

  void Connect(PrintFrameEvents events) override;
  PrintSurface& Surface() override { return surface_; }
  Barcode& BarcodeMaker() override { return barcode_; }
  std::string MemoText() override { return scenario_.memoText; }
  std::string MemoTextRtf() override { return scenario_.memoRtf; }
  void ShowModal() override;
  void Unload() override;
  void EnableButton(std::string_view key, bool enabled) override;
  void PutPageText(const std::string& text) override;

 private:
  void LoadAndActivate();
  void Follow(const UserStep& step);
  void Press(const PressKey& press);

  std::string name_;
  Recorder& recorder_;
  Messages& messages_;
  User& user_;
  const Scenario& scenario_;
  RecordingSurface surface_;
  RecordingBarcode barcode_;
  PrintFrameEvents events_;
  std::set<std::string, std::less<>> disabledButtons_;
  bool isLoaded_ = false;
  bool isClosed_ = false;
};

}  // namespace td::recording
