// Prints with an output and answers of their own, by name and directly.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <thread>

#include "command_output.h"
#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// What a program writes to be told how its prints go on.
struct Listener {
  std::function<TdVariant(std::int32_t page)> onPage;
  std::function<TdVariant(double seconds)> onLockWait;
  bool knowsPages = true;
  bool knowsLocks = true;
};

class ListenerObject final : public DispatchObject<ListenerObject, TdDispatch> {
 public:
  explicit ListenerObject(Listener listener) : DispatchObject(&kTable), listener_(listener) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"onpage", 5, TD_CALL_METHOD, {"Page"}, 1},
                                    {"OnLockWait", 6, TD_CALL_METHOD, {"Seconds"}, 1}};
    return members;
  }
  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    result = member == 5 ? listener_.onPage(arguments.Integer32(0))
                         : listener_.onLockWait(arguments.Real(0));
  }

 private:
  static TdResult TD_CALL GetIds(TdDispatch* self, const TdGuid* reserved,
                                 const TdUnit* const* names, std::uint32_t count,
                                 std::uint32_t language, std::int32_t* ids) {
    const bool isPage = std::u16string(names[0]) == u"OnPage";
    const Listener& listener = Of(self).listener_;
    if (isPage ? !listener.knowsPages : !listener.knowsLocks) return TD_UNKNOWN_NAME;
    return GetIDsOfNames(self, reserved, names, count, language, ids);
  }

  static const TdDispatchTable kTable;
  Listener listener_;
};

const TdDispatchTable ListenerObject::kTable = {QueryInterface, AddRef, Release, GetTypeInfoCount,
                                                GetTypeInfo,    GetIds, Invoke};

class Session : public ServerTest {
 protected:
  ~Session() override { session_ = {}; }

  [[nodiscard]] Reference<TdDispatch> NewSession() const {
    return module_->Create(kTdSessionClass);
  }
  Outcome PrintNames(const std::vector<std::string>& names, const char* format = "") const {
    return Print(session_.Get(), TestRows::Make(NamedRows(names)).Get(), format);
  }
  void Choose(const char* method, const std::string& target) const {
    ExpectOk(Call(session_.Get(), method, {TdTextVariant(target.c_str())}));
  }
  void Put(const char* property, TdVariant value) const {
    ExpectOk(td::Put(session_.Get(), property, value));
  }
  void Collect() const { Put("MessageMode", TdIntegerVariant(TD_MESSAGES_COLLECTED)); }
  // The session keeps a reference of its own.
  void Listen(Listener listener) const {
    const auto object = Reference<TdDispatch>::Taking(new ListenerObject(std::move(listener)));
    Put("Progress", TdDispatchVariant(object.Get()));
  }
  [[nodiscard]] OwnedVariant Read(const char* property) const {
    OwnedVariant value;
    ExpectOk(Get(session_.Get(), property, value));
    return value;
  }
  [[nodiscard]] std::string Text(const char* property) const {
    OwnedVariant value = Read(property);
    EXPECT_EQ(value->type, TD_STRING) << property;
    return TextOf(value->value.string);
  }
  [[nodiscard]] std::int32_t Number(const char* property) const {
    OwnedVariant value = Read(property);
    EXPECT_EQ(value->type, TD_INT32) << property;
    return value->value.integer32;
  }
  [[nodiscard]] bool Delivered() const {
    OwnedVariant value = Read("Delivered");
    EXPECT_EQ(value->type, TD_BOOLEAN);
    return value->value.flag == TD_TRUE_FLAG;
  }

  const std::string pdf_ = folder_.File("order.pdf");
  OtherUser other_{folder_.File("bills.db")};
  Reference<TdDispatch> session_ = NewSession();
};

std::string TextOfPdf(const std::string& file) {
  return OutputOf("pdftotext '" + file + "' -");
}

TEST_F(Session, PrintsIntoAPdfWithoutADisplayAndTellsOfIt) {
  Choose("ToPdf", pdf_);
  ExpectOk(PrintNames(std::vector<std::string>(12, "Rice")));
  EXPECT_NE(TextOfPdf(pdf_).find("Rice"), std::string::npos);
  EXPECT_TRUE(Delivered());
  EXPECT_TRUE(PrintOk(session_.Get()));
  EXPECT_EQ(Text("Result"), "written");
  EXPECT_EQ(Number("Pages"), 2);
  EXPECT_EQ(Text("PrinterName"), "");
  EXPECT_EQ(Number("JobNumber"), 0);
  EXPECT_EQ(Text("Jobs"), "");
  EXPECT_EQ(Number("MessageCount"), 0);
  EXPECT_EQ(Text("Messages"), "");
  EXPECT_EQ(Text("Complaints"), "");
  EXPECT_EQ(Text("Reason"), "");
}

TEST_F(Session, PrintsIntoPicturesAndAPage) {
  const std::string pictures = folder_.File("pictures");
  Choose("ToPng", pictures);
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_TRUE(fs::exists(pictures + "/page-001.png"));
  const auto usual = OutputOf("identify -format '%w' '" + pictures + "/page-001.png'");
  ExpectOk(Call(session_.Get(), "ToPng", {TdTextVariant(pictures.c_str()), TdIntegerVariant(300)}));
  ExpectOk(PrintNames({"Rice"}));
  const auto finer = OutputOf("identify -format '%w' '" + pictures + "/page-001.png'");
  EXPECT_NEAR(std::stod(finer), 2 * std::stod(usual), 1);

  Choose("ToHtml", folder_.File("order.html"));
  ExpectOk(PrintNames({"Rice"}));
  std::stringstream page;
  page << std::ifstream(folder_.File("order.html")).rdbuf();
  EXPECT_NE(page.str().find("Rice"), std::string::npos);
}

TEST_F(Session, TheLastOutputCountsAndAnEmptyOneIsTheFormatsPrinter) {
  Choose("ToPdf", pdf_);
  Choose("ToHtml", folder_.File("order.html"));
  Collect();
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_FALSE(fs::exists(pdf_));
  Choose("ToPdf", "");
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_FALSE(Delivered());
  EXPECT_EQ(Text("Result"), "refused");
  EXPECT_EQ(Text("Reason"), "本机没有安装打印机，无法打印。");
  EXPECT_EQ(Text("Messages"), Text("Reason"));
  EXPECT_TRUE(PrintOk(session_.Get())) << "as Printer says it: set before the document is sent";
}

TEST_F(Session, APrinterThatIsNotInstalledIsAnErrorOfTheCall) {
  Choose("ToPrinter", "nowhere");
  ExpectRaised(PrintNames({"Rice"}), TD_RESULT_OF_NUMBER(380), "找不到打印机“nowhere”。");
  EXPECT_EQ(Text("Result"), "not printed");
}

TEST_F(Session, HasNoResultBeforeItsFirstCall) {
  EXPECT_EQ(Text("Result"), "");
  EXPECT_FALSE(Delivered());
  EXPECT_EQ(Number("Pages"), 0);
  EXPECT_EQ(Number("MessageCount"), 0);
}

TEST_F(Session, CollectsMessagesInsteadOfShowingThem) {
  Collect();
  ExpectOk(PrintNames({"Rice"}, "没有"));
  EXPECT_EQ(Messages(), "");
  EXPECT_EQ(Number("MessageCount"), 1);
  EXPECT_EQ(Text("Messages"), "未指定套打格式，打印被取消！");
  EXPECT_EQ(Text("Result"), "not printed");

  OwnedVariant text;
  TdVariant index = TdIntegerVariant(1);
  EXPECT_EQ(TdCall(session_.Get(), "message", &index, 1, &*text, nullptr), TD_OK);
  EXPECT_EQ(TextOf(text->value.string), "未指定套打格式，打印被取消！");
  for (const std::int32_t wrong : {0, 2, -1}) {
    ExpectRaised(Call(session_.Get(), "Message", {TdIntegerVariant(wrong)}), TD_RESULT_OF_NUMBER(9),
                 "下标越界");
  }
  Put("MessageMode", TdIntegerVariant(TD_MESSAGES_ON_STANDARD_ERROR));
  ExpectOk(PrintNames({"Rice"}, "没有"));
  EXPECT_TRUE(Messages().starts_with("未指定套打格式，打印被取消！"));
  EXPECT_EQ(Number("MessageCount"), 1) << "of the last call alone";
}

TEST_F(Session, TellsWhereThePrintWasAtAMessage) {
  Choose("ToPdf", pdf_);
  Collect();
  const auto data = OneValue("FName", []() -> TdVariant { throw Failure(7, "坏了"); });
  ExpectOk(Print(session_.Get(), TestRows::Make(data).Get()));
  ASSERT_EQ(Number("MessageCount"), 1);
  OwnedVariant place;
  TdVariant index = TdIntegerVariant(1);
  EXPECT_EQ(TdCall(session_.Get(), "MessagePlace", &index, 1, &*place, nullptr), TD_OK);
  const std::string words = TextOf(place->value.string);
  for (const char* part : {"销售单", "品名", "FName"}) {
    EXPECT_NE(words.find(part), std::string::npos) << words;
  }
}

TEST_F(Session, ExplainsWhatBecameOfTheItems) {
  Choose("ToPdf", pdf_);
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_EQ(Text("Explanation"), "") << "nobody asked";
  EXPECT_EQ(Text("ExplanationJson"), "");
  Put("Explain", TdFlagVariant(1));
  const auto data = NamedRows({"Rice"});
  ExpectOk(Print(session_.Get(), TestRows::Make(data).Get(), "金额单"));
  EXPECT_NE(Text("Explanation").find("FAmount"), std::string::npos) << Text("Explanation");
  EXPECT_TRUE(Text("ExplanationJson").starts_with("{")) << Text("ExplanationJson");
  EXPECT_NE(Text("ExplanationJson").find("FAmount"), std::string::npos);
  Put("Explain", TdFlagVariant(0));
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_EQ(Text("Explanation"), "");
}

TEST_F(Session, CollectsWhatTheDocumentGoesOnWithout) {
  other_.Run("update TDBill set FPaperSize=12345, FPaperWidth=1");
  Choose("ToPdf", pdf_);
  Collect();
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_EQ(Messages(), "");
  EXPECT_NE(Text("Complaints").find("12345"), std::string::npos);
  EXPECT_TRUE(Delivered());
}

TEST_F(Session, WaitsForALockNoLongerThanItShall) {
  Choose("ToPdf", pdf_);
  Collect();
  Put("LockWaitLimit", TdIntegerVariant(0));
  other_.Run("begin exclusive");
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_EQ(Text("Result"), "not printed");
  EXPECT_TRUE(Text("Messages").starts_with("等了 0 秒，要读写的数据仍被其他用户占用"));
  EXPECT_FALSE(fs::exists(pdf_));

  Put("LockWaitLimit", TdIntegerVariant(-1));
  Listen({.onPage = nullptr,
          .onLockWait =
              [this](double) {
                other_.Run("rollback");
                return TdFlagVariant(1);
              },
          .knowsPages = false});
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_TRUE(Delivered()) << "without a limit it goes on until the lock is gone";
}

TEST_F(Session, TheLimitHoldsForLockedPrintDataToo) {
  Choose("ToPdf", pdf_);
  Collect();
  Put("LockWaitLimit", TdNumberVariant(0));
  const auto data = OneValue("FName", []() -> TdVariant { throw Failure(7, "行被锁定"); });
  ExpectOk(Print(session_.Get(), TestRows::Make(data).Get()));
  EXPECT_FALSE(Delivered());
  EXPECT_NE(Text("Messages").find("行被鎖定"), std::string::npos);
}

TEST_F(Session, TellsItsProgramOfEachPage) {
  Choose("ToPdf", pdf_);
  std::vector<std::int32_t> pages;
  Listen({.onPage =
              [&](std::int32_t page) {
                pages.push_back(page);
                return TdEmptyVariant();
              },
          .onLockWait = nullptr,
          .knowsLocks = false});
  ExpectOk(PrintNames(std::vector<std::string>(25, "Rice")));
  EXPECT_EQ(pages, (std::vector<std::int32_t>{1, 2, 3}));
  EXPECT_TRUE(Delivered()) << "no answer is no refusal";

  Put("Progress", TdDispatchVariant(nullptr));
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_EQ(pages.size(), 3U);
}

TEST_F(Session, TheAnswerFalseEndsThePrint) {
  Choose("ToPdf", pdf_);
  Collect();
  int calls = 0;
  Listen({.onPage =
              [&](std::int32_t page) {
                ++calls;
                return TdFlagVariant(page < 2 ? 1 : 0);
              },
          .onLockWait = nullptr});
  ExpectOk(PrintNames(std::vector<std::string>(25, "Rice")));
  EXPECT_EQ(calls, 2);
  EXPECT_FALSE(Delivered());
  EXPECT_EQ(Text("Result"), "not printed");
  EXPECT_EQ(Text("Messages"), "打印被调用程序取消。");
  EXPECT_FALSE(PrintOk(session_.Get()));
  EXPECT_FALSE(fs::exists(pdf_));
}

TEST_F(Session, AnErrorOfTheProgressObjectEndsThePrintInItsWords) {
  Choose("ToPdf", pdf_);
  Collect();
  for (const char* words : {"纸用完了", ""}) {
    Listen({.onPage = [words](std::int32_t) -> TdVariant { throw Failure(3265, words); },
            .onLockWait = nullptr});
    ExpectOk(PrintNames({"Rice"}));
    EXPECT_FALSE(Delivered()) << "also with a number that a run forgives elsewhere";
    EXPECT_EQ(Number("MessageCount"), 1);
    EXPECT_NE(Text("Messages"), "");
    if (*words != 0) {
      EXPECT_EQ(Text("Messages"), words);
    }
  }
}

TEST_F(Session, IsCancelledFromAnyThreadAndOnlyWhileItPrints) {
  Choose("ToPdf", pdf_);
  Collect();
  TdResult result = TD_FALSE;
  Listen({.onPage =
              [&](std::int32_t) {
                std::thread([&] { result = Call(session_.Get(), "Cancel", {}).result; }).join();
                return TdEmptyVariant();
              },
          .onLockWait = nullptr});
  ExpectOk(PrintNames(std::vector<std::string>(25, "Rice")));
  EXPECT_EQ(result, TD_OK);
  EXPECT_FALSE(Delivered());
  EXPECT_EQ(Text("Messages"), "打印被调用程序取消。");

  ExpectOk(Call(session_.Get(), "Cancel", {}));
  Put("Progress", TdDispatchVariant(nullptr));
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_TRUE(Delivered());
}

TEST_F(Session, OfAnotherPrintCancelsNothing) {
  Choose("ToPdf", pdf_);
  const auto idle = NewSession();
  Listen({.onPage =
              [&](std::int32_t) {
                ExpectOk(Call(idle.Get(), "Cancel", {}));
                return TdEmptyVariant();
              },
          .onLockWait = nullptr});
  ExpectOk(PrintNames({"Rice"}));
  EXPECT_TRUE(Delivered());
}

TEST_F(Session, APrintFromWithinAPrintIsRefusedAndChangesNothing) {
  Choose("ToPdf", pdf_);
  Collect();
  const auto inner = NewSession();
  std::vector<Outcome> outcomes;
  Listen({.onPage =
              [&](std::int32_t) {
                for (TdDispatch* object : {inner.Get(), session_.Get()}) {
                  outcomes.push_back(
                      Print(object, TestRows::Make(NamedRows({"Inner"})).Get(), "没有"));
                }
                return TdEmptyVariant();
              },
          .onLockWait = nullptr});
  ExpectOk(PrintNames({"Rice"}));
  ASSERT_EQ(outcomes.size(), 2U);
  for (const Outcome& outcome : outcomes) {
    ExpectRaised(outcome, TD_RESULT_OF_NUMBER(5), "打印、预览或设置尚未结束，不能再次调用。");
  }
  EXPECT_TRUE(Delivered());
  EXPECT_NE(TextOfPdf(pdf_).find("Rice"), std::string::npos);
}

TEST_F(Session, LeavesThePrintersOfTheProgramAsTheyAre) {
  Choose("ToPdf", pdf_);
  Collect();
  ExpectOk(PrintNames({"Rice"}));
  const auto printer = NewPrinter();
  ExpectOk(Print(printer.Get(), TestRows::Make(NamedRows({"Beans"})).Get()));
  EXPECT_TRUE(Messages().starts_with("本机没有安装打印机，无法打印。"));
  EXPECT_EQ(TextOfPdf(pdf_).find("Beans"), std::string::npos);
  EXPECT_TRUE(Delivered()) << "the session's last call is its own";
}

TEST_F(Session, SharesTheRequestWithPrinters) {
  const auto printer = NewPrinter();
  ExpectOk(td::Put(printer.Get(), "PrintBlankRows", TdIntegerVariant(1)));
  Choose("ToPdf", pdf_);
  ExpectOk(PrintNames({"Rice", "Beans"}));
  EXPECT_EQ(TextOfPdf(pdf_).find("Rice"), std::string::npos);
  EXPECT_TRUE(PrintOk(printer.Get()));
  Put("PrintBlankRows", TdIntegerVariant(1));
  ExpectOk(PrintNames({"Rice", "Beans"}));
  EXPECT_NE(TextOfPdf(pdf_).find("Beans"), std::string::npos);
}

TEST_F(Session, WritesALogOfItsOwn) {
  const std::string log = folder_.File("prints.log");
  Choose("ToPdf", pdf_);
  Put("LogFile", TdTextVariant(log.c_str()));
  ExpectOk(PrintNames({"Rice"}));
  Put("LogFile", TdTextVariant(""));
  ExpectOk(PrintNames({"Rice"}));
  std::ifstream lines(log);
  std::string line;
  ASSERT_TRUE(std::getline(lines, line));
  EXPECT_NE(line.find("\"bills\":[\"7\"]"), std::string::npos) << line;
  EXPECT_NE(line.find(pdf_), std::string::npos) << line;
  EXPECT_FALSE(std::getline(lines, line)) << "an empty name switches it off";
}

TEST_F(Session, BeginsPagesAtStockAreas) {
  Choose("ToPdf", pdf_);
  const auto data = NamedRows({"Rice", "Oil"});
  data->rows[0]["FStockArea"] = td::Text("A1");
  data->rows[1]["FStockArea"] = td::Text("B1");
  ExpectOk(PrintByArea(session_.Get(), TestRows::Make(data).Get()));
  EXPECT_EQ(Number("Pages"), 2);
}

TEST_F(Session, RefusesWhatIsNoChoice) {
  ExpectRaised(td::Put(session_.Get(), "MessageMode", TdIntegerVariant(3)), TD_RESULT_OF_NUMBER(5),
               "无效的过程调用或参数");
  ExpectRaised(Call(session_.Get(), "ToPng", {TdTextVariant("x"), TdIntegerVariant(5000)}),
               TD_RESULT_OF_NUMBER(5), "无效的过程调用或参数");
  EXPECT_EQ(td::Put(session_.Get(), "Progress", TdIntegerVariant(3)).result, TD_TYPE_MISMATCH);
  EXPECT_EQ(td::Put(session_.Get(), "LockWaitLimit", TdTextVariant("long")).result,
            TD_TYPE_MISMATCH);
  OwnedVariant value;
  EXPECT_EQ(Get(session_.Get(), "LogFile", value).result, TD_MEMBER_NOT_FOUND);
  ExpectRaised(Print(session_.Get(), nullptr), TD_NOTHING_TO_PRINT, "没有可供打印的数据!");
}

TEST_F(Session, BelongsToTheThreadThatMadeIt) {
  std::vector<TdResult> results;
  std::thread([&] {
    OwnedVariant value;
    results = {Get(session_.Get(), "Pages", value).result,
               Call(session_.Get(), "ToPdf", {TdTextVariant("x")}).result,
               PrintNames({"Rice"}).result};
  }).join();
  EXPECT_EQ(results, (std::vector<TdResult>(3, TD_EXCEPTION)));
  EXPECT_EQ(Text("Result"), "");
}

// The direct interface.

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
