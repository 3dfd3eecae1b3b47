// The classes' own interfaces, without names.
#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

class DirectCalls : public ServerTest {
 protected:
  Reference<TdPrinter> printer_ = InterfaceOf<TdPrinter>(NewPrinter().Get(), kTdPrinterId);
  OwnedString connectionText_{StringOf(connection_)};

  TdResult Print(TdDispatch* data) {
    return printer_.Get()->table->DoPrint(printer_.Get(), TD_TRUE_FLAG, connectionText_.Get(), 21,
                                          TD_FALSE_FLAG, TD_FALSE_FLAG, &data, nullptr, nullptr);
  }
  static std::string LastDescription(TdPrinter* printer, TdResult& number) {
    const auto source = InterfaceOf<TdErrorSource>(printer, kTdErrorSourceId);
    TdExceptionInfo info{};
    const TdResult found = source.Get()->table->LastError(source.Get(), &info);
    number = found == TD_OK ? info.result : TD_OK;
    std::string description = TextOf(info.description);
    TdClearException(&info);
    return description;
  }
};

TEST_F(DirectCalls, PrintAndTellSo) {
  const auto rows = TestRows::Make(NamedRows({"大米"}));
  EXPECT_EQ(Print(rows.Get()), TD_OK);
  TdFlag printOk = TD_FALSE_FLAG;
  EXPECT_EQ(printer_.Get()->table->PrintOk(printer_.Get(), &printOk), TD_OK);
  EXPECT_EQ(printOk, TD_TRUE_FLAG);
  EXPECT_TRUE(HasPrinted("大米"));
}

TEST_F(DirectCalls, PrintByAreaAndSetBlankRows) {
  EXPECT_EQ(printer_.Get()->table->PrintBlankRows(printer_.Get(), 0), TD_OK);
  const auto rows = TestRows::Make(NamedRows({"大米"}));
  TdDispatch* data = rows.Get();
  EXPECT_EQ(printer_.Get()->table->DoPrint_GroupByArea(printer_.Get(), TD_TRUE_FLAG,
                                                       connectionText_.Get(), 21, TD_FALSE_FLAG,
                                                       TD_FALSE_FLAG, &data, nullptr, nullptr),
            TD_OK);
  TdFlag printOk = TD_FALSE_FLAG;
  EXPECT_EQ(printer_.Get()->table->PrintOk(printer_.Get(), &printOk), TD_OK);
  EXPECT_EQ(printOk, TD_TRUE_FLAG);
}

TEST_F(DirectCalls, NothingToPrintIsAResultCodeWithADescriptionThatIsGivenOnce) {
  EXPECT_EQ(Print(nullptr), TD_NOTHING_TO_PRINT);
  TdResult number = TD_OK;
  EXPECT_EQ(LastDescription(printer_.Get(), number), "没有可供打印的数据!");
  EXPECT_EQ(number, TD_NOTHING_TO_PRINT);
  EXPECT_EQ(LastDescription(printer_.Get(), number), "");
  EXPECT_EQ(number, TD_OK);
  EXPECT_EQ(printer_.Get()->table->DoPrint(printer_.Get(), TD_TRUE_FLAG, nullptr, 21, TD_FALSE_FLAG,
                                           TD_FALSE_FLAG, nullptr, nullptr, nullptr),
            TD_NOTHING_TO_PRINT)
      << "no variable at all";
  LastDescription(printer_.Get(), number);
}

TEST_F(DirectCalls, RefuseNullPointersForResults) {
  EXPECT_EQ(printer_.Get()->table->PrintOk(printer_.Get(), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(printer_.Get()->table->QueryInterface(printer_.Get(), &kTdPrinterId, nullptr),
            TD_BAD_POINTER);
  void* found = this;
  EXPECT_EQ(printer_.Get()->table->QueryInterface(printer_.Get(), nullptr, &found), TD_BAD_POINTER);
  EXPECT_EQ(found, nullptr);
}

TEST_F(DirectCalls, TheSettingsNeedADisplay) {
  const auto settings =
      InterfaceOf<TdSettings>(module_->Create(kTdSettingsClass).Get(), kTdSettingsId);
  EXPECT_TRUE(TD_FAILED(settings.Get()->table->TDSet(settings.Get(), connectionText_.Get(), 21)));
}

TEST_F(DirectCalls, AllInterfacesLeadToOneObject) {
  const auto first = InterfaceOf<TdObject>(printer_.Get(), kTdObjectId);
  const auto source = InterfaceOf<TdErrorSource>(first.Get(), kTdErrorSourceId);
  const auto dispatch = InterfaceOf<TdDispatch>(source.Get(), kTdDispatchId);
  const auto again = InterfaceOf<TdObject>(dispatch.Get(), kTdObjectId);
  EXPECT_EQ(first.Get(), again.Get());
  EXPECT_NE(dispatch.Get(), nullptr);
  EXPECT_EQ(InterfaceOf<TdSettings>(printer_.Get(), kTdSettingsId).Get(), nullptr);
}

}  // namespace
}  // namespace td
