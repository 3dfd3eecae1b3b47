// What the preview shows is the page as the image output draws it, at every zoom and resolution.
#include <QImage>
#include <cstdlib>

#include "calibration/calibrated_pages.h"
#include "calibration/machine_calibrations.h"
#include "qt/render/outputs.h"
#include "shown_preview.h"
#include "test_tools.h"

namespace td {
namespace {

using PreviewPixels = ShownPreview;

// The part of all pixels that differ visibly.
double DifferingPart(const QImage& shown, const QImage& wanted) {
  constexpr int kVisible = 60;  // of 255
  int differing = 0;
  for (int y = 0; y < wanted.height(); ++y) {
    for (int x = 0; x < wanted.width(); ++x) {
      const int difference = qGray(shown.pixel(x, y)) - qGray(wanted.pixel(x, y));
      if (std::abs(difference) > kVisible) ++differing;
    }
  }
  return differing / (1.0 * wanted.width() * wanted.height());
}

void ExpectPixelsOfThePage(PreviewWindow& window, const Page& page, double zoom) {
  PageView& view = ViewOf(window);
  const double ratio = view.devicePixelRatioF();
  const QImage whole = view.viewport()->grab().toImage();
  const QRectF sheet = view.SheetRect();
  const QImage wanted = RenderPage(page, view.logicalDpiX() * ratio * zoom / 100);
  const QImage shown = whole.copy(qRound(sheet.left() * ratio), qRound(sheet.top() * ratio),
                                  wanted.width(), wanted.height());
  EXPECT_LT(DifferingPart(shown, wanted), 0.001) << "zoom " << zoom << ", ratio " << ratio;
  EXPECT_GT(
      DifferingPart(shown,
                    QImage(wanted.size(), wanted.format()).convertToFormat(QImage::Format_RGB32)),
      0.5)
      << "the page is there at all";
}

TEST_F(PreviewPixels, AreThoseOfTheImageOutputAtEveryZoom) {
  Show([this] { MakeDocument(1); },
       [this](PreviewWindow& window) {
         window.resize(1000, 850);
         EXPECT_EQ(window.devicePixelRatioF(), std::atof(PREVIEW_SCALE));
         auto& document = dynamic_cast<PageDocument&>(frame_.Surface());
         for (const double zoom : {100.0, 50.0, 75.0}) {
           document.PutZoom(zoom);
           QTest::qWait(50);
           ExpectPixelsOfThePage(window, document.Pages()[0], zoom);
         }
       });
}

TEST_F(PreviewPixels, ShowAPageOnItsSheetWhateverThePaperIsMeanwhile) {
  frame_.Surface().PutOrientation(1);
  Show([this] { MakeDocument(1); },
       [this](PreviewWindow& window) {
         window.resize(1000, 850);
         auto& document = dynamic_cast<PageDocument&>(frame_.Surface());
         document.PutPaperSize(9);
         document.PutOrientation(0);
         document.PutZoom(75);
         QTest::qWait(50);
         const QRectF sheet = ViewOf(window).SheetRect();
         EXPECT_NEAR(sheet.width() / sheet.height(), 210.0 / 148, 0.01);
         ExpectPixelsOfThePage(window, document.Pages()[0], 75);
       });
}

// A calibration is for what the printer does to paper.
TEST_F(PreviewPixels, AreThoseOfThePageWhateverItsPrinterIsCalibratedBy) {
  const Folder folder;
  setenv("XDG_CONFIG_HOME", folder.Path("user").c_str(), 1);
  setenv("XDG_CONFIG_DIRS", folder.Path("machine").c_str(), 1);
  settings_->printer = "Dot";
  Show([this] { MakeDocument(1); },
       [this](PreviewWindow& window) {
         window.resize(1000, 850);
         auto& document = dynamic_cast<PageDocument&>(frame_.Surface());
         const Page page = document.Pages()[0];
         PutCalibration(CalibrationFiles::OfThisMachine().user,
                        {.printer = "Dot",
                         .sheet = MillimetresOf(page.Sheet()),
                         .asked = {20, 20},
                         .topLeft = {25, 24},
                         .topRight = {15, 24},
                         .bottomLeft = {25, 16}});
         ASSERT_TRUE(CorrectionFor("Dot", {page},
                                   [](const std::string&) { return LandscapeTurn::kTopLeft; }, {}));
         document.PutZoom(75);
         QTest::qWait(50);
         ExpectPixelsOfThePage(window, page, 75);
       });
}

TEST_F(PreviewPixels, LinesCloseTheCornersOfATable) {
  constexpr double kPenWidth = 90;
  const auto drawTable = [this] {
    PrintSurface& surface = frame_.Surface();
    surface.PutPaperSize(11);
    surface.PutPenWidth(kPenWidth);
    surface.StartDoc();
    const QRectF table(kTable.topLeft() * kTwipsPerMillimetre, kTable.size() * kTwipsPerMillimetre);
    surface.DrawLine(table.left(), table.top(), table.right(), table.top());
    surface.DrawLine(table.left(), table.bottom(), table.right(), table.bottom());
    surface.DrawLine(table.left(), table.top(), table.left(), table.bottom());
    surface.DrawLine(table.right(), table.top(), table.right(), table.bottom());
    surface.EndDoc();
  };
  Show(drawTable, [](PreviewWindow& window) {
    window.resize(1000, 850);
    QTest::qWait(50);
    PageView& view = ViewOf(window);
    const double ratio = view.devicePixelRatioF();
    const QImage sheet = view.viewport()->grab(view.SheetRect().toRect()).toImage();
    ExpectClosedCorners(sheet, view.logicalDpiX() * ratio, kPenWidth);
  });
}

}  // namespace
}  // namespace td
