#include "windows/controls/dialog_frame.h"

#include <algorithm>
#include <utility>

#include "platform/standard_failures.h"
#include "windows/api/modules.h"
#include "windows/api/system_error.h"
#include "windows/api/wide_text.h"
#include "windows/controls/control_making.h"
#include "windows/controls/window_font.h"

namespace td {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

// The system wants it where a DWORD may lie.
struct alignas(DWORD) EmptyTemplate {
  DLGTEMPLATE dialog{kStyle, kExtendedStyle, 0, 0, 0, 0, 0};
  WORD menu = 0;
  WORD windowClass = 0;
  WORD title = 0;
};

// The dialog lays itself out; the system's own way to do that, where it has one, would do it twice.
void RefuseResizingByTheSystem(HWND window) {
  using PutBehaviour = BOOL(WINAPI*)(HWND, int, int);
  constexpr int kDisableAll = 1;  // DDC_DISABLE_ALL
  const auto function =
      GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetDialogDpiChangeBehavior");
  if (function == nullptr) return;
  reinterpret_cast<PutBehaviour>(reinterpret_cast<void*>(function))(window, kDisableAll,
                                                                    kDisableAll);
}

RECT WorkAreaAt(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY), &monitor);
  return monitor.rcWork;
}

// The corner at which something of a size lies in the middle, but not beyond an area.
POINT CornerInMiddle(const RECT& middle, SIZE size, const RECT& area) {
  const auto begin = [](LONG from, LONG to, LONG length, LONG first, LONG last) {
    return std::max(first, std::min((from + to - length) / 2, last - length));
  };
  return {begin(middle.left, middle.right, size.cx, area.left, area.right),
          begin(middle.top, middle.bottom, size.cy, area.top, area.bottom)};
}

}  // namespace

DialogFrame::DialogFrame(const std::string& title) {
  const WindowMaking making;
  const EmptyTemplate empty;
  window_ = CreateDialogIndirectParamW(OwnModule(), &empty.dialog, OwnerWindow(),
                                       &DialogFrame::Procedure, reinterpret_cast<LPARAM>(this));
  if (window_ == nullptr) {
    throw Failure(kInvalidCall, "无法打开“" + title + "”窗口：" + SystemWords(GetLastError()));
  }
  SetWindowTextW(window_, ToWide(title).c_str());
  RefuseResizingByTheSystem(window_);
  dotsPerInch_ = static_cast<int>(GetDpiForWindow(window_));
  font_ = WindowFont(dotsPerInch_);
}

DialogFrame::~DialogFrame() {
  if (window_ == nullptr) return;
  SetWindowLongPtrW(window_, DWLP_USER, 0);
  DestroyWindow(window_);
}

HWND DialogFrame::Add(const ControlKind& kind, const std::string& text, int id, DWORD moreStyle) {
  const HWND control =
      MakeControl(window_, kind.windowClass, text, kind.style | moreStyle, id, kind.extendedStyle);
  SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  return control;
}

void DialogFrame::ShowModal() {
  if (window_ != nullptr && !isClosed_) {
    ModalLoop loop(window_);
    loop_ = &loop;
    PlaceBeforeOwner();
    ShowWindow(window_, SW_SHOW);
    SetForegroundWindow(window_);
    SetFocus(GetNextDlgTabItem(window_, nullptr, FALSE));
    loop.Run();
    Close();
    loop_ = nullptr;
  }
  if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

void DialogFrame::Close() {
  isClosed_ = true;
  if (loop_ != nullptr) loop_->End();
  if (window_ != nullptr) ShowWindow(window_, SW_HIDE);
}

bool DialogFrame::Received(UINT, WPARAM, LPARAM, LRESULT&) {
  return false;
}

INT_PTR CALLBACK DialogFrame::Procedure(HWND window, UINT message, WPARAM wide, LPARAM lengthy) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(window, DWLP_USER, lengthy);
    return FALSE;
  }
  auto* frame = reinterpret_cast<DialogFrame*>(GetWindowLongPtrW(window, DWLP_USER));
  if (frame == nullptr) return FALSE;
  LRESULT result = 0;
  bool isDone = false;
  frame->React([&] { isDone = frame->Answer(message, wide, lengthy, result); });
  if (isDone) SetWindowLongPtrW(window, DWLP_MSGRESULT, result);
  return isDone ? TRUE : FALSE;
}

bool DialogFrame::Answer(UINT message, WPARAM wide, LPARAM lengthy, LRESULT& result) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wide) == IDCANCEL) {
        if (!isClosed_) CloseAsked();
      } else if (!isClosed_) {
        Commanded(LOWORD(wide), HIWORD(wide));
      }
      return true;
    case WM_CLOSE:
      if (!isClosed_) CloseAsked();
      return true;
    case WM_DPICHANGED: {
      Fit(LOWORD(wide));
      const RECT& place = *reinterpret_cast<const RECT*>(lengthy);
      SetWindowPos(window_, nullptr, place.left, place.top, 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
      return true;
    }
    case WM_DESTROY:
      SetWindowLongPtrW(window_, DWLP_USER, 0);
      window_ = nullptr;
      isClosed_ = true;
      return true;
    default:
      return Received(message, wide, lengthy, result);
  }
}

// No exception may pass through the system's code.
void DialogFrame::React(const std::function<void()>& reaction) {
  try {
    reaction();
  } catch (...) {
    if (!failure_) failure_ = std::current_exception();
    Close();
  }
}

// All sizes follow from the font and the resolution.
void DialogFrame::Fit(int dotsPerInch) {
  dotsPerInch_ = dotsPerInch;
  FontOwner font = WindowFont(dotsPerInch);
  for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
  }
  font_ = std::move(font);
  const SIZE inside = LayOut();
  RECT whole{0, 0, inside.cx, inside.cy};
  AdjustWindowRectExForDpi(&whole, static_cast<DWORD>(GetWindowLongW(window_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongW(window_, GWL_EXSTYLE)),
                           static_cast<UINT>(dotsPerInch));
  SetWindowPos(window_, nullptr, 0, 0, whole.right - whole.left, whole.bottom - whole.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(window_, nullptr, TRUE);
}

// The resolution is that of the monitor on which the owner lies.
void DialogFrame::PlaceBeforeOwner() {
  const DpiAwareness inPixelsOfTheMonitor;
  const HWND owner = GetWindow(window_, GW_OWNER);
  const RECT area = WorkAreaAt(owner);
  RECT middle = area;
  if (owner != nullptr && IsIconic(owner) == FALSE) GetWindowRect(owner, &middle);
  SetWindowPos(window_, nullptr, area.left, area.top, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  Fit(static_cast<int>(GetDpiForWindow(window_)));
  RECT place{};
  GetWindowRect(window_, &place);
  const POINT corner =
      CornerInMiddle(middle, {place.right - place.left, place.bottom - place.top}, area);
  SetWindowPos(window_, nullptr, corner.x, corner.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace td
