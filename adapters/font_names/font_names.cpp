#include "font_names/font_names.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>
#include <utility>

#include "files/file_error.h"
#include "files/user_files.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr std::size_t kLargestFile = 65536;
constexpr std::string_view kBlanks = " \t\r";

using Names = std::vector<std::string>;

struct Style {
  Names FontStyles::*families;
  Names names;  // in lower case
};

const std::array<Style, 7>& BuiltIn() {
  static const std::array<Style, 7> styles = {
      Style{&FontStyles::song,
            {"宋体", "新宋体", "中易宋体", "华文宋体", "华文中宋", "方正书宋", "simsun", "nsimsun",
             "simsun-extb", "stsong", "stzhongsong", "songti sc", "mingliu", "pmingliu", "细明体",
             "新细明体"}},
      Style{&FontStyles::hei,
            {"黑体", "微软雅黑", "等线", "华文黑体", "华文细黑", "方正黑体", "幼圆", "隶书",
             "simhei", "microsoft yahei", "microsoft yahei ui", "dengxian", "stheiti", "stxihei",
             "heiti sc", "pingfang sc", "microsoft jhenghei", "youyuan", "lisu"}},
      Style{&FontStyles::kai,
            {"楷体", "楷体_gb2312", "华文楷体", "kaiti", "kaiti_gb2312", "simkai", "stkaiti",
             "kaiti sc", "dfkai-sb", "标楷体"}},
      Style{&FontStyles::fangSong,
            {"仿宋", "仿宋_gb2312", "华文仿宋", "fangsong", "fangsong_gb2312", "simfang",
             "stfangsong"}},
      Style{&FontStyles::sans,
            {"arial", "arial narrow", "arial unicode ms", "helvetica", "tahoma", "verdana",
             "calibri", "segoe ui", "ms sans serif", "microsoft sans serif", "system"}},
      Style{&FontStyles::serif, {"times new roman", "times", "georgia", "cambria", "ms serif"}},
      Style{&FontStyles::mono,
            {"courier new", "courier", "consolas", "lucida console", "fixedsys", "terminal"}},
  };
  return styles;
}

std::string Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

std::string Key(std::string_view name) {
  const std::string key = LowerCase(Trimmed(name));
  return key.starts_with('@') ? key.substr(1) : key;
}

std::string ContentOf(const std::filesystem::path& file) {
  constexpr std::string_view kMarkOfEditors = "\xEF\xBB\xBF";
  try {
    const std::string content = ReadUserFile(file, kLargestFile).value_or("");
    return content.starts_with(kMarkOfEditors) ? content.substr(kMarkOfEditors.size()) : content;
  } catch (const FileError&) {
    return {};
  }
}

void Append(Names& names, const Names& more) {
  names.insert(names.end(), more.begin(), more.end());
}

}  // namespace

FontNames::FontNames(const std::filesystem::path& configuration, FontStyles styles)
    : styles_(std::move(styles)) {
  if (configuration.empty()) return;
  std::istringstream lines(ContentOf(configuration));
  for (std::string line; std::getline(lines, line);) {
    line.resize(std::min(line.find('#'), line.size()));
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    Names& families = configured_[Key(line.substr(0, equals))];
    std::istringstream names(line.substr(equals + 1));
    for (std::string name; std::getline(names, name, ',');) {
      if (name = Trimmed(name); !name.empty()) families.push_back(name);
    }
  }
}

std::filesystem::path FontNames::ConfigurationFile() {
  const std::filesystem::path folder = UserConfigFolder();
  return folder.empty() ? folder : folder / "qbtdprinter" / "fonts.conf";
}

std::vector<std::string> FontNames::Meant(const std::string& name) const {
  const std::string key = Key(name);
  Names meant;
  if (const auto found = configured_.find(key); found != configured_.end()) meant = found->second;
  meant.push_back(key);
  for (const Style& style : BuiltIn()) {
    if (std::ranges::find(style.names, key) != style.names.end()) {
      Append(meant, styles_.*style.families);
    }
  }
  return meant;
}

std::vector<std::string> FontNames::Wanted(const std::string& name) const {
  Names wanted = Meant(name);
  for (const Names* names : {&styles_.song, &styles_.hei, &styles_.fangSong, &styles_.sans}) {
    Append(wanted, *names);
  }
  return wanted;
}

}  // namespace td
