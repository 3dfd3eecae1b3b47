// Which font families are meant by the font names that formats hold.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace td {

// The families of one machine for each style, the most wanted first.
struct FontStyles {
  std::vector<std::string> song;
  std::vector<std::string> hei;
  std::vector<std::string> kai;
  std::vector<std::string> fangSong;
  std::vector<std::string> sans;
  std::vector<std::string> serif;
  std::vector<std::string> mono;
};

// Names are compared without regard to case and to blanks at their ends; an @ before a name (its
// form for vertical writing) is ignored.
class FontNames {
 public:
  // `configuration` is a UTF-8 file with lines `name = family, family`, which come before all
  // others for that name; `#` begins a comment. A missing file, or an empty path, is no error, nor
  // is one that can't be read; a line without `=` is skipped.
  FontNames(const std::filesystem::path& configuration, FontStyles styles);

  // fonts.conf in the folder qbtdprinter of UserConfigFolder(); empty if there is none.
  [[nodiscard]] static std::filesystem::path ConfigurationFile();

  // The families that a name means: the configured ones, the one that bears it, those of its style.
  [[nodiscard]] std::vector<std::string> Meant(const std::string& name) const;

  // Those and then such that have the Chinese characters.
  [[nodiscard]] std::vector<std::string> Wanted(const std::string& name) const;

 private:
  FontStyles styles_;
  std::map<std::string, std::vector<std::string>> configured_;
};

}  // namespace td
