// The panel of the format.
#include "designer/panels/format_panel.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>

#include "designer/model/sheet_layout.h"
#include "designer/panels/number_box.h"
#include "panel_use.h"
#include "platform/print_surface.h"

namespace td::designer {
namespace {

class FormatPanelTest : public PanelUse {
 protected:
  [[nodiscard]] double Of(std::string_view column) {
    return Document().Current().row.Number(column);
  }
  QComboBox& List(const char* name) { return Named<QComboBox>(name); }
};

TEST_F(FormatPanelTest, APaperByNameBringsItsSize) {
  Open<FormatPanel>();
  EXPECT_EQ(List("FPaperSize").currentText(), "A4 – 210 × 297 mm");
  Choose(List("FPaperSize"), List("FPaperSize").findData(11));
  EXPECT_EQ(Of("FPaperSize"), 11);
  EXPECT_NEAR(Of("FPaperWidth"), TwipsOf(148), 0.01);
  EXPECT_NEAR(Of("FPaperHeight"), TwipsOf(210), 0.01);
  EXPECT_EQ(Steps(), 1);
}

TEST_F(FormatPanelTest, AWidthInMillimetresMakesASizeOfItsOwn) {
  Open<FormatPanel>();
  Type(Named("FPaperWidth"), "241");
  Type(Named("FPaperHeight"), "140");
  EXPECT_EQ(Of("FPaperSize"), kUserDefinedPaper);
  EXPECT_NEAR(Of("FPaperWidth"), TwipsOf(241), 0.01);
  EXPECT_EQ(List("FPaperSize").currentText(), "its own size");
  Choose(List("FOrientation"), 1);
  EXPECT_EQ(Of("FOrientation"), 1);
  EXPECT_EQ(Named<QLabel>("PrintedSheet").text(), "Prints on 140.0 × 241.0 mm, as it is held.");
}

TEST_F(FormatPanelTest, APaperWithoutAWidthIsNotSet) {
  Document().SetFormat("FPaperWidth", Null{});
  Open<FormatPanel>();
  EXPECT_EQ(List("FPaperSize").currentText(), "as the printer has it");
  EXPECT_EQ(Named<NumberBox>("FPaperWidth").text(), "not set");
}

TEST_F(FormatPanelTest, RowsAndFlags) {
  Open<FormatPanel>();
  Type(Named("FRowsPerPage"), "12");
  Type(Named("FRowHeight"), "8");
  EXPECT_EQ(Of("FRowsPerPage"), 12);
  EXPECT_NEAR(Of("FRowHeight"), TwipsOf(8), 0.01);
  EXPECT_EQ(Named<QLabel>("RowsNote").text(),
            "The rows take 96.0 mm and end 146.0 mm below the top of the sheet.");
  Named<QCheckBox>("FIntegralPage").click();
  EXPECT_EQ(Of("FIntegralPage"), 1);
  Named<QCheckBox>("FSelected").click();
  EXPECT_EQ(Of("FSelected"), 1);
  Type(Named("FAdjuctLeft"), "-1.2");
  EXPECT_NEAR(Of("FAdjuctLeft"), TwipsOf(-1.2), 0.01);
}

TEST_F(FormatPanelTest, TheNameIsOneStep) {
  Open<FormatPanel>();
  Type(Named("FTDBillName"), "abc");
  EXPECT_EQ(Document().Current().Name(), "abc");
  EXPECT_EQ(Steps(), 1);
}

TEST_F(FormatPanelTest, APrinterThatIsNotHereIsSaid) {
  workspace_.printers = {"前台", "仓库"};
  Open<FormatPanel>();
  auto& note = Named<QLabel>("PrinterNote");
  EXPECT_EQ(note.text(), "It goes to the default printer.");
  Choose(List("FPrintDevice"), 1);
  EXPECT_EQ(Document().Current().row.Text("FPrintDevice"), "仓库");
  EXPECT_FALSE(note.isVisible());
  Type(List("FPrintDevice"), "Laser");
  EXPECT_EQ(note.text(), "This machine has no printer of that name.");
}

TEST_F(FormatPanelTest, FollowsAnotherFormat) {
  Open<FormatPanel>();
  Document().Reset(NewFormat(12, "入库单"));
  EXPECT_EQ(Named<QLineEdit>("FTDBillName").text(), "入库单");
  EXPECT_EQ(Named<QLabel>("BillType").text(), "12");
}

}  // namespace
}  // namespace td::designer
