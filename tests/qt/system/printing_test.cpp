// Jobs in real queues of the printing system.
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <filesystem>

#include "page_document/page_document.h"
#include "print_queue.h"
#include "qt/render/outputs.h"
#include "qt/system/desktop_host.h"
#include "qt/system/document_printing.h"
#include "qt/system/message_boxes.h"
#include "qt/system/print_job.h"
#include "qt/system/printers.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 400;
constexpr PaperExtent kForm{241 * kTwipsPerMillimetre, 140 * kTwipsPerMillimetre};
constexpr PaperExtent kA4{210 * kTwipsPerMillimetre, 297 * kTwipsPerMillimetre};
constexpr PaperExtent kA5{148 * kTwipsPerMillimetre, 210 * kTwipsPerMillimetre};

// A bar of a millimetre's width near each of two corners, its place in millimetres.
Page PageWithBars(double width, double height) {
  Page page{width * kTwipsPerMillimetre, height * kTwipsPerMillimetre, {}};
  const auto addBar = [&page](double left, double middle, double length) {
    page.commands.emplace_back(Line{left * kTwipsPerMillimetre, middle * kTwipsPerMillimetre,
                                    (left + length) * kTwipsPerMillimetre,
                                    middle * kTwipsPerMillimetre, kTwipsPerMillimetre});
  };
  addBar(3, 3, 20);
  addBar(width - 23, height - 3, 20);
  return page;
}

std::string Print(const Page& page, const std::string& printer, const PaperExtent& sheet,
                  std::vector<std::pair<std::string, std::string>> options = {}) {
  return ResultOf(
      SubmitPrintJob({printer, "qbtd-test", ToPdf({page}, "test"), sheet, std::move(options)}));
}

void ExpectSheet(const std::string& pdf, double width, double height, double tolerance = 0.1) {
  const std::vector<Sheet> sheets = SheetsOf(pdf);
  ASSERT_EQ(sheets.size(), 1U);
  EXPECT_NEAR(sheets[0].width, width, tolerance);
  EXPECT_NEAR(sheets[0].height, height, tolerance);
}

// The two bars of PageWithBars lie where the page has them.
void ExpectBars(const std::string& pdf, double width, double height) {
  const QImage image = ImageOf(pdf, kDotsPerInch);
  const double fuzz = kTolerance + 25.4 / kDotsPerInch;
  const QRectF first = InkIn(image, kDotsPerInch, QRectF(0, 0, width / 2, height / 2));
  EXPECT_NEAR(first.left(), 3, fuzz + 0.5);  // the ends may be square: half a pen's width more
  EXPECT_NEAR(first.top(), 2.5, fuzz);
  EXPECT_NEAR(first.bottom(), 3.5, fuzz);
  const QRectF last =
      InkIn(image, kDotsPerInch, QRectF(width / 2, height / 2, width / 2, height / 2));
  EXPECT_NEAR(last.top(), height - 3.5, fuzz);
  EXPECT_NEAR(last.bottom(), height - 2.5, fuzz);
  EXPECT_NEAR(first.left() + last.right(), width, fuzz);
}

TEST(Printers, AreThoseOfThePrintingSystem) {
  const std::vector<std::string> names = PrinterNames();
  EXPECT_EQ(std::ranges::count(names, "QbTd-PDF"), 1);
  EXPECT_TRUE(HasPrinter("QbTd-PDF"));
  EXPECT_FALSE(HasPrinter("qbtd-pdf")) << "names are compared exactly";
  EXPECT_FALSE(HasPrinter(""));
  EXPECT_TRUE(HasPrinter(DefaultPrinter()));
}

TEST(Printers, KnowTheSheetsOfTheirDrivers) {
  EXPECT_TRUE(SheetName("QbTd-PDF", kA4));
  EXPECT_TRUE(SheetName("QbTd-Fixed", kA5));
  EXPECT_FALSE(SheetName("QbTd-PDF", kForm));
  EXPECT_FALSE(SheetName("QbTd-PDF", kA5)) << "that driver's A5 is half a millimetre too wide";
  EXPECT_FALSE(SheetName("nowhere", kA4));
}

TEST(PrintJob, PutsAUserDefinedSheetOnPaperOfExactlyItsSize) {
  for (const char* printer : {"QbTd-PDF", "QbTd-Margins"}) {
    const std::string pdf = Print(PageWithBars(241, 140), printer, kForm);
    ExpectSheet(pdf, 241, 140);
    ExpectBars(pdf, 241, 140);
  }
}

TEST(PrintJob, AsksForANamedSheetThatThePrinterHas) {
  for (const char* printer : {"QbTd-PDF", "QbTd-Margins"}) {
    const std::string pdf = Print(PageWithBars(210, 297), printer, kA4);
    ExpectSheet(pdf, 210, 297);
    ExpectBars(pdf, 210, 297);
  }
}

TEST(PrintJob, AsksForTheExactSizeWhereTheDriversSheetIsAnother) {
  const std::string pdf = Print(PageWithBars(148, 210), "QbTd-PDF", kA5);
  ExpectSheet(pdf, 148, 210);
  ExpectBars(pdf, 148, 210);
}

TEST(PrintJob, FeedsAWideSheetUprightOnAPrinterOfFixedSheets) {
  const std::string pdf = Print(PageWithBars(210, 148), "QbTd-Fixed", {kA5.height, kA5.width});
  ExpectSheet(pdf, 148, 210, 0.2);
}

TEST(PrintJob, StaysInItsPlaceWhateverTheUsersSettingsAre) {
  const std::string pdf = Print(PageWithBars(241, 140), "QbTd-PDF", kForm,
                                {{"number-up", "4"},
                                 {"fit-to-page", "true"},
                                 {"orientation-requested", "5"},
                                 {"page-left", "72"},
                                 {"media", "A4"}});
  ExpectSheet(pdf, 241, 140);
  ExpectBars(pdf, 241, 140);
}

TEST(PrintJob, FailsInWordsWhenItCannotBeSent) {
  const std::string pdf = ToPdf({PageWithBars(210, 297)}, "test");
  const auto submit = [&](const char* printer) {
    return NumberOf([&] { SubmitPrintJob({printer, "qbtd-test", pdf, kA4, {}}); });
  };
  EXPECT_EQ(submit("nowhere"), kInvalidProperty);
  EXPECT_EQ(submit("QbTd-Refusing"), kDeviceIo);
}

// A document as the run makes it, with a title that no other job has.
class DocumentPrinting : public testing::Test {
 protected:
  void SetUp() override {
    QGuiApplication::setApplicationDisplayName(QString::fromStdString(title_));
    document_.PutDevice("QbTd-PDF");
  }
  void AddPage(double width, double height) {
    document_.PutPaperWidth(static_cast<float>(width * kTwipsPerMillimetre));
    document_.PutPaperHeight(static_cast<float>(height * kTwipsPerMillimetre));
    document_.GetState() == PageDocument::State::kOpen ? document_.NewPage() : document_.StartDoc();
  }
  [[nodiscard]] std::vector<int> Jobs() const { return JobsTitled(title_); }

  FrameSettings settings_;
  MessageBoxes messages_{false};
  DesktopHost host_{settings_, messages_};
  PageDocument document_{host_};
  const std::string title_ =
      UniqueTitle(testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(DocumentPrinting, SendsAllPagesToTheDocumentsPrinterAsOneJob) {
  AddPage(241, 140);
  AddPage(241, 140);
  document_.EndDoc();
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  const std::vector<Sheet> sheets = SheetsOf(ResultOf(Jobs()[0]));
  ASSERT_EQ(sheets.size(), 2U);
  EXPECT_NEAR(sheets[1].width, 241, kTolerance);
  EXPECT_NEAR(sheets[1].height, 140, kTolerance);
}

TEST_F(DocumentPrinting, FeedsLandscapePaperUpright) {
  document_.PutOrientation(1);
  AddPage(148, 210);
  document_.EndDoc();
  const PaperExtent sheet = SheetOf(document_.Pages()[0], document_);
  EXPECT_NEAR(sheet.width, kA5.width, 0.01);
  EXPECT_NEAR(sheet.height, kA5.height, 0.01);
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  ExpectSheet(ResultOf(Jobs()[0]), 148, 210);
}

TEST_F(DocumentPrinting, MakesAJobOfItsOwnForEachChangeOfSheet) {
  AddPage(241, 140);
  AddPage(210, 297);
  AddPage(210, 297);
  document_.EndDoc();
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 2U);
  EXPECT_EQ(SheetsOf(ResultOf(Jobs()[0])).size(), 1U);
  EXPECT_EQ(SheetsOf(ResultOf(Jobs()[1])).size(), 2U);
}

TEST_F(DocumentPrinting, GoesToThePrinterOfTheSettingsFirst) {
  settings_.printer = "QbTd-Refusing";
  AddPage(210, 297);
  document_.EndDoc();
  EXPECT_EQ(NumberOf([&] { document_.PrintDoc(); }), kDeviceIo);
}

TEST_F(DocumentPrinting, PrintsTheChosenPagesOnly) {
  AddPage(241, 140);
  AddPage(210, 297);
  document_.EndDoc();
  PrintChoice choice;
  choice.printer = "QbTd-PDF";
  choice.pages = {2};
  PrintDocument(document_, choice);
  ASSERT_EQ(Jobs().size(), 1U);
  ExpectSheet(ResultOf(Jobs()[0]), 210, 297);
}

TEST_F(DocumentPrinting, WritesAFileWhenTheUserWantsOne) {
  const Folder folder;
  AddPage(241, 140);
  document_.EndDoc();
  PrintChoice choice;
  choice.pdfFile = folder.Path("order.pdf");
  PrintDocument(document_, choice);
  ExpectSheet(choice.pdfFile, 241, 140);
  EXPECT_TRUE(Jobs().empty());
}

TEST_F(DocumentPrinting, LeavesAnUnknownPrinterForTheDefaultOne) {
  EXPECT_EQ(NumberOf([&] { document_.PutDevice("nowhere"); }), kInvalidProperty);
  EXPECT_EQ(document_.Device(), DefaultPrinter());
}

TEST_F(DocumentPrinting, ListsThePrintersFromZero) {
  std::vector<std::string> names;
  const int count = document_.DeviceCount();
  for (int i = 0; i < count; ++i) names.push_back(document_.DeviceName(i));
  EXPECT_EQ(names, PrinterNames());
}

TEST_F(DocumentPrinting, KnowsTheLessCommonPaperNumbersThatThePrinterHas) {
  EXPECT_TRUE(host_.PaperOf(9, "QbTd-PDF"));
  EXPECT_FALSE(host_.PaperOf(9, "nowhere"));
  EXPECT_FALSE(host_.PaperOf(123456, "QbTd-PDF"));
  EXPECT_FALSE(host_.PaperOf(-1, "QbTd-PDF"));
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  testing::AddGlobalTestEnvironment(new td::PrintQueues);
  return RUN_ALL_TESTS();
}
