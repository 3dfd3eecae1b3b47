// The files of calibrations: written, read, broken, the user's before the machine's.
#include "calibration/calibration_file.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "calibration/machine_calibrations.h"
#include "file_content.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr PaperExtent kA4{210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};
constexpr PaperExtent kForm{241 * kTwipsPerMillimetre, 140 * kTwipsPerMillimetre};

Calibration Of(const std::string& printer, const PaperExtent& sheet, double shift) {
  return {.printer = printer,
          .sheet = MillimetresOf(sheet),
          .asked = {20, 20},
          .topLeft = {20 + shift, 20.1},
          .topRight = {20 - shift, 20.1},
          .bottomLeft = {20 + shift, 19.9}};
}

class CalibrationFile : public testing::Test {
 protected:
  [[nodiscard]] std::string Path(const std::string& name) const {
    return (folder_ / name).string();
  }
  [[nodiscard]] std::string WhyNot(const std::string& content) const {
    folder_.Write("broken.json", content);
    try {
      static_cast<void>(ReadCalibrations(Path("broken.json")));
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Number(), kDeviceIo);
      return failure.Description().substr(Path("broken.json").size());
    }
    return {};
  }
  [[nodiscard]] std::optional<double> InForce(const std::string& printer,
                                              const PaperExtent& sheet) {
    const auto found = CalibrationInForce({Path("user/c.json"), Path("machine/c.json")}, printer,
                                          sheet, [this](const std::string&) { ++complaints_; });
    return found ? std::optional(found->topLeft.across) : std::nullopt;
  }

  ScratchFolder folder_;
  int complaints_ = 0;
};

TEST_F(CalibrationFile, IsMadeWithItsFolderAndReadBack) {
  PutCalibration(Path("new/folder/c.json"), Of("针式", kForm, 2.3));
  const auto read = ReadCalibrations(Path("new/folder/c.json"));
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].printer, "针式");
  EXPECT_EQ(read[0].sheet.across, 241);
  EXPECT_EQ(read[0].topLeft.across, 22.3);
  EXPECT_EQ(read[0].topRight.across, 17.7);
  EXPECT_EQ(read[0].bottomLeft.along, 19.9);
}

TEST_F(CalibrationFile, IsForPeopleToRead) {
  PutCalibration(Path("c.json"), Of("针式", kA4, 2.5));
  EXPECT_EQ(ContentOf(Path("c.json")), R"({
  "version": 1,
  "calibrations": [
    {
      "printer": "针式",
      "sheet": {
        "width": 210.0,
        "height": 297.0
      },
      "crosses": {
        "fromSides": 20.0,
        "fromEnds": 20.0
      },
      "topLeft": {
        "fromLeft": 22.5,
        "fromTop": 20.1
      },
      "topRight": {
        "fromRight": 17.5,
        "fromTop": 20.1
      },
      "bottomLeft": {
        "fromLeft": 22.5,
        "fromBottom": 19.9
      }
    }
  ]
}
)");
}

TEST_F(CalibrationFile, ThatIsNotThereHasNone) {
  EXPECT_TRUE(ReadCalibrations(Path("none.json")).empty());
}

TEST_F(CalibrationFile, KeepsOneForEachPrinterAndSheet) {
  PutCalibration(Path("c.json"), Of("A", kForm, 1));
  PutCalibration(Path("c.json"), Of("A", kA4, 2));
  PutCalibration(Path("c.json"), Of("B", kForm, 3));
  PutCalibration(Path("c.json"), Of("A", {kForm.width + 5, kForm.height}, 4));
  const auto all = ReadCalibrations(Path("c.json"));
  ASSERT_EQ(all.size(), 3U);
  EXPECT_EQ(FindCalibration(all, "A", kForm)->topLeft.across, 24);
  EXPECT_EQ(FindCalibration(all, "A", kA4)->topLeft.across, 22);
  EXPECT_EQ(FindCalibration(all, "B", kForm)->topLeft.across, 23);
  EXPECT_EQ(FindCalibration(all, "b", kForm), nullptr);
}

TEST_F(CalibrationFile, ForgetsWhatIsRemoved) {
  PutCalibration(Path("c.json"), Of("A", kForm, 1));
  PutCalibration(Path("c.json"), Of("B", kForm, 2));
  EXPECT_TRUE(RemoveCalibration(Path("c.json"), "A", kForm));
  EXPECT_FALSE(RemoveCalibration(Path("c.json"), "A", kForm));
  EXPECT_EQ(ReadCalibrations(Path("c.json")).size(), 1U);
}

TEST_F(CalibrationFile, IsBelievedWholeOrNotAtAll) {
  PutCalibration(Path("c.json"), Of("A", kForm, 1));
  const std::string good = ContentOf(Path("c.json"));
  const auto with = [&good](const std::string& old, const std::string& changed) {
    std::string content = good;
    content.replace(content.find(old), old.size(), changed);
    return content;
  };
  EXPECT_EQ(WhyNot(good), "");
  EXPECT_EQ(WhyNot("{"), "：第 2 个字节处不是 JSON");
  EXPECT_EQ(WhyNot(with("\"version\": 1", "\"version\": 2")), "：不认识版本 2");
  EXPECT_EQ(WhyNot(with("20.1", "60.1")), "：第 1 项不正确：距离不合理");
  EXPECT_EQ(WhyNot(with("\"printer\"", "\"note\": 1, \"printer\"")),
            "：第 1 项不正确：有不认识的内容");
  for (const std::string& bad :
       {std::string("[]"), std::string("null"), std::string("{}"), with("20.1", "\"20.1\""),
        with("\"topLeft\"", "\"topleft\""), with("\"calibrations\"", "\"calibration\"")}) {
    EXPECT_NE(WhyNot(bad), "") << bad;
  }
  fs::create_directory(Path("folder"));
  EXPECT_THROW(static_cast<void>(ReadCalibrations(Path("folder"))), Failure);
}

TEST_F(CalibrationFile, ThatIsBrokenIsNotWrittenOver) {
  folder_.Write("c.json", "mine");
  EXPECT_THROW(PutCalibration(Path("c.json"), Of("A", kForm, 1)), Failure);
  EXPECT_THROW(static_cast<void>(RemoveCalibration(Path("c.json"), "A", kForm)), Failure);
  EXPECT_EQ(ContentOf(Path("c.json")), "mine");
}

TEST_F(CalibrationFile, OfTheUserGoesBeforeTheMachines) {
  PutCalibration(Path("machine/c.json"), Of("A", kForm, 1));
  PutCalibration(Path("machine/c.json"), Of("A", kA4, 2));
  PutCalibration(Path("user/c.json"), Of("A", kForm, 3));
  EXPECT_EQ(InForce("A", kForm), 23);
  EXPECT_EQ(InForce("A", kA4), 22);
  EXPECT_EQ(InForce("B", kA4), std::nullopt);
  EXPECT_EQ(complaints_, 0);
}

TEST_F(CalibrationFile, ThatIsBrokenIsPassedOverAndTold) {
  PutCalibration(Path("machine/c.json"), Of("A", kForm, 1));
  fs::create_directory(Path("user"));
  folder_.Write("user/c.json", "[");
  EXPECT_EQ(InForce("A", kForm), 21);
  EXPECT_EQ(complaints_, 1);
}

TEST_F(CalibrationFile, IsFoundByTheConventionsOfTheDesktop) {
  const auto path = [this](const std::string& base) {
    return (folder_ / base / "qbtdprinter/calibration.json").string();
  };
  setenv("HOME", Path("home").c_str(), 1);
  unsetenv("XDG_CONFIG_HOME");
  unsetenv("XDG_CONFIG_DIRS");
  EXPECT_EQ(CalibrationFiles::OfThisMachine().user, path("home/.config"));
  EXPECT_EQ(CalibrationFiles::OfThisMachine().machine, "/etc/xdg/qbtdprinter/calibration.json");
  setenv("XDG_CONFIG_HOME", Path("own").c_str(), 1);
  setenv("XDG_CONFIG_DIRS", (Path("one") + ":" + Path("two")).c_str(), 1);
  EXPECT_EQ(CalibrationFiles::OfThisMachine().user, path("own"));
  EXPECT_EQ(CalibrationFiles::OfThisMachine().machine, path("one"));
  PutCalibration(path("two"), Of("A", kForm, 1));
  EXPECT_EQ(CalibrationFiles::OfThisMachine().machine, path("two"));
}

}  // namespace
}  // namespace td
