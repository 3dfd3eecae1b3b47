#include "windows/controls/text_fitting.h"

#include "windows/render/screen_device.h"

namespace td {
namespace {

std::wstring KeepEnds(std::wstring_view text, std::size_t kept) {
  std::size_t head = (kept + 1) / 2;
  std::size_t tail = text.size() - kept / 2;
  if (head > 0 && IS_HIGH_SURROGATE(text[head - 1])) --head;
  if (tail < text.size() && IS_LOW_SURROGATE(text[tail])) ++tail;
  return std::wstring(text.substr(0, head)) + L"…" + std::wstring(text.substr(tail));
}

}  // namespace

SIZE TextSize(HDC device, std::wstring_view text) {
  SIZE size{};
  GetTextExtentPoint32W(device, text.data(), static_cast<int>(text.size()), &size);
  return size;
}

SIZE TextSize(HFONT font, std::wstring_view text) {
  const Selected selected(ScreenDevice(), font);
  return TextSize(ScreenDevice(), text);
}

std::wstring WithoutMiddle(HDC device, std::wstring_view text, int width) {
  if (TextSize(device, text).cx <= width) return std::wstring(text);
  std::size_t fits = 0;
  std::size_t tooMuch = text.size();
  while (fits + 1 < tooMuch) {
    const std::size_t kept = (fits + tooMuch) / 2;
    (TextSize(device, KeepEnds(text, kept)).cx <= width ? fits : tooMuch) = kept;
  }
  return KeepEnds(text, fits);
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace td
