// Where the parts of the preview and of the page setup lie, on screens of different resolutions,
// and that the page's pixels are those of the image output.
#include <cmath>

#include "page_document/drawing.h"
#include "page_setup_of_two_printers.h"
#include "shown_preview.h"
#include "windows/controls/text_fitting.h"
#include "windows/render/image_output.h"
#include "windows/render/screen_device.h"

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

class PageSetupLayout : public PageSetupOfTwoPrinters {};

TEST_F(PageSetupLayout, NothingIsCutOffAndNoTwoPartsOverlap) {
  document_.PutMarginLeft(20000);  // so that the objection shows
  document_.PutPaperWidth(12000);
  Show({[this] {
    const HWND dialog = dialog_->Window();
    TakePicture(dialog, "page-setup-" + std::to_string(GetDpiForWindow(dialog)));
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
    const int dpi = static_cast<int>(GetDpiForWindow(dialog));
    EXPECT_LT(whole.right, MulDiv(760, dpi, 96));
    EXPECT_LT(whole.bottom, MulDiv(560, dpi, 96));
  }});
}

}  // namespace
}  // namespace td
