#include "windows/preview/window.h"

#include "platform/standard_failures.h"
#include "windows/api/modules.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"
#include "windows/controls/visual_styles.h"
#include "windows/render/screen_device.h"

namespace td {
namespace {

constexpr const wchar_t* kClassName = L"QbTdPrinter.Window";

BOOL CALLBACK TakeIcon(HMODULE module, LPCWSTR, LPWSTR name, LONG_PTR taken) {
  *reinterpret_cast<HICON*>(taken) = LoadIconW(module, name);
  return FALSE;
}

// The program's first icon, by which its users know its windows; nothing if it has none.
HICON IconOfProgram() {
  HICON icon = nullptr;
  EnumResourceNamesW(GetModuleHandleW(nullptr), RT_GROUP_ICON, TakeIcon,
                     reinterpret_cast<LONG_PTR>(&icon));
  return icon;
}

// Registered once, and gone with the module: its code is the windows' code.
class WindowClass {
 public:
  explicit WindowClass(WNDPROC procedure) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = procedure;
    description.hInstance = OwnModule();
    description.hIcon = IconOfProgram();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = kClassName;
    RegisterClassExW(&description);
  }
  ~WindowClass() { UnregisterClassW(kClassName, OwnModule()); }
  WindowClass(const WindowClass&) = delete;
  WindowClass& operator=(const WindowClass&) = delete;
};

}  // namespace

Window::~Window() {
  if (handle_ == nullptr) return;
  SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
  DestroyWindow(handle_);
}

SIZE Window::InnerSize() const {
  const DpiAwareness inPixelsOfTheMonitor;
  RECT inner{};
  GetClientRect(handle_, &inner);
  return {inner.right, inner.bottom};
}

SIZE Window::OuterSize() const {
  const DpiAwareness inPixelsOfTheMonitor;
  RECT outer{};
  GetWindowRect(handle_, &outer);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

Window::Window(const std::string& title, DWORD style, DWORD extendedStyle, HWND parent) {
  static const WindowClass registered(Dispatch);
  const WindowMaking making;
  const bool isChild = (style & WS_CHILD) != 0;
  const int place = isChild ? 0 : CW_USEDEFAULT;
  if (CreateWindowExW(extendedStyle, kClassName, ToWide(title).c_str(), style, place, place, place,
                      place, parent, nullptr, OwnModule(), this) == nullptr) {
    throw Failure(kOutOfMemory, "系统无法建立窗口。");
  }
}

LRESULT CALLBACK Window::Dispatch(HWND handle, UINT message, WPARAM first, LPARAM second) {
  if (message == WM_NCCREATE) {
    auto* made =
        static_cast<Window*>(reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
    made->handle_ = handle;
    SetWindowLongPtrW(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* window = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
  if (window == nullptr) return DefWindowProcW(handle, message, first, second);
  LRESULT result = 0;
  try {
    result = window->Receive(message, first, second);
  } catch (...) {  // no exception may pass through the system's code
    result = DefWindowProcW(handle, message, first, second);
  }
  if (message == WM_NCDESTROY) window->handle_ = nullptr;
  return result;
}

void Fill(HDC device, const RECT& box, COLORREF colour) {
  const BrushOwner brush(CreateSolidBrush(colour));
  FillRect(device, &box, brush.get());
}

void Place(HWND window, int left, int top, int width, int height) {
  SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

int TextBoxHeight(HFONT font, int dotsPerInch) {
  constexpr int kBesideText = 3;  // pixels: the system leaves one above the line
  const int edge = GetSystemMetricsForDpi(SM_CYEDGE, static_cast<UINT>(dotsPerInch));
  return static_cast<int>(TextSize(font, L"国").cy) + 2 * edge + kBesideText;
}

void PutTextInto(HWND window, const std::string& text) {
  SetWindowTextW(window, ToWide(text).c_str());
}

}  // namespace td
