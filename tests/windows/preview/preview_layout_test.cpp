// Where the parts of the preview and of the page setup lie, on screens of different resolutions,
// and that the page's pixels are those of the image output.
#include <cmath>

#include "page_document/drawing.h"
#include "page_setup_of_two_printers.h"
#include "shown_preview.h"
#include "windows/controls/text_fitting.h"
#include "windows/render/image_output.h"
#include "windows/render/screen_device.h"

// Behind the system's other headers.
#include <commctrl.h>

namespace td {
namespace {

using PreviewLayout = ShownPreview;

RECT PlaceIn(HWND window, HWND part) {
  RECT place{};
  GetWindowRect(part, &place);
  MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
  return place;
}

bool Contains(const RECT& outer, const RECT& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// As the system does when a window comes to a monitor of another resolution.
void ComeToMonitor(HWND window, int dotsPerInch, const RECT& place) {
  SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dotsPerInch, dotsPerInch),
               reinterpret_cast<LPARAM>(&place));
}

TEST_F(PreviewLayout, NoButtonIsHiddenAtTheOpeningSize) {
  Show([this] { MakeDocument(3); }, {[this] {
         TakePicture(Window().Handle(),
                     "preview-" + std::to_string(GetDpiForWindow(Window().Handle())));
         const HWND toolbar = Window().Buttons().Handle();
         RECT band{};
         GetClientRect(toolbar, &band);
         for (const HWND button : Window().Buttons().Buttons()) {
           EXPECT_TRUE(Contains(band, PlaceIn(toolbar, button))) << WordsOf(button);
         }
       }});
}

TEST_F(PreviewLayout, PlacesItsPartsInTwips) {
  Show([] {}, {[this] { Resize(1000, 700); },
               [this] {
                 const HWND window = Window().Handle();
                 const double scale = GetDpiForWindow(window) / kTwipsPerInch;
                 const auto pixels = [scale](double twips) { return std::lround(twips * scale); };
                 const SIZE inner = Window().InnerSize();
                 const RECT text = PlaceIn(window, Window().PageTextBox());
                 const RECT band = PlaceIn(window, Window().Buttons().Handle());
                 const RECT view = PlaceIn(window, View().Handle());
                 EXPECT_NEAR(text.right, inner.cx - pixels(300), 1);
                 EXPECT_NEAR(band.right, inner.cx - (text.right - text.left) - pixels(1000), 1);
                 EXPECT_EQ(view.left, pixels(30));
                 EXPECT_EQ(view.top, band.bottom);
                 EXPECT_NEAR(view.right, inner.cx - pixels(30), 1);
                 EXPECT_EQ(view.bottom, inner.cy);
               }});
}

TEST_F(PreviewLayout, FollowsTheResolutionOfItsMonitor) {
  struct Look {
    RECT window;
    RECT sheet;
    SIZE button;
    SIZE text;
    SIZE view;
    int scrolled;
  };
  const auto look = [this] {
    const auto size = [](HWND part) {
      RECT place{};
      GetWindowRect(part, &place);
      return SIZE{place.right - place.left, place.bottom - place.top};
    };
    Look seen{{},
              *View().SheetRect(),
              size(Button("print")),
              size(Window().PageTextBox()),
              View().InnerSize(),
              Scrolled(SB_VERT)};
    GetWindowRect(Window().Handle(), &seen.window);
    return seen;
  };
  Show([this] { MakeDocument(1); },
       {[this] { Resize(500, 300); }, [] { PostKey(VK_END); },
        [&] {
          const int dots = static_cast<int>(GetDpiForWindow(Window().Handle()));
          const int others =
              dots > 120 ? dots / 2 : 2 * dots;  // the display holds the larger window
          const auto scaled = [=](LONG pixels) { return MulDiv(pixels, others, dots); };
          const Look before = look();
          ASSERT_GT(before.scrolled, 0);
          const RECT& place = before.window;
          ComeToMonitor(Window().Handle(), others,
                        {0, 0, scaled(place.right - place.left), scaled(place.bottom - place.top)});
          const Look after = look();
          EXPECT_EQ(after.window.right, scaled(place.right - place.left));
          EXPECT_NEAR(after.sheet.right - after.sheet.left,
                      scaled(before.sheet.right - before.sheet.left), 1);
          EXPECT_NEAR(after.button.cy, scaled(before.button.cy), 4);
          EXPECT_NEAR(after.button.cx, scaled(before.button.cx), 12);
          EXPECT_NEAR(after.text.cx, scaled(before.text.cx), 30);
          EXPECT_NEAR(after.scrolled + after.view.cy / 2,
                      scaled(before.scrolled + before.view.cy / 2), 60)
              << "another part of the page is seen";
          ComeToMonitor(Window().Handle(), dots, place);
          const Look again = look();
          EXPECT_EQ(again.button.cx, before.button.cx);
          EXPECT_EQ(again.text.cx, before.text.cx);
          EXPECT_EQ(again.view.cy, before.view.cy);
          EXPECT_NEAR(again.sheet.top, before.sheet.top, 30);
          EXPECT_EQ(again.sheet.right, before.sheet.right);
        }});
}

TEST_F(PreviewLayout, ThePageTextFitsItsBox) {
  Show([] {}, {[this] {
         const HWND box = Window().PageTextBox();
         const auto font = reinterpret_cast<HFONT>(SendMessageW(box, WM_GETFONT, 0, 0));
         RECT inner{};
         GetClientRect(box, &inner);
         for (const wchar_t* text : {L"请稍候，正在读入打印数据...", L"第2000页   共2000页"}) {
           EXPECT_GT(inner.right, TextSize(font, text).cx + 4);
         }
         EXPECT_GE(inner.bottom, TextSize(font, L"第").cy);
       }});
}

TEST_F(PreviewLayout, SurvivesAVeryNarrowWindow) {
  Show([this] { MakeDocument(1); }, {[this] { Resize(20, 20); },
                                     [this] {
                                       EXPECT_GE(Window().InnerSize().cx, 0);
                                       Resize(900, 600);
                                     },
                                     [this] { EXPECT_GT(View().InnerSize().cx, 0); }});
}

Pixels ShownPixels(const PageView& view, const RECT& place) {
  const auto width = static_cast<int>(place.right - place.left);
  const auto height = static_cast<int>(place.bottom - place.top);
  const BITMAPINFO info = RowsFromTheTop(width, height);
  void* bits = nullptr;
  const HDC device = GetDC(view.Handle());
  const DeviceOwner memory(CreateCompatibleDC(device));
  const BitmapOwner bitmap(
      CreateDIBSection(memory.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const Selected selected(memory.get(), bitmap.get());
  BitBlt(memory.get(), 0, 0, width, height, device, static_cast<int>(place.left),
         static_cast<int>(place.top), SRCCOPY);
  ReleaseDC(view.Handle(), device);
  GdiFlush();
  const auto* first = static_cast<const std::uint32_t*>(bits);
  Pixels pixels{width, height, {first, first + width * height}};
  for (std::uint32_t& pixel : pixels.data) pixel |= 0xFF000000;
  return pixels;
}

TEST_F(PreviewLayout, ThePixelsAreThoseOfTheImageOutput) {
  Show([this] { MakeDocument(1); }, {[this] {
                                       surface_.PutZoom(50);
                                       Resize(900, 700);
                                     },
                                     [this] {
                                       const RECT sheet = *View().SheetRect();
                                       const Pixels shown = ShownPixels(View(), sheet);
                                       const double dpi = GetDpiForWindow(Window().Handle());
                                       auto& document = dynamic_cast<PageDocument&>(surface_);
                                       const Pixels image =
                                           RenderPage(document.Pages()[0], dpi / 2);
                                       ASSERT_EQ(shown.width, image.width);
                                       ASSERT_EQ(shown.height, image.height);
                                       EXPECT_EQ(shown.data, image.data);
                                     }});
}

class PageSetupLayout : public PageSetupOfTwoPrinters {
 protected:
  void ExpectNothingCutOff(int dotsPerInch) const;
};

// Nor do any two parts overlap.
void PageSetupLayout::ExpectNothingCutOff(int dotsPerInch) const {
  const HWND dialog = dialog_->Window();
  RECT whole{};
  GetClientRect(dialog, &whole);
  std::vector<HWND> parts;
  for (HWND part = GetWindow(dialog, GW_CHILD); part != nullptr;
       part = GetWindow(part, GW_HWNDNEXT)) {
    EXPECT_TRUE(Contains(whole, PlaceIn(dialog, part))) << WordsOf(part);
    const bool isGroup = (GetWindowLongW(part, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX &&
                         GetDlgCtrlID(part) == 0 && !WordsOf(part).empty() &&
                         WordsOf(part).find('(') == std::string::npos && WordsOf(part) != "mm";
    if (!isGroup) parts.push_back(part);
  }
  for (const HWND one : parts) {
    for (const HWND other : parts) {
      const RECT first = PlaceIn(dialog, one);
      const RECT second = PlaceIn(dialog, other);
      RECT common{};
      EXPECT_TRUE(one == other || !IntersectRect(&common, &first, &second))
          << WordsOf(one) << " and " << WordsOf(other);
    }
  }
  const auto font = reinterpret_cast<HFONT>(SendMessageW(parts[0], WM_GETFONT, 0, 0));
  for (const HWND part : parts) {
    const RECT place = PlaceIn(dialog, part);
    std::wstring words = TextOf(part);
    std::erase(words, L'&');
    EXPECT_GE(place.right - place.left, TextSize(font, words).cx) << WordsOf(part);
  }
  EXPECT_LT(whole.right, MulDiv(760, dotsPerInch, 96));
  EXPECT_LT(whole.bottom, MulDiv(560, dotsPerInch, 96));
}

TEST_F(PageSetupLayout, NothingIsCutOffOnAnyMonitor) {
  document_.PutMarginLeft(20000);  // so that the objection shows
  document_.PutPaperWidth(12000);
  Show({[this] {
    const HWND dialog = dialog_->Window();
    const int dots = static_cast<int>(GetDpiForWindow(dialog));
    TakePicture(dialog, "page-setup-" + std::to_string(dots));
    ExpectNothingCutOff(dots);
    const HWND arrows = FindWindowExW(dialog, nullptr, UPDOWN_CLASSW, nullptr);
    const RECT before = PlaceIn(dialog, arrows);
    ComeToMonitor(dialog, 2 * dots, {0, 0, 10, 10});
    ExpectNothingCutOff(2 * dots);
    const RECT after = PlaceIn(dialog, arrows);
    EXPECT_NEAR(after.right - after.left, 2 * (before.right - before.left), 1);
  }});
}

}  // namespace
}  // namespace td
