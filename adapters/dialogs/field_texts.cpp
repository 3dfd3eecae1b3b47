#include "dialogs/field_texts.h"

#include <array>
#include <charconv>
#include <cmath>

#include "page_document/commands.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kLongest = 9999.9;  // millimetres

std::string NoteText(double millimetres) {
  std::array<char, 16> room{};
  const auto written = std::to_chars(room.data(), room.data() + room.size(), millimetres,
                                     std::chars_format::fixed, 1);
  return "≈ " + std::string(room.data(), written.ptr) + " 毫米";
}

std::string WithoutColon(std::string_view label) {
  constexpr std::string_view kColon = "：";
  if (label.ends_with(kColon)) label.remove_suffix(kColon.size());
  return std::string(label);
}

}  // namespace

std::string NoteOfLength(std::string_view twips) {
  const double millimetres = Val(twips) / kTwipsPerMillimetre;
  const bool hasNote = !twips.empty() && std::abs(millimetres) <= kLongest;
  return hasNote ? NoteText(millimetres) : std::string();
}

std::string WidestNoteOfLength() {
  return NoteText(-kLongest);
}

std::string DescriptionOf(const ListField& field) {
  return WithoutColon(field.label);
}

std::string DescriptionOf(const NumberField& field) {
  const std::string unit = field.unit;
  return WithoutColon(field.label) + (unit.empty() ? std::string() : "，单位" + unit);
}

bool IsSeparator(std::string_view entry) {
  return !entry.empty() && entry.find_first_not_of('-') == std::string_view::npos;
}

}  // namespace td
