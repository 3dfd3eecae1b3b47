// Texts with zero units inside, as the strings of the binary interface may have them.
#include <filesystem>

#include "file_content.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class EmbeddedZeros : public ServerTest {
 protected:
  ~EmbeddedZeros() override { session_ = {}; }

  // `front`, a zero unit, and a text behind it.
  static TdVariant Split(const std::string& front) { return VariantOf(front + '\0' + "尾"); }

  [[nodiscard]] std::string Text(const char* property) const {
    OwnedVariant value;
    ExpectOk(Get(session_.Get(), property, value));
    return TextOf(value->value.string);
  }

  Outcome PrintWith(TdVariant connection, TdVariant format) const {
    return Call(
        session_.Get(), "DoPrint",
        {TdFlagVariant(1), connection, TdIntegerVariant(21), TdFlagVariant(0), TdFlagVariant(0),
         TdDispatchVariant(TestRows::Make(NamedRows({"大米"})).Get()), format});
  }

  Reference<TdDispatch> session_ = module_->Create(kTdSessionClass);
};

TEST_F(EmbeddedZeros, AnOutputIsNotWrittenUnderAShorterName) {
  for (const char* method : {"ToHtml", "ToPdf", "ToPng", "ToPrinter"}) {
    EXPECT_EQ(Call(session_.Get(), method, {Split(folder_.File("order"))}).number,
              TD_RESULT_OF_NUMBER(kInvalidCall))
        << method;
  }
  EXPECT_EQ(Put(session_.Get(), "LogFile", Split(folder_.File("order"))).number,
            TD_RESULT_OF_NUMBER(kInvalidCall));
  ExpectOk(Put(session_.Get(), "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  ExpectOk(Print(session_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_FALSE(fs::exists(folder_.Path() / "order"));
}

TEST_F(EmbeddedZeros, AConnectionIsNotMadeWithAShorterText) {
  ExpectOk(Put(session_.Get(), "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  ExpectOk(PrintWith(Split(connection_), TdTextVariant("")));
  EXPECT_FALSE(PrintOk(session_.Get()));
  EXPECT_NE(Text("Messages").find("含有空字符"), std::string::npos) << Text("Messages");
}

TEST_F(EmbeddedZeros, AFormatOfTheShorterNameIsNotTaken) {
  ExpectOk(Put(session_.Get(), "MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)));
  ExpectOk(PrintWith(TdTextVariant(connection_.c_str()), Split("销售单")));
  EXPECT_FALSE(PrintOk(session_.Get()));
  EXPECT_NE(Text("Messages"), "");
}

TEST_F(EmbeddedZeros, AValuePrintsWithWhatStandsBehindThem) {
  const std::string file = folder_.File("order.html");
  ExpectOk(Call(session_.Get(), "ToHtml", {TdTextVariant(file.c_str())}));
  const auto data = OneValue("FName", [] { return Split("头"); });
  ExpectOk(Print(session_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(PrintOk(session_.Get()));
  const std::string page = ContentOf(PathOf(file));
  EXPECT_NE(page.find("头"), std::string::npos);
  EXPECT_NE(page.find("尾"), std::string::npos);
  EXPECT_EQ(page.find('\0'), std::string::npos) << "no file of texts has it";
}

}  // namespace
}  // namespace td
