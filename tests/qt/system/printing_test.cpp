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
  return ResultOf(SubmitPrintJob(
      {printer, "qbtd-test", WriterOf(ToPdf({page}, "test")), sheet, std::move(options)}));
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
  EXPECT_NEAR(first.left(), 2.5, fuzz);  // the end is square: half a pen's width more
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

void ExpectExtent(const std::optional<PaperExtent>& sheet, double width, double height) {
  ASSERT_TRUE(sheet);
  EXPECT_NEAR(sheet->width / kTwipsPerMillimetre, width, 0.1);
  EXPECT_NEAR(sheet->height / kTwipsPerMillimetre, height, 0.1);
}

TEST(Printers, TellTheirOwnSheet) {
  ExpectExtent(OwnSheet("QbTd-PDF"), 210, 297);
  ExpectExtent(OwnSheet("QbTd-Form"), 230, 127);
  ExpectExtent(OwnSheet(TemporaryQueue("PageSize=Letter").Name()), 215.9, 279.4);
  ExpectExtent(OwnSheet(TemporaryQueue("PageSize-default=Custom.100x150mm").Name()), 100, 150);
  ExpectExtent(OwnSheet(TemporaryQueue("media-default=iso_a5_148x210mm").Name()), 148, 210);
  EXPECT_FALSE(OwnSheet("nowhere"));
  EXPECT_FALSE(OwnSheet(""));
}

TEST(Printers, TellWhatTheyLeaveEmptyAtTheEdges) {
  const auto margins = MarginsOf("QbTd-Margins", kA4);
  ASSERT_TRUE(margins);
  EXPECT_NEAR(margins->left / kTwipsPerPoint, 12, 0.2);
  EXPECT_NEAR(margins->bottom / kTwipsPerPoint, 60, 0.2);
  EXPECT_NEAR(margins->right / kTwipsPerPoint, 18, 0.2);
  EXPECT_NEAR(margins->top / kTwipsPerPoint, 30, 0.2);
  EXPECT_TRUE(MarginsOf("QbTd-PDF", kForm)) << "it takes any size";
  EXPECT_FALSE(MarginsOf("QbTd-Fixed", kForm));
  EXPECT_FALSE(MarginsOf("nowhere", kA4));
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
    return NumberOf([&] { SubmitPrintJob({printer, "qbtd-test", WriterOf(pdf), kA4, {}}); });
  };
  EXPECT_EQ(submit("nowhere"), kDeviceIo);
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
  // A bar of 20 by 1 mm from a point in millimetres.
  void DrawBar(double left, double middle) {
    document_.PutPenWidth(kTwipsPerMillimetre);
    document_.DrawLine(left * kTwipsPerMillimetre, middle * kTwipsPerMillimetre,
                       (left + 20) * kTwipsPerMillimetre, middle * kTwipsPerMillimetre);
  }
  [[nodiscard]] std::vector<int> Jobs() const { return JobsTitled(title_); }

  FrameSettings settings_;
  MessageBoxes messages_{MessageMode::kStandardError};
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
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  ExpectSheet(ResultOf(Jobs()[0]), 148, 210);
}

TEST_F(DocumentPrinting, TakesTheSheetOfThePagesWhateverThePaperIsMeanwhile) {
  document_.PutOrientation(1);
  AddPage(148, 210);
  DrawBar(3, 3);
  document_.EndDoc();
  document_.PutPaperSize(kPaperA4);
  document_.PutOrientation(0);
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  const std::string pdf = ResultOf(Jobs()[0]);
  ExpectSheet(pdf, 148, 210);
  const QRectF bar = InkIn(ImageOf(pdf, kDotsPerInch), kDotsPerInch, QRectF(0, 0, 148, 210));
  EXPECT_NEAR(bar.height(), 21, 0.2) << "it lies across the sheet";
  EXPECT_NEAR(bar.width(), 1, 0.2);
}

TEST_F(DocumentPrinting, PutsPagesAlongAndAcrossOneSheetIntoOneJob) {
  AddPage(148, 210);
  DrawBar(3, 3);
  document_.PutOrientation(1);
  AddPage(148, 210);
  DrawBar(3, 3);
  document_.PutOrientation(0);
  AddPage(148, 210);
  DrawBar(3, 3);
  document_.EndDoc();
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  const std::string pdf = ResultOf(Jobs()[0]);
  const std::vector<Sheet> sheets = SheetsOf(pdf);
  ASSERT_EQ(sheets.size(), 3U);
  for (int page = 1; page <= 3; ++page) {
    const Sheet& sheet = sheets[static_cast<std::size_t>(page) - 1];
    EXPECT_NEAR(sheet.width, 148, kTolerance);
    EXPECT_NEAR(sheet.height, 210, kTolerance);
    const QRectF bar =
        InkIn(ImageOf(pdf, kDotsPerInch, page), kDotsPerInch, QRectF(0, 0, 148, 210));
    EXPECT_NEAR(page == 2 ? bar.height() : bar.width(), 21, 0.2) << page;
  }
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

TEST_F(DocumentPrinting, StartsWithTheSheetOfThePrinterThatTakesIt) {
  settings_.printer = "QbTd-Form";
  document_.StartDoc();
  document_.EndDoc();
  EXPECT_EQ(document_.PaperSize(), kUserDefinedPaper);
  EXPECT_NEAR(document_.Pages()[0].width / kTwipsPerMillimetre, 230, 0.01);
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  ExpectSheet(ResultOf(Jobs()[0]), 230, 127);
}

TEST_F(DocumentPrinting, StartsWithTheDefaultPrintersSheet) {
  const auto sheet = OwnSheet(DefaultPrinter());
  ASSERT_TRUE(sheet);
  EXPECT_NEAR(document_.PaperWidth(), sheet->width, 12);
  EXPECT_NEAR(document_.PaperHeight(), sheet->height, 12);
}

TEST_F(DocumentPrinting, FailsAsADeviceWhenThePrinterHasGoneMeanwhile) {
  TemporaryQueue queue;
  document_.PutDevice(queue.Name());
  AddPage(210, 297);
  document_.EndDoc();
  queue.Remove();
  try {
    document_.PrintDoc();
    FAIL() << "printed on a printer that is gone";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDeviceIo);
    EXPECT_NE(failure.Description().find(queue.Name()), std::string::npos);
  }
}

TEST_F(DocumentPrinting, LeavesAnUnknownPrinterForTheDefaultOne) {
  EXPECT_EQ(NumberOf([&] { document_.PutDevice("nowhere"); }), kInvalidProperty);
  EXPECT_EQ(document_.Device(), DefaultPrinter());
}

TEST_F(DocumentPrinting, ListsThePrintersFromZero) {
  std::vector<std::string> names;
  const int count = document_.DeviceCount();
  for (int i = 0; i < count; ++i) names.push_back(document_.DeviceName(i));
  std::vector<std::string> known = PrinterNames();
  for (auto* list : {&names, &known}) {  // other tests make queues and remove them
    std::erase_if(*list, [](const std::string& name) { return name.starts_with("qbtd-queue-"); });
  }
  EXPECT_EQ(names, known);
}

TEST_F(DocumentPrinting, PrintsAnEnvelopeWhoseCodeWasWrittenBeforeItsPrinter) {
  document_.PutDevice("");
  document_.PutPaperSize(100);
  document_.PutDevice("QbTd-PDF");
  document_.StartDoc();
  document_.EndDoc();
  document_.PrintDoc();
  ASSERT_EQ(Jobs().size(), 1U);
  ExpectSheet(ResultOf(Jobs()[0]), 110, 220, 0.2);  // the driver's envelope DL
}

TEST_F(DocumentPrinting, TellsOnceOfAPaperCodeThatNobodyKnows) {
  std::vector<std::string> complaints;
  settings_.onComplaint = [&](const std::string& text) { complaints.push_back(text); };
  document_.PutPaperSize(11);
  document_.PutPaperSize(777);
  document_.PutPaperSize(777);
  ASSERT_EQ(complaints.size(), 1U);
  EXPECT_NE(complaints[0].find("777"), std::string::npos);
  EXPECT_NE(complaints[0].find("148 × 210"), std::string::npos);
  settings_.onComplaint = nullptr;
  testing::internal::CaptureStderr();
  document_.PutPaperSize(778);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("778"), std::string::npos);
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
