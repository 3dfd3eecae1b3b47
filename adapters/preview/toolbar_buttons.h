// The toolbar of the preview, and the window's other words.
#pragma once

#include <array>

namespace td {

inline constexpr const char* kPreviewTitle = "打印预览";
inline constexpr const char* kToolbarName = "工具栏";
inline constexpr const char* kPageViewName = "打印页面";
inline constexpr const char* kPageTextName = "页码";
inline constexpr const char* kEmptyPageText = "第    页 共    页";
inline constexpr const char* kPageTextToolTip = "转到某一页：Ctrl+G";

// The question for a page's number: its title, and what stands before and behind the last number.
inline constexpr const char* kPageNumberTitle = "转到某一页";
inline constexpr std::array kPageNumberLabel = {"页码（1 到 ", "）："};

inline constexpr const char* kConfirmCaption = "确定(&O)";
inline constexpr const char* kCancelCaption = "取消(&C)";

// A key that is pressed with Ctrl; 0: there is none.
struct Shortcut {
  char key = 0;
  bool withShift = false;
};

struct ToolbarButton {
  const char* caption;
  const char* key;
  bool isLastOfGroup;
  Shortcut shortcut;
  const char* toolTip;
};

// Page Up, Page Down and Esc are no shortcuts of their buttons: they do more, or other things.
inline constexpr std::array<ToolbarButton, 7> kToolbarButtons = {{
    {"上页", "previouspage", false, {}, "上一页（Page Up；第一页：Ctrl+Home）"},
    {"下页", "nextpage", true, {}, "下一页（Page Down；最后一页：Ctrl+End）"},
    {"缩放",
     "zoom",
     true,
     {'0'},
     "一半大小或原大（Ctrl+0；放大：Ctrl++，缩小：Ctrl+-，或按住 Ctrl 转动滚轮）"},
    {"页面", "pageset", false, {'P', true}, "纸张、方向、边距和打印机（Ctrl+Shift+P）"},
    {"微调", "adjuct", true, {'T'}, "套打格式的偏移、行高和选项（Ctrl+T）"},
    {"打印", "print", true, {'P'}, "选择打印机并打印（Ctrl+P）"},
    {"关闭", "exit", false, {}, "关闭预览（Esc）"},
}};

// How often the zoom button has to be pressed from a scale to have the large or the small one. The
// button knows which scale follows which; from one that it doesn't know it takes two presses.
[[nodiscard]] constexpr int PressesToZoom(double zoom, bool isLarger) {
  constexpr double kSmall = 50;
  constexpr double kLarge = 100;
  if (isLarger ? zoom >= kLarge : zoom <= kSmall) return 0;
  return isLarger && zoom != kSmall ? 2 : 1;
}

}  // namespace td
