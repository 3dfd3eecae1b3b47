// A dialog of a replay: named controls without a screen.
#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/platform.h"
#include "recording/json_values.h"
#include "recording/recorder.h"
#include "recording/recording_surface.h"
#include "recording/recording_windows.h"
#include "recording/scenario.h"

namespace td::recording {

struct TextControl {
  std::string text;
};
struct CheckControl {
  int value = 0;
};
struct OptionControl {
  int count = 2;
  int index = -1;
};
struct ListControl {
  std::vector<std::string> entries;
  int index = -1;
};

struct NamedControl {
  std::string name;
  std::variant<TextControl, CheckControl, OptionControl, ListControl> state;
};

class RecordingDialog : public Dialog {
 public:
  RecordingDialog(std::string name, Recorder& recorder, Messages& messages, User& user,
                  const Scenario& scenario, const Printers& printers);

  void Connect(DialogEvents events) override { events_ = std::move(events); }
  void ShowModal() override;
  void Unload() override;
  PrintSurface& Surface() override { return surface_; }

  std::string Text(std::string_view textBox) override;
  void PutText(std::string_view textBox, const std::string& text) override;
  int CheckValue(std::string_view checkBox) override;
  void PutCheckValue(std::string_view checkBox, int value) override;
  int Option(std::string_view group) override;
  void PutOption(std::string_view group, int index) override;
  void ClearList(std::string_view list) override;
  void AddItem(std::string_view list, const std::string& text) override;
  int ListCount(std::string_view list) override;
  std::string ListItem(std::string_view list, int index) override;
  int ListIndex(std::string_view list) override;
  void PutListIndex(std::string_view list, int index) override;
  std::string ListText(std::string_view list) override;

 private:
  // The control of a name. Fails when the dialog has none of that name and kind.
  template <class Control>
  Control& Get(std::string_view name);

  void Follow(const UserStep& step);
  void Select(const SelectEntry& choice);
  void WriteControls();

  std::string name_;
  Recorder& recorder_;
  Messages& messages_;
  User& user_;
  RecordingSurface surface_;
  std::vector<NamedControl> controls_;
  DialogEvents events_;
  bool isClosed_ = false;
};

}  // namespace td::recording
