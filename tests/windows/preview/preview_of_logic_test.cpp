// A print call that shows the preview: the window's buttons do what the component's routines say.
#include <fstream>
#include <sstream>

#include "desktop/desktop_platform.h"
#include "memory_rows/memory_recordset.h"
#include "page_document/page_document.h"
#include "service/printer.h"
#include "shown_preview.h"
#include "temporary_database.h"
#include "text/conversions.h"
#include "windows/preview/page_setup_dialog.h"

namespace td {
namespace {

constexpr const char* kFormats = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight)
    values (1, 21, '两行订单', 1, 256, 13663, 7937, 2, 400);
  insert into TDVariant (FTranType, FVarCaption, FVarName) values (21, '品名', 'FItemName');
  insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FTypeID, FIsVariant,
                            FObjectFieldName, FObjectCaption)
    values (1, 3, 1000, 2000, 4000, 400, 0, 1, '品名', '品名');
)";

std::string Schema() {
  std::ostringstream text;
  text << std::ifstream(QBTD_SOURCE_DIR "/examples/schema.sql", std::ios::binary).rdbuf();
  return text.str();
}

struct PartSearch {
  const std::wstring& kind;
  const std::string& text;
  HWND found;
};

BOOL CALLBACK FindPart(HWND part, LPARAM context) {
  auto& search = *reinterpret_cast<PartSearch*>(context);
  wchar_t name[32]{};
  GetClassNameW(part, name, 32);
  if (search.kind != name || (!search.text.empty() && WordsOf(part) != search.text)) return TRUE;
  search.found = part;
  return FALSE;
}

class PreviewOfLogic : public testing::Test {
 protected:
  using Step = std::function<void()>;

  PreviewOfLogic() {
    DesktopOptions options;
    options.stateDirectory = folder_.File("state");
    options.messages = MessageMode::kStandardError;
    options.documentSink = [this](const PageDocument& document) {
      printedPages_.push_back(document.Pages().size());
    };
    desktop_ = std::make_unique<DesktopPlatform>(std::move(options));
    printer_ = std::make_unique<Printer>(desktop_->Get());
  }
  ~PreviewOfLogic() override {
    ForgetIdleSteps();
    LetGoOfKeys();
  }

  // Shows the preview of three rows; the steps come behind its run, and it is closed behind them.
  void Preview(std::vector<Step> steps) {
    steps.emplace_back([this] { Click("关闭"); });
    steps_.assign(steps.begin(), steps.end());
    const std::vector<Value> row = {std::int64_t{7}, Value("大米")};
    const auto rows = std::make_shared<MemoryRecordset>(
        std::vector<std::string>{"FInterID", "FItemName"}, std::vector<std::vector<Value>>(3, row));
    WhenIdle([this] { Next(); });
    printer_->DoPrint(false, connection_, 21, false, false, rows);
    ForgetIdleSteps();
    EXPECT_TRUE(steps_.empty());
  }

  void Next() {
    LetGoOfKeys();
    const bool hasRun = IsWindow(Window()) != FALSE && PageWords() != "第    页 共    页";
    if (hasRun && !steps_.empty()) {
      const Step step = std::move(steps_.front());
      steps_.pop_front();
      step();
    }
    if (!steps_.empty()) WhenIdle([this] { Next(); });
  }

  static HWND Window() { return FindWindowW(nullptr, L"打印预览"); }

  // The part of the preview of a class, and with a text if that isn't empty.
  static HWND Part(const std::wstring& kind, const std::string& text) {
    PartSearch search{kind, text, nullptr};
    EnumChildWindows(Window(), FindPart, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  static void Click(const std::string& caption) { PostClick(Part(L"Button", caption)); }
  static std::string PageWords() { return WordsOf(Part(L"Edit", {})); }

  TemporaryFolder folder_;
  const std::string connection_ = MakeDatabase(folder_.File("bills.db"), Schema() + kFormats);
  std::vector<std::size_t> printedPages_;
  std::unique_ptr<DesktopPlatform> desktop_;
  std::unique_ptr<Printer> printer_;
  std::deque<Step> steps_;
};

TEST_F(PreviewOfLogic, ShowsTheRunAndPrintsWhenItsButtonIsPressed) {
  Preview({[] {
             TakePicture(Window(), "preview-of-logic");
             EXPECT_EQ(PageWords(), "第1页   共2页");
             Click("下页");
           },
           [this] {
             EXPECT_EQ(PageWords(), "第2页   共2页");
             EXPECT_FALSE(printer_->PrintOk());
             Click("打印");
           },
           [this] {
             EXPECT_EQ(printedPages_, std::vector<std::size_t>{2});
             EXPECT_TRUE(printer_->PrintOk());
           }});
  EXPECT_EQ(desktop_->MessagesShown(), 0);
}

TEST_F(PreviewOfLogic, ClosedWithoutAPrintItHasPrintedNothing) {
  Preview({});
  EXPECT_FALSE(printer_->PrintOk());
  EXPECT_TRUE(printedPages_.empty());
}

TEST_F(PreviewOfLogic, TheConfirmedPageSetupIsStoredForThisMachineAndRunsAgain) {
  const auto stored = [this] {
    std::string papers;
    const auto rows =
        desktop_->OpenReadOnly(connection_, "select FPaperSize from TDBill_PaperSize");
    for (; !rows->Eof(); rows->MoveNext()) papers += ToText(rows->Field("FPaperSize")) + ";";
    return papers;
  };
  Preview({[] { Click("页面"); },
           [] { PostMessageW(GetAncestor(GetFocus(), GA_ROOT), WM_CLOSE, 0, 0); },
           [&] {
             EXPECT_EQ(stored(), "");
             Click("页面");
           },
           [] {
             const HWND dialog = GetAncestor(GetFocus(), GA_ROOT);
             const HWND papers = GetDlgItem(dialog, PageSetupDialog::kPaperId);
             SetFocus(papers);
             PostKey(VK_HOME);  // A4
           },
           [] { PostKey(VK_RETURN); },
           [&] {
             EXPECT_EQ(stored(), "9;");
             EXPECT_EQ(PageWords(), "第1页   共2页");
           }});
}

}  // namespace
}  // namespace td
