// The scan of a form under the sheet.
#include <QDoubleSpinBox>
#include <QListWidget>
#include <QPainter>
#include <QPdfWriter>
#include <QPushButton>
#include <QSlider>

#include "designer/sheet/scan_file.h"
#include "designer/window/aids_file.h"
#include "platform/failure.h"
#include "shown_designer.h"

namespace td::designer {
namespace {

TEST(ScanPlacing, ThreePointsStraightenATurnedAndStretchedScan) {
  // Pixels of a scan that is turned by two degrees and stretched differently along and across.
  QTransform toPixels;
  toPixels.translate(37, 12).rotate(2).scale(0.141, 0.137);
  Scan scan{.image = QImage(10, 10, QImage::Format_RGB32), .toSheet = {}};
  const std::array<QPointF, 3> known = {QPointF(600, 500), QPointF(9000, 500), QPointF(600, 7000)};
  std::array<QPointF, 3> pixels;
  for (std::size_t i = 0; i < known.size(); ++i) pixels[i] = toPixels.map(known[i]);
  ASSERT_TRUE(PlaceByPoints(scan, pixels, {.first = known[0], .across = 8400, .down = 6500}));
  for (const QPointF any : {QPointF(0, 0), QPointF(11906, 16838), QPointF(4321, 987)}) {
    const QPointF placed = scan.toSheet.map(toPixels.map(any));
    EXPECT_NEAR(placed.x(), any.x(), 0.01);
    EXPECT_NEAR(placed.y(), any.y(), 0.01);
  }
}

TEST(ScanPlacing, PointsInOneLineChangeNothing) {
  Scan scan{.image = QImage(10, 10, QImage::Format_RGB32), .toSheet = QTransform::fromScale(3, 3)};
  EXPECT_FALSE(PlaceByPoints(scan, {QPointF(0, 0), QPointF(10, 0), QPointF(20, 0.1)},
                             {.first = {}, .across = 100, .down = 100}));
  EXPECT_EQ(scan.toSheet, QTransform::fromScale(3, 3));
}

TEST(ScanPlacing, AScanOfTheSheetsSizeLiesOnItAndOthersFillItsWidth) {
  QImage image(2480, 3508, QImage::Format_RGB32);
  image.setDotsPerMeterX(11811);
  image.setDotsPerMeterY(11811);
  EXPECT_NEAR(NaturalPlacing(image, 11906, 16838).map(QPointF(2480, 0)).x(), 11906, 5);
  image.setDotsPerMeterX(2835);
  image.setDotsPerMeterY(2835);
  EXPECT_NEAR(NaturalPlacing(image, 11906, 16838).map(QPointF(2480, 0)).x(), 11906, 0.01);
}

class ScanOfForm : public ShownDesigner {
 protected:
  // A page with a black square at 20, 30 mm.
  static QImage Page() {
    QImage image(1000, 600, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).fillRect(200, 300, 50, 50, Qt::black);
    return image;
  }
  std::string Saved(const char* name) {
    const std::string path = folder_ / name;
    EXPECT_TRUE(Page().save(QString::fromStdString(path)));
    return path;
  }
};

TEST_F(ScanOfForm, PicturesOfEachKindAreRead) {
  for (const char* name : {"form.png", "form.jpg", "form.tif"}) {
    EXPECT_EQ(ReadScan(Saved(name)).size(), QSize(1000, 600)) << name;
  }
}

TEST_F(ScanOfForm, PagesOfAPdfAreRead) {
  const std::string path = folder_ / "form.pdf";
  {
    QPdfWriter writer(QString::fromStdString(path));
    writer.setPageSize(QPageSize(QPageSize::A5));
    writer.setPageMargins({});
    writer.setResolution(300);
    QPainter painter(&writer);
    painter.fillRect(0, 0, 100, 100, Qt::black);
    writer.newPage();
    painter.fillRect(400, 0, 100, 100, Qt::black);
  }
  EXPECT_EQ(PagesOfScan(path), 2);
  const QImage second = ReadScan(path, 2);
  EXPECT_NEAR(second.width() / 300.0 * 25.4, 148, 0.5);
  EXPECT_NEAR(1000.0 * second.width() / second.dotsPerMeterX(), 148, 0.5);
  EXPECT_EQ(qGray(second.pixel(450, 50)), 0);
  EXPECT_EQ(qGray(second.pixel(50, 50)), 255);
}

TEST_F(ScanOfForm, WhatIsNoPictureIsToldWithItsName) {
  const std::string path = folder_.Write("notes.txt", "no picture").string();
  try {
    (void)ReadScan(path);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_NE(failure.Description().find("notes.txt"), std::string::npos);
  }
  const std::string broken = folder_.Write("broken.pdf", "%PDF-1.4 nothing").string();
  EXPECT_THROW((void)PagesOfScan(broken), Failure);
}

TEST_F(ScanOfForm, IsDraggedAndSizedAndKeptBesideTheFormat) {
  Open();
  Window().TheScanPanel().Load(Saved("form.png"));
  const QPointF corner = Sheet().Aids().scan.toSheet.map(QPointF(0, 0));
  Find<QPushButton>("dragScan").click();
  Drag(PixelAt(50, 50), PixelAt(60, 55));
  const QPointF moved = Sheet().Aids().scan.toSheet.map(QPointF(0, 0));
  EXPECT_NEAR(MillimetresOf(moved.x() - corner.x()), 10, 0.4);
  EXPECT_NEAR(MillimetresOf(moved.y() - corner.y()), 5, 0.4);
  EXPECT_FALSE(Document().IsModified()) << "the scan is no part of the format";
  Press(Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(Find<QPushButton>("dragScan").isChecked());

  Find<QDoubleSpinBox>("scanWidth").setValue(241);
  Find<QDoubleSpinBox>("scanHeight").setValue(140);
  Find<QDoubleSpinBox>("scanLeft").setValue(-1.5);
  Find<QSlider>("scanOpacity").setValue(30);
  const QTransform placed = Sheet().Aids().scan.toSheet;
  EXPECT_NEAR(MillimetresOf(placed.map(QPointF(1000, 600)).x()), 239.5, 0.01);
  CloseWindow();

  Open();
  const Scan& kept = Sheet().Aids().scan;
  EXPECT_EQ(kept.toSheet, placed);
  EXPECT_EQ(kept.opacity, 0.3);
  EXPECT_EQ(kept.image.convertToFormat(QImage::Format_RGB32), Page());
  Find<QPushButton>("removeScan").click();
  CloseWindow();
  Open();
  EXPECT_TRUE(Sheet().Aids().scan.Empty());
}

TEST_F(ScanOfForm, IsSeenUnderTheItemsAndNeverPrinted) {
  Open();
  Window().TheScanPanel().Load(Saved("form.png"));
  Sheet().Aids().scan.toSheet = QTransform::fromScale(TwipsOf(0.1), TwipsOf(0.1));
  Sheet().Aids().scan.opacity = 1;
  Sheet().ShowAids();
  Settle();
  const QImage shown = Sheet().viewport()->grab().toImage();
  EXPECT_LT(qGray(shown.pixel(PixelAt(22.5, 32.5))), 60);
  for (const SheetPiece& piece : Sheet().Page().pieces) {
    for (const DrawingCommand& command : piece.commands) {
      EXPECT_FALSE(std::holds_alternative<PlacedPicture>(command));
    }
  }
}

TEST_F(ScanOfForm, ThreeClicksAndDistancesPlaceIt) {
  Open();
  Window().TheScanPanel().Load(Saved("form.png"));
  Settle();
  // Its square's corners, as they are seen.
  const auto seen = [this](double x, double y) {
    const QPointF at = Sheet().Aids().scan.toSheet.map(QPointF(x, y));
    return Sheet().ToView(Point{at.x(), at.y()}).toPoint();
  };
  const QPoint first = seen(200, 300);
  const QPoint second = seen(250, 300);
  const QPoint third = seen(200, 350);
  Find<QPushButton>("scanPoints").click();
  EXPECT_TRUE(WidgetNamed("scanHint").isVisible());
  WhenShown("distances", [](QDialog& dialog) {
    dialog.findChild<QDoubleSpinBox*>("across")->setValue(60);
    dialog.findChild<QDoubleSpinBox*>("down")->setValue(40);
    dialog.findChild<QDoubleSpinBox*>("left")->setValue(30);
    dialog.findChild<QDoubleSpinBox*>("top")->setValue(25);
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  for (const QPoint at : {first, second, third}) Click(at);
  Settle();
  const QPointF corner = Sheet().Aids().scan.toSheet.map(QPointF(200, 300));
  const QPointF other = Sheet().Aids().scan.toSheet.map(QPointF(250, 350));
  // A click hits a pixel; the square is ten pixels wide.
  const double pixel = 60.0 / (second.x() - first.x());
  EXPECT_NEAR(MillimetresOf(corner.x()), 30, 2 * pixel);
  EXPECT_NEAR(MillimetresOf(corner.y()), 25, 2 * pixel);
  EXPECT_NEAR(MillimetresOf(other.x()), 90, 4 * pixel);
  EXPECT_NEAR(MillimetresOf(other.y()), 65, 4 * pixel);
}

TEST_F(ScanOfForm, EscapeGivesUpThePoints) {
  Open();
  Window().TheScanPanel().Load(Saved("form.png"));
  const QTransform before = Sheet().Aids().scan.toSheet;
  Find<QPushButton>("scanPoints").click();
  Click(PixelAt(30, 30));
  Press(Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(WidgetNamed("scanHint").isVisible());
  EXPECT_EQ(Sheet().Tool(), nullptr);
  EXPECT_EQ(Sheet().Aids().scan.toSheet, before);
}

TEST_F(ScanOfForm, GoesWhereTheFormatGoes) {
  Open({77});
  Window().TheScanPanel().Load(Saved("form.png"));
  AnswerName("甲");
  Trigger("save");
  Open({77, "甲"});
  EXPECT_FALSE(Sheet().Aids().scan.Empty()) << "saved for the first time";
  AnswerName("乙");
  Trigger("rename");
  Open({77, "乙"});
  EXPECT_FALSE(Sheet().Aids().scan.Empty()) << "renamed";
  AnswerName("丙");
  Trigger("copyFormat");
  Open({77, "丙"});
  EXPECT_FALSE(Sheet().Aids().scan.Empty()) << "copied";
  Answer("question", "answer0");
  Trigger("deleteFormat");
  EXPECT_EQ(Document().Current().Name(), "乙");
  EXPECT_FALSE(Sheet().Aids().scan.Empty()) << "that of the other format";
  const auto files = std::filesystem::directory_iterator((folder_ / "state") / "designer");
  EXPECT_EQ(std::distance(begin(files), end(files)), 2);
}

TEST_F(ScanOfForm, OfANewFormatStaysOutOfTheNextOne) {
  Open();
  AnswerName("新表单");
  Trigger("new");
  Window().TheScanPanel().Load(Saved("form.png"));
  WhenShown("formats", [](QDialog& dialog) {
    dialog.findChild<QListWidget*>("list")->setCurrentRow(0);
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  Trigger("open");
  EXPECT_NE(Document().Current().Name(), "新表单");
  EXPECT_TRUE(Sheet().Aids().scan.Empty());
}

TEST_F(ScanOfForm, FilesOfScansSayNothingOfTheDatabase) {
  Open();
  Window().TheScanPanel().Load(Saved("form.png"));
  for (const auto& entry : std::filesystem::directory_iterator((folder_ / "state") / "designer")) {
    EXPECT_EQ(entry.path().filename().string().find("sample"), std::string::npos);
    EXPECT_EQ(entry.status().permissions() & std::filesystem::perms::others_all,
              std::filesystem::perms::none);
  }
}

}  // namespace
}  // namespace td::designer
