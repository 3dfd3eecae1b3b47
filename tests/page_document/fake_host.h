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
  int DeviceCount() override { return static_cast<int>(devices.size()); }
  std::string DeviceName(int index) override { return devices[static_cast<std::size_t>(index)]; }
  std::string DefaultDevice() override { return devices.empty() ? "" : devices.front(); }
  bool HasDevice(const std::string& name) override {
    return std::ranges::find(devices, name) != devices.end();
  }
  std::optional<PaperExtent> PaperOf(std::int32_t code, const std::string& device) override {
    if (code == 500 && device == "针式打印机") return PaperExtent{13680, 7920};
    return std::nullopt;
  }
  double LineHeight(const TextLine& line) override {
    double height = 0;
    for (const TextRun& run : line) height = std::max(height, run.font->points * kTwipsPerPoint);
    return height;
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
  void PointerChanged(std::int32_t shape) override { pointer = shape; }

  std::vector<std::string> devices = {"激光打印机", "针式打印机"};
  std::vector<std::string> calls;
  bool confirms = true;
  int previewChanges = 0;
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
