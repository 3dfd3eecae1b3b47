#include "render/fonts.h"

#include <QFile>
#include <QFontDatabase>
#include <QStandardPaths>
#include <QTextStream>
#include <algorithm>
#include <array>

namespace td {
namespace {

// Families of one style, the most wanted first.
// Liberation Serif lends its digits, which are all half as wide as an ideograph: those of the first
// two differ in width.
QStringList Song() {
  return {"Noto Serif CJK SC", "Source Han Serif SC", "Liberation Serif", "AR PL UMing CN"};
}
QStringList Hei() {
  return {"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Zen Hei", "WenQuanYi Micro Hei"};
}
QStringList Kai() {
  return {"AR PL UKai CN", "AR PL UMing CN"};
}
QStringList FangSong() {
  return {"AR PL UMing CN", "AR PL UKai CN"};
}
QStringList Sans() {
  return QStringList{"Liberation Sans", "DejaVu Sans"} + Hei();
}
QStringList Serif() {
  return QStringList{"Liberation Serif", "DejaVu Serif"} + Song();
}
QStringList Mono() {
  return QStringList{"Liberation Mono", "DejaVu Sans Mono"} + Song();
}

struct Style {
  QStringList (*families)();
  QStringList names;  // in lower case
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

QString Key(QString name) {
  name = name.trimmed().toLower();
  return name.startsWith('@') ? name.mid(1) : name;
}

// The way in which the database of fonts spells an installed family; empty if there is none.
QString Installed(const QString& family) {
  static const QStringList& families = *new QStringList(QFontDatabase::families());
  for (const QString& installed : families) {
    if (installed.compare(family, Qt::CaseInsensitive) == 0) return installed;
  }
  return {};
}

}  // namespace

FontTable::FontTable(const std::string& configuration) {
  Read(configuration);
}

const FontTable& FontTable::Instance() {
  static const FontTable table(ConfigurationFile());
  return table;
}

std::string FontTable::ConfigurationFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toStdString() +
         "/qbtdprinter/fonts.conf";
}

void FontTable::Read(const std::string& configuration) {
  if (configuration.empty()) return;
  QFile file(QString::fromStdString(configuration));
  if (!file.open(QIODevice::ReadOnly)) return;
  QTextStream stream(&file);
  while (!stream.atEnd()) {
    const QString line = stream.readLine().section('#', 0, 0);
    const qsizetype equals = line.indexOf('=');
    if (equals < 0) continue;
    QStringList& families = configured_[Key(line.left(equals))];
    for (const QString& family : line.mid(equals + 1).split(',', Qt::SkipEmptyParts)) {
      families.append(family.trimmed());
    }
  }
}

QStringList FontTable::Meant(const QString& key) const {
  QStringList meant;
  if (const auto found = configured_.find(key); found != configured_.end()) meant = found->second;
  meant.append(key);
  for (const Style& style : BuiltIn()) {
    if (style.names.contains(key)) meant += style.families();
  }
  return meant;
}

bool FontTable::Serves(const std::string& name) const {
  return std::ranges::any_of(Meant(Key(QString::fromStdString(name))),
                             [](const QString& family) { return !Installed(family).isEmpty(); });
}

QStringList FontTable::Families(const std::string& name) const {
  const QStringList wanted =
      Meant(Key(QString::fromStdString(name))) + Song() + Hei() + FangSong() + Sans();

  QStringList families;
  for (const QString& family : wanted) {
    const QString installed = Installed(family);
    if (!installed.isEmpty() && !families.contains(installed)) families.append(installed);
  }
  if (families.isEmpty()) families = QFontDatabase::families(QFontDatabase::SimplifiedChinese);
  return families.isEmpty() ? QFontDatabase::families().mid(0, 1) : families;
}

}  // namespace td
