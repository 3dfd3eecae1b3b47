#include "barcodes/barcode_settings.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "expect_failure.h"

namespace td {
namespace {

class BarcodeSettingsTest : public testing::Test {
 protected:
  BarcodeSettingsTest()
      : file_(testing::TempDir() + "barcode_settings_" + std::to_string(getpid()) + ".conf") {}
  ~BarcodeSettingsTest() override { std::filesystem::remove(file_); }

  BarcodeSettings Read(const std::string& content) {
    std::ofstream(file_) << content;
    return ReadBarcodeSettings(file_);
  }

  std::filesystem::path file_;
};

TEST_F(BarcodeSettingsTest, AMissingFileLeavesTheDefaults) {
  const BarcodeSettings settings = ReadBarcodeSettings(file_);
  EXPECT_EQ(settings, BarcodeSettings{});
  EXPECT_EQ(settings.symbology, "code128");
  EXPECT_EQ(settings.barColour, 0x000000U);
  EXPECT_EQ(settings.background, 0xFFFFFFU);
  EXPECT_TRUE(settings.showText);
  EXPECT_EQ(ReadBarcodeSettings({}), BarcodeSettings{});
}

TEST_F(BarcodeSettingsTest, EachNameIsReadAndCommentsAndBlanksAreSkipped) {
  const BarcodeSettings settings = Read(
      "# for the old printers\n\n  symbology = code39 \r\nbars=#102aF0\n"
      "background = #fefefe\ntext = no\n");
  EXPECT_EQ(settings, (BarcodeSettings{"code39", 0x102AF0, 0xFEFEFE, false}));
}

TEST_F(BarcodeSettingsTest, ANameThatIsLeftOutKeepsItsDefault) {
  EXPECT_EQ(Read("background = none\n"), (BarcodeSettings{"code128", 0, std::nullopt, true}));
}

TEST_F(BarcodeSettingsTest, AWrongLineIsNamed) {
  for (const char* line :
       {"symbology = code999", "bars = black", "bars = #12345", "bars = #12345g", "bars = none",
        "text = perhaps", "text", "= 5", "colour = #000000", "bars = #-12345"}) {
    const std::string description = ExpectFailure(
        kInvalidCall, [&] { Read(std::string("# first\n") + line + "\ntext = no\n"); });
    EXPECT_NE(description.find("第 2 行"), std::string::npos) << line << ": " << description;
  }
}

TEST_F(BarcodeSettingsTest, OnlyARegularFileOfAModestSizeIsRead) {
  const auto refused = [](const std::filesystem::path& file) {
    const std::string description =
        ExpectFailure(kInvalidCall, [&] { (void)ReadBarcodeSettings(file); });
    EXPECT_NE(description.find(file.string()), std::string::npos) << description;
    return description;
  };
  ASSERT_EQ(mkfifo(file_.c_str(), 0600), 0);
  EXPECT_NE(refused(file_).find("不是普通文件"), std::string::npos) << "and nobody waits for it";
  EXPECT_NE(refused("/dev/zero").find("不是普通文件"), std::string::npos);
  EXPECT_NE(refused(testing::TempDir()).find("文件夹"), std::string::npos);
  std::filesystem::remove(file_);
  EXPECT_NE((std::ofstream(file_) << std::string(70'000, '#'), refused(file_)).find("太大"),
            std::string::npos);
}

TEST_F(BarcodeSettingsTest, AFileThatCannotBeOpenedIsNoMissingOne) {
  std::filesystem::create_symlink(file_, file_);
  EXPECT_EQ(ReadBarcodeSettings(file_), BarcodeSettings{}) << "it leads to no file";
  std::filesystem::remove(file_);
  EXPECT_EQ(ReadBarcodeSettings(file_ / "below"), BarcodeSettings{});
}

TEST_F(BarcodeSettingsTest, TheFileLiesInTheUsersConfigurationFolder) {
  setenv("HOME", "/home/someone", 1);
  setenv("XDG_CONFIG_HOME", "/conf", 1);
  EXPECT_EQ(BarcodeSettingsFile(), "/conf/qbtdprinter/barcode.conf");
  setenv("XDG_CONFIG_HOME", "", 1);
  EXPECT_EQ(BarcodeSettingsFile(), "/home/someone/.config/qbtdprinter/barcode.conf");
  unsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(BarcodeSettingsFile(), "/home/someone/.config/qbtdprinter/barcode.conf");
  unsetenv("HOME");
  EXPECT_TRUE(BarcodeSettingsFile().empty());
}

}  // namespace
}  // namespace td
