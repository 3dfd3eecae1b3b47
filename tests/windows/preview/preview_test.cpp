// The preview window, driven by the messages that a person's input becomes.
#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

#include "page_document/page_document.h"
#include "platform/failure.h"
#include "shown_preview.h"
#include "windows/controls/visual_styles.h"

// Behind the system's other headers.
#include <psapi.h>

namespace td {
namespace {

using Preview = ShownPreview;

template <typename Action>
int NumberOf(const Action& action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

// A window of the program that calls the component.
class ProgramWindow {
 public:
  ProgramWindow()
      : handle_(CreateWindowExW(0, L"Static", L"the program", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50,
                                50, 300, 200, nullptr, nullptr, nullptr, nullptr)) {
    SetActiveWindow(handle_);
  }
  ~ProgramWindow() { DestroyWindow(handle_); }
  ProgramWindow(const ProgramWindow&) = delete;
  ProgramWindow& operator=(const ProgramWindow&) = delete;

  [[nodiscard]] HWND Handle() const { return handle_; }
  [[nodiscard]] bool IsEnabled() const { return IsWindowEnabled(handle_) != FALSE; }

 private:
  HWND handle_;
};

TEST_F(Preview, LoadsIsActivatedAndReturnsWhenItIsClosed) {
  Show([this] { EXPECT_EQ(loads_, 1); },
       {[this] { EXPECT_EQ(WordsOf(Window().Handle()), "打印预览"); },
        [this] { PostMessageW(Window().Handle(), WM_SYSCOMMAND, SC_CLOSE, 0); }});
  EXPECT_EQ(loads_, 1);
  EXPECT_GE(activations_, 1);
  EXPECT_EQ(messages_.Shown(), 0);
}

TEST_F(Preview, TakesTheInputOfTheProgramsWindowsWhileItIsShown) {
  const ProgramWindow program;
  Show([&] { EXPECT_FALSE(program.IsEnabled()); },
       {[&] {
          EXPECT_EQ(GetWindow(Window().Handle(), GW_OWNER), program.Handle());
          PostMessageW(program.Handle(), WM_SETREDRAW, FALSE, 0);
          EXPECT_TRUE(IsWindowVisible(program.Handle()));
        },
        [&] {
          EXPECT_FALSE(IsWindowVisible(program.Handle())) << "its messages are handed out";
          SendMessageW(program.Handle(), WM_SETREDRAW, TRUE, 0);
        }});
  EXPECT_TRUE(program.IsEnabled());
  EXPECT_EQ(GetActiveWindow(), program.Handle());
}

TEST_F(Preview, AWishToEndTheProgramClosesItAndIsLeftToTheProgramsLoop) {
  constexpr int kExitCode = 7;
  const ProgramWindow program;
  Show([] {}, {[] { PostQuitMessage(kExitCode); }});
  MSG message{};
  ASSERT_EQ(GetMessageW(&message, nullptr, 0, 0), 0);
  EXPECT_EQ(message.wParam, static_cast<WPARAM>(kExitCode));
  EXPECT_TRUE(program.IsEnabled());
}

TEST_F(Preview, GoesWithTheProgramsWindow) {
  auto program = std::make_unique<ProgramWindow>();
  Show([] {}, {[&] { program.reset(); }});
  EXPECT_EQ(frame_.Window(), nullptr);
}

bool CanBeMinimized(const PreviewWindow& window) {
  return (GetWindowLongW(window.Handle(), GWL_STYLE) & WS_MINIMIZEBOX) != 0;
}

TEST_F(Preview, CanBeMinimizedWhereItHasAButtonInTheTaskBar) {
  Show([] {}, {[this] { EXPECT_TRUE(CanBeMinimized(Window())); }});
}

TEST_F(Preview, CannotBeLostByMinimizingItBeforeTheProgramsWindow) {
  const ProgramWindow program;
  Show([] {}, {[this] { EXPECT_FALSE(CanBeMinimized(Window())); }});
}

// The system's own question, by which it finds hung windows, comes as a message of another thread.
TEST_F(Preview, AnswersTheSystemWhileALongRunGoesOn) {
  std::atomic<bool> isAnswered = false;
  std::jthread asking;
  Show(
      [&] {
        const HWND window = Window().Handle();
        surface_.StartDoc();
        asking = std::jthread([&, window] {
          SendMessageW(window, WM_NULL, 0, 0);
          isAnswered = true;
        });
        const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
        while (!isAnswered && std::chrono::steady_clock::now() < end) {
          if (surface_.PageCount() == std::numeric_limits<std::int16_t>::max()) surface_.StartDoc();
          surface_.NewPage();
        }
        EXPECT_TRUE(isAnswered);
        surface_.EndDoc();
      },
      {});
}

// What the program does in a run, it does with its own reckoning of pixels.
TEST_F(Preview, RunsAsTheProgramReckonsPixels) {
  const DpiAwareness program(DPI_AWARENESS_CONTEXT_UNAWARE);
  int runs = 0;
  const auto expectUnaware = [&runs] {
    EXPECT_TRUE(AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(),
                                             DPI_AWARENESS_CONTEXT_UNAWARE));
    ++runs;
  };
  Show(expectUnaware, {[&] {
                         frame_.Connect({.Load = nullptr,
                                         .Activate = nullptr,
                                         .ButtonPressed = [&](auto) { expectUnaware(); }});
                         PostClick(Button("nextpage"));
                       },
                       [] { PostKey('0', true); }, [&] { EXPECT_EQ(runs, 3); }});
}

TEST_F(Preview, HasItsSevenButtonsInTheirOrder) {
  Show([] {}, {[this] {
         std::string captions;
         int right = 0;
         for (const HWND button : Window().Buttons().Buttons()) {
           captions += WordsOf(button) + " ";
           RECT place{};
           GetWindowRect(button, &place);
           EXPECT_GE(place.left, right);
           right = static_cast<int>(place.right);
         }
         EXPECT_EQ(captions, "上页 下页 缩放 页面 微调 打印 关闭 ");
         EXPECT_EQ(PageWords(), "第    页 共    页");
       }});
}

TEST_F(Preview, ReportsPressedButtonsByTheirKeysUnlessDisabled) {
  Show(
      [this] {
        frame_.EnableButton("print", false);
        frame_.EnableButton("unknown", false);
      },
      {[this] {
         for (const char* key : {"previouspage", "nextpage", "zoom", "pageset", "adjuct"}) {
           PostClick(Button(key));
         }
       },
       [this] {
         EXPECT_FALSE(IsWindowEnabled(Button("print")));
         frame_.EnableButton("print", true);
         PostClick(Button("print"));
       },
       [this] { EXPECT_EQ(GetFocus(), View().Handle()) << "a click leaves the focus"; }});
  EXPECT_EQ(pressed_, (std::vector<std::string>{"previouspage", "nextpage", "zoom", "pageset",
                                                "adjuct", "print"}));
}

TEST_F(Preview, PrintsByItsKeyUnlessTheButtonIsDisabled) {
  Show([] {}, {[] { PostKey('P', true); }, [this] { frame_.EnableButton("print", false); },
               [] { PostKey('P', true); }, [] { PostKey('T', true); },
               [] { PostKey('P', true, true); }, [] { PostKey('0', true); }});
  EXPECT_EQ(pressed_, (std::vector<std::string>{"print", "adjuct", "pageset", "zoom"}));
}

TEST_F(Preview, PressesTheButtonThatHasTheFocus) {
  Show([] {}, {[this] { SetFocus(Button("zoom")); }, [] { PostKey(VK_SPACE); },
               [this] { SetFocus(Button("adjuct")); }, [] { PostKey(VK_RETURN); }});
  EXPECT_EQ(pressed_, (std::vector<std::string>{"zoom", "adjuct"}));
}

TEST_F(Preview, NoInputMethodComesBetweenTheKeysAndThePage) {
  Show([] {}, {[this] { EXPECT_FALSE(HasInputMethod(View().Handle())); }});
}

TEST_F(Preview, ClosesOnEscape) {
  Show([] {}, {[] { PostKey(VK_ESCAPE); }});
  EXPECT_EQ(frame_.Window(), nullptr);
}

TEST_F(Preview, ClosesOnEscapeAfterARunThatHasFailed) {
  Show([this] { frame_.EnableButton("exit", false); }, {[] { PostKey(VK_ESCAPE); }});
}

TEST_F(Preview, ShowsTheTextOfARunAtOnce) {
  Show(
      [this] {
        frame_.PutPageText("请稍候，正在读入打印数据...");
        EXPECT_EQ(PageWords(), "请稍候，正在读入打印数据...");
        EXPECT_FALSE(GetUpdateRect(Window().PageTextBox(), nullptr, FALSE));
      },
      {});
}

TEST_F(Preview, ItsPageTextIsWrittenByTheRunAlone) {
  Show([this] { frame_.PutPageText("第1页   共3页"); },
       {[this] { PostClick(Window().PageTextBox()); },
        [this] {
          EXPECT_EQ(GetFocus(), Window().PageTextBox());
          PostMessageW(Window().PageTextBox(), WM_CHAR, '9', 1);
        },
        [] { PostKey(VK_DELETE); }, [this] { EXPECT_EQ(PageWords(), "第1页   共3页"); }});
}

TEST_F(Preview, WaitsWithTheWaitingPointer) {
  const auto pointer = [this] {
    const HWND view = View().Handle();
    SendMessageW(view, WM_SETCURSOR, reinterpret_cast<WPARAM>(view),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  Show([this] { surface_.PutMousePointer(kWaitingPointer); }, {[&] {
         EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_WAIT));
         surface_.PutMousePointer(kArrowPointer);
         EXPECT_EQ(pointer(), LoadCursorW(nullptr, IDC_ARROW));
       }});
}

TEST_F(Preview, LetsAFailureOfTheFirstActivationThrough) {
  const int number =
      NumberOf([this] { Show([] { throw Failure(kDatabaseFailed, "没有表"); }, {}); });
  EXPECT_EQ(number, kDatabaseFailed);
  EXPECT_EQ(messages_.Shown(), 0);
}

TEST_F(Preview, EndsWhenTheRunUnloadsIt) {
  frame_.Connect({.Load = nullptr,
                  .Activate =
                      [this] {
                        frame_.Unload();
                        frame_.Unload();
                      },
                  .ButtonPressed = nullptr});
  frame_.ShowModal();
  EXPECT_EQ(frame_.Window(), nullptr);
}

TEST_F(Preview, ShowsAFailureOfAButtonAndStays) {
  Show([] {}, {[this] {
                 frame_.Connect({.Load = nullptr, .Activate = nullptr, .ButtonPressed = [](auto) {
                                   throw Failure(kInvalidCall, "不行");
                                 }});
                 PostClick(Button("nextpage"));
               },
               [this] {
                 EXPECT_EQ(messages_.Shown(), 1);
                 EXPECT_TRUE(IsWindowVisible(Window().Handle()));
               }});
}

TEST_F(Preview, CanBeShownAgain) {
  Show([] {}, {});
  activations_ = 0;
  Show([] {}, {});
  EXPECT_EQ(loads_, 2);
}

TEST_F(Preview, TheTabKeyGoesFromThePageOverTheButtonsToThePageText) {
  std::string visited;
  std::vector<Step> steps;
  for (int i = 0; i < 9; ++i) {
    steps.emplace_back([&] {
      visited += WordsOf(GetFocus()) + " ";
      PostKey(VK_TAB);
    });
  }
  steps.emplace_back([&] {
    EXPECT_EQ(GetFocus(), View().Handle());
    PostKey(VK_TAB, false, true);
  });
  steps.emplace_back([&] { EXPECT_EQ(GetFocus(), Window().PageTextBox()); });
  Show([] {}, std::move(steps));
  EXPECT_EQ(visited, "打印页面 上页 下页 缩放 页面 微调 打印 关闭 第    页 共    页 ");
}

TEST_F(Preview, AButtonThatIsDisabledLosesTheFocusToThePage) {
  Show([] {}, {[this] {
         SetFocus(Button("print"));
         frame_.EnableButton("print", false);
         EXPECT_EQ(GetFocus(), View().Handle());
       }});
}

TEST_F(Preview, ShowsAnEmptyDeskWithoutAPage) {
  Show([] {}, {[this] {
         EXPECT_FALSE(View().SheetRect().has_value());
         MakeDocument(1);
         EXPECT_TRUE(View().SheetRect().has_value());
         surface_.PutPreviewPage(5);
         EXPECT_FALSE(View().SheetRect().has_value());
         surface_.ClearDoc();
         EXPECT_FALSE(View().SheetRect().has_value());
         UpdateWindow(View().Handle());
       }});
}

SIZE_T PrivateBytes() {
  PROCESS_MEMORY_COUNTERS_EX counters{};
  GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&counters),
                       sizeof counters);
  return counters.PrivateUsage;
}

// A page at this zoom would take some megabytes as a picture.
TEST_F(Preview, KeepsNothingOfTheOtherPagesHoweverLongTheDocumentIs) {
  constexpr int kPages = 2000;
  constexpr SIZE_T kFewPictures = 32 << 20;
  DWORD objectsBefore = 0;
  SIZE_T bytesBefore = 0;
  const auto objects = [] { return GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); };
  Show([this] { MakeDocument(kPages); },
       {[&] {
          objectsBefore = objects();
          bytesBefore = PrivateBytes();
        },
        [&] {
          for (int page = 1; page <= kPages; page += 20) {
            surface_.PutPreviewPage(static_cast<std::int16_t>(page));
            UpdateWindow(View().Handle());
          }
          EXPECT_LE(objects(), objectsBefore + 2);
          EXPECT_LE(PrivateBytes(), bytesBefore + kFewPictures);
        }});
}

}  // namespace
}  // namespace td
