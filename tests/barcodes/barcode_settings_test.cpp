#include "barcodes/barcode_settings.h"

#include <gtest/gtest.h>
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
