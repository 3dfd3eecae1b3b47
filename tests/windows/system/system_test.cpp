#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <regex>
#include <sstream>
#include <thread>

#include "desktop/desktop_platform.h"
#include "desktop/who_prints.h"
#include "files/path_text.h"
#include "page_document/page_document.h"
#include "page_outputs/export_file.h"
#include "page_outputs/export_folder.h"
#include "platform/failure.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"
#include "windows/system/local_machine.h"
#include "windows/system/message_boxes.h"

namespace td {
namespace {

namespace fs = std::filesystem;

template <typename Action>
int NumberOf(const Action& action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

class WindowsDesktop : public testing::Test {
 protected:
  WindowsDesktop() {
    std::random_device random;
    do {
      folder_ = fs::temp_directory_path() / PathOf("状态-" + std::to_string(random()));
    } while (!fs::create_directory(folder_));
  }
  ~WindowsDesktop() override { fs::remove_all(folder_); }

  [[nodiscard]] DesktopOptions Options() {
    DesktopOptions options;
    options.messages = MessageMode::kStandardError;
    options.stateDirectory = TextOf(folder_ / "below");
    options.documentSink = [this](const PageDocument& document) {
      pages_ = static_cast<int>(document.Pages().size());
    };
    return options;
  }

  static void DrawTwoPages(PrintSurface& surface) {
    surface.PutExportFile("c:\\订单.html");
    surface.PutExportFormat(kExportHtml);
    surface.StartDoc();
    surface.TextBox("第一页", 500, 500, 3000, 300);
    surface.NewPage();
    surface.EndDoc();
  }

  fs::path folder_;
  int pages_ = 0;
};

TEST_F(WindowsDesktop, APrintGoesToTheSinkAndIntoTheExportFile) {
  DesktopPlatform desktop(Options());
  const auto frame = desktop.Get().windows.CreatePrintFrame("frmTdPrint");
  DrawTwoPages(frame->Surface());
  frame->Surface().PrintDoc();
  EXPECT_EQ(pages_, 2);
  EXPECT_EQ(desktop.LastDocument().delivery, Delivery::kSink);
  EXPECT_EQ(desktop.MessagesShown(), 0);
  std::stringstream html;
  html << std::ifstream(folder_ / "below" / PathOf("订单.html"), std::ios::binary).rdbuf();
  EXPECT_NE(html.str().find(">第一页<"), std::string::npos);
}

// As services have it.
class DesktopThatNobodySees {
 public:
  DesktopThatNobodySees() : former_(GetProcessWindowStation()) {
    station_ = CreateWindowStationW(nullptr, 0, WINSTA_ALL_ACCESS, nullptr);
    SetProcessWindowStation(station_);
  }
  ~DesktopThatNobodySees() {
    SetProcessWindowStation(former_);
    CloseWindowStation(station_);
  }
  DesktopThatNobodySees(const DesktopThatNobodySees&) = delete;
  DesktopThatNobodySees& operator=(const DesktopThatNobodySees&) = delete;

 private:
  HWINSTA former_;
  HWINSTA station_;
};

TEST_F(WindowsDesktop, AWindowThatCantBeShownIsTold) {
  const DesktopThatNobodySees hidden;
  DesktopOptions options = Options();
  options.documentSink = nullptr;  // which is asked without a dialog
  DesktopPlatform desktop(options);
  const auto frame = desktop.Get().windows.CreatePrintFrame("frmTdPrint");
  EXPECT_EQ(NumberOf([&] { frame->ShowModal(); }), kInvalidCall);
  EXPECT_EQ(desktop.MessagesShown(), 1);
  DrawTwoPages(frame->Surface());
  EXPECT_EQ(NumberOf([&] { frame->Surface().PrintDoc(true); }), kInvalidCall);
  EXPECT_EQ(desktop.LastDocument().delivery, Delivery::kRefused);
  EXPECT_EQ(NumberOf([&] { frame->Surface().ShowPageSetup(kPageSetupDialog); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { desktop.Get().windows.CreateDialog("frmOther"); }), kInvalidCall);
  EXPECT_EQ(NumberOf([&] { desktop.Get().windows.CreatePrintFrame("frmOther"); }), kInvalidCall);
}

TEST_F(WindowsDesktop, AnUnknownPrinterIsRefusedAndAnotherThreadToo) {
  DesktopOptions options = Options();
  options.printer = "没有的打印机";
  EXPECT_EQ(NumberOf([&] { const DesktopPlatform desktop(options); }), kInvalidProperty);
  DesktopPlatform desktop(Options());
  const auto frame = desktop.Get().windows.CreatePrintFrame("frmTdPrint");
  EXPECT_EQ(NumberOf([&] { frame->Surface().PutDevice("没有的打印机"); }), kInvalidProperty);
  int number = 0;
  std::thread([&] { number = NumberOf([&] { desktop.Get().windows.CheckThread(); }); }).join();
  EXPECT_EQ(number, kWrongThread);
}

TEST_F(WindowsDesktop, AnExportFileThatCantBeWrittenIsAMessageAndTheDocumentPrints) {
  std::ofstream(folder_ / "below") << "no folder";
  DesktopPlatform desktop(Options());
  const auto frame = desktop.Get().windows.CreatePrintFrame("frmTdPrint");
  DrawTwoPages(frame->Surface());
  EXPECT_EQ(desktop.MessagesShown(), 1);
  frame->Surface().PrintDoc();
  EXPECT_EQ(pages_, 2);
}

// A box, as the person saw it who has confirmed it.
struct SeenBox {
  bool hasUsersLook = false;
  std::string title;
  int usableWindows = 0;  // of the program, besides
};
SeenBox seenBox;

BOOL CALLBACK CountUsable(HWND window, LPARAM) {
  const bool isBox = GetDlgItem(window, IDOK) != nullptr;
  if (!isBox && IsWindowVisible(window) != FALSE && IsWindowEnabled(window) != FALSE) {
    ++seenBox.usableWindows;
  }
  return TRUE;
}

BOOL CALLBACK ConfirmBox(HWND window, LPARAM) {
  if (GetDlgItem(window, IDOK) == nullptr) return TRUE;
  std::wstring title(100, L'\0');
  title.resize(static_cast<std::size_t>(
      GetWindowTextW(window, title.data(), static_cast<int>(title.size()))));
  HANDLE controls = nullptr;  // those of which windows are made now; null: the old ones
  GetCurrentActCtx(&controls);
  seenBox = {.hasUsersLook = controls != nullptr, .title = FromWide(title), .usableWindows = 0};
  EnumThreadWindows(GetCurrentThreadId(), CountUsable, 0);
  if (controls != nullptr) ReleaseActCtx(controls);
  PostMessageW(window, WM_COMMAND, IDOK, 0);
  return FALSE;
}

void CALLBACK LookForBox(HWND, UINT, UINT_PTR, DWORD) {
  EnumThreadWindows(GetCurrentThreadId(), ConfirmBox, 0);
}

void ShowAndConfirmBox() {
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, LookForBox);
  MessageBoxes(MessageMode::kAutomatic).ShowBox("没有表", kInformationIcon);
  KillTimer(nullptr, timer);
}

TEST(MessageBoxesTest, ABoxHasTheUsersLookInAProgramThatAsksForTheOldOne) {
  ShowAndConfirmBox();
  EXPECT_EQ(seenBox.title, ProgramName());
  EXPECT_TRUE(seenBox.hasUsersLook);
}

TEST(MessageBoxesTest, NoWindowOfTheProgramCanBeUsedBeforeABoxIsConfirmed) {
  const auto make = [] {
    return CreateWindowExW(0, L"Static", L"the program", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                           300, 200, nullptr, nullptr, nullptr, nullptr);
  };
  const HWND behind = make();
  const HWND active = make();
  SetActiveWindow(active);
  seenBox.usableWindows = 2;
  ShowAndConfirmBox();
  EXPECT_EQ(seenBox.usableWindows, 0);
  EXPECT_TRUE(IsWindowEnabled(behind) && IsWindowEnabled(active));
  DestroyWindow(active);
  DestroyWindow(behind);
}

TEST(LocalMachineTest, IsAnAddressThatStays) {
  LocalMachine machine;
  const std::string address = machine.LocalMachineId();
  EXPECT_TRUE(std::regex_match(address, std::regex(R"(\d+\.\d+\.\d+\.\d+|[0-9a-f:]+)"))) << address;
  EXPECT_EQ(machine.LocalMachineId(), address);
}

TEST(WhoPrints, TheLogIsTheFileThatTheEnvironmentNames) {
  SetEnvironmentVariableW(L"QBTDPRINTER_LOG_FILE", L"D:\\日志\\prints.log");
  EXPECT_EQ(TextOf(LogFileOfEnvironment()), "D:\\日志\\prints.log");
  SetEnvironmentVariableW(L"QBTDPRINTER_LOG_FILE", nullptr);
  EXPECT_EQ(TextOf(LogFileOfEnvironment()), "");
}

TEST(ExportFolder, IsTheUsersOrTheOneOfTheEnvironment) {
  _wputenv(L"QBTDPRINTER_STATE_DIR=");
  _wputenv(L"LOCALAPPDATA=C:\\users\\某人\\AppData\\Local");
  EXPECT_EQ(DefaultStateFolder(), "C:\\users\\某人\\AppData\\Local\\QbTdPrinter");
  _wputenv(L"QBTDPRINTER_STATE_DIR=relative");
  EXPECT_EQ(DefaultStateFolder(), "C:\\users\\某人\\AppData\\Local\\QbTdPrinter");
  _wputenv(L"QBTDPRINTER_STATE_DIR=D:\\状态");
  EXPECT_EQ(DefaultStateFolder(), "D:\\状态");
  EXPECT_EQ(FileNameOf("c:\\订单.html"), "订单.html");
}

}  // namespace
}  // namespace td
