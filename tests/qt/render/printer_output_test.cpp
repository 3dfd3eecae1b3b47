#include <gtest/gtest.h>

#include <QPageLayout>
#include <QPrinter>

#include "render/outputs.h"
#include "sample_page.h"
#include "test_tools.h"

namespace td {
namespace {

constexpr double kDotsPerInch = 508;  // a pixel is 0.05 millimetres

class PrinterOutput : public testing::Test {
 protected:
  PrinterOutput() : printer(QPrinter::HighResolution) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(QString::fromStdString(folder.Path("job.pdf")));
  }

  Folder folder;
  QPrinter printer;
};

TEST_F(PrinterOutput, MarginsOfThePrinterShiftNothing) {
  printer.setPageMargins(QMarginsF(20, 15, 10, 5), QPageLayout::Millimeter);
  PaintPages({SamplePage()}, printer, 1, 1);
  WritePdf({SamplePage()}, folder.Path("sample.pdf"), "");
  const QImage pdf = ImageOf(folder.Path("sample.pdf"), kDotsPerInch);
  const QImage job = ImageOf(folder.Path("job.pdf"), kDotsPerInch);
  for (const SampleItem& item : SampleItems()) {
    const QRectF expected = InkIn(pdf, kDotsPerInch, item.region);
    const QRectF actual = InkIn(job, kDotsPerInch, item.region);
    EXPECT_NEAR(actual.left(), expected.left(), kTolerance) << item.name;
    EXPECT_NEAR(actual.top(), expected.top(), kTolerance) << item.name;
    EXPECT_NEAR(actual.right(), expected.right(), kTolerance) << item.name;
    EXPECT_NEAR(actual.bottom(), expected.bottom(), kTolerance) << item.name;
  }
}

TEST_F(PrinterOutput, EachPageHasItsOwnSheet) {
  PaintPages({PageOf(241, 140), PageOf(148, 210)}, printer, 1, 2);
  const std::vector<Sheet> sheets = SheetsOf(folder.Path("job.pdf"));
  ASSERT_EQ(sheets.size(), 2U);
  EXPECT_NEAR(sheets[0].width, 241, 0.36);  // whole points
  EXPECT_NEAR(sheets[0].height, 140, 0.36);
  EXPECT_NEAR(sheets[1].width, 148, 0.36);
  EXPECT_NEAR(sheets[1].height, 210, 0.36);
}

TEST_F(PrinterOutput, OnlyTheWantedPagesArePrinted) {
  std::vector<Page> pages;
  for (const char* number : {"p1", "p2", "p3", "p4"}) {
    pages.push_back(PageOf(100, 100, {Box(number, 10, 10, 50, 10)}));
  }
  PaintPages(pages, printer, 2, 3);
  EXPECT_EQ(SheetsOf(folder.Path("job.pdf")).size(), 2U);
  EXPECT_EQ(WordsOf(folder.Path("job.pdf"), 1).front().text, "p2");
  EXPECT_EQ(NumberOf([&] { PaintPages(pages, printer, 5, 9); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { PaintPages({}, printer, 1, 1); }), kInvalidCall);
}

TEST_F(PrinterOutput, AJobThatCannotBeginFails) {
  printer.setOutputFileName(QString::fromStdString(folder.Path("no/such/folder/job.pdf")));
  EXPECT_EQ(NumberOf([&] { PaintPages({PageOf(100, 100)}, printer, 1, 1); }), kDeviceIo);
}

}  // namespace
}  // namespace td
