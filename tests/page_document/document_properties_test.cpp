#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "fake_host.h"

namespace td {
namespace {

class DocumentProperties : public testing::Test {
 protected:
  FakeHost host;
  PageDocument document{host};
};

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();
constexpr float kTwipsPerMillimetre = 1440 / 25.4F;

TEST_F(DocumentProperties, StartAtTheirDocumentedValues) {
  EXPECT_EQ(document.MarginLeft(), 1440);
  EXPECT_EQ(document.MarginTop(), 1440);
  EXPECT_EQ(document.MarginRight(), 1440);
  EXPECT_EQ(document.MarginBottom(), 1440);
  EXPECT_EQ(document.FontName(), "Arial");
  EXPECT_EQ(document.FontSize(), 11.25);
  EXPECT_FALSE(document.FontBold());
  EXPECT_FALSE(document.FontItalic());
  EXPECT_EQ(document.Zoom(), 100);
  EXPECT_EQ(document.TableSeparators(), "|;");
  EXPECT_EQ(document.Orientation(), 0);
}

TEST_F(DocumentProperties, KeepWhatIsWritten) {
  document.PutFontName("宋体");
  document.PutFontSize(10.5);
  document.PutTextAlign(7);
  document.PutPenWidth(27);
  document.PutCurrentX(-20);
  document.PutCurrentY(700.5);
  document.PutMarginLeft(0);
  document.PutZoom(75);
  document.PutTableSeparators("|_");
  document.PutExportFile("订单.html");
  document.PutExportFormat(1);
  EXPECT_EQ(document.FontName(), "宋体");
  EXPECT_EQ(document.FontSize(), 10.5);
  EXPECT_EQ(document.TextAlign(), 7);
  EXPECT_EQ(document.PenWidth(), 27);
  EXPECT_EQ(document.CurrentX(), -20);
  EXPECT_EQ(document.CurrentY(), 700.5);
  EXPECT_EQ(document.MarginLeft(), 0);
  EXPECT_EQ(document.Zoom(), 75);
  EXPECT_EQ(document.TableSeparators(), "|_");
  EXPECT_EQ(document.ExportFile(), "订单.html");
  EXPECT_EQ(document.ExportFormat(), 1);
}

// ---- Printers

TEST_F(DocumentProperties, TheDefaultPrinterIsSelectedAtTheStartAndByTheEmptyText) {
  EXPECT_EQ(document.Device(), "激光打印机");
  document.PutDevice("针式打印机");
  EXPECT_EQ(document.Device(), "针式打印机");
  document.PutDevice("");
  EXPECT_EQ(document.Device(), "激光打印机");
}

TEST_F(DocumentProperties, AnUnknownPrinterIsRefusedAndLeavesTheDefaultSelected) {
  document.PutDevice("针式打印机");
  EXPECT_EQ(NumberOf([&] { document.PutDevice("已拆除的打印机"); }), 380);
  EXPECT_EQ(document.Device(), "激光打印机");
}

TEST_F(DocumentProperties, PrintersAreCountedAndNamedFromZero) {
  EXPECT_EQ(document.DeviceCount(), 2);
  EXPECT_EQ(document.DeviceName(1), "针式打印机");
  EXPECT_EQ(NumberOf([&] { document.DeviceName(2); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.DeviceName(-1); }), kInvalidCall);
}

TEST_F(DocumentProperties, AMachineWithoutPrintersHasNoDevice) {
  host.devices.clear();
  EXPECT_EQ(document.Device(), "");
  EXPECT_EQ(document.DeviceCount(), 0);
}

// ---- Paper

void ExpectMillimetres(PageDocument& document, double width, double height) {
  EXPECT_NEAR(document.PaperWidth() / kTwipsPerMillimetre, width, 0.01);
  EXPECT_NEAR(document.PaperHeight() / kTwipsPerMillimetre, height, 0.01);
}

TEST_F(DocumentProperties, KnownPaperCodesSetWidthAndHeight) {
  document.PutPaperSize(11);
  ExpectMillimetres(document, 148, 210);
  document.PutPaperSize(1);
  ExpectMillimetres(document, 215.9, 279.4);
  document.PutPaperSize(9);
  ExpectMillimetres(document, 210, 297);
}

TEST_F(DocumentProperties, ACodeThatOnlyThePrinterKnowsIsAskedOfIt) {
  document.PutPaperSize(500);
  ExpectMillimetres(document, 210, 297);
  document.PutDevice("针式打印机");
  document.PutPaperSize(500);
  EXPECT_EQ(document.PaperWidth(), 13680);
  EXPECT_EQ(document.PaperHeight(), 7920);
}

TEST_F(DocumentProperties, UnknownAndUserDefinedCodesLeaveTheSize) {
  document.PutPaperSize(11);
  document.PutPaperSize(9999);
  EXPECT_EQ(document.PaperSize(), 9999);
  document.PutPaperSize(256);
  EXPECT_EQ(document.PaperSize(), 256);
  ExpectMillimetres(document, 148, 210);
}

TEST_F(DocumentProperties, PaperCodeZeroKeepsThePaper) {
  document.PutPaperSize(11);
  document.PutPaperSize(0);
  EXPECT_EQ(document.PaperSize(), 11);
  ExpectMillimetres(document, 148, 210);
}

TEST_F(DocumentProperties, WritingAWidthOrHeightMakesThePaperUserDefined) {
  document.PutPaperHeight(140 * kTwipsPerMillimetre);
  EXPECT_EQ(document.PaperSize(), 256);
  document.PutPaperSize(9);
  document.PutPaperWidth(241 * kTwipsPerMillimetre);
  EXPECT_EQ(document.PaperSize(), 256);
  ExpectMillimetres(document, 241, 297);
}

TEST_F(DocumentProperties, PagesSwapWidthAndHeightInLandscape) {
  document.PutPaperSize(11);
  document.StartDoc();
  document.PutOrientation(1);
  document.NewPage();
  ExpectMillimetres(document, 148, 210);
  EXPECT_NEAR(document.Pages()[0].width / kTwipsPerMillimetre, 148, 0.01);
  EXPECT_NEAR(document.Pages()[1].width / kTwipsPerMillimetre, 210, 0.01);
  EXPECT_NEAR(document.Pages()[1].height / kTwipsPerMillimetre, 148, 0.01);
}

TEST_F(DocumentProperties, PageSetupReportsConfirmationAndItsChoicesStand) {
  EXPECT_NE(document.ShowPageSetup(1), 0);
  EXPECT_EQ(document.Orientation(), 1);
  host.confirms = false;
  EXPECT_EQ(document.ShowPageSetup(1), 0);
}

// ---- Absurd values

TEST_F(DocumentProperties, NumbersThatAreNoLengthsAreRefusedAndChangeNothing) {
  for (const double absurd : {kNaN, kInfinite, -kInfinite}) {
    EXPECT_EQ(NumberOf([&] { document.PutCurrentX(absurd); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.PutFontSize(absurd); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.PutMarginTop(absurd); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.PutZoom(absurd); }), kInvalidCall);
    EXPECT_EQ(NumberOf([&] { document.PutPaperWidth(static_cast<float>(absurd)); }), kInvalidCall);
  }
  EXPECT_EQ(NumberOf([&] { document.PutCurrentY(1e300); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutFontSize(1e300); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutFontSize(-1); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutPenWidth(-1); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutPaperHeight(0); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutPaperHeight(1e30F); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutZoom(0); }), kOverflow);
  EXPECT_EQ(NumberOf([&] { document.PutPreviewPage(0); }), kOverflow);
  EXPECT_EQ(document.CurrentX(), 0);
  EXPECT_EQ(document.FontSize(), 11.25);
  EXPECT_EQ(document.PaperSize(), 9);
}

TEST_F(DocumentProperties, TheHostHearsOfThePreviewAndThePointer) {
  document.PutZoom(50);
  document.PutPreviewPage(1);
  EXPECT_EQ(host.previewChanges, 2);
  document.StartDoc();
  const int before = host.previewChanges;
  EXPECT_EQ(before, 3) << "the former pages are gone";
  document.EndDoc();
  EXPECT_GT(host.previewChanges, before);
  document.PutMousePointer(11);
  EXPECT_EQ(host.pointer, 11);
  EXPECT_EQ(document.MousePointer(), 11);
}

}  // namespace
}  // namespace td
