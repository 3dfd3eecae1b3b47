// A session on Windows: what becomes of its prints, by calls by name.
#include <algorithm>
#include <fstream>
#include <sstream>

#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

class Session : public ServerTest {
 protected:
  ~Session() override { session_ = {}; }

  void Choose(const char* method, const std::string& target) const {
    ExpectOk(Call(session_.Get(), method, {TdTextVariant(target.c_str())}));
  }
  Outcome PrintNames(const std::vector<std::string>& names) const {
    return Print(session_.Get(), TestRows::Make(NamedRows(names)).Get());
  }
  [[nodiscard]] std::string Text(const char* property) const {
    OwnedVariant value;
    ExpectOk(Get(session_.Get(), property, value));
    EXPECT_EQ(value->type, TD_STRING) << property;
    return TextOf(value->value.string);
  }
  [[nodiscard]] std::int32_t Number(const char* property) const {
    OwnedVariant value;
    ExpectOk(Get(session_.Get(), property, value));
    EXPECT_EQ(value->type, TD_INT32) << property;
    return value->value.integer32;
  }
  [[nodiscard]] std::string ContentOf(const std::string& name) const {
    std::stringstream content;
    content << std::ifstream(folder_.Path() / PathOf(name), std::ios::binary).rdbuf();
    return content.str();
  }

  Reference<TdDispatch> session_ = module_->Create(kTdSessionClass);
};

TEST_F(Session, PrintsIntoAFileAndTellsOfIt) {
  Choose("ToHtml", folder_.File("订单 1.html"));
  ExpectOk(PrintNames(std::vector<std::string>(12, "大米")));
  EXPECT_EQ(Text("Result"), "written");
  EXPECT_EQ(Number("Pages"), 2);
  EXPECT_EQ(Number("MessageCount"), 0);
  EXPECT_EQ(Text("PrinterName"), "");
  EXPECT_TRUE(PrintOk(session_.Get()));
  EXPECT_NE(ContentOf("订单 1.html").find(">大米<"), std::string::npos);
}

TEST_F(Session, PrintsIntoPictures) {
  Choose("ToPng", folder_.File("页"));
  ExpectOk(PrintNames(std::vector<std::string>(12, "大米")));
  EXPECT_EQ(Text("Result"), "written");
  EXPECT_TRUE(ContentOf("页/page-001.png").starts_with("\x89PNG"));
  EXPECT_TRUE(ContentOf("页/page-002.png").starts_with("\x89PNG"));
}

// There is no printer here at all.
TEST_F(Session, WithoutThePrinterThatMakesThemAPdfIsRefused) {
  ExpectOk(Put(session_.Get(), "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  Choose("ToPdf", folder_.File("订单.pdf"));
  ExpectOk(PrintNames({"大米"}));
  EXPECT_EQ(Text("Result"), "refused");
  EXPECT_NE(Text("Reason").find("Microsoft Print to PDF"), std::string::npos) << Text("Reason");
  EXPECT_EQ(Number("MessageCount"), 1);
  EXPECT_EQ(ContentOf("订单.pdf"), "");
}

TEST_F(Session, APrinterThatIsNotInstalledIsAnError) {
  Choose("ToPrinter", "没有的打印机");
  ExpectRaised(PrintNames({"大米"}), TD_RESULT_OF_NUMBER(380), "找不到打印机“没有的打印机”。");
}

TEST_F(Session, AddsALineToItsLogForEachPrint) {
  Choose("ToHtml", folder_.File("order.html"));
  ExpectOk(Put(session_.Get(), "LogFile", TdTextVariant(folder_.File("打印.log").c_str())));
  ExpectOk(PrintNames({"大米"}));
  ExpectOk(PrintNames({"大米"}));
  const std::string log = ContentOf("打印.log");
  EXPECT_EQ(std::ranges::count(log, '\n'), 2);
  EXPECT_NE(log.find(R"("result":"written")"), std::string::npos) << log;
  EXPECT_EQ(Text("Complaints"), "");
}

TEST_F(Session, ExplainsItsPrints) {
  Choose("ToHtml", folder_.File("order.html"));
  ExpectOk(Put(session_.Get(), "Explain", TdFlagVariant(1)));
  ExpectOk(PrintNames({"大米"}));
  EXPECT_NE(Text("Explanation"), "");
  EXPECT_TRUE(Text("ExplanationJson").starts_with("{"));
}

}  // namespace
}  // namespace td
