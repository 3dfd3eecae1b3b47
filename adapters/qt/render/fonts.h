// Which installed font families stand for the font names that formats hold.
#pragma once

#include <QString>
#include <QStringList>
#include <map>
#include <string>

namespace td {

// Maps a font name to families, the most wanted first. Names are compared without regard to case
// and to blanks at their ends; an @ before a name (its form for vertical writing) is ignored.
class FontTable {
 public:
  // The built-in table. `configuration` is the path of a UTF-8 file with lines
  // `name = family, family`, which come before all others for that name; `#` begins a comment. A
  // missing file, or an empty path, is no error; a line without `=` is skipped.
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
  [[nodiscard]] QStringList Meant(const QString& key) const;
  void Read(const std::string& configuration);

  std::map<QString, QStringList> configured_;
};

}  // namespace td
