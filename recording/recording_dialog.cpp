#include "recording/recording_dialog.h"

#include <algorithm>
#include <utility>

#include "platform/control_names.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td::recording {
namespace {

// The controls of each dialog, in the order in which a trace lists them.
std::vector<NamedControl> ControlsOf(std::string_view dialog) {
  if (dialog == "frmAreaPrintSet") {
    return {{controls::kBillTypes, ListControl{}},
            {controls::kAreaFormats, ListControl{}},
            {controls::kStockAreas, ListControl{}},
            {controls::kPrinterList, ListControl{}}};
  }
  return {{controls::kFormats, ListControl{}},
          {controls::kLeft, TextControl{}},
          {controls::kTop, TextControl{}},
          {controls::kHeader, TextControl{}},
          {controls::kRowHeight, TextControl{}},
          {controls::kRowsPerPage, TextControl{}},
          {controls::kQtysPerRow, TextControl{}},
          {controls::kPrinterList, ListControl{}},
          {controls::kOrientation, OptionControl{}},
          {controls::kHeaderPerPage, CheckControl{}},
          {controls::kFooterPerPage, CheckControl{}},
          {controls::kIntegralPage, CheckControl{}}};
}

Json AsJson(const TextControl& box) {
  return box.text;
}
Json AsJson(const CheckControl& box) {
  return box.value;
}
Json AsJson(const OptionControl& group) {
  return group.index;
}
Json AsJson(const ListControl& list) {
  return {{"list", list.entries}, {"index", list.index}};
}

bool Holds(const ListControl& list, int index) {
  return index >= 0 && index < static_cast<int>(list.entries.size());
}

}  // namespace

RecordingDialog::RecordingDialog(std::string name, Recorder& recorder, Messages& messages,
                                 User& user, const Scenario& scenario, const Printers& printers)
    : name_(std::move(name)),
      recorder_(recorder),
      messages_(messages),
      user_(user),
      surface_(recorder, printers, scenario.surface),
      controls_(ControlsOf(name_)) {}

void RecordingDialog::ShowModal() {
  recorder_.Write("show", {{"window", name_}});
  const std::vector<UserStep> steps = user_.Take();
  events_.Load();
  WriteControls();
  for (const UserStep& step : steps) {
    if (isClosed_) return;
    Follow(step);
    if (!isClosed_) WriteControls();
  }
  Unload();
}

void RecordingDialog::Unload() {
  if (isClosed_) return;
  isClosed_ = true;
  recorder_.Write("unload", {{"window", name_}});
  events_.Unload();
}

void RecordingDialog::Follow(const UserStep& step) {
  try {
    if (const auto* set = std::get_if<SetText>(&step.action)) {
      PutText(set->control, set->text);
    } else if (const auto* check = std::get_if<CheckBox>(&step.action)) {
      PutCheckValue(check->control, check->value);
    } else if (const auto* option = std::get_if<ChooseOption>(&step.action)) {
      PutOption(option->control, option->index);
    } else if (const auto* choice = std::get_if<SelectEntry>(&step.action)) {
      Select(*choice);
    } else if (const auto* press = std::get_if<PressButton>(&step.action)) {
      events_.Click(press->control);
    }
  } catch (const Failure& failure) {
    messages_.ShowBox(failure.Description(), kInformationIcon);
  }
}

// A choice that the list does not hold changes nothing.
void RecordingDialog::Select(const SelectEntry& choice) {
  const ListControl& list = Get<ListControl>(choice.control);
  int index = -1;
  if (const auto* text = std::get_if<std::string>(&choice.entry)) {
    const auto found = std::find(list.entries.begin(), list.entries.end(), *text);
    if (found != list.entries.end()) index = static_cast<int>(found - list.entries.begin());
  } else {
    index = std::get<int>(choice.entry);
  }
  if (Holds(list, index)) PutListIndex(choice.control, index);
}

void RecordingDialog::WriteControls() {
  Json values = Json::object();
  for (const NamedControl& control : controls_) {
    values[control.name] =
        std::visit([](const auto& state) -> Json { return AsJson(state); }, control.state);
  }
  recorder_.Write("controls", {{"window", name_}, {"v", std::move(values)}});
}

template <class Control>
Control& RecordingDialog::Get(std::string_view name) {
  for (NamedControl& control : controls_) {
    auto* state = std::get_if<Control>(&control.state);
    if (control.name == name && state != nullptr) return *state;
  }
  throw InvalidCallFailure();
}

std::string RecordingDialog::Text(std::string_view textBox) {
  return Get<TextControl>(textBox).text;
}

void RecordingDialog::PutText(std::string_view textBox, const std::string& text) {
  Get<TextControl>(textBox).text = text;
}

int RecordingDialog::CheckValue(std::string_view checkBox) {
  return Get<CheckControl>(checkBox).value;
}

void RecordingDialog::PutCheckValue(std::string_view checkBox, int value) {
  Get<CheckControl>(checkBox).value = value;
}

int RecordingDialog::Option(std::string_view group) {
  return Get<OptionControl>(group).index;
}

void RecordingDialog::PutOption(std::string_view group, int index) {
  auto& options = Get<OptionControl>(group);
  if (index < 0 || index >= options.count) {
    throw Failure(kNoSuchOption, "选项按钮 " + std::to_string(index) + " 不存在");
  }
  options.index = index;
}

void RecordingDialog::ClearList(std::string_view list) {
  Get<ListControl>(list) = {};
}

void RecordingDialog::AddItem(std::string_view list, const std::string& text) {
  Get<ListControl>(list).entries.push_back(text);
}

int RecordingDialog::ListCount(std::string_view list) {
  return static_cast<int>(Get<ListControl>(list).entries.size());
}

std::string RecordingDialog::ListItem(std::string_view list, int index) {
  const auto& control = Get<ListControl>(list);
  if (!Holds(control, index)) throw InvalidCallFailure();
  return control.entries[static_cast<std::size_t>(index)];
}

int RecordingDialog::ListIndex(std::string_view list) {
  return Get<ListControl>(list).index;
}

void RecordingDialog::PutListIndex(std::string_view list, int index) {
  auto& control = Get<ListControl>(list);
  if (!Holds(control, index)) throw InvalidCallFailure();
  control.index = index;
  events_.Click(list);
}

std::string RecordingDialog::ListText(std::string_view list) {
  const auto& control = Get<ListControl>(list);
  return Holds(control, control.index) ? control.entries[static_cast<std::size_t>(control.index)]
                                       : std::string();
}

}  // namespace td::recording
