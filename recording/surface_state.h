// The properties of a recording surface and their starting values.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "recording/json_values.h"

namespace td::recording {

struct SurfaceState {
  std::string fontName = "Arial";
  double fontSize = 11.25;
  bool fontBold = false;
  bool fontItalic = false;
  std::int32_t textAlign = 0;
  double penWidth = 0;
  double currentX = 0;
  double currentY = 0;
  std::int32_t orientation = 0;
  std::int32_t paperSize = 9;
  float paperWidth = 11906;
  float paperHeight = 16838;
  double marginLeft = 1440;
  double marginTop = 1440;
  double marginRight = 1440;
  double marginBottom = 1440;
  std::string device;
  std::int16_t previewPage = 1;
  double zoom = 100;
  std::int32_t mousePointer = 0;
  std::string tableSeparators = "|;";
  std::string exportFile;
  std::int32_t exportFormat = 0;
};

// Values by property name, in the order in which they are written.
using SurfaceValues = std::vector<std::pair<std::string, Json>>;

// Writes one property by its name; an unknown name writes nothing. Fails with ScenarioError when
// the value has the wrong type or does not fit.
void Assign(SurfaceState& state, const std::string& name, const Json& value);

}  // namespace td::recording
