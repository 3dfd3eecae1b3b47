// What a print call does and leaves behind, seen through the module's boundary.
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

class PrintThroughTheModule : public ServerTest {
 protected:
  Reference<TdDispatch> printer_ = NewPrinter();
};

TEST_F(PrintThroughTheModule, PrintsTheRowsAndTellsSo) {
  const auto data = NamedRows({"大米", "绿豆"});
  const auto rows = TestRows::Make(data);
  ExpectOk(Print(printer_.Get(), rows.Get()));
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPrinted("大米"));
  EXPECT_TRUE(HasPrinted("绿豆"));
  EXPECT_EQ(data->position, 0) << "the cursor is put back";
}

TEST_F(PrintThroughTheModule, NothingToPrintRaisesTheErrorAndKeepsWhatTheLastPrintLeft) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  const std::string before = Exported();
  const int alive = TestRows::Alive();
  for (const TdVariant& nothing : {TdEmptyVariant(), TdNullVariant(), TdDispatchVariant(nullptr)}) {
    ExpectRaised(Call(printer_.Get(), "DoPrint",
                      {TdFlagVariant(1), TdTextVariant("sqlite:elsewhere.db"), TdIntegerVariant(99),
                       TdFlagVariant(0), TdFlagVariant(0), nothing, TdTextVariant("别的")}),
                 TD_NOTHING_TO_PRINT, "没有可供打印的数据!");
  }
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_EQ(Exported(), before);
  EXPECT_GT(alive, 0);
  EXPECT_EQ(TestRows::Alive(), alive) << "the data of the print call is still referenced";
}

TEST_F(PrintThroughTheModule, NothingToPrintByAreaRaisesTheSameError) {
  ExpectRaised(PrintByArea(printer_.Get(), nullptr), TD_NOTHING_TO_PRINT, "没有可供打印的数据!");
}

TEST_F(PrintThroughTheModule, AWrongSettingsFileIsToldInWordsAndLeavesPrintOkAlone) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  printer_ = {};  // files are read again when the component is next used
  WriteBarcodeSettings("no such setting");
  printer_ = NewPrinter();
  const auto rows = TestRows::Make(NamedRows({"绿豆"}));
  ExpectRaised(Print(printer_.Get(), rows.Get()), TD_RESULT_OF_NUMBER(kInvalidCall),
               "条码设置文件 barcode.conf 第 1 行有误。");
  EXPECT_TRUE(PrintOk(printer_.Get()));
  ExpectRaised(Print(printer_.Get(), nullptr), TD_NOTHING_TO_PRINT, "没有可供打印的数据!");
  WriteBarcodeSettings("");
  ExpectOk(Print(printer_.Get(), rows.Get()));
  EXPECT_TRUE(HasPrinted("绿豆"));
}

TEST_F(PrintThroughTheModule, DataThatCannotBeClonedPrints) {
  const auto data = NamedRows({"大米", "绿豆"});
  data->onClone = [] { throw Failure(3251, "不支持克隆"); };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPrinted("绿豆"));
  EXPECT_EQ(data->clones, 0);
}

TEST_F(PrintThroughTheModule, DataThatDoesNotKnowClonePrints) {
  const auto data = NamedRows({"大米"});
  data->missingMembers = {"Clone"};
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPrinted("大米"));
}

TEST_F(PrintThroughTheModule, BlankRowsAreSpentByARunOverEnoughRows) {
  ExpectOk(Put(printer_.Get(), "PrintBlankRows", TdIntegerVariant(3)));
  const auto rows = [] { return TestRows::Make(NamedRows({"一", "二", "三", "四", "五"})); };
  ExpectOk(Print(printer_.Get(), rows().Get()));
  const std::string withBlankRows = Exported();
  ExpectOk(Print(printer_.Get(), rows().Get()));
  const std::string spent = Exported();
  ExpectOk(Print(printer_.Get(), rows().Get()));
  EXPECT_NE(withBlankRows, spent);
  EXPECT_EQ(Exported(), spent) << "none were left for the second run";
}

TEST_F(PrintThroughTheModule, BlankRowsWaitForAPrintThatHasData) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"一", "二"})).Get()));
  const std::string without = Exported();
  ExpectOk(Put(printer_.Get(), "PrintBlankRows", TdIntegerVariant(1)));
  EXPECT_EQ(Print(printer_.Get(), nullptr).number, TD_NOTHING_TO_PRINT);
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"一", "二"})).Get()));
  EXPECT_NE(Exported(), without);
}

TEST_F(PrintThroughTheModule, BorderAndPrintDeviceHaveNoEffect) {
  const auto print = [this](int border, TdVariant device) {
    const auto rows = TestRows::Make(NamedRows({"大米"}));
    ExpectOk(Call(printer_.Get(), "DoPrint",
                  {TdFlagVariant(1), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
                   TdFlagVariant(0), TdFlagVariant(border), TdDispatchVariant(rows.Get()),
                   TdTextVariant("销售单"), device}));
    EXPECT_TRUE(PrintOk(printer_.Get()));
    return Exported();
  };
  const std::string plain = print(0, TdLeftOutVariant());
  EXPECT_EQ(print(1, TdLeftOutVariant()), plain);
  EXPECT_EQ(print(0, TdTextVariant("没有的打印机")), plain);
  EXPECT_EQ(print(0, TdIntegerVariant(5)), plain);
}

TEST_F(PrintThroughTheModule, ThePreviewWithoutADisplayPrintsNothing) {
  const auto rows = TestRows::Make(NamedRows({"大米"}));
  ExpectOk(Call(printer_.Get(), "DoPrint",
                {TdFlagVariant(0), TdTextVariant(connection_.c_str()), TdIntegerVariant(21),
                 TdFlagVariant(0), TdFlagVariant(0), TdDispatchVariant(rows.Get())}));
  EXPECT_FALSE(PrintOk(printer_.Get()));
  EXPECT_EQ(Exported(), "");
}

TEST_F(PrintThroughTheModule, AnUnknownFormatIsAMessageAndNothingIsPrinted) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get(), "没有的格式"));
  EXPECT_FALSE(PrintOk(printer_.Get()));
  EXPECT_NE(Messages(), "");
}

TEST_F(PrintThroughTheModule, ASecondPrinterSeesWhatTheFirstOneLeft) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  const auto second = NewPrinter();
  EXPECT_TRUE(PrintOk(second.Get()));
  ExpectOk(Print(second.Get(), TestRows::Make(NamedRows({"大米"})).Get(), "没有的格式"));
  EXPECT_FALSE(PrintOk(printer_.Get()));
}

TEST_F(PrintThroughTheModule, KeepsTheDataUntilTheLastObjectIsGone) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  EXPECT_GT(TestRows::Alive(), 0);
  printer_ = {};
  EXPECT_EQ(TestRows::Alive(), 0);
  printer_ = NewPrinter();
  EXPECT_TRUE(PrintOk(printer_.Get())) << "the rest of the request state stays";
}

TEST_F(PrintThroughTheModule, ACallFromWithinAPrintIsRefused) {
  const auto data = NamedRows({"大米", "绿豆"});
  Outcome inner;
  const auto other = TestRows::Make(NamedRows({"另一份"}));
  data->onMoveNext = [&] {
    if (inner.result == TD_OK) inner = Print(printer_.Get(), other.Get());
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  ExpectRaised(inner, TD_RESULT_OF_NUMBER(kInvalidCall),
               "打印、预览或设置尚未结束，不能再次调用。");
  EXPECT_TRUE(HasPrinted("绿豆"));
  EXPECT_FALSE(HasPrinted("另一份"));
}

TEST_F(PrintThroughTheModule, APrinterThatIsGivenBackDuringItsOwnCallEndsAfterIt) {
  const auto data = NamedRows({"大米", "绿豆"});
  TdDispatch* printer = printer_.Give();
  bool isReleased = false;
  data->onMoveNext = [&] {
    if (!isReleased) printer->table->Release(printer);
    isReleased = true;
  };
  ExpectOk(Print(printer, TestRows::Make(data).Get()));
  EXPECT_TRUE(isReleased);
  EXPECT_TRUE(HasPrinted("绿豆"));
}

TEST_F(PrintThroughTheModule, TheSettingsWithoutADisplayFailInWordsAndLeavePrintOkAlone) {
  ExpectOk(Print(printer_.Get(), TestRows::Make(NamedRows({"大米"})).Get()));
  const int alive = TestRows::Alive();
  const auto settings = module_->Create(kTdSettingsClass);
  const Outcome outcome =
      Call(settings.Get(), "TDSet", {TdTextVariant(connection_.c_str()), TdIntegerVariant(21)});
  EXPECT_EQ(outcome.result, TD_EXCEPTION);
  EXPECT_NE(outcome.description, "");
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_EQ(TestRows::Alive(), alive) << "the data of the print call is still referenced";
}

}  // namespace
}  // namespace td
