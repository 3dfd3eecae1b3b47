#include "windows/render/font_table.h"

#include <algorithm>

#include "windows/api/wide_text.h"

namespace td {
namespace {

// Those of Windows, then free ones.
FontStyles OwnStyles() {
  return {.song = {"SimSun", "宋体", "NSimSun", "SimSun-ExtB", "AR PL UMing CN"},
          .hei = {"SimHei", "黑体", "Microsoft YaHei", "微软雅黑", "DengXian", "WenQuanYi Zen Hei"},
          .kai = {"KaiTi", "楷体", "KaiTi_GB2312", "楷体_GB2312", "AR PL UKai CN"},
          .fangSong = {"FangSong", "仿宋", "FangSong_GB2312", "仿宋_GB2312", "AR PL UMing CN"},
          .sans = {"Arial", "Segoe UI", "Liberation Sans", "DejaVu Sans"},
          .serif = {"Times New Roman", "Liberation Serif", "DejaVu Serif"},
          .mono = {"Courier New", "Consolas", "Liberation Mono", "DejaVu Sans Mono"}};
}

// What has characters that few others have.
constexpr const char* kSymbols[] = {"Segoe UI Symbol", "Segoe UI Emoji", "Arial Unicode MS"};

}  // namespace

FontTable::FontTable(const std::filesystem::path& configuration)
    : names_(configuration, OwnStyles()) {}

const FontTable& FontTable::Instance() {
  static const FontTable table(FontNames::ConfigurationFile());
  return table;
}

bool FontTable::Serves(const std::string& name) const {
  return std::ranges::any_of(names_.Meant(name), [](const std::string& family) {
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
  for (const std::string& wanted : names_.Wanted(name)) add(FindFamily(ToWide(wanted)));
  for (const char* wanted : kSymbols) add(FindFamily(ToWide(wanted)));
  for (const InstalledFamily& family : InstalledFamilies()) add(&family);
  return families;
}

}  // namespace td
