// On the queues of scripts/cups-for-tests.sh.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "files/path_text.h"
#include "platform/failure.h"
#include "sample_page.h"
#include "windows/api/wide_text.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/driver_settings.h"
#include "windows/printing/forms.h"
#include "windows/printing/printers.h"

// Behind the system's other headers.
#include <winspool.h>

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kPaperA5 = 11;

PaperExtent Millimetres(double width, double height) {
  return {width * kTwipsPerMillimetre, height * kTwipsPerMillimetre};
}

PrintChoice ChoiceOf(const std::string& printer) {
  PrintChoice choice;
  choice.printer = printer;
  choice.title = "test";
  return choice;
}

void ExpectNoComplaint(const std::string& words) {
  ADD_FAILURE() << words;
}

JobOptions OptionsOf(int copies, bool collated) {
  return {copies, collated, {}};
}

// What the printer is set to, changed as a user does it in the driver's own dialog.
template <typename Change>
JobOptions ChosenInTheDialog(const std::string& printer, const Change& change) {
  JobOptions options;
  options.settings = DriverSettings(printer).Bytes();
  change(*reinterpret_cast<DEVMODEW*>(options.settings.data()));
  return options;
}

JobOptions WithSides(const std::string& printer, std::int16_t sides) {
  return ChosenInTheDialog(printer, [sides](DEVMODEW& mode) {
    mode.dmFields |= DM_DUPLEX;
    mode.dmDuplex = sides;
  });
}

JobOptions WithTray(const std::string& printer, std::int16_t tray) {
  return ChosenInTheDialog(printer, [tray](DEVMODEW& mode) {
    mode.dmFields |= DM_DEFAULTSOURCE;
    mode.dmDefaultSource = tray;
  });
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
  EXPECT_TRUE(PrintDocument({a5, across, a4, a4}, ChoiceOf("QbTd-PDF"), jobs, ExpectNoComplaint));
  EXPECT_EQ(jobs.size(), 2U);
  PrintChoice chosen = ChoiceOf("QbTd-PDF");
  chosen.pages = {2};
  EXPECT_TRUE(PrintDocument({a5, a4}, chosen, jobs, ExpectNoComplaint));
  EXPECT_EQ(jobs.size(), 3U);
}

// What a printer that takes no job makes of one.
std::string ReasonOf(const std::string& printer) {
  std::vector<int> jobs;
  try {
    PrintDocument({PageOf(210, 297, {})}, ChoiceOf(printer), jobs, ExpectNoComplaint);
    ADD_FAILURE() << printer;
    return {};
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDeviceIo);
    EXPECT_TRUE(jobs.empty());
    return failure.Description();
  }
}

TEST(DocumentPrinting, APrinterThatHasGoneIsAFailureOfADevice) {
  EXPECT_NE(ReasonOf("锁机").find("打印机“鎖机”已不存在"), std::string::npos);
}

TEST(DocumentPrinting, AQueueThatTakesNoJobsIsAFailureOfADevice) {
  EXPECT_NE(ReasonOf("QbTd-Refusing").find("打印机“QbTd-Refusing”不接受打印任务"),
            std::string::npos);
}

// The user's default printer is the test's, as long as the object lives.
class ChosenDefaultPrinter {
 public:
  explicit ChosenDefaultPrinter(const wchar_t* name) : former_(ToWide(DefaultPrinter())) {
    EXPECT_NE(SetDefaultPrinterW(name), FALSE);
  }
  ~ChosenDefaultPrinter() { SetDefaultPrinterW(former_.c_str()); }
  ChosenDefaultPrinter(const ChosenDefaultPrinter&) = delete;
  ChosenDefaultPrinter& operator=(const ChosenDefaultPrinter&) = delete;

 private:
  std::wstring former_;
};

TEST(Printers, TheDefaultOneIsThatOfTheUser) {
  for (const wchar_t* name : {L"QbTd-Office", L"QbTd-Fixed"}) {
    const ChosenDefaultPrinter chosen(name);
    EXPECT_EQ(DefaultPrinter(), FromWide(name));
  }
}

// A job in a file in the place of the printer, as the driver writes it.
class JobFile : public testing::Test {
 protected:
  JobFile() {
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / PathOf("任务-" + std::to_string(random()));
    } while (!fs::create_directory(folder_));
  }
  ~JobFile() override { fs::remove_all(folder_); }

  // What the driver makes of the pages.
  [[nodiscard]] std::string Printed(const std::vector<Page>& pages, const std::string& printer,
                                    const JobOptions& options = {}) {
    const fs::path file = folder_ / PathOf("job.ps");
    fs::remove(file);
    std::vector<int> jobs;
    PrintChoice choice = ChoiceOf(printer);
    choice.file = TextOf(file);
    choice.options = options;
    EXPECT_TRUE(PrintDocument(pages, choice, jobs,
                              [this](const std::string& words) { complaints_.push_back(words); }));
    EXPECT_EQ(jobs.size(), 1U);
    std::stringstream content;
    content << std::ifstream(file, std::ios::binary).rdbuf();
    return content.str();
  }

  fs::path folder_;
  std::vector<std::string> complaints_;
};

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

// The driver's number of a tray.
std::int16_t TrayNamed(const std::wstring& printer, const std::wstring& tray) {
  constexpr std::size_t kNameLength = 24;
  const int count = DeviceCapabilitiesW(printer.c_str(), nullptr, DC_BINS, nullptr, nullptr);
  std::vector<WORD> numbers(static_cast<std::size_t>(std::max(count, 0)));
  std::vector<wchar_t> names(numbers.size() * kNameLength);
  DeviceCapabilitiesW(printer.c_str(), nullptr, DC_BINS, reinterpret_cast<wchar_t*>(numbers.data()),
                      nullptr);
  DeviceCapabilitiesW(printer.c_str(), nullptr, DC_BINNAMES, names.data(), nullptr);
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (tray == &names[i * kNameLength]) return static_cast<std::int16_t>(numbers[i]);
  }
  ADD_FAILURE() << "no such tray among " << numbers.size();
  return 0;
}

TEST_F(JobFile, HoldsPagesOnSeveralSheets) {
  const Page a5 = PageOf(148, 210, {Box("甲", 10, 10, 50, 10)});
  const Page a4 = PageOf(210, 297, {Box("乙", 10, 10, 50, 10)});
  EXPECT_EQ(CountOf(Printed({a5, a4, a5}, "QbTd-PDF"), "%%Page: "), 3U);
}

TEST_F(JobFile, BearsTheTitle) {
  EXPECT_EQ(CountOf(Printed({PageOf(210, 297, {})}, "QbTd-PDF"), "%%Title: test"), 1U);
}

TEST_F(JobFile, OnASheetThatThePrinterHasIsNothingToComplainOf) {
  Page across = PageOf(297, 210, {Box("甲", 10, 10, 50, 10)});
  across.landscape = true;
  (void)Printed({across}, "QbTd-Fixed");
  (void)Printed({PageOf(241, 140, {Box("甲", 10, 10, 50, 10)})}, "QbTd-Bill");
  EXPECT_TRUE(complaints_.empty()) << complaints_.front();
}

// Such a printer takes the job, and its own sheet for it.
TEST_F(JobFile, OnASheetThatThePrinterHasNotIsToldOnce) {
  const Page page = PageOf(241, 140, {Box("甲", 10, 10, 50, 10)});
  EXPECT_EQ(CountOf(Printed({page, page}, "QbTd-Fixed"), "%%Page: "), 2U);
  ASSERT_EQ(complaints_.size(), 1U);
  EXPECT_EQ(complaints_[0],
            "打印机“QbTd-Fixed”没有 241.0 × 140.0 毫米的纸，印在 209.9 × 297.0 毫米的纸上。");
}

TEST_F(JobFile, KeepsTheTrayAndTheSidesThatWereChosenForAnySheet) {
  const std::string office = "QbTd-Office";
  Page across = PageOf(297, 210, {Box("甲", 10, 10, 50, 10)});
  across.landscape = true;
  const std::vector<Page> pages = {PageOf(210, 297, {Box("甲", 10, 10, 50, 10)}), across};
  EXPECT_EQ(CountOf(Printed(pages, office), "*Duplex Duplex"), 0U);
  const std::string second =
      Printed(pages, office, WithTray(office, TrayNamed(L"QbTd-Office", L"Tray 2")));
  EXPECT_EQ(CountOf(second, "*InputSlot Tray2"), CountOf(second, "*PageSize A4"));
  EXPECT_GT(CountOf(second, "*InputSlot Tray2"), 0U);
  EXPECT_GT(
      CountOf(Printed(pages, office, WithSides(office, DMDUP_VERTICAL)), "*Duplex DuplexNoTumble"),
      0U);
  EXPECT_GT(
      CountOf(Printed(pages, office, WithSides(office, DMDUP_HORIZONTAL)), "*Duplex DuplexTumble"),
      0U);
  EXPECT_EQ(CountOf(Printed(pages, office, WithSides(office, DMDUP_SIMPLEX)), "*Duplex Duplex"),
            0U);
}

// Either the driver repeats the pages, or they are sent again.
TEST_F(JobFile, HasAsManyCopiesAsAreWanted) {
  const Page page = PageOf(210, 297, {Box("甲", 10, 10, 50, 10)});
  for (const bool collated : {true, false}) {
    const std::string job = Printed({page, page}, "QbTd-PDF", OptionsOf(3, collated));
    const std::size_t ofDriver = CountOf(job, "%cupsJobTicket: copies=3");
    EXPECT_EQ(CountOf(job, "%%Page: ") * (ofDriver > 0 ? 3 : 1), 6U);
  }
}

TEST(DriverSettings, ASheetThatNoFormHasIsAskedForByItsSize) {
  DriverSettings settings("QbTd-PDF");
  ASSERT_TRUE(settings.IsKnown());
  settings.PutSheet(Millimetres(123, 77), kUserDefinedPaper);
  if ((settings.Mode()->dmFields & DM_PAPERSIZE) != 0) {
    const std::vector<Form> forms = FormsOf("QbTd-PDF");
    const auto form = std::ranges::find(forms, settings.Mode()->dmPaperSize, &Form::number);
    if (form != forms.end()) {
      EXPECT_TRUE(IsSameSheet(form->sheet, Millimetres(123, 77))) << "a form was added";
      return;
    }
  }
  EXPECT_EQ(settings.Mode()->dmPaperWidth, 1230);
  EXPECT_EQ(settings.Mode()->dmPaperLength, 770);
}

TEST(DriverSettings, OfAPrinterThatHasGoneAreUnknown) {
  EXPECT_FALSE(DriverSettings("没有的打印机").IsKnown());
}

TEST(Printers, AreFoundByTheirDrivers) {
  EXPECT_EQ(PrinterOfDriver("no such driver"), "");
}

}  // namespace
}  // namespace td
