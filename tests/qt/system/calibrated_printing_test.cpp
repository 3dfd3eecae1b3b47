// A printer that puts everything elsewhere, measured and made up for.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

#include "calibration/calibration.h"
#include "calibration/machine_calibrations.h"
#include "calibration/test_page.h"
#include "page_document/page_document.h"
#include "print_queue.h"
#include "qt/render/outputs.h"
#include "qt/system/desktop_host.h"
#include "qt/system/message_boxes.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 400;
constexpr double kFuzz = kTolerance + 25.4 / kDotsPerInch;
constexpr PaperExtent kA4{210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};

// What such a driver does to each page, in points from the sheet's bottom left corner: 2.3 mm to
// the right and down, half a per cent larger.
constexpr const char* kShiftedAndStretched = "1.005 0 0 1.005 6.52 -10.73";
// The same and a turn, more along than across.
constexpr const char* kCrooked = "1.005 0.004 -0.006 0.996 6.52 -4";

std::string DriverThat(const std::string& misses, const std::string& landscape = "Plus90") {
  return "s|^\\(\\*PageSize A4[^\"]*\"<<\\)|\\1/Install{[" + misses +
         "]concat}bind |; s/^\\(\\*LandscapeOrientation: \\).*/\\1" + landscape + "/";
}

// The middle of the cross that is seen in a region: of its longest row and its longest column.
QPointF CrossIn(const QImage& image, const QRectF& region) {
  const double pixels = kDotsPerInch / 25.4;
  const QRect area = QRectF(region.topLeft() * pixels, region.size() * pixels).toAlignedRect();
  std::vector<int> rows(static_cast<std::size_t>(area.height()));
  std::vector<int> columns(static_cast<std::size_t>(area.width()));
  for (int y = 0; y < area.height(); ++y) {
    for (int x = 0; x < area.width(); ++x) {
      if (qGray(image.pixel(area.left() + x, area.top() + y)) >= 128) continue;
      ++rows[static_cast<std::size_t>(y)];
      ++columns[static_cast<std::size_t>(x)];
    }
  }
  const auto middle = [](const std::vector<int>& counts) {
    // A mark of a ruler and its number together are three quarters as long.
    const double least = *std::ranges::max_element(counts) * 0.85;
    double sum = 0;
    double weight = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
      if (counts[i] < least) continue;
      sum += (static_cast<double>(i) + 0.5) * counts[i];
      weight += counts[i];
    }
    return sum / weight;
  };
  return {(area.left() + middle(columns)) / pixels, (area.top() + middle(rows)) / pixels};
}

class CalibratedPrinting : public testing::Test {
 protected:
  void SetUp() override {
    QGuiApplication::setApplicationDisplayName(QString::fromStdString(UniqueTitle("calibrated")));
    setenv("XDG_CONFIG_HOME", folder_.Path("user").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", folder_.Path("machine").c_str(), 1);
    settings_.outcome = &outcome_;
    settings_.onComplaint = [this](const std::string& text) { complaints_.push_back(text); };
  }

  // What the queue makes of the document.
  std::string Print(const std::string& printer) {
    settings_.printer = printer;
    document_.PrintDoc();
    EXPECT_EQ(outcome_.jobs.size(), 1U);
    return outcome_.jobs.empty() ? std::string() : ResultOf(outcome_.jobs[0]);
  }

  // What a clerk does: prints the page, reads off three distances, has them kept.
  Calibration Measured(const std::string& printer) {
    settings_.calibrated = false;
    DrawTestPage(document_, kA4, {});
    const QImage image = ImageOf(Print(printer), kDotsPerInch);
    settings_.calibrated = true;
    const auto distances = [&image](double x, double y) {
      const QPointF cross = CrossIn(image, QRectF(x - 9, y - 9, 18, 18));
      return Distances{x < 105 ? cross.x() : 210 - cross.x(),
                       y < 148 ? cross.y() : 297 - cross.y()};
    };
    return {.printer = printer,
            .sheet = MillimetresOf(kA4),
            .asked = CrossesOf(kA4),
            .topLeft = distances(20, 20),
            .topRight = distances(190, 20),
            .bottomLeft = distances(20, 277)};
  }
  void Calibrate(const std::string& printer) {
    PutCalibration(CalibrationFiles::OfThisMachine().user, Measured(printer));
  }

  // Bars of 20 by 1 mm near three corners of a page and in its middle.
  void DrawBars(bool landscape) {
    document_.PutOrientation(landscape ? kLandscape : kPortrait);
    document_.PutPaperSize(kPaperA4);
    document_.PutPenWidth(kTwipsPerMillimetre);
    document_.StartDoc();
    const double width = landscape ? 297 : 210;
    const double height = landscape ? 210 : 297;
    for (const auto& [left, top] :
         {std::pair(10.0, 10.0), std::pair(width - 30, 10.0), std::pair(width / 2, height / 2),
          std::pair(10.0, height - 10)}) {
      document_.DrawLine(left * kTwipsPerMillimetre, top * kTwipsPerMillimetre,
                         (left + 20) * kTwipsPerMillimetre, top * kTwipsPerMillimetre);
    }
    document_.EndDoc();
  }

  // The furthest that ink on one sheet lies from where it lies on the other, millimetres.
  static double Furthest(const std::string& pdf, const std::string& other) {
    const QImage one = ImageOf(pdf, kDotsPerInch);
    const QImage two = ImageOf(other, kDotsPerInch);
    double furthest = 0;
    for (const QRectF region :
         {QRectF(0, 0, 70, 99), QRectF(140, 0, 70, 99), QRectF(70, 99, 70, 99),
          QRectF(0, 198, 70, 99), QRectF(140, 198, 70, 99)}) {
      const QRectF first = InkIn(one, kDotsPerInch, region);
      const QRectF second = InkIn(two, kDotsPerInch, region);
      EXPECT_EQ(first.isEmpty(), second.isEmpty());
      for (const QPointF apart :
           {first.topLeft() - second.topLeft(), first.bottomRight() - second.bottomRight()}) {
        furthest = std::max({furthest, std::abs(apart.x()), std::abs(apart.y())});
      }
    }
    return furthest;
  }

  const Folder folder_;
  FrameSettings settings_;
  DocumentOutcome outcome_;
  std::vector<std::string> complaints_;
  MessageBoxes messages_{MessageMode::kStandardError};
  DesktopHost host_{settings_, messages_};
  PageDocument document_{host_};
};

TEST_F(CalibratedPrinting, ComesRightOnAPrinterThatShiftsAndStretches) {
  const TemporaryQueue queue("printer-is-shared=false", DriverThat(kShiftedAndStretched));
  DrawBars(false);
  const std::string right = Print("QbTd-PDF");
  EXPECT_GT(Furthest(Print(queue.Name()), right), 2.2) << "that driver misses";

  Calibrate(queue.Name());
  const auto kept = CalibrationInForce(CalibrationFiles::OfThisMachine(), queue.Name(), kA4, {});
  ASSERT_TRUE(kept);
  const Distortion distortion = DistortionOf(*PlausibleMap(*kept));
  EXPECT_NEAR(distortion.shiftAcross, 2.3, kFuzz);
  EXPECT_NEAR(distortion.shiftAlong, 2.3, kFuzz);
  EXPECT_NEAR(distortion.stretchAcross, 0.5, 0.1);
  EXPECT_NEAR(distortion.stretchAlong, 0.5, 0.1);

  DrawBars(false);
  EXPECT_LT(Furthest(Print(queue.Name()), right), kFuzz);
  EXPECT_TRUE(complaints_.empty());
}

// The sheet is fed upright, and the page turned on it in one way or the other.
TEST_F(CalibratedPrinting, ComesRightOnPagesAcrossTheSheet) {
  for (const char* landscape : {"Plus90", "Minus90"}) {
    const TemporaryQueue straight("printer-is-shared=false", DriverThat("1 0 0 1 0 0", landscape));
    const TemporaryQueue crooked("printer-is-shared=false", DriverThat(kCrooked, landscape));
    DrawBars(true);
    const std::string right = Print(straight.Name());
    EXPECT_GT(Furthest(Print(crooked.Name()), right), 1.5);
    Calibrate(crooked.Name());
    DrawBars(true);
    EXPECT_LT(Furthest(Print(crooked.Name()), right), kFuzz) << landscape;
  }
}

TEST_F(CalibratedPrinting, IsForItsPrinterAndSheetAlone) {
  DrawBars(false);
  const std::string right = Print("QbTd-PDF");
  Calibration other{.printer = "QbTd-Margins",
                    .sheet = MillimetresOf(kA4),
                    .asked = {20, 20},
                    .topLeft = {25, 20},
                    .topRight = {15, 20},
                    .bottomLeft = {25, 20}};
  PutCalibration(CalibrationFiles::OfThisMachine().user, other);
  other.printer = "QbTd-PDF";
  other.sheet = {148, 210};
  PutCalibration(CalibrationFiles::OfThisMachine().user, other);
  EXPECT_LT(Furthest(Print("QbTd-PDF"), right), kFuzz);
  EXPECT_GT(Furthest(Print("QbTd-Margins"), right), 4.8);
  settings_.calibrated = false;
  EXPECT_LT(Furthest(Print("QbTd-Margins"), right), kFuzz) << "unless nobody wants it";
}

TEST_F(CalibratedPrinting, PrintsAsItIsAndSaysSoWhenTheFileIsBroken) {
  DrawBars(false);
  const std::string right = Print("QbTd-PDF");
  const std::string file = CalibrationFiles::OfThisMachine().user;
  QDir().mkpath(QFileInfo(QString::fromStdString(file)).path());
  QFile broken(QString::fromStdString(file));
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("{");
  broken.close();
  EXPECT_LT(Furthest(Print("QbTd-PDF"), right), kFuzz);
  ASSERT_EQ(complaints_.size(), 1U);
  EXPECT_NE(complaints_[0].find(file), std::string::npos);
}

TEST_F(CalibratedPrinting, LeavesFilesAsTheyAre) {
  DrawBars(false);
  const auto image = [&] {
    WritePdf(document_.Pages(), folder_.Path("bars.pdf"), "bars");
    return ImageOf(folder_.Path("bars.pdf"), 100);
  };
  const QImage before = image();
  const QImage seen = RenderPage(document_.Pages()[0], 100);
  const std::string html = ToHtml(document_.Pages(), "bars");
  PutCalibration(CalibrationFiles::OfThisMachine().user, {.printer = "QbTd-PDF",
                                                          .sheet = MillimetresOf(kA4),
                                                          .asked = {20, 20},
                                                          .topLeft = {25, 20},
                                                          .topRight = {15, 20},
                                                          .bottomLeft = {25, 20}});
  settings_.printer = "QbTd-PDF";
  EXPECT_EQ(image(), before);
  EXPECT_EQ(RenderPage(document_.Pages()[0], 100), seen);
  EXPECT_EQ(ToHtml(document_.Pages(), "bars"), html);
}

}  // namespace
}  // namespace td
