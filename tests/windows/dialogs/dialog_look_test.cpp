// How the dialogs look on monitors of each usual resolution: nothing is cut off, and what belongs
// together stands in line.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "windows/api/wide_text.h"
#include "windows/controls/text_fitting.h"
#include "windows/dialogs/dialog_window.h"

// Behind the system's other headers.
#include <imm.h>

namespace td {
namespace {

class DialogLook : public testing::TestWithParam<std::tuple<const char*, int>> {
 protected:
  DialogLook() {
    // As the system does when a window comes to another monitor.
    const RECT place{10, 10, 400, 400};
    const int dots = std::get<1>(GetParam());
    SendMessageW(window_.Window(), WM_DPICHANGED, MAKEWPARAM(dots, dots),
                 reinterpret_cast<LPARAM>(&place));
  }

  [[nodiscard]] RECT Place(HWND control) const {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, window_.Window(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  [[nodiscard]] std::vector<HWND> Parts() const {
    std::vector<HWND> parts;
    for (HWND child = GetWindow(window_.Window(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      parts.push_back(child);
    }
    return parts;
  }
  static bool IsOf(HWND part, const wchar_t* windowClass) {
    wchar_t name[32]{};
    GetClassNameW(part, name, 32);
    return std::wstring_view(name) == windowClass;
  }
  [[nodiscard]] bool IsFrame(HWND part) const {
    return IsOf(part, L"Button") &&
           (GetWindowLongPtrW(part, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
  }
  static SIZE NeededFor(HWND part) {
    const auto font = reinterpret_cast<HFONT>(SendMessageW(part, WM_GETFONT, 0, 0));
    std::wstring text = TextOf(part);
    std::erase(text, L'&');
    return TextSize(font, text);
  }
  [[nodiscard]] int Scaled(int pixels) const { return pixels * std::get<1>(GetParam()) / 96; }

  DialogWindow window_{*FindDialogContents(std::get<0>(GetParam())),
                       {[](std::string_view) {}, [] {}}};
};

TEST_P(DialogLook, NothingIsCutOff) {
  RECT inside{};
  GetClientRect(window_.Window(), &inside);
  for (const HWND part : Parts()) {
    const RECT place = Place(part);
    const std::string name = FromWide(TextOf(part));
    RECT common{};
    IntersectRect(&common, &inside, &place);
    EXPECT_TRUE(EqualRect(&common, &place)) << name << " ends at " << place.right;
    const SIZE needed = NeededFor(part);
    EXPECT_GE(place.right - place.left, needed.cx) << name;
    EXPECT_GE(place.bottom - place.top, needed.cy) << name;
  }
}

TEST_P(DialogLook, NoTwoPartsOverlap) {
  const std::vector<HWND> parts = Parts();
  for (const HWND one : parts) {
    for (const HWND other : parts) {
      if (one == other || IsFrame(one) || IsFrame(other)) continue;
      const RECT first = Place(one);
      const RECT second = Place(other);
      RECT common{};
      EXPECT_FALSE(IntersectRect(&common, &first, &second))
          << FromWide(TextOf(one)) << " and " << FromWide(TextOf(other));
    }
  }
}

TEST_P(DialogLook, OptionsLieInTheirFrame) {
  const std::vector<HWND> parts = Parts();
  const auto frame = std::ranges::find_if(parts, [&](HWND part) { return IsFrame(part); });
  if (frame == parts.end()) return;
  for (const HWND option : window_.Options("optOrientation")) {
    const RECT outer = Place(*frame);
    const RECT inner = Place(option);
    RECT common{};
    IntersectRect(&common, &outer, &inner);
    EXPECT_TRUE(EqualRect(&common, &inner));
  }
}

TEST_P(DialogLook, ANumberOfUsualLengthFitsItsBox) {
  for (const HWND part : Parts()) {
    if (!IsOf(part, L"Edit")) continue;
    SetWindowTextW(part, L"-12345.678");
    RECT text{};
    SendMessageW(part, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
    EXPECT_GE(text.right - text.left, NeededFor(part).cx);
    EXPECT_GE(text.bottom - text.top, NeededFor(part).cy);
  }
}

TEST_P(DialogLook, NoInputMethodComesBetweenTheKeysAndANumber) {
  for (const HWND part : Parts()) {
    if (!IsOf(part, L"Edit")) continue;
    EXPECT_EQ(ImmGetContext(part), nullptr);
  }
}

TEST_P(DialogLook, LabelsEndAndFieldsBeginOnCommonLines) {
  std::set<LONG> ends;
  std::set<LONG> beginnings;
  const std::vector<HWND> parts = Parts();
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const bool isField = IsOf(parts[i], L"Edit") || IsOf(parts[i], L"ComboBox");
    if (!isField) continue;
    const RECT label = Place(parts[i - 1]);
    const RECT field = Place(parts[i]);
    ends.insert(label.right);
    beginnings.insert(field.left);
    EXPECT_NEAR(label.top + label.bottom, field.top + field.bottom, 2);
  }
  EXPECT_EQ(ends.size(), 1U);
  EXPECT_EQ(beginnings.size(), 1U);
}

TEST_P(DialogLook, IsAsLargeAsTheResolutionAsks) {
  RECT whole{};
  GetWindowRect(window_.Window(), &whole);
  EXPECT_LT(whole.right - whole.left, Scaled(760));
  EXPECT_LT(whole.bottom - whole.top, Scaled(500));
  EXPECT_GT(whole.right - whole.left, Scaled(240));
  EXPECT_EQ(whole.left, 10) << "where the system has put it";
}

TEST_P(DialogLook, ItsFontHasTheCharactersOfItsTexts) {
  const HDC device = GetDC(window_.Window());
  const HWND label = Parts().front();
  const HGDIOBJ former =
      SelectObject(device, reinterpret_cast<HFONT>(SendMessageW(label, WM_GETFONT, 0, 0)));
  const std::wstring text = TextOf(label);
  std::vector<WORD> glyphs(text.size());
  GetGlyphIndicesW(device, text.data(), static_cast<int>(text.size()), glyphs.data(),
                   GGI_MARK_NONEXISTING_GLYPHS);
  SelectObject(device, former);
  ReleaseDC(window_.Window(), device);
  EXPECT_EQ(std::ranges::count(glyphs, WORD{0xFFFF}), 0);
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogLook,
                         testing::Combine(testing::Values("frmAdjuct", "frmAreaPrintSet"),
                                          testing::Values(96, 120, 144, 192)),
                         [](const auto& look) {
                           return std::string(std::get<0>(look.param)) +
                                  std::to_string(std::get<1>(look.param));
                         });

TEST(ChoiceListLook, ALongEntryShowsBothItsEnds) {
  const FontOwner font(CreateFontW(-12, 0, 0, 0, FW_NORMAL, 0, 0, 0, 0, 0, 0, 0, 0, L"Tahoma"));
  const Selected selected(ScreenDevice(), font.get());
  const std::wstring name = L"\\\\print-server\\Warehouse three, dot matrix (second floor)";
  const int width = static_cast<int>(TextSize(ScreenDevice(), name).cx);
  EXPECT_EQ(WithoutMiddle(ScreenDevice(), name, width), name);
  const std::wstring shown = WithoutMiddle(ScreenDevice(), name, width / 2);
  EXPECT_LE(TextSize(ScreenDevice(), shown).cx, width / 2);
  EXPECT_EQ(shown.substr(0, 7), name.substr(0, 7));
  EXPECT_TRUE(shown.ends_with(L"floor)"));
  EXPECT_NE(shown.find(L'…'), std::wstring::npos);
}

}  // namespace
}  // namespace td
