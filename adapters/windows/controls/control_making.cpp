#include "windows/controls/control_making.h"

// Needs the types of the system.
#include <commctrl.h>

#include "windows/api/modules.h"
#include "windows/api/wide_text.h"
#include "windows/controls/visual_styles.h"

namespace td {
namespace {

void SendTool(HWND toolTips, UINT message, HWND control, const std::string& text) {
  std::wstring words = ToWide(text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;  // which every version of the system's controls takes
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = words.data();
  SendMessageW(toolTips, message, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace

HWND MakeControl(HWND parent, const wchar_t* kind, const std::string& text, DWORD style, int id,
                 DWORD extendedStyle) {
  const WindowMaking making;
  return CreateWindowExW(extendedStyle, kind, ToWide(text).c_str(), WS_CHILD | WS_VISIBLE | style,
                         0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                         OwnModule(), nullptr);
}

HWND MakeToolTips(HWND parent, DWORD style) {
  const WindowMaking making;
  return CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX | style,
                         0, 0, 0, 0, parent, nullptr, OwnModule(), nullptr);
}

void AddToolTip(HWND toolTips, HWND control, const std::string& text) {
  SendTool(toolTips, TTM_ADDTOOLW, control, text);
}

void PutToolTip(HWND toolTips, HWND control, const std::string& text) {
  SendTool(toolTips, TTM_UPDATETIPTEXTW, control, text);
}

}  // namespace td
