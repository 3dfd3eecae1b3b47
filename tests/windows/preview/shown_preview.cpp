#include "shown_preview.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <utility>

#include "text/page_text.h"
#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"
#include "windows/render/picture_pixels.h"
#include "windows/render/screen_device.h"

// Behind the system's other headers.
#include <imm.h>

namespace td {
namespace {

std::deque<std::function<void()>>& WaitingSteps() {
  static std::deque<std::function<void()>> steps;
  return steps;
}

void CALLBACK DoFirst(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  if (WaitingSteps().empty()) return;
  const auto step = std::move(WaitingSteps().front());
  WaitingSteps().pop_front();
  step();
}

void PutKeys(bool withControl, bool withShift) {
  std::array<BYTE, 256> keys{};
  GetKeyboardState(keys.data());
  keys[VK_CONTROL] = withControl ? 0x80 : 0;
  keys[VK_SHIFT] = withShift ? 0x80 : 0;
  keys[VK_MENU] = 0;
  SetKeyboardState(keys.data());
}

}  // namespace

// A timer is the last thing that a message loop has time for.
void WhenIdle(std::function<void()> step) {
  WaitingSteps().push_back(std::move(step));
  SetTimer(nullptr, 0, 1, DoFirst);
}

void ForgetIdleSteps() {
  WaitingSteps().clear();
}

void PostClick(HWND window) {
  RECT inner{};
  GetClientRect(window, &inner);
  const LPARAM place = MAKELPARAM(inner.right / 2, inner.bottom / 2);
  PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
  PostMessageW(window, WM_LBUTTONUP, 0, place);
}

void PostKey(WPARAM key, bool withControl, bool withShift) {
  PutKeys(withControl, withShift);
  PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
}

void LetGoOfKeys() {
  PutKeys(false, false);
}

bool HasInputMethod(HWND window) {
  const HIMC context = ImmGetContext(window);
  if (context != nullptr) ImmReleaseContext(window, context);
  return context != nullptr;
}

std::string WordsOf(HWND window) {
  return FromWide(TextOf(window));
}

void TakePicture(HWND window, const std::string& name) {
  const char* folder = std::getenv("QBTD_PICTURES");
  if (folder == nullptr) return;
  RECT place{};
  GetWindowRect(window, &place);
  const int width = static_cast<int>(place.right - place.left);
  const int height = static_cast<int>(place.bottom - place.top);
  const BITMAPINFO info = RowsFromTheTop(width, height);
  void* bits = nullptr;
  const DeviceOwner memory(CreateCompatibleDC(nullptr));
  const BitmapOwner bitmap(
      CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const Selected selected(memory.get(), bitmap.get());
  const HDC screen = GetDC(nullptr);
  BitBlt(memory.get(), 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  ReleaseDC(nullptr, screen);
  const auto* first = static_cast<const std::uint32_t*>(bits);
  Pixels pixels{width, height, {first, first + width * height}};
  for (std::uint32_t& pixel : pixels.data) pixel |= 0xFF000000;
  const Bytes png = ToPng(pixels, 96);
  std::ofstream(folder + ("/" + name + ".png"), std::ios::binary)
      .write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
}

void ShownPreview::Next() {
  LetGoOfKeys();
  if (frame_.Window() == nullptr) return;
  if (steps_.empty()) {
    frame_.Unload();
    return;
  }
  const Step step = std::move(steps_.front());
  steps_.pop_front();
  step();
  WhenIdle([this] { Next(); });
}

void ShownPreview::Show(Step run, std::vector<Step> steps) {
  steps_.assign(std::make_move_iterator(steps.begin()), std::make_move_iterator(steps.end()));
  frame_.Connect({.Load = [this] { ++loads_; },
                  .Activate =
                      [this, run = std::move(run)] {
                        if (++activations_ > 1) return;
                        run();
                        WhenIdle([this] { Next(); });
                      },
                  .ButtonPressed = [this](std::string_view key) { pressed_.emplace_back(key); }});
  frame_.ShowModal();
  ForgetIdleSteps();
  EXPECT_TRUE(steps_.empty()) << "the window was closed before its last step";
}

void ShownPreview::MakeDocument(int pages) {
  surface_.PutPaperSize(11);
  surface_.StartDoc();
  for (int page = 1; page <= pages; ++page) {
    if (page > 1) surface_.NewPage();
    surface_.PutPenWidth(14);
    surface_.DrawLine(500, 500, 7000, 500);
    surface_.PutFontName("宋体");
    surface_.TextBox("销售出库单 第" + std::to_string(page) + "页", 1000, 1000, 5000, 500);
  }
  surface_.EndDoc();
}

void ShownPreview::Act(std::string_view key) {
  pressed_.emplace_back(key);
  const std::int16_t page = surface_.PreviewPage();
  const auto show = [this](int number) {
    surface_.PutPreviewPage(static_cast<std::int16_t>(number));
  };
  if (key == "zoom") surface_.PutZoom(surface_.Zoom() == 50 ? 100 : 50);
  if (key == "nextpage" && page < surface_.PageCount()) show(page + 1);
  if (key == "previouspage" && page > 1) show(page - 1);
  frame_.PutPageText(PageText(surface_.PreviewPage(), surface_.PageCount()));
}

void ShownPreview::Resize(int width, int height) {
  const UINT dpi = GetDpiForWindow(Window().Handle());
  RECT outer{0, 0, MulDiv(width, static_cast<int>(dpi), 96),
             MulDiv(height, static_cast<int>(dpi), 96)};
  AdjustWindowRectExForDpi(&outer, static_cast<DWORD>(GetWindowLongW(Window().Handle(), GWL_STYLE)),
                           FALSE,
                           static_cast<DWORD>(GetWindowLongW(Window().Handle(), GWL_EXSTYLE)), dpi);
  SetWindowPos(Window().Handle(), nullptr, 0, 0, outer.right - outer.left, outer.bottom - outer.top,
               SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace td
