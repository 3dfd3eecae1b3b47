// The properties of a recording surface and their starting values.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "recording/json_values.h"

namespace td::recording {

struct SurfaceState {
  std::string font_name = "Arial";
  double font_size = 11.25;
  bool font_bold = false;
  bool font_italic = false;
  std::int32_t text_align = 0;
  double pen_width = 0;
  double current_x = 0;
  double current_y = 0;
  std::int32_t orientation = 0;
  std::int32_t paper_size = 9;
  float paper_width = 11906;
  float paper_height = 16838;
  double margin_left = 1440;
  double margin_top = 1440;
  double margin_right = 1440;
  double margin_bottom = 1440;
  std::string device;
  std::int16_t preview_page = 1;
  double zoom = 100;
  std::int32_t mouse_pointer = 0;
  std::string table_separators = "|;";
  std::string export_file;
  std::int32_t export_format = 0;
};

// Values by property name, in the order in which they are written.
using SurfaceValues = std::vector<std::pair<std::string, Json>>;

// Writes one property by its name; an unknown name writes nothing. Fails with ScenarioError when
// the value has the wrong type or does not fit.
void Assign(SurfaceState& state, const std::string& name, const Json& value);

}  // namespace td::recording
