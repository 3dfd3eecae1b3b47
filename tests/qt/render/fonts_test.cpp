#include "render/fonts.h"

#include <gtest/gtest.h>

#include <QFile>
#include <memory>

#include "render/text_layout.h"
#include "test_tools.h"

namespace td {
namespace {

std::string First(const FontTable& table, const std::string& name) {
  return table.Families(name).value(0).toStdString();
}

TEST(Fonts, ChineseNamesAndTheirLatinFormsStandForTheSameFamily) {
  const FontTable table("");
  for (const auto& [chinese, latin] : {std::pair("宋体", "SimSun"),
                                       {"黑体", "SimHei"},
                                       {"楷体", "KaiTi"},
                                       {"仿宋", "FangSong"},
                                       {"楷体_GB2312", "KaiTi_GB2312"}}) {
    EXPECT_EQ(First(table, chinese), First(table, latin)) << chinese;
  }
  EXPECT_EQ(First(table, "宋体"), "Noto Serif CJK SC");
  EXPECT_EQ(First(table, "黑体"), "Noto Sans CJK SC");
  EXPECT_EQ(First(table, "楷体"), "AR PL UKai CN");
  EXPECT_EQ(First(table, "仿宋"), "AR PL UMing CN");
}

TEST(Fonts, LatinNamesStandForFamiliesOfTheirStyle) {
  const FontTable table("");
  EXPECT_EQ(First(table, "Arial"), "Liberation Sans");
  EXPECT_EQ(First(table, "Times New Roman"), "Liberation Serif");
  EXPECT_EQ(First(table, "Courier New"), "Liberation Mono");
}

TEST(Fonts, TextIsLaidOutInTheFamilyThatItsFontStandsFor) {
  const auto font = std::make_shared<const TextFont>(TextFont{"Arial", 10, false, false});
  const auto placed = LayOut(BoxText{"Arial", 0, 0, 3000, 300, false, TextAlignment::kLeft, font});
  ASSERT_EQ(placed.size(), 1U);
  EXPECT_EQ(placed[0].face->raw.familyName(), "Liberation Sans");
}

TEST(Fonts, CaseBlanksAndTheSignOfVerticalFontsMakeNoDifference) {
  const FontTable table("");
  EXPECT_EQ(First(table, " ARIAL "), "Liberation Sans");
  EXPECT_EQ(First(table, "@黑体"), First(table, "黑体"));
}

TEST(Fonts, AnInstalledFamilyStandsForItself) {
  EXPECT_EQ(First(FontTable(""), "dejavu sans mono"), "DejaVu Sans Mono");
}

TEST(Fonts, AMissingFamilyFallsBackToOneWithTheChineseCharacters) {
  const FontTable table("");
  EXPECT_EQ(First(table, "没有这种字体"), "Noto Serif CJK SC");
  EXPECT_EQ(First(table, ""), "Noto Serif CJK SC");
  EXPECT_TRUE(table.Families("Arial").contains("Noto Sans CJK SC"));
}

TEST(Fonts, TheConfigurationComesFirstAndSkipsWhatItCannotRead) {
  const Folder folder;
  QFile file(QString::fromStdString(folder.Path("fonts.conf")));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(
      "# 本单位的字体\nno equals sign\n宋体 = Not Installed, AR PL UMing CN # thin\n"
      "公司专用体=AR PL UKai CN\n=\n");
  file.close();
  const FontTable table(folder.Path("fonts.conf"));
  EXPECT_EQ(First(table, "宋体"), "AR PL UMing CN");
  EXPECT_EQ(First(table, "公司专用体"), "AR PL UKai CN");
  EXPECT_EQ(First(table, "黑体"), "Noto Sans CJK SC");
}

TEST(Fonts, TheConfigurationLiesInTheUsersOwnFolder) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", "/home/clerk/settings");
  EXPECT_EQ(FontTable::ConfigurationFile(), "/home/clerk/settings/qbtdprinter/fonts.conf");
  qputenv("XDG_CONFIG_HOME", before);
}

}  // namespace
}  // namespace td
