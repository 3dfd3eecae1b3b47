// The page that is measured.
#include "calibration/test_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "calibration/calibration.h"
#include "page_document/page_document.h"

namespace td {
namespace {

// A machine without printers, whose letters are as wide as high.
class NoMachine : public DocumentHost {
 public:
  std::vector<std::string> Devices() override { return {}; }
  std::string DefaultDevice() override { return {}; }
  bool HasDevice(const std::string&) override { return false; }
  std::optional<PaperExtent> DefaultSheet() override { return std::nullopt; }
  double LineHeight(const TextLine&) override { return 100; }
  double LineWidth(const TextLine&) override { return 100; }
  void Print(PageDocument&, bool) override {}
  bool ShowPageSetup(PageDocument&) override { return false; }
  void Export(PageDocument&, const std::string&, std::int32_t) override {}
  void PreviewChanged(PageDocument&) override {}
  void PointerChanged(std::int32_t) override {}
  void Complain(const std::string&) override {}
};

class TestPage : public testing::Test {
 protected:
  void Draw(double width, double height) {
    DrawTestPage(document_, {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre},
                 {.lines = {"middle"}, .topLeft = "a", .topRight = "b", .bottomLeft = "c"});
  }
  // Whether a cross has its middle there, millimetres.
  [[nodiscard]] bool HasCross(double x, double y) const {
    bool across = false;
    bool along = false;
    for (const DrawingCommand& command : document_.Pages().at(0).commands) {
      const auto* line = std::get_if<Line>(&command);
      if (line == nullptr) continue;
      const double middleX = (line->x1 + line->x2) / 2 / kTwipsPerMillimetre;
      const double middleY = (line->y1 + line->y2) / 2 / kTwipsPerMillimetre;
      if (std::hypot(middleX - x, middleY - y) > 0.001) continue;
      across = across || line->y1 == line->y2;
      along = along || line->x1 == line->x2;
    }
    return across && along;
  }
  [[nodiscard]] bool HasText(const std::string& text) const {
    for (const DrawingCommand& command : document_.Pages().at(0).commands) {
      const auto* box = std::get_if<BoxText>(&command);
      if (box != nullptr && box->text == text) return true;
    }
    return false;
  }

  NoMachine host_;
  PageDocument document_{host_};
};

TEST_F(TestPage, HasACrossNearEachCorner) {
  Draw(241, 140);
  ASSERT_EQ(document_.Pages().size(), 1U);
  for (const double x : {20, 221}) {
    for (const double y : {20, 120}) EXPECT_TRUE(HasCross(x, y)) << x << " " << y;
  }
  EXPECT_FALSE(HasCross(120, 70));
}

TEST_F(TestPage, HasTheSheetUprightWhateverWasSet) {
  document_.PutOrientation(kLandscape);
  Draw(241, 140);
  EXPECT_NEAR(document_.Pages()[0].width / kTwipsPerMillimetre, 241, 0.01);
  EXPECT_FALSE(document_.Pages()[0].landscape);
}

TEST_F(TestPage, HasNumbersFromTheEdgesAndWords) {
  Draw(210, 297);
  for (const char* text : {"middle", "a", "b", "c", "100", "290"}) EXPECT_TRUE(HasText(text));
  Draw(200, 280);
  EXPECT_FALSE(HasText("280")) << "it would be cut off by the edge";
}

TEST_F(TestPage, LeavesOutTheWordsWhereTheyHaveNoRoom) {
  Draw(60, 40);
  EXPECT_TRUE(HasCross(12, 8));
  EXPECT_FALSE(HasText("middle"));
}

}  // namespace
}  // namespace td
