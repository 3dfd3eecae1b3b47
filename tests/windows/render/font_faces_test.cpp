#include "windows/render/font_faces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "sample_page.h"
#include "windows/api/wide_text.h"
#include "windows/render/font_table.h"

namespace td {
namespace {

std::string PrimaryFamily(const std::string& name) {
  FontFaces faces({name, 10, false, false});
  return FromWide(faces.Primary()->family);
}

TEST(FontFaces, TheNameOfAnInstalledFamilyIsThatFamily) {
  EXPECT_EQ(PrimaryFamily("Liberation Sans"), "Liberation Sans");
  EXPECT_EQ(PrimaryFamily(" liberation SANS "), "Liberation Sans");
  EXPECT_EQ(PrimaryFamily("@Liberation Sans"), "Liberation Sans");
}

TEST(FontFaces, AnUnknownNameGetsAFamilyThatHasTheChineseCharacters) {
  FontFaces faces({"no such font", 10, false, false});
  EXPECT_EQ(faces.Glyph(U'套').face, faces.Primary());
}

TEST(FontFaces, AChineseFontHasSquareCharactersAndALineOfItsHeight) {
  FontFaces faces({"AR PL UMing CN", 10, false, false});
  EXPECT_NEAR(faces.Glyph(U'套').advance, 200, 0.01);
  EXPECT_NEAR(faces.Ascent() + faces.Descent(), 200, 60);
  EXPECT_GE(faces.LineHeight(), faces.Ascent() + faces.Descent());
}

TEST(FontFaces, CharactersBeyondTheFirst65536AreFound) {
  FontFaces faces({"宋体", 10, false, false});
  EXPECT_NE(faces.Glyph(U'\U00020021').face, nullptr);
  EXPECT_EQ(faces.Glyph(U'\U000F0000').face, nullptr);
}

TEST(FontFaces, BoldIsTheFamilysOwnOrMade) {
  FontFaces own({"Liberation Sans", 10, true, false});
  EXPECT_TRUE(own.Primary()->bold);
  EXPECT_FALSE(own.Primary()->syntheticBold);
  FontFaces made({"AR PL UMing CN", 10, true, false});
  EXPECT_FALSE(made.Primary()->bold);
  EXPECT_TRUE(made.Primary()->syntheticBold);
  EXPECT_GT(made.Primary()->lineThickness, 0);
}

TEST(FontFaces, AreReadAnewWhereTheSystemHasTakenTheDeviceBack) {
  FontFaces before({"Liberation Mono", 10, false, false});
  DeleteDC(ScreenDevice());  // as when the thread ends that made it
  FontFaces after({"Liberation Mono", 10, true, true});
  EXPECT_EQ(after.Glyph(U'W').advance, before.Glyph(U'W').advance);
  EXPECT_GT(ShapedWidth(L"W", *after.Primary()), 0);
}

TEST(FontFaces, ANameThatTheListOfFamiliesDoesNotTellIsThatOfTheSystem) {
  ASSERT_EQ(std::ranges::count(InstalledFamilies(), L"别名宋体", &InstalledFamily::name), 0);
  ASSERT_NE(FindFamily(L"别名宋体"), nullptr);
  EXPECT_EQ(FindFamily(L"别名宋体"), FindFamily(L"别名宋体")) << "good as long as the process";
  EXPECT_EQ(FindFamily(L"no such font"), nullptr);
  FontFaces faces({"别名宋体", 10, false, false});
  EXPECT_EQ(faces.Glyph(U'套').face, faces.Primary());
}

TEST(FontFaces, AUsersTableComesBeforeAllOthers) {
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("fonts-" + std::to_string(GetCurrentProcessId()));
  std::ofstream(file) << "# ours\n宋体 = no such font, Liberation Mono # fixed\nArial =\nnothing\n";
  const FontTable table(file);
  EXPECT_EQ(table.Families("宋体").front()->name, L"Liberation Mono");
  EXPECT_EQ(table.Families("Liberation Sans").front()->name, L"Liberation Sans");
  std::filesystem::remove(file);
  EXPECT_NE(FontTable(file).Families("宋体").front()->name, L"Liberation Mono");
}

}  // namespace
}  // namespace td
