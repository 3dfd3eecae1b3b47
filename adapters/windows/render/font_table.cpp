#include "windows/render/font_table.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string_view>

#include "files/file_error.h"
#include "files/user_files.h"
#include "text/conversions.h"
#include "windows/api/wide_text.h"

namespace td {
namespace {

constexpr std::size_t kLargestFile = 65536;
constexpr std::string_view kBlanks = " \t\r";

using Names = std::vector<std::string>;

// Families of one style, the most wanted first: those of Windows, then free ones.
const Names& Song() {
  static const Names names = {"SimSun", "宋体", "NSimSun", "SimSun-ExtB", "AR PL UMing CN"};
  return names;
}
const Names& Hei() {
  static const Names names = {"SimHei",   "黑体",     "Microsoft YaHei",
                              "微软雅黑", "DengXian", "WenQuanYi Zen Hei"};
  return names;
}
const Names& Kai() {
  static const Names names = {"KaiTi", "楷体", "KaiTi_GB2312", "楷体_GB2312", "AR PL UKai CN"};
  return names;
}
const Names& FangSong() {
  static const Names names = {"FangSong", "仿宋", "FangSong_GB2312", "仿宋_GB2312",
                              "AR PL UMing CN"};
  return names;
}
const Names& Sans() {
  static const Names names = {"Arial", "Segoe UI", "Liberation Sans", "DejaVu Sans"};
  return names;
}
const Names& Serif() {
  static const Names names = {"Times New Roman", "Liberation Serif", "DejaVu Serif"};
  return names;
}
const Names& Mono() {
  static const Names names = {"Courier New", "Consolas", "Liberation Mono", "DejaVu Sans Mono"};
  return names;
}
// What has characters that few others have.
const Names& Symbols() {
  static const Names names = {"Segoe UI Symbol", "Segoe UI Emoji", "Arial Unicode MS"};
  return names;
}

struct Style {
  const Names& (*families)();
  Names names;  // in lower case
};

const std::array<Style, 7>& BuiltIn() {
  static const std::array<Style, 7> styles = {
      Style{Song,
            {"宋体", "新宋体", "中易宋体", "华文宋体", "华文中宋", "方正书宋", "simsun", "nsimsun",
             "simsun-extb", "stsong", "stzhongsong", "songti sc", "mingliu", "pmingliu", "细明体",
             "新细明体"}},
      Style{Hei,
            {"黑体", "微软雅黑", "等线", "华文黑体", "华文细黑", "方正黑体", "幼圆", "隶书",
             "simhei", "microsoft yahei", "microsoft yahei ui", "dengxian", "stheiti", "stxihei",
             "heiti sc", "pingfang sc", "microsoft jhenghei", "youyuan", "lisu"}},
      Style{Kai,
            {"楷体", "楷体_gb2312", "华文楷体", "kaiti", "kaiti_gb2312", "simkai", "stkaiti",
             "kaiti sc", "dfkai-sb", "标楷体"}},
      Style{FangSong,
            {"仿宋", "仿宋_gb2312", "华文仿宋", "fangsong", "fangsong_gb2312", "simfang",
             "stfangsong"}},
      Style{Sans,
            {"arial", "arial narrow", "arial unicode ms", "helvetica", "tahoma", "verdana",
             "calibri", "segoe ui", "ms sans serif", "microsoft sans serif", "system"}},
      Style{Serif, {"times new roman", "times", "georgia", "cambria", "ms serif"}},
      Style{Mono, {"courier new", "courier", "consolas", "lucida console", "fixedsys", "terminal"}},
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
  try {
    return ReadUserFile(file, kLargestFile).value_or("");
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

FontTable::FontTable(const std::filesystem::path& configuration) {
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

const FontTable& FontTable::Instance() {
  const auto configuration = [] {
    const std::filesystem::path folder = UserConfigFolder();
    return folder.empty() ? folder : folder / "qbtdprinter" / "fonts.conf";
  };
  static const FontTable table(configuration());
  return table;
}

std::vector<std::string> FontTable::Meant(const std::string& key) const {
  Names meant;
  if (const auto found = configured_.find(key); found != configured_.end()) meant = found->second;
  meant.push_back(key);
  for (const Style& style : BuiltIn()) {
    if (std::ranges::find(style.names, key) == style.names.end()) continue;
    meant.insert(meant.end(), style.families().begin(), style.families().end());
  }
  return meant;
}

bool FontTable::Serves(const std::string& name) const {
  return std::ranges::any_of(Meant(Key(name)), [](const std::string& family) {
    return FindFamily(ToWide(family)) != nullptr;
  });
}

std::vector<const InstalledFamily*> FontTable::Families(const std::string& name) const {
  std::vector<const InstalledFamily*> families;
  const auto add = [&families](const InstalledFamily* family) {
    if (family != nullptr && std::ranges::find(families, family) == families.end()) {
      families.push_back(family);
    }
  };
  const auto addAll = [&add](const Names& names) {
    for (const std::string& wanted : names) add(FindFamily(ToWide(wanted)));
  };
  addAll(Meant(Key(name)));
  for (const Names* names : {&Song(), &Hei(), &FangSong(), &Sans(), &Symbols()}) addAll(*names);
  for (const InstalledFamily& family : InstalledFamilies()) add(&family);
  return families;
}

}  // namespace td
