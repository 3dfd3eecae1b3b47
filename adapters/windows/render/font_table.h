// Which installed font families stand for the font names that formats hold.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "windows/render/installed_families.h"

namespace td {

// Maps a font name to families, the most wanted first. Names are compared without regard to case
// and to blanks at their ends; an @ before a name (its form for vertical writing) is ignored.
class FontTable {
 public:
  // The built-in table. `configuration` is a UTF-8 file with lines `name = family, family`, which
  // come before all others for that name; `#` begins a comment. A missing file is no error, nor is
  // one that can't be read; a line without `=` is skipped.
  explicit FontTable(const std::filesystem::path& configuration);

  // The table of this process, read once, with the file qbtdprinter\fonts.conf in the user's folder
  // of settings.
  static const FontTable& Instance();

  // The installed families for a name: the configured ones, the one that bears the name, those of
  // the table, then such that have the Chinese characters, then all others. Empty only if no font
  // is installed.
  [[nodiscard]] std::vector<const InstalledFamily*> Families(const std::string& name) const;

  // Whether one of the families that are meant by the name is installed: a configured one, the one
  // that bears it, or one of those that the table has for it. Otherwise any Chinese font stands in.
  [[nodiscard]] bool Serves(const std::string& name) const;

 private:
  [[nodiscard]] std::vector<std::string> Meant(const std::string& key) const;

  std::map<std::string, std::vector<std::string>> configured_;
};

}  // namespace td
