#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>
#include <utility>

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
  EXPECT_EQ(document.DeviceName(0), "激光打印机") << "even before they were counted";
  EXPECT_EQ(document.DeviceCount(), 2);
  EXPECT_EQ(document.DeviceName(1), "针式打印机");
  EXPECT_EQ(NumberOf([&] { document.DeviceName(2); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { document.DeviceName(-1); }), kInvalidCall);
}

TEST_F(DocumentProperties, AWalkOverThePrintersReadsTheirListOnce) {
  for (int i = 0; i < document.DeviceCount(); ++i) (void)document.DeviceName(i);
  EXPECT_EQ(host.deviceReads, 3) << "once for each count";
  host.deviceReads = 0;
  const int count = document.DeviceCount();
  for (int i = 0; i < count; ++i) (void)document.DeviceName(i);
  EXPECT_EQ(host.deviceReads, 1);
  host.devices.emplace_back("标签打印机");
  EXPECT_EQ(document.DeviceCount(), 3) << "the next walk sees what is there then";
  EXPECT_EQ(document.DeviceName(2), "标签打印机");
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

TEST_F(DocumentProperties, EveryStandardCodeIsKnownWhateverThePrintersHave) {
  host.devices.clear();
  for (std::int32_t code = 1; code <= 118; ++code) {
    if (code == 48 || code == 49) continue;  // stand for no sheet
    document.PutPaperWidth(1000);
    document.PutPaperHeight(1000);
    document.PutPaperSize(code);
    EXPECT_NE(document.PaperWidth(), 1000) << code;
    EXPECT_NE(document.PaperHeight(), 1000) << code;
  }
  EXPECT_TRUE(host.complaints.empty());
}

TEST_F(DocumentProperties, EnvelopesOfChinaAndJapanHaveTheirSizes) {
  constexpr std::tuple<int, double, double> kEnvelopes[] = {
      {71, 240, 332},  {72, 216, 277},  {73, 120, 235},  {74, 90, 205},   {91, 105, 235},
      {96, 102, 165},  {97, 102, 176},  {98, 125, 176},  {99, 110, 208},  {100, 110, 220},
      {101, 120, 230}, {102, 160, 230}, {103, 120, 309}, {104, 229, 324}, {105, 324, 458}};
  for (const auto& [code, width, height] : kEnvelopes) {
    document.PutPaperSize(code);
    ExpectMillimetres(document, width, height);
  }
}

TEST_F(DocumentProperties, ARotatedCodeIsTheSheetOfItsKindTurned) {
  constexpr std::pair<int, int> kRotated[] = {
      {75, 1},   {76, 8},    {77, 9},    {78, 11},   {79, 12},   {80, 13},   {81, 43},
      {82, 69},  {83, 70},   {84, 71},   {85, 72},   {86, 73},   {87, 74},   {89, 88},
      {92, 91},  {106, 93},  {107, 94},  {108, 95},  {109, 96},  {110, 97},  {111, 98},
      {112, 99}, {113, 100}, {114, 101}, {115, 102}, {116, 103}, {117, 104}, {118, 105}};
  for (const auto& [rotated, upright] : kRotated) {
    document.PutPaperSize(upright);
    const float width = document.PaperWidth();
    const float height = document.PaperHeight();
    document.PutPaperSize(rotated);
    EXPECT_EQ(document.PaperWidth(), height) << rotated;
    EXPECT_EQ(document.PaperHeight(), width) << rotated;
  }
}

TEST_F(DocumentProperties, UnknownAndUserDefinedCodesLeaveTheSize) {
  document.PutPaperSize(11);
  document.PutPaperSize(256);
  EXPECT_EQ(document.PaperSize(), 256);
  EXPECT_TRUE(host.complaints.empty());
  for (const std::int32_t unknown : {9999, 119, 48, -1}) {
    host.complaints.clear();
    document.PutPaperSize(unknown);
    EXPECT_EQ(document.PaperSize(), unknown);
    ExpectMillimetres(document, 148, 210);
    const std::string complaint =
        "不认识纸张编号 " + std::to_string(unknown) + "，沿用现有的纸张：148 × 210 毫米。";
    EXPECT_EQ(host.complaints, (std::vector<std::string>{complaint}));
  }
}

TEST_F(DocumentProperties, TheFirstSheetIsThePrintersOwn) {
  host.defaultSheet = PaperExtent{148 * 1440 / 25.4 + 2, 210 * 1440 / 25.4 - 3};
  EXPECT_EQ(document.PaperSize(), 11) << "of a size up to 0.2 mm beside the standard's";
  ExpectMillimetres(document, 148, 210);
}

TEST_F(DocumentProperties, AFirstSheetOfNoStandardSizeIsUserDefined) {
  host.defaultSheet = PaperExtent{230 * 1440 / 25.4, 127 * 1440 / 25.4};
  EXPECT_EQ(document.PaperSize(), 256);
  ExpectMillimetres(document, 230, 127);
  document.PutPaperHeight(1440);
  EXPECT_NEAR(document.PaperWidth() / kTwipsPerMillimetre, 230, 0.01);
}

TEST_F(DocumentProperties, TheFirstSheetIsA4WhereNoPrinterTellsOfItsOwn) {
  EXPECT_EQ(document.PaperSize(), 9);
  ExpectMillimetres(document, 210, 297);
  PageDocument other(host);
  host.defaultSheet = PaperExtent{0, 1e9};
  EXPECT_EQ(other.PaperSize(), 9) << "a size that no sheet can have";
}

TEST_F(DocumentProperties, ThePrintersSheetIsAskedForOnceAndOnlyIfItIsNeeded) {
  host.defaultSheet = PaperExtent{1000, 2000};
  document.PutPaperSize(11);
  document.StartDoc();
  document.NewPage();
  EXPECT_EQ(document.PaperSize(), 11);
  PageDocument userDefined(host);
  userDefined.PutPaperHeight(5000);
  userDefined.PutPaperWidth(12000);
  userDefined.StartDoc();
  EXPECT_EQ(host.sheetReads, 0);
  PageDocument first(host);
  first.StartDoc();
  first.NewPage();
  EXPECT_EQ(first.Pages()[1].width, 1000);
  EXPECT_EQ(first.Pages()[1].height, 2000);
  EXPECT_EQ(host.sheetReads, 1);
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

TEST_F(DocumentProperties, PagesKeepTheSheetUnderWhichTheyBegan) {
  document.PutPaperSize(11);
  document.PutOrientation(1);
  document.StartDoc();
  document.PutPaperSize(9);
  document.PutOrientation(0);
  document.NewPage();
  document.PutPaperWidth(241 * kTwipsPerMillimetre);
  document.PutPaperHeight(140 * kTwipsPerMillimetre);
  document.NewPage();
  document.PutPaperSize(77);
  document.PutOrientation(1);
  document.NewPage();
  document.EndDoc();
  document.PutPaperSize(1);
  document.PutOrientation(0);
  const auto expect = [this](std::size_t page, std::int32_t code, bool landscape, double width,
                             double height) {
    const Page& kept = document.Pages()[page - 1];
    EXPECT_EQ(kept.paperCode, code) << page;
    EXPECT_EQ(kept.landscape, landscape) << page;
    EXPECT_NEAR(kept.Sheet().width / kTwipsPerMillimetre, width, 0.01) << page;
    EXPECT_NEAR(kept.Sheet().height / kTwipsPerMillimetre, height, 0.01) << page;
    EXPECT_EQ(kept.width, landscape ? kept.Sheet().height : kept.Sheet().width) << page;
  };
  expect(1, 11, true, 148, 210);
  expect(2, 9, false, 210, 297);
  expect(3, 256, false, 241, 140);
  expect(4, 77, true, 297, 210);
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

TEST_F(DocumentProperties, TheHostHearsOfEachPageBehindWhichAnotherBegins) {
  document.StartDoc();
  EXPECT_EQ(host.completedPages, 0);
  document.NewPage();
  document.NewPage();
  EXPECT_EQ(host.completedPages, 2);
  document.EndDoc();
  EXPECT_EQ(host.completedPages, 2);
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
