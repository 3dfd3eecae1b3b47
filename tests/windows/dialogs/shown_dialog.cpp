#include "shown_dialog.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>
#include <utility>

#include "desktop/databases.h"
#include "service/request.h"
#include "service/td_set.h"
#include "text/conversions.h"
#include "windows/api/wide_text.h"
#include "windows/frm_area_print_set.h"

namespace td {
namespace {

constexpr const char* kRows = R"(
  insert into TDBill (FTDBillID, FTranType, FTDBillName, FSelected, FPaperSize, FPaperWidth,
                      FPaperHeight, FRowsPerPage, FRowHeight, FHeaderPerPage, FPrintDevice)
    values (1, 21, '销售单', 1, 9, 0, 0, 10, 300, 0, null),
           (2, 21, '两联单', 0, 9, 0, 0, 8, 350.5, 1, 'QbTd-PDF'),
           (3, 12, '入库单', 1, 9, 0, 0, 6, 300, 0, null);
  insert into t_icitem (FItemID, FNumber, FName, FUnit, FStockArea)
    values (1, '1', '大米', '袋', 'A1'), (2, '2', '绿豆', '袋', 'A2'), (3, '3', '花生油', '桶', 'B'),
           (4, '4', '样品', '件', null);
)";

std::string Schema() {
  std::stringstream text;
  text << std::ifstream(QBTD_SOURCE_DIR "/examples/schema.sql", std::ios::binary).rdbuf();
  return text.str();
}

DesktopOptions Options(const std::string& folder) {
  DesktopOptions options;
  options.stateDirectory = folder;
  options.componentFolder = folder;
  return options;
}

// Runs as long as it lives, again and again.
class Beside {
 public:
  explicit Beside(std::function<void()> step)
      : thread_([this, step = std::move(step)] {
          while (!isOver_) {
            step();
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
          }
          hasEnded_ = true;
        }) {}
  // Meanwhile this thread answers what the other one asks its windows.
  ~Beside() {
    isOver_ = true;
    while (!hasEnded_) {
      MSG message;
      PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
      std::this_thread::yield();
    }
    thread_.join();
  }
  Beside(const Beside&) = delete;
  Beside& operator=(const Beside&) = delete;

 private:
  std::atomic<bool> isOver_ = false;
  std::atomic<bool> hasEnded_ = false;
  std::thread thread_;
};

bool HasTitle(HWND window, const std::wstring& title) {
  std::wstring text(title.size() + 2, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return text.substr(0, static_cast<std::size_t>(length)) == title;
}

constexpr int kBoxText = 0xFFFF;  // the id that the system gives the text of a message box

}  // namespace

void ShownDialog::WhileShown(const char* dialog, const std::function<void()>& show, Use use) {
  const DialogContents& contents = *FindDialogContents(dialog);
  const std::wstring title = ToWide(contents.title);
  const DWORD thread = GetCurrentThreadId();
  bool isUsed = false;
  SetCursorPos(0, 0);  // an opened list follows a pointer that happens to lie over it
  const Beside user([&] {
    for (const HWND window : ShownWindows(thread)) {
      if (!HasTitle(window, title) || IsWindowEnabled(window) == FALSE) continue;
      DialogUser person(window, contents);
      if (!std::exchange(isUsed, true)) use(person);
      if (IsWindowVisible(window) != FALSE) PostMessageW(window, WM_CLOSE, 0, 0);
    }
  });
  const Beside boxes([&] {
    for (const HWND window : ShownWindows(thread)) {
      if (GetDlgItem(window, kBoxText) != nullptr) ConfirmBox(window);
    }
  });
  show();
}

void ShownDialog::ConfirmBox(HWND box) {
  const HWND text = GetDlgItem(box, kBoxText);
  std::wstring words(static_cast<std::size_t>(SendMessageW(text, WM_GETTEXTLENGTH, 0, 0)) + 1,
                     L'\0');
  words.resize(static_cast<std::size_t>(
      SendMessageW(text, WM_GETTEXT, words.size(), reinterpret_cast<LPARAM>(words.data()))));
  PostMessageW(box, WM_COMMAND, IDOK, 0);
  if (!WaitFor([=] { return IsWindow(box) == FALSE; })) return;
  const std::lock_guard guard(mutex_);
  boxes_.push_back(FromWide(words));
}

std::vector<std::string> ShownDialog::Boxes() const {
  const std::lock_guard guard(mutex_);
  return boxes_;
}

DialogOnDatabase::DialogOnDatabase()
    : connection_(MakeDatabase(folder_.File("dialogs.db"), Schema() + kRows)),
      other_(folder_.File("dialogs.db")),
      desktop_(Options(folder_.Path().string())) {
  Context() = {};
}

void DialogOnDatabase::ShowSettings(Use use) {
  WhileShown(
      "frmAdjuct", [this] { TDSet(desktop_.Get()).ShowSettings(connection_, 21); }, std::move(use));
}

void DialogOnDatabase::ShowAreaPrinters(Use use) {
  WhileShown(
      "frmAreaPrintSet",
      [this] {
        PrintContext request;
        request.New_PromptString = connection_;
        frmAreaPrintSet(desktop_.Get(), request).ShowModal();
      },
      std::move(use));
}

std::string DialogOnDatabase::Cell(const std::string& statement) {
  Databases databases;
  const Value value = databases
                          .OpenQuery(connection_, "select (" + statement + ") as FCell",
                                     CursorType::kUnspecified, LockType::kUnspecified)
                          ->Field("FCell");
  return IsNull(value) ? "Null" : ToText(value);
}

}  // namespace td
