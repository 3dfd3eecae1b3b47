// Moving through a document in the preview: keys, the wheel, drags, zoom, page numbers.
#include "shown_preview.h"

namespace td {
namespace {

class PreviewMoving : public ShownPreview {
 protected:
  void ShowPages(int pages, std::vector<Step> steps) {
    steps.insert(steps.begin(), [this] {
      frame_.Connect({.Load = nullptr,
                      .Activate = nullptr,
                      .ButtonPressed = [this](std::string_view key) { Act(key); }});
      Resize(900, 500);
      ASSERT_GT(Last(SB_VERT), 0);
    });
    Show([this, pages] { MakeDocument(pages); }, std::move(steps));
  }

  [[nodiscard]] int Last(int bar) const {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(View().Handle(), bar, &info);
    return std::max(0, info.nMax - static_cast<int>(info.nPage) + 1);
  }

  void ScrollTo(int bar, int place) {
    SendMessageW(View().Handle(), bar == SB_VERT ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(place == 0 ? SB_TOP : SB_BOTTOM, 0), 0);
  }

  void TurnWheel(int notches, bool withControl = false) {
    PostMessageW(View().Handle(), WM_MOUSEWHEEL,
                 MAKEWPARAM(withControl ? MK_CONTROL : 0, notches * WHEEL_DELTA), 0);
  }

  // A step that checks the page, the scale and how far down the view is: 0 the top, 1 the bottom.
  Step ExpectZoom(double zoom) {
    return [this, zoom] { EXPECT_EQ(surface_.Zoom(), zoom); };
  }
  Step ExpectPage(int page) {
    return [this, page] { EXPECT_EQ(surface_.PreviewPage(), page); };
  }

  static Step Key(WPARAM key, bool withControl = false, bool withShift = false) {
    return [=] { PostKey(key, withControl, withShift); };
  }
};

TEST_F(PreviewMoving, PageDownAndSpaceScrollAndTurnThePageAtItsEnd) {
  ShowPages(3, {Key(VK_NEXT),
                [this] {
                  EXPECT_GT(Scrolled(SB_VERT), 0);
                  EXPECT_EQ(surface_.PreviewPage(), 1);
                  ScrollTo(SB_VERT, 1);
                  PostKey(VK_NEXT);
                },
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 2);
                  EXPECT_EQ(Scrolled(SB_VERT), 0) << "from its top";
                  PostKey(VK_SPACE);
                },
                [this] {
                  EXPECT_GT(Scrolled(SB_VERT), 0);
                  ScrollTo(SB_VERT, 1);
                  PostKey(VK_SPACE);
                },
                ExpectPage(3)});
  EXPECT_EQ(pressed_, (std::vector<std::string>{"nextpage", "nextpage"}));
}

TEST_F(PreviewMoving, PageUpAndShiftSpaceDoSoBackwards) {
  ShowPages(3, {[this] {
                  surface_.PutPreviewPage(3);
                  PostKey(VK_PRIOR);
                },
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 2);
                  EXPECT_EQ(Scrolled(SB_VERT), Last(SB_VERT)) << "from its end";
                  PostKey(VK_SPACE, false, true);
                },
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 2);
                  EXPECT_LT(Scrolled(SB_VERT), Last(SB_VERT));
                  ScrollTo(SB_VERT, 0);
                  PostKey(VK_SPACE, false, true);
                },
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 1);
                  ScrollTo(SB_VERT, 0);
                  PostKey(VK_PRIOR);
                },
                [this] { EXPECT_EQ(Scrolled(SB_VERT), 0) << "there is no page before"; }});
}

TEST_F(PreviewMoving, ControlHomeAndEndShowTheFirstAndTheLastPage) {
  ShowPages(4, {Key(VK_END, true),
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 4);
                  EXPECT_EQ(Scrolled(SB_VERT), Last(SB_VERT));
                  EXPECT_EQ(PageWords(), "第4页   共4页");
                },
                Key(VK_HOME, true),
                [this] {
                  EXPECT_EQ(surface_.PreviewPage(), 1);
                  EXPECT_EQ(Scrolled(SB_VERT), 0);
                  EXPECT_EQ(PageWords(), "第1页   共4页");
                }});
}

TEST_F(PreviewMoving, ArrowsHomeAndEndScrollThePage) {
  ShowPages(2, {[this] {
                  surface_.PutZoom(200);
                  Resize(400, 300);
                  ScrollTo(SB_VERT, 0);
                  ScrollTo(SB_HORZ, 0);
                },
                Key(VK_DOWN), Key(VK_RIGHT),
                [this] {
                  EXPECT_GT(Scrolled(SB_VERT), 0);
                  EXPECT_GT(Scrolled(SB_HORZ), 0);
                },
                Key(VK_UP), Key(VK_LEFT),
                [this] {
                  EXPECT_EQ(Scrolled(SB_VERT), 0);
                  EXPECT_EQ(Scrolled(SB_HORZ), 0);
                },
                Key(VK_END), [this] { EXPECT_EQ(Scrolled(SB_VERT), Last(SB_VERT)); }, Key(VK_HOME),
                [this] { EXPECT_EQ(Scrolled(SB_VERT), 0); }, ExpectPage(1)});
}

TEST_F(PreviewMoving, TheKeysWorkInThePageTextAndOnAButton) {
  ShowPages(2, {[this] { SetFocus(Window().PageTextBox()); }, Key(VK_DOWN),
                [this] {
                  EXPECT_GT(Scrolled(SB_VERT), 0);
                  SetFocus(Button("zoom"));
                },
                Key(VK_END), [this] { EXPECT_EQ(Scrolled(SB_VERT), Last(SB_VERT)); },
                Key(VK_END, true), ExpectPage(2)});
}

TEST_F(PreviewMoving, TheWheelScrolls) {
  ShowPages(1, {[this] { TurnWheel(-1); }, [this] { EXPECT_GT(Scrolled(SB_VERT), 0); },
                [this] { TurnWheel(1); }, [this] { EXPECT_EQ(Scrolled(SB_VERT), 0); }});
}

TEST_F(PreviewMoving, ADragScrollsAsFarAsThePointerGoes) {
  POINT before{};
  const auto send = [this](UINT message, int x, int y) {
    SendMessageW(View().Handle(), message, MK_LBUTTON, MAKELPARAM(x, y));
  };
  const auto corner = [this] {
    const RECT sheet = *View().SheetRect();
    return POINT{sheet.left, sheet.top};
  };
  ShowPages(1, {[this] { Resize(400, 400); },
                [&] {
                  before = corner();
                  send(WM_LBUTTONDOWN, 200, 300);
                  send(WM_MOUSEMOVE, 170, 180);
                  EXPECT_EQ(corner().x, before.x - 30);
                  EXPECT_EQ(corner().y, before.y - 120);
                  send(WM_MOUSEMOVE, 190, 280);
                  EXPECT_EQ(corner().x, before.x - 10);
                  EXPECT_EQ(corner().y, before.y - 20);
                  send(WM_LBUTTONUP, 190, 280);
                  send(WM_MOUSEMOVE, 200, 300);
                  EXPECT_EQ(corner().y, before.y - 20) << "it was let go";
                }});
}

TEST_F(PreviewMoving, ControlAndTheWheelZoomBetweenTheTwoScales) {
  ShowPages(1, {[this] { TurnWheel(1, true); }, ExpectZoom(100), [this] { TurnWheel(-1, true); },
                ExpectZoom(50), [this] { TurnWheel(-1, true); }, ExpectZoom(50),
                [this] { TurnWheel(1, true); }, ExpectZoom(100),
                [this] {
                  frame_.EnableButton("zoom", false);
                  TurnWheel(-1, true);
                },
                ExpectZoom(100)});
}

TEST_F(PreviewMoving, ControlPlusAndMinusZoomBetweenTheTwoScales) {
  ShowPages(
      1, {Key(VK_OEM_MINUS, true), ExpectZoom(50), Key(VK_OEM_MINUS, true), ExpectZoom(50),
          Key(VK_OEM_PLUS, true), ExpectZoom(100), Key(VK_SUBTRACT, true), ExpectZoom(50),
          Key(VK_ADD, true), ExpectZoom(100), [this] { surface_.PutZoom(75); }, Key(VK_ADD, true),
          ExpectZoom(100), [this] { surface_.PutZoom(75); }, Key(VK_SUBTRACT, true), ExpectZoom(50),
          [this] { frame_.EnableButton("zoom", false); }, Key(VK_ADD, true), ExpectZoom(50)});
}

TEST_F(PreviewMoving, ANewZoomKeepsTheMiddleOfTheViewInPlace) {
  // The point of the sheet, in parts of it, that lies in the middle of the view.
  const auto middle = [this] {
    const RECT sheet = *View().SheetRect();
    const SIZE inner = View().InnerSize();
    return (inner.cy / 2.0 - sheet.top) / (sheet.bottom - sheet.top);
  };
  ShowPages(1, {[this] { Resize(300, 260); },
                [&] {
                  for (int i = 0; i < 5; ++i) {
                    SendMessageW(View().Handle(), WM_VSCROLL, SB_LINEDOWN, 0);
                  }
                  const double before = middle();
                  for (const double zoom : {50.0, 100.0, 200.0, 100.0}) {
                    surface_.PutZoom(zoom);
                    EXPECT_NEAR(middle(), before, 0.01) << zoom;
                  }
                }});
}

// Answers the question for a page with keys, which the dialog gets as any other.
TEST_F(PreviewMoving, ControlGAsksForAPage) {
  HWND box = nullptr;
  const auto write = [&](const wchar_t* number) {
    box = GetFocus();
    EXPECT_FALSE(HasInputMethod(box)) << "digits come as they are typed";
    EXPECT_NE(GetAncestor(box, GA_ROOT), Window().Handle());
    EXPECT_EQ(WordsOf(GetAncestor(box, GA_ROOT)), "转到某一页");
    EXPECT_FALSE(IsWindowEnabled(Window().Handle()));
    SetWindowTextW(box, number);
  };
  ShowPages(12, {Key('G', true), [&] { write(L"11"); }, Key(VK_RETURN),
                 [this] {
                   EXPECT_EQ(surface_.PreviewPage(), 11);
                   EXPECT_EQ(PageWords(), "第11页   共12页");
                 },
                 Key('G', true), [&] { write(L"3"); }, Key(VK_ESCAPE), ExpectPage(11),
                 Key('G', true), [&] { write(L"40"); }, Key(VK_RETURN), ExpectPage(12),
                 [this] { surface_.ClearDoc(); }, Key('G', true),
                 [this] {
                   EXPECT_EQ(GetAncestor(GetFocus(), GA_ROOT), Window().Handle())
                       << "there is no page to ask for";
                 }});
}

}  // namespace
}  // namespace td
