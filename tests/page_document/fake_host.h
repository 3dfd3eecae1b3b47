// A machine with two printers whose lines of text are all as high as their font.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "page_document/document_host.h"
#include "page_document/page_document.h"
#include "platform/failure.h"

namespace td {

class FakeHost : public DocumentHost {
 public:
  std::vector<std::string> Devices() override {
    ++deviceReads;
    return devices;
  }
  std::string DefaultDevice() override { return devices.empty() ? "" : devices.front(); }
  bool HasDevice(const std::string& name) override {
    return std::ranges::find(devices, name) != devices.end();
  }
  std::optional<PaperExtent> DefaultSheet() override {
    ++sheetReads;
    return defaultSheet;
  }
  double LineHeight(const TextLine& line) override {
    double height = 0;
    for (const TextRun& run : line) height = std::max(height, run.font->points * kTwipsPerPoint);
    return height;
  }
  // Letters are half as wide as their font is high.
  double LineWidth(const TextLine& line) override {
    double width = 0;
    for (const TextRun& run : line) {
      width += static_cast<double>(run.text.size()) * run.font->points * kTwipsPerPoint / 2;
    }
    return width;
  }
  void Print(PageDocument&, bool withDialog) override {
    calls.push_back(withDialog ? "print with dialog" : "print");
  }
  bool ShowPageSetup(PageDocument& document) override {
    if (confirms) document.PutOrientation(1);
    return confirms;
  }
  void Export(PageDocument& document, const std::string& file, std::int32_t format) override {
    calls.push_back("export " + file + " " + std::to_string(format) +
                    (document.GetState() == PageDocument::State::kClosed ? " closed" : ""));
  }
  void PreviewChanged(PageDocument&) override { ++previewChanges; }
  void PageCompleted() override { ++completedPages; }
  void PointerChanged(std::int32_t shape) override { pointer = shape; }
  void Complain(const std::string& text) override { complaints.push_back(text); }

  std::vector<std::string> devices = {"激光打印机", "针式打印机"};
  int deviceReads = 0;
  std::optional<PaperExtent> defaultSheet;
  int sheetReads = 0;
  std::vector<std::string> complaints;
  std::vector<std::string> calls;
  bool confirms = true;
  int previewChanges = 0;
  int completedPages = 0;
  std::int32_t pointer = 0;
};

// The number of the failure that an action ends with, 0 if there is none.
template <typename Action>
int NumberOf(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.Number();
  }
  return 0;
}

}  // namespace td
