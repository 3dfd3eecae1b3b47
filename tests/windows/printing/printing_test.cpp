// On the queues of scripts/cups-for-tests.sh.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/failure.h"
#include "sample_page.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/forms.h"
#include "windows/printing/printers.h"

namespace td {
namespace {

constexpr std::int32_t kPaperA5 = 11;

PaperExtent Millimetres(double width, double height) {
  return {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

TEST(Printers, AreThoseOfTheSystemByTheirExactNames) {
  const std::vector<std::string> names = PrinterNames();
  EXPECT_GT(std::ranges::count(names, "QbTd-PDF"), 0);
  EXPECT_TRUE(HasPrinter("QbTd-PDF"));
  EXPECT_FALSE(HasPrinter("qbtd-pdf"));
  EXPECT_FALSE(HasPrinter(""));
  EXPECT_FALSE(HasPrinter("没有的打印机"));
  EXPECT_TRUE(HasPrinter(DefaultPrinter()));
}

TEST(Printers, HaveASheetOfTheirOwn) {
  const auto sheet = OwnSheet("QbTd-Fixed");
  ASSERT_TRUE(sheet.has_value());
  EXPECT_TRUE(IsSameSheet(*sheet, Millimetres(210, 297)));
  EXPECT_EQ(OwnSheet("没有的打印机"), std::nullopt);
  EXPECT_EQ(OwnSheet(""), std::nullopt);
}

TEST(Forms, AreFoundByTheirSizeAndNotByTheirNumber) {
  const std::vector<Form> forms = FormsOf("QbTd-Bill");
  const auto number = FormNumber("QbTd-Bill", Millimetres(241, 140), kUserDefinedPaper);
  ASSERT_TRUE(number.has_value());
  const auto form = std::ranges::find(forms, *number, &Form::number);
  ASSERT_NE(form, forms.end());
  EXPECT_TRUE(IsSameSheet(form->sheet, Millimetres(241, 140)));
}

TEST(Forms, AStandardSheetHasTheStandardsNumber) {
  EXPECT_EQ(FormNumber("QbTd-PDF", *StandardPaper(kPaperA4), kPaperA4), kPaperA4);
  EXPECT_EQ(FormNumber("QbTd-PDF", *StandardPaper(kPaperA5), kPaperA5), kPaperA5);
}

TEST(DocumentPrinting, AJobHasOneSheetAndANumber) {
  std::vector<int> jobs;
  Page a5 = PageOf(148, 210, {Box("甲", 10, 10, 50, 10)});
  Page across = PageOf(210, 148, {Box("乙", 10, 10, 50, 10)});
  across.landscape = true;
  const Page a4 = PageOf(210, 297, {Box("丙", 10, 10, 50, 10)});
  EXPECT_TRUE(PrintDocument({a5, across, a4, a4}, {"QbTd-PDF", "sheets", {}, {}}, jobs));
  EXPECT_EQ(jobs.size(), 2U);
  EXPECT_TRUE(PrintDocument({a5, a4}, {"QbTd-PDF", "chosen", std::vector<int>{2}, {}}, jobs));
  EXPECT_EQ(jobs.size(), 3U);
}

TEST(DocumentPrinting, APrinterThatHasGoneIsAFailureOfADevice) {
  std::vector<int> jobs;
  try {
    PrintDocument({PageOf(148, 210, {})}, {"锁机", "none", {}, {}}, jobs);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDeviceIo);
    EXPECT_NE(failure.Description().find("鎖机"), std::string::npos) << failure.Description();
  }
  EXPECT_TRUE(jobs.empty());
}

}  // namespace
}  // namespace td
