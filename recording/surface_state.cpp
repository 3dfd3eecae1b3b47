#include "recording/surface_state.h"

#include <cmath>
#include <limits>
#include <map>
#include <string_view>
#include <variant>

namespace td::recording {
namespace {

using Property =
    std::variant<std::string SurfaceState::*, bool SurfaceState::*, double SurfaceState::*,
                 float SurfaceState::*, std::int32_t SurfaceState::*, std::int16_t SurfaceState::*>;

const std::map<std::string_view, Property>& Properties() {
  using S = SurfaceState;
  static const std::map<std::string_view, Property> kProperties = {
      {"FontName", &S::fontName},
      {"FontSize", &S::fontSize},
      {"FontBold", &S::fontBold},
      {"FontItalic", &S::fontItalic},
      {"TextAlign", &S::textAlign},
      {"PenWidth", &S::penWidth},
      {"CurrentX", &S::currentX},
      {"CurrentY", &S::currentY},
      {"Orientation", &S::orientation},
      {"PaperSize", &S::paperSize},
      {"PaperWidth", &S::paperWidth},
      {"PaperHeight", &S::paperHeight},
      {"MarginLeft", &S::marginLeft},
      {"MarginTop", &S::marginTop},
      {"MarginRight", &S::marginRight},
      {"MarginBottom", &S::marginBottom},
      {"Device", &S::device},
      {"PreviewPage", &S::previewPage},
      {"Zoom", &S::zoom},
      {"MousePointer", &S::mousePointer},
      {"TableSeparators", &S::tableSeparators},
      {"ExportFile", &S::exportFile},
      {"ExportFormat", &S::exportFormat},
  };
  return kProperties;
}

void Read(const Json& value, std::string& target) {
  if (!value.is_string()) {
    throw ScenarioError("text expected");
  }
  target = value.get<std::string>();
}

void Read(const Json& value, bool& target) {
  if (!value.is_boolean()) {
    throw ScenarioError("true or false expected");
  }
  target = value.get<bool>();
}

double ReadNumber(const Json& value, double least, double most) {
  if (!value.is_number()) {
    throw ScenarioError("number expected");
  }
  const double number = value.get<double>();
  if (number < least || number > most) {
    throw ScenarioError("the number is too large");
  }
  return number;
}

void Read(const Json& value, double& target) {
  target =
      ReadNumber(value, std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max());
}

void Read(const Json& value, float& target) {
  target = static_cast<float>(
      ReadNumber(value, std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max()));
}

template <typename Whole>
void Read(const Json& value, Whole& target) {
  const double number =
      ReadNumber(value, std::numeric_limits<Whole>::lowest(), std::numeric_limits<Whole>::max());
  if (std::trunc(number) != number) {
    throw ScenarioError("whole number expected");
  }
  target = static_cast<Whole>(number);
}

}  // namespace

void Assign(SurfaceState& state, const std::string& name, const Json& value) {
  const auto found = Properties().find(name);
  if (found == Properties().end()) {
    return;
  }
  try {
    std::visit([&](auto member) { Read(value, state.*member); }, found->second);
  } catch (const ScenarioError& error) {
    throw ScenarioError(name + ": " + error.what());
  }
}

}  // namespace td::recording
