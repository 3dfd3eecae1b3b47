// Which installed font families stand for the font names that formats hold.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "font_names/font_names.h"
#include "windows/render/installed_families.h"

namespace td {

// Maps a font name to families, the most wanted first (FontNames).
class FontTable {
 public:
  explicit FontTable(const std::filesystem::path& configuration);

  // The table of this process, read once, with FontNames::ConfigurationFile().
  static const FontTable& Instance();

  // The installed families for a name: the configured ones, the one that bears the name, those of
  // the table, then such that have the Chinese characters, then all others. Empty only if no font
  // is installed.
  [[nodiscard]] std::vector<const InstalledFamily*> Families(const std::string& name) const;

  // Whether one of the families that are meant by the name is installed; otherwise any Chinese font
  // stands in.
  [[nodiscard]] bool Serves(const std::string& name) const;

 private:
  FontNames names_;
};

}  // namespace td
