// Which installed font families stand for the font names that formats hold.
#pragma once

#include <QStringList>
#include <string>

#include "font_names/font_names.h"

namespace td {

// Maps a font name to families, the most wanted first (FontNames).
class FontTable {
 public:
  // `configuration` is the path of a file as FontNames reads it; empty: none.
  explicit FontTable(const std::string& configuration);

  // The table of this process, read once, with the file of ConfigurationFile().
  static const FontTable& Instance();
  // fonts.conf in the folder qbtdprinter of $XDG_CONFIG_HOME, or of ~/.config.
  static std::string ConfigurationFile();

  // The installed families for a name: the configured ones, the one that bears the name, those of
  // the table, then such that have the Chinese characters. Empty only if no font is installed.
  [[nodiscard]] QStringList Families(const std::string& name) const;

  // Whether one of the families that are meant by the name is installed: a configured one, the one
  // that bears it, or one of those that the table has for it. Otherwise any Chinese font stands in.
  [[nodiscard]] bool Serves(const std::string& name) const;

 private:
  FontNames names_;
};

}  // namespace td
