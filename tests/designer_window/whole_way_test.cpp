// From an empty database and a scanned form to a format whose print stands in the form's boxes.
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <cmath>

#include "designer/sheet/sheet_painter.h"
#include "printed_document.h"
#include "program_run.h"
#include "qt/preview/window_font.h"
#include "qt/render/outputs.h"
#include "shown_designer.h"

namespace td::designer {
namespace {

struct FormBox {
  const char* caption;
  const char* column;
  QRectF place;  // millimetres on the paper form
};

constexpr double kFrameLeft = 12;
constexpr double kFrameTop = 15;
constexpr double kFrameWidth = 180;
constexpr double kFrameHeight = 100;

const std::vector<FormBox> kBoxes = {
    {"收件人", "FReceiver", {20, 20.5, 45, 8}}, {"电话", "FPhone", {80, 20.5, 40.5, 8}},
    {"地址", "FAddress", {20, 35, 100.5, 9.5}}, {"重量", "FWeight", {140, 60.5, 30, 7}},
    {"日期", "FDate", {150, 95, 38.5, 9}},
};

// The form as a scanner gives it: turned, stretched, and shifted.
class ScannedForm {
 public:
  ScannedForm() {
    constexpr double kPerMillimetre = 300 / 25.4;
    toPixels_.translate(95, 40).rotate(1.3).scale(kPerMillimetre * 1.02, kPerMillimetre * 0.985);
    image_ = QImage(2600, 1800, QImage::Format_RGB32);
    image_.fill(Qt::white);
    QPainter painter(&image_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setTransform(toPixels_);
    painter.setPen(QPen(Qt::black, 0.3));
    painter.drawRect(QRectF(kFrameLeft, kFrameTop, kFrameWidth, kFrameHeight));
    for (const FormBox& box : kBoxes) painter.drawRect(box.place);
    // What is printed on it, for the eye.
    QFont font = FontWithChinese(QFont());
    font.setPixelSize(3);
    painter.setFont(font);
    for (const FormBox& box : kBoxes) {
      painter.drawText(box.place.topLeft() - QPointF(0, 1), QString::fromUtf8(box.caption));
    }
    font.setPixelSize(6);
    painter.setFont(font);
    painter.drawText(QRectF(kFrameLeft, 4, kFrameWidth, 10), Qt::AlignCenter,
                     QStringLiteral("运  单"));
  }

  [[nodiscard]] const QImage& Image() const { return image_; }
  // Where a place of the form is in the scan.
  [[nodiscard]] QPointF Pixel(double x, double y) const { return toPixels_.map(QPointF(x, y)); }

 private:
  QTransform toPixels_;
  QImage image_;
};

class FromScanToPrint : public ShownDesigner {
 protected:
  FromScanToPrint() : ShownDesigner(SampleRows::kNone) {}

  // Where a place of the form is seen now, scrolled into the view first.
  QPoint SeenOnForm(double x, double y) {
    const QPointF pixel = form_.Pixel(x, y);
    const QPointF sheet = Sheet().Aids().scan.toSheet.map(pixel);
    Sheet().ScrollTo({sheet.x() - 50, sheet.y() - 50, 100, 100});
    Settle();
    return Sheet().ToView(Point{sheet.x(), sheet.y()}).toPoint();
  }

  void DropVariable(const FormBox& box) {
    const QPoint at = SeenOnForm(box.place.left(), box.place.top());
    const auto data = MimeOf({{ChoiceKind::kVariable}, box.caption, box.column, ItemSite::kHead});
    QDragEnterEvent enter(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &enter);
    QDragMoveEvent move(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &move);
    QDropEvent drop(at, Qt::CopyAction, data.get(), Qt::LeftButton, {});
    QApplication::sendEvent(Sheet().viewport(), &drop);
    Settle();
  }

  // Drags the lower right handle onto the corner of the form's box.
  void StretchTo(const FormBox& box) {
    const QPoint to = SeenOnForm(box.place.right(), box.place.bottom());
    const QPoint from = HandlesOf(Sheet()).back().at.toPoint();
    Drag(from, to, Qt::AltModifier);
    Settle();
  }

  std::vector<PrintedWord> Print(const std::string& format, const std::string& name) {
    const std::string file = folder_ / (name + ".pdf");
    const ProgramResult result =
        ProgramRun({TDPRINT_PROGRAM, "print", "--db", SampleOn(SampleEngine::kSqlite), "--type",
                    "77", "--format", format, "--data", kData, "--pdf", file},
                   folder_.Path())
            .Finish();
    EXPECT_EQ(result.status, 0) << result.err;
    return ReadPages(file).at(0).words;
  }

  static constexpr const char* kData =
      "select 1 as FInterID, 'LINWEN' as FReceiver, '13800006621' as FPhone, 'JIANGCHENG' as "
      "FAddress, '12.5' as FWeight, '2024-03-01' as FDate";

  const ScannedForm form_;
};

TEST_F(FromScanToPrint, EveryTextStandsInItsBox) {
  Open({77, "", kData});
  ASSERT_TRUE(Document().Current().items.Empty());
  Document().SetFormatNumber("FPaperSize", 256);
  Document().SetFormatNumber("FPaperWidth", TwipsOf(205));
  Document().SetFormatNumber("FPaperHeight", TwipsOf(130));
  Trigger("showData");
  const std::string scan = folder_ / "form.png";
  ASSERT_TRUE(form_.Image().save(QString::fromStdString(scan)));
  Window().TheScanPanel().Load(scan);
  Window().resize(1180, 680);
  Find<QDockWidget>("scanPanel").raise();
  Settle();
  Sheet().FitWidth();
  Settle();
  Photograph(Window(), "designer-crooked");
  Sheet().PutZoom(500);

  // Three corners of the form's frame, and what a ruler says on the paper.
  WhenShown("distances", [](QDialog& dialog) {
    dialog.findChild<QDoubleSpinBox*>("across")->setValue(kFrameWidth);
    dialog.findChild<QDoubleSpinBox*>("down")->setValue(kFrameHeight);
    dialog.findChild<QDoubleSpinBox*>("left")->setValue(kFrameLeft);
    dialog.findChild<QDoubleSpinBox*>("top")->setValue(kFrameTop);
    QTest::mouseClick(dialog.findChild<QPushButton*>("accept"), Qt::LeftButton);
  });
  Find<QPushButton>("scanPoints").click();
  Click(SeenOnForm(kFrameLeft, kFrameTop));
  Click(SeenOnForm(kFrameLeft + kFrameWidth, kFrameTop));
  Click(SeenOnForm(kFrameLeft, kFrameTop + kFrameHeight));
  Settle();
  for (const FormBox& box : kBoxes) {
    const QPointF placed =
        Sheet().Aids().scan.toSheet.map(form_.Pixel(box.place.left(), box.place.top()));
    EXPECT_NEAR(MillimetresOf(placed.x()), box.place.left(), 0.1) << box.caption;
    EXPECT_NEAR(MillimetresOf(placed.y()), box.place.top(), 0.1) << box.caption;
  }

  for (const FormBox& box : kBoxes) {
    DropVariable(box);
    StretchTo(box);
    const Box place = PlaceOf(box.caption);
    EXPECT_NEAR(place.left, box.place.left(), 0.15) << box.caption;
    EXPECT_NEAR(place.top, box.place.top(), 0.15) << box.caption;
    EXPECT_NEAR(place.Right(), box.place.right(), 0.2) << box.caption;
    EXPECT_NEAR(place.Bottom(), box.place.bottom(), 0.2) << box.caption;
  }
  AnswerName("运单");
  Trigger("save");
  ASSERT_FALSE(Window().isWindowModified());
  Trigger("showData");
  Find<QDockWidget>("variables").raise();
  Settle();
  Sheet().FitWidth();
  Settle();
  Photograph(Window(), "designer-waybill");
  CloseWindow();

  // The same format with the boxes as they are measured on the form.
  RunScriptOn(SampleEngine::kSqlite, [] {
    std::string script =
        "insert into TDBill (FTDBillID,FTranType,FTDBillName,FSelected,FPaperSize,FPaperWidth,"
        "FPaperHeight,FOrientation,FRowsPerPage,FRowHeight) select "
        "900,FTranType,'量得',0,FPaperSize,"
        "FPaperWidth,FPaperHeight,FOrientation,FRowsPerPage,FRowHeight from TDBill where "
        "FTDBillName='运单';";
    for (const FormBox& box : kBoxes) {
      script +=
          "insert into TDBillDetail (FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FTypeID,"
          "FIsVariant,FObjectFieldName,FObjectCaption,FFontName,FFontSize,FAlignMent) select "
          "900,FSite," +
          std::to_string(TwipsOf(box.place.left())) + "," +
          std::to_string(TwipsOf(box.place.top())) + "," +
          std::to_string(TwipsOf(box.place.width())) + "," +
          std::to_string(TwipsOf(box.place.height())) +
          ",FTypeID,FIsVariant,FObjectFieldName,FObjectCaption,FFontName,FFontSize,FAlignMent "
          "from TDBillDetail where FObjectFieldName='" +
          box.caption + "';";
    }
    return script;
  }());
  const auto made = Print("运单", "made");
  const auto measured = Print("量得", "measured");
  ASSERT_EQ(made.size(), kBoxes.size());
  ASSERT_EQ(measured.size(), kBoxes.size());
  for (std::size_t i = 0; i < made.size(); ++i) {
    EXPECT_EQ(made[i].text, measured[i].text);
    const double dx = made[i].area.left - measured[i].area.left;
    const double dy = made[i].area.top - measured[i].area.top;
    EXPECT_LT(MillimetresOf(std::hypot(dx, dy)), 0.2) << made[i].text;
  }
}

}  // namespace
}  // namespace td::designer
