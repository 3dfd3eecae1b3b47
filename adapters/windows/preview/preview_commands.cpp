// What the preview's keys and buttons do.
#include <algorithm>

#include "text/page_text.h"
#include "windows/controls/visual_styles.h"
#include "windows/preview/page_number_dialog.h"
#include "windows/preview/preview_window.h"

namespace td {
namespace {

bool IsKeyDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

bool PreviewWindow::Takes(MSG& message) {
  if (message.hwnd != Handle() && IsChild(Handle(), message.hwnd) == FALSE) return false;
  if (heldInput_.Takes(message)) return true;
  const bool isWheel = message.message == WM_MOUSEWHEEL || message.message == WM_MOUSEHWHEEL;
  if (isWheel && message.hwnd != view_.Handle()) {
    SendMessageW(view_.Handle(), message.message, message.wParam, message.lParam);
    return true;
  }
  if (message.message != WM_KEYDOWN) return false;
  const auto command = CommandIn(message);
  if (command) Obey(*command);
  return command.has_value();
}

// Space and Enter press the button that has the focus. A key that is held presses nothing again.
std::optional<KeyCommand> PreviewWindow::CommandIn(const MSG& message) const {
  constexpr LPARAM kIsRepeated = 1 << 30;
  if (message.message != WM_KEYDOWN || IsKeyDown(VK_MENU)) return std::nullopt;
  const PressedKey pressed{message.wParam, IsKeyDown(VK_CONTROL), IsKeyDown(VK_SHIFT)};
  std::optional<KeyCommand> command = CommandOf(pressed);
  const std::string_view button = toolbar_.KeyOf(message.hwnd);
  const bool pressesFocused =
      !button.empty() && (pressed.key == VK_SPACE || pressed.key == VK_RETURN);
  if (pressesFocused) command = KeyCommand{KeyAction::kPress, button};
  const bool isRepeated = (message.lParam & kIsRepeated) != 0;
  if (command && command->action == KeyAction::kPress && isRepeated) return std::nullopt;
  return command;
}

bool PreviewWindow::IsEnabled(const KeyCommand& command) const {
  switch (command.action) {
    case KeyAction::kPress:
      return toolbar_.IsEnabled(command.button);
    case KeyAction::kZoomIn:
    case KeyAction::kZoomOut:
      return toolbar_.IsEnabled("zoom");
    default:
      return true;
  }
}

void PreviewWindow::Obey(const KeyCommand& command) {
  switch (command.action) {
    case KeyAction::kPageForward:
      return PageForward();
    case KeyAction::kPageBackward:
      return PageBackward();
    case KeyAction::kFirstPage:
      ShowPage(1);
      return view_.ScrollTo(PageView::Part::kStart);
    case KeyAction::kLastPage:
      ShowPage(document_.PageCount());
      return view_.ScrollTo(PageView::Part::kEnd);
    case KeyAction::kPageTop:
      return view_.ScrollTo(PageView::Part::kStart);
    case KeyAction::kPageEnd:
      return view_.ScrollTo(PageView::Part::kEnd);
    case KeyAction::kLineUp:
    case KeyAction::kLineDown:
      return view_.ScrollLine(SB_VERT, command.action == KeyAction::kLineDown);
    case KeyAction::kLineLeft:
    case KeyAction::kLineRight:
      return view_.ScrollLine(SB_HORZ, command.action == KeyAction::kLineRight);
    case KeyAction::kZoomIn:
    case KeyAction::kZoomOut:
      return Zoom(command.action == KeyAction::kZoomIn);
    case KeyAction::kGoToPage:
      return GoToPage();
    case KeyAction::kClose:
      return events_.closed();
    case KeyAction::kNextPart:
    case KeyAction::kPreviousPart:
      return MoveFocus(command.action == KeyAction::kNextPart);
    case KeyAction::kPress:
      return Press(command.button);
  }
}

// As a click on the button, which does nothing if it is disabled.
void PreviewWindow::Press(std::string_view key) {
  if (!toolbar_.IsEnabled(key)) return;
  const DpiAwareness asTheProgram(programsAwareness_);
  events_.buttonPressed(key);
}

void PreviewWindow::Zoom(bool isLarger) {
  for (int presses = PressesToZoom(document_.Zoom(), isLarger); presses > 0; --presses) {
    Press("zoom");
  }
}

void PreviewWindow::PageForward() {
  if (view_.IsAt(PageView::Part::kEnd)) {
    Press("nextpage");
  } else {
    view_.ScrollPage(true);
  }
}

// The page before is then shown from its end.
void PreviewWindow::PageBackward() {
  if (!view_.IsAt(PageView::Part::kStart)) {
    view_.ScrollPage(false);
    return;
  }
  const int number = document_.PreviewPage();
  Press("previouspage");
  if (document_.PreviewPage() != number) view_.ScrollTo(PageView::Part::kEnd);
}

void PreviewWindow::ShowPage(std::int16_t page) {
  if (page < 1 || page > document_.PageCount()) return;
  document_.PutPreviewPage(page);
  PutPageText(PageText(page, document_.PageCount()));
}

void PreviewWindow::GoToPage() {
  if (document_.PageCount() == 0) return;
  if (const auto page = AskForPage(document_.PreviewPage(), document_.PageCount())) {
    ShowPage(*page);
  }
}

// From the page over the buttons to the page text, and round.
void PreviewWindow::MoveFocus(bool isForward) {
  std::vector<HWND> parts = {view_.Handle()};
  for (const HWND button : toolbar_.Buttons()) {
    if (IsWindowEnabled(button) != FALSE) parts.push_back(button);
  }
  parts.push_back(pageText_);
  const auto found = std::ranges::find(parts, GetFocus());
  const auto place = found == parts.end() ? 0 : static_cast<std::size_t>(found - parts.begin());
  const std::size_t step = isForward ? 1 : parts.size() - 1;
  SetFocus(parts[(place + step) % parts.size()]);
}

}  // namespace td
