#include "render/fonts.h"

#include <QFontDatabase>
#include <algorithm>

#include "files/path_text.h"

namespace td {
namespace {

using Names = std::vector<std::string>;

Names Joined(Names names, const Names& more) {
  names.insert(names.end(), more.begin(), more.end());
  return names;
}

// Liberation Serif lends its digits, which are all half as wide as an ideograph: those of the first
// two differ in width.
FontStyles OwnStyles() {
  const Names song = {"Noto Serif CJK SC", "Source Han Serif SC", "Liberation Serif",
                      "AR PL UMing CN"};
  const Names hei = {"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Zen Hei",
                     "WenQuanYi Micro Hei"};
  return {.song = song,
          .hei = hei,
          .kai = {"AR PL UKai CN", "AR PL UMing CN"},
          .fangSong = {"AR PL UMing CN", "AR PL UKai CN"},
          .sans = Joined({"Liberation Sans", "DejaVu Sans"}, hei),
          .serif = Joined({"Liberation Serif", "DejaVu Serif"}, song),
          .mono = Joined({"Liberation Mono", "DejaVu Sans Mono"}, song)};
}

// The way in which the database of fonts spells an installed family; empty if there is none.
QString Installed(const std::string& family) {
  static const QStringList& families = *new QStringList(QFontDatabase::families());
  const QString wanted = QString::fromStdString(family);
  for (const QString& installed : families) {
    if (installed.compare(wanted, Qt::CaseInsensitive) == 0) return installed;
  }
  return {};
}

}  // namespace

FontTable::FontTable(const std::string& configuration)
    : names_(PathOf(configuration), OwnStyles()) {}

const FontTable& FontTable::Instance() {
  static const FontTable table(ConfigurationFile());
  return table;
}

std::string FontTable::ConfigurationFile() {
  return TextOf(FontNames::ConfigurationFile());
}

bool FontTable::Serves(const std::string& name) const {
  return std::ranges::any_of(
      names_.Meant(name), [](const std::string& family) { return !Installed(family).isEmpty(); });
}

QStringList FontTable::Families(const std::string& name) const {
  QStringList families;
  for (const std::string& family : names_.Wanted(name)) {
    const QString installed = Installed(family);
    if (!installed.isEmpty() && !families.contains(installed)) families.append(installed);
  }
  if (families.isEmpty()) families = QFontDatabase::families(QFontDatabase::SimplifiedChinese);
  return families.isEmpty() ? QFontDatabase::families().mid(0, 1) : families;
}

}  // namespace td
