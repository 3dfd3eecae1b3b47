// What the component's dialogs hold, from top to bottom, which is the order of the Tab key too.
// Names are those by which the logic calls the controls; texts are UTF-8.
#pragma once

#include <span>
#include <string_view>
#include <variant>

namespace td {

// Labels end, and fields, units and hints begin, on common lines.
struct ListField {
  const char* name;
  const char* label;
};

inline constexpr const char* kTwipsUnit = "缇";

inline constexpr int kRoomForNumber = 14;  // half-width characters

struct NumberField {
  const char* name;
  const char* label;
  const char* unit = "";  // one in kTwipsUnit is noted in millimetres, too
  const char* hint = "";
};

using DialogField = std::variant<ListField, NumberField>;

// A control that bears its text. `&` stands before its access key.
struct CaptionedControl {
  const char* name;
  const char* caption;
};

// One is on, or none; they count from 0.
struct OptionGroup {
  const char* name;
  const char* title;
  std::span<const char* const> captions;
};

struct DialogContents {
  std::string_view name;  // "frmAdjuct", "frmAreaPrintSet"
  const char* title;
  std::span<const DialogField> fields;
  const OptionGroup* options;                    // in a frame below the fields; there may be none
  std::span<const CaptionedControl> checkBoxes;  // beside the options, one below the other
  CaptionedControl confirm;                      // at the right below; Enter presses it
  CaptionedControl leave;
};

// Nothing for a name that no dialog has.
[[nodiscard]] const DialogContents* FindDialogContents(std::string_view name);

}  // namespace td
