// The direct interface of sessions.
#include <filesystem>
#include <thread>

#include "session_use.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class DirectSession : public Session {
 protected:
  [[nodiscard]] const TdSessionTable& Table() const { return *direct_.Get()->table; }
  [[nodiscard]] std::string TextFrom(TdResult(TD_CALL* member)(TdSession*, TdString*)) const {
    TdString given = nullptr;
    EXPECT_EQ(member(direct_.Get(), &given), TD_OK);
    const OwnedString text(given);
    return TextOf(text.Get());
  }
  [[nodiscard]] std::int32_t NumberFrom(TdResult(TD_CALL* member)(TdSession*,
                                                                  std::int32_t*)) const {
    std::int32_t number = -1;
    EXPECT_EQ(member(direct_.Get(), &number), TD_OK);
    return number;
  }
  TdResult PrintDirectly(const std::string& format) const {
    const OwnedString connection(StringOf(connection_));
    const OwnedString name(StringOf(format));
    const auto rows = TestRows::Make(NamedRows({"Rice"}));
    TdDispatch* data = rows.Get();
    return Table().DoPrint(direct_.Get(), TD_TRUE_FLAG, connection.Get(), 21, TD_FALSE_FLAG,
                           TD_FALSE_FLAG, &data, name.Get(), nullptr);
  }

  Reference<TdSession> direct_ = InterfaceOf<TdSession>(session_.Get(), kTdSessionId);
};

TEST_F(DirectSession, ChoosesAndAnswersAsByName) {
  const OwnedString file(StringOf(pdf_));
  const OwnedString log(StringOf(folder_.File("prints.log")));
  ASSERT_EQ(Table().ToPdf(direct_.Get(), file.Get()), TD_OK);
  ASSERT_EQ(Table().MessageMode(direct_.Get(), TD_MESSAGES_COLLECTED), TD_OK);
  ASSERT_EQ(Table().LockWaitLimit(direct_.Get(), 5), TD_OK);
  ASSERT_EQ(Table().LogFile(direct_.Get(), log.Get()), TD_OK);
  ASSERT_EQ(Table().Explain(direct_.Get(), TD_TRUE_FLAG), TD_OK);
  int pages = 0;
  const auto listener =
      Reference<TdDispatch>::Taking(new ListenerObject({.onPage =
                                                            [&](std::int32_t page) {
                                                              pages = page;
                                                              return TdEmptyVariant();
                                                            },
                                                        .onLockWait = nullptr}));
  ASSERT_EQ(Table().Progress(direct_.Get(), listener.Get()), TD_OK);
  ASSERT_EQ(PrintDirectly(""), TD_OK);
  TdFlag flag = TD_FALSE_FLAG;
  EXPECT_EQ(Table().Delivered(direct_.Get(), &flag), TD_OK);
  EXPECT_EQ(flag, TD_TRUE_FLAG);
  flag = TD_FALSE_FLAG;
  EXPECT_EQ(Table().PrintOk(direct_.Get(), &flag), TD_OK);
  EXPECT_EQ(flag, TD_TRUE_FLAG);
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(NumberFrom(Table().Pages), 1);
  EXPECT_EQ(NumberFrom(Table().JobNumber), 0);
  EXPECT_EQ(NumberFrom(Table().MessageCount), 0);
  EXPECT_EQ(TextFrom(Table().Result), "written");
  EXPECT_EQ(TextFrom(Table().Jobs), "");
  EXPECT_EQ(TextFrom(Table().PrinterName), "");
  EXPECT_EQ(TextFrom(Table().Complaints), "");
  EXPECT_TRUE(fs::exists(folder_.File("prints.log")));
  EXPECT_NE(TextFrom(Table().Explanation), "");
  EXPECT_TRUE(TextFrom(Table().ExplanationJson).starts_with("{"));

  ASSERT_EQ(PrintDirectly("没有"), TD_OK);
  EXPECT_EQ(TextFrom(Table().Result), "not printed");
  EXPECT_EQ(TextFrom(Table().Reason), "");
  EXPECT_EQ(TextFrom(Table().Messages), "未指定套打格式，打印被取消！");
  TdString message = nullptr;
  EXPECT_EQ(Table().Message(direct_.Get(), 1, &message), TD_OK);
  EXPECT_EQ(TextOf(message), "未指定套打格式，打印被取消！");
  TdFreeString(message);
  message = nullptr;
  EXPECT_EQ(Table().MessagePlace(direct_.Get(), 1, &message), TD_OK);
  TdFreeString(message);
  message = nullptr;
  EXPECT_EQ(Table().Message(direct_.Get(), 2, &message), TD_RESULT_OF_NUMBER(9));
  EXPECT_EQ(message, nullptr);
}

TEST_F(DirectSession, SendsToEachOutput) {
  const OwnedString target(StringOf(folder_.File("out")));
  ASSERT_EQ(Table().ToPng(direct_.Get(), target.Get(), 0), TD_OK);
  ASSERT_EQ(PrintDirectly(""), TD_OK);
  EXPECT_TRUE(fs::exists(folder_.File("out/page-001.png")));
  const OwnedString page(StringOf(folder_.File("out.html")));
  ASSERT_EQ(Table().ToHtml(direct_.Get(), page.Get()), TD_OK);
  ASSERT_EQ(PrintDirectly(""), TD_OK);
  EXPECT_TRUE(fs::exists(folder_.File("out.html")));
  const OwnedString printer(StringOf("nowhere"));
  ASSERT_EQ(Table().ToPrinter(direct_.Get(), printer.Get()), TD_OK);
  EXPECT_EQ(PrintDirectly(""), TD_RESULT_OF_NUMBER(380));
}

TEST_F(DirectSession, IsCancelledOnAnyThreadAndElseRefusesOthers) {
  TdResult cancelled = TD_FALSE;
  TdResult chosen = TD_OK;
  std::thread([&] {
    cancelled = Table().Cancel(direct_.Get());
    chosen = Table().MessageMode(direct_.Get(), TD_MESSAGES_COLLECTED);
  }).join();
  EXPECT_EQ(cancelled, TD_OK);
  EXPECT_EQ(chosen, TD_WRONG_THREAD);
}

TEST_F(DirectSession, ANullPointerIsNoPlaceForAnAnswer) {
  EXPECT_EQ(Table().Result(direct_.Get(), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(Table().Pages(direct_.Get(), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(Table().Delivered(direct_.Get(), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(Table().PrintOk(direct_.Get(), nullptr), TD_BAD_POINTER);
  EXPECT_EQ(Table().Message(direct_.Get(), 1, nullptr), TD_BAD_POINTER);
}

}  // namespace
}  // namespace td
