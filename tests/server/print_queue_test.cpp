// A document that goes through the module to a real queue of the printing system.
#include "print_queue.h"

#include <errno.h>
#include <stdlib.h>

#include <regex>

#include "command_output.h"
#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

// The program's name gives the jobs their title.
const std::string& JobTitle() {
  static const std::string title = UniqueTitle("server");
  return title;
}

class ToAQueue : public ServerTest {
 protected:
  ToAQueue() {
    OtherUser(folder_.File("bills.db"))
        .Run("update TDBill set FPrintDevice='QbTd-PDF' where FTDBillName='销售单'");
  }

  // Makes a print call and returns the file that the queue made of its document.
  template <class PrintCall>
  static std::string Printed(const PrintCall& print) {
    const std::size_t before = JobsTitled(JobTitle()).size();
    ExpectOk(print());
    const std::vector<int> jobs = JobsTitled(JobTitle());
    EXPECT_EQ(jobs.size(), before + 1);
    return jobs.empty() ? std::string() : ResultOf(jobs.back());
  }
  static bool HasPages(const std::string& file, int count) {
    const std::regex line("Pages: +" + std::to_string(count) + "\n");
    return std::regex_search(OutputOf("pdfinfo '" + file + "'"), line);
  }

  Reference<TdDispatch> printer_ = NewPrinter();
};

TEST_F(ToAQueue, TheSheetsOfTheDocumentComeOut) {
  const std::vector<std::string> twoPages(12, "大米");
  const std::string file =
      Printed([&] { return Print(printer_.Get(), TestRows::Make(NamedRows(twoPages)).Get()); });
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_EQ(Messages(), "");
  EXPECT_TRUE(HasPages(file, 2));
  EXPECT_GT(OutputOf("pdftotext '" + file + "' -").size(), 12U) << "something stands on them";
}

TEST_F(ToAQueue, EachStockAreaBeginsAPage) {
  const auto data = NamedRows({"Rice", "Beans", "Oil"});
  const std::vector<std::string> areas = {"A1", "A2", "B"};
  for (std::size_t i = 0; i < areas.size(); ++i) data->rows[i]["FStockArea"] = Text(areas[i]);
  const std::string file =
      Printed([&] { return PrintByArea(printer_.Get(), TestRows::Make(data).Get()); });
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPages(file, 2));
}

TEST_F(ToAQueue, ASessionSendsToAPrinterOfItsChoiceAndTellsTheJob) {
  OtherUser(folder_.File("bills.db")).Run("update TDBill set FPrintDevice=null");
  const std::string log = folder_.File("prints.log");
  const auto session = module_->Create(kTdSessionClass);
  ExpectOk(Call(session.Get(), "ToPrinter", {TdTextVariant("QbTd-PDF")}));
  ExpectOk(Put(session.Get(), "LogFile", TdTextVariant(log.c_str())));
  const auto data = TestRows::Make(NamedRows({"Rice"}));
  EXPECT_TRUE(HasPages(Printed([&] { return Print(session.Get(), data.Get()); }), 1));
  const auto text = [&](const char* property) {
    OwnedVariant value;
    ExpectOk(Get(session.Get(), property, value));
    return TextOf(value->value.string);
  };
  const int job = JobsTitled(JobTitle()).back();
  OwnedVariant number;
  ExpectOk(Get(session.Get(), "JobNumber", number));
  EXPECT_EQ(number->value.integer32, job);
  EXPECT_EQ(text("Jobs"), std::to_string(job));
  EXPECT_EQ(text("PrinterName"), "QbTd-PDF");
  EXPECT_EQ(text("Result"), "printed");
  const std::string line = OutputOf("cat '" + log + "'");
  EXPECT_NE(line.find("\"printer\":\"QbTd-PDF\",\"jobs\":[" + std::to_string(job) + "]"),
            std::string::npos)
      << line;
}

TEST_F(ToAQueue, ASessionTellsOfAPrinterThatRefuses) {
  const auto session = module_->Create(kTdSessionClass);
  ExpectOk(Call(session.Get(), "ToPrinter", {TdTextVariant("QbTd-Refusing")}));
  ExpectOk(Put(session.Get(), "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  ExpectOk(Print(session.Get(), TestRows::Make(NamedRows({"Rice"})).Get()));
  OwnedVariant result;
  ExpectOk(Get(session.Get(), "Result", result));
  EXPECT_EQ(TextOf(result->value.string), "refused");
  OwnedVariant reason;
  ExpectOk(Get(session.Get(), "Reason", reason));
  EXPECT_NE(TextOf(reason->value.string).find("QbTd-Refusing"), std::string::npos);
}

}  // namespace
}  // namespace td

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::string title = td::JobTitle();
  program_invocation_name = title.data();
  for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) unsetenv(name);
  testing::AddGlobalTestEnvironment(new td::PrintQueues);
  return RUN_ALL_TESTS();
}
