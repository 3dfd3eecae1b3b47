#include "windows/controls/window_font.h"

#include <algorithm>
#include <string_view>

#include "windows/render/font_table.h"

namespace td {
namespace {

bool HasChinese(HFONT font) {
  constexpr std::wstring_view kCharacters = L"套打设置";
  WORD glyphs[kCharacters.size()]{};
  const Selected selected(ScreenDevice(), font);
  const DWORD count = GetGlyphIndicesW(ScreenDevice(), kCharacters.data(), kCharacters.size(),
                                       glyphs, GGI_MARK_NONEXISTING_GLYPHS);
  return count == kCharacters.size() && std::ranges::count(glyphs, WORD{0xFFFF}) == 0;
}

const InstalledFamily* ChineseFamily() {
  if (const InstalledFamily* usual = FindFamily(L"Microsoft YaHei UI")) return usual;
  const auto families = FontTable::Instance().Families("黑体");
  return families.empty() ? nullptr : families.front();
}

}  // namespace

FontOwner WindowFont(int dotsPerInch) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                             static_cast<UINT>(dotsPerInch));
  LOGFONTW& wanted = metrics.lfMessageFont;
  FontOwner font(CreateFontIndirectW(&wanted));
  const InstalledFamily* chinese = HasChinese(font.get()) ? nullptr : ChineseFamily();
  if (chinese == nullptr) return font;
  chinese->name.copy(wanted.lfFaceName, LF_FACESIZE - 1);
  wanted.lfFaceName[std::min<std::size_t>(chinese->name.size(), LF_FACESIZE - 1)] = L'\0';
  wanted.lfCharSet = DEFAULT_CHARSET;
  return FontOwner(CreateFontIndirectW(&wanted));
}

}  // namespace td
