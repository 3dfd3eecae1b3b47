// Moving through a document in the preview: keys, the wheel, drags, zoom, page numbers.
#include <QInputDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <QSpinBox>
#include <QTimer>
#include <QWheelEvent>

#include "shown_preview.h"
#include "text/page_text.h"

namespace td {
namespace {

// The buttons do what the component's own routines do with them.
class PreviewMoving : public ShownPreview {
 protected:
  void ShowPages(int pages, std::function<void(PreviewWindow&, PageView&)> use) {
    Show([this, pages] { MakeDocument(pages); },
         [this, use = std::move(use)](PreviewWindow& window) {
           frame_.Connect({.Load = nullptr,
                           .Activate = nullptr,
                           .ButtonPressed = [this](std::string_view key) { Act(key); }});
           window.resize(900, 500);
           window.activateWindow();
           ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
           QApplication::processEvents();
           ASSERT_GT(ViewOf(window).verticalScrollBar()->maximum(), 0);
           use(window, ViewOf(window));
         });
  }

  void Act(std::string_view key) {
    pressed_.emplace_back(key);
    const std::int16_t page = surface_.PreviewPage();
    if (key == "zoom") surface_.PutZoom(surface_.Zoom() == 50 ? 100 : 50);
    if (key == "nextpage" && page < surface_.PageCount()) surface_.PutPreviewPage(page + 1);
    if (key == "previouspage" && page > 1) surface_.PutPreviewPage(page - 1);
    frame_.PutPageText(PageText(surface_.PreviewPage(), surface_.PageCount()));
  }

  // The point of the sheet, in parts of it, that lies in the middle of the view.
  static QPointF MiddleOf(const PageView& view) {
    const QRectF sheet = view.SheetRect();
    const QPointF middle = QRectF(view.viewport()->rect()).center() - sheet.topLeft();
    return {middle.x() / sheet.width(), middle.y() / sheet.height()};
  }

  static void TurnWheel(PageView& view, int notches, Qt::KeyboardModifiers modifiers = {}) {
    constexpr int kNotch = 120;
    const QPointF place = view.viewport()->rect().center();
    QWheelEvent event(place, view.viewport()->mapToGlobal(place), {}, {0, kNotch * notches},
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
  }

  static std::string TextIn(PreviewWindow& window) {
    return window.findChild<QLineEdit*>("txtPageNo")->text().toStdString();
  }

  PrintSurface& surface_ = frame_.Surface();
};

TEST_F(PreviewMoving, PageDownAndSpaceScrollAndTurnThePageAtItsEnd) {
  ShowPages(3, [this](PreviewWindow& window, PageView& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    for (const Qt::Key key : {Qt::Key_PageDown, Qt::Key_Space}) {
      const int page = surface_.PreviewPage();
      int presses = 0;
      for (; bar.value() < bar.maximum(); ++presses) {
        const int before = bar.value();
        QTest::keyClick(window.windowHandle(), key);
        EXPECT_EQ(surface_.PreviewPage(), page);
        ASSERT_GT(bar.value(), before);
      }
      EXPECT_GT(presses, 0);
      QTest::keyClick(window.windowHandle(), key);
      EXPECT_EQ(surface_.PreviewPage(), page + 1);
      EXPECT_EQ(bar.value(), 0) << "from its top";
    }
    EXPECT_EQ(pressed_, (std::vector<std::string>{"nextpage", "nextpage"}));
  });
}

TEST_F(PreviewMoving, PageUpAndShiftSpaceDoSoBackwards) {
  ShowPages(3, [this](PreviewWindow& window, PageView& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    surface_.PutPreviewPage(3);
    QTest::keyClick(window.windowHandle(), Qt::Key_PageUp);
    EXPECT_EQ(surface_.PreviewPage(), 2);
    EXPECT_EQ(bar.value(), bar.maximum()) << "from its end";
    QTest::keyClick(window.windowHandle(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(surface_.PreviewPage(), 2);
    EXPECT_LT(bar.value(), bar.maximum());
    while (bar.value() > 0) QTest::keyClick(window.windowHandle(), Qt::Key_PageUp);
    QTest::keyClick(window.windowHandle(), Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(surface_.PreviewPage(), 1);
    bar.setValue(0);
    QTest::keyClick(window.windowHandle(), Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), 0) << "there is no page before";
  });
}

TEST_F(PreviewMoving, ControlHomeAndEndShowTheFirstAndTheLastPage) {
  ShowPages(4, [this](PreviewWindow& window, PageView& view) {
    QTest::keyClick(window.windowHandle(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(surface_.PreviewPage(), 4);
    EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
    EXPECT_EQ(TextIn(window), "第4页   共4页");
    QTest::keyClick(window.windowHandle(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(surface_.PreviewPage(), 1);
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
    EXPECT_EQ(TextIn(window), "第1页   共4页");
  });
}

TEST_F(PreviewMoving, TheKeysWorkAfterAClickIntoThePageText) {
  ShowPages(2, [this](PreviewWindow& window, PageView& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    auto* text = window.findChild<QLineEdit*>("txtPageNo");
    QTest::mouseClick(text, Qt::LeftButton);
    ASSERT_TRUE(text->hasFocus());
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Space, Qt::Key_End}) {
      const int before = bar.value();
      QTest::keyClick(window.windowHandle(), key);
      EXPECT_GT(bar.value(), before) << key;
      bar.setValue(1);
    }
    QTest::keyClick(window.windowHandle(), Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
    QTest::keyClick(window.windowHandle(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(surface_.PreviewPage(), 2);
    QTest::keyClick(window.windowHandle(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(pressed_, std::vector<std::string>{"print"});
    EXPECT_EQ(text->selectedText(), "");
  });
}

TEST_F(PreviewMoving, TheKeysWorkWhileAButtonHasTheFocus) {
  ShowPages(2, [](PreviewWindow& window, PageView& view) {
    window.findChild<QToolBar*>()->widgetForAction(&ButtonOf(window, "zoom"))->setFocus();
    QTest::keyClick(window.windowHandle(), Qt::Key_PageDown);
    EXPECT_GT(view.verticalScrollBar()->value(), 0);
  });
}

TEST_F(PreviewMoving, ADragScrollsAsFarAsThePointerGoes) {
  ShowPages(1, [](PreviewWindow& window, PageView& view) {
    window.resize(400, 400);
    QApplication::processEvents();
    QWidget& desk = *view.viewport();
    const QPoint start(200, 300);
    const QPointF before = view.SheetRect().topLeft();
    QTest::mousePress(&desk, Qt::LeftButton, {}, start);
    EXPECT_EQ(desk.cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(&desk, start - QPoint(30, 120));
    EXPECT_EQ(view.SheetRect().topLeft(), before - QPointF(30, 120));
    QTest::mouseMove(&desk, start - QPoint(10, 20));
    EXPECT_EQ(view.SheetRect().topLeft(), before - QPointF(10, 20));
    QTest::mouseRelease(&desk, Qt::LeftButton, {}, start - QPoint(10, 20));
    EXPECT_EQ(desk.cursor().shape(), Qt::ArrowCursor);
    QTest::mouseMove(&desk, start);
    EXPECT_EQ(view.SheetRect().topLeft(), before - QPointF(10, 20)) << "it was let go";
  });
}

TEST_F(PreviewMoving, ControlAndTheWheelZoomBetweenTheTwoScales) {
  ShowPages(1, [this](PreviewWindow&, PageView& view) {
    const int scrolled = view.verticalScrollBar()->value();
    TurnWheel(view, 1, Qt::ControlModifier);
    EXPECT_EQ(surface_.Zoom(), 100) << "there is nothing larger";
    TurnWheel(view, -1, Qt::ControlModifier);
    EXPECT_EQ(surface_.Zoom(), 50);
    TurnWheel(view, -1, Qt::ControlModifier);
    EXPECT_EQ(surface_.Zoom(), 50);
    TurnWheel(view, 1, Qt::ControlModifier);
    EXPECT_EQ(surface_.Zoom(), 100);
    EXPECT_GE(view.verticalScrollBar()->value(), scrolled);
    frame_.EnableButton("zoom", false);
    TurnWheel(view, -1, Qt::ControlModifier);
    EXPECT_EQ(surface_.Zoom(), 100) << "a run is at work";
  });
}

TEST_F(PreviewMoving, ControlPlusAndMinusZoomBetweenTheTwoScales) {
  ShowPages(1, [this](PreviewWindow& window, PageView&) {
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers more = {}) {
      QTest::keyClick(window.windowHandle(), key, Qt::ControlModifier | more);
      return surface_.Zoom();
    };
    EXPECT_EQ(press(Qt::Key_Minus), 50);
    EXPECT_EQ(press(Qt::Key_Minus), 50);
    EXPECT_EQ(press(Qt::Key_Plus), 100);
    EXPECT_EQ(press(Qt::Key_Plus), 100);
    EXPECT_EQ(press(Qt::Key_Minus, Qt::KeypadModifier), 50);
    EXPECT_EQ(press(Qt::Key_Plus, Qt::KeypadModifier), 100);
    EXPECT_EQ(press(Qt::Key_Minus), 50);
    EXPECT_EQ(press(Qt::Key_Equal), 100) << "the same key without Shift";
    surface_.PutZoom(75);
    EXPECT_EQ(press(Qt::Key_Plus), 100);
    surface_.PutZoom(75);
    EXPECT_EQ(press(Qt::Key_Minus), 50);
    frame_.EnableButton("zoom", false);
    EXPECT_EQ(press(Qt::Key_Plus), 50) << "a run is at work";
  });
}

TEST_F(PreviewMoving, ANewZoomKeepsTheMiddleOfTheViewInPlace) {
  ShowPages(1, [this](PreviewWindow& window, PageView& view) {
    constexpr double kTolerance = 0.005;
    window.resize(300, 260);  // so that even the small page is larger than the view
    QApplication::processEvents();
    view.horizontalScrollBar()->setValue(view.horizontalScrollBar()->maximum() / 2);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 3);
    const QPointF middle = MiddleOf(view);
    for (const double zoom : {50.0, 100.0, 200.0, 100.0}) {
      surface_.PutZoom(zoom);
      EXPECT_NEAR(MiddleOf(view).x(), middle.x(), kTolerance) << zoom;
      EXPECT_NEAR(MiddleOf(view).y(), middle.y(), kTolerance) << zoom;
    }
  });
}

TEST_F(PreviewMoving, ButtonsHaveShortcutsThatTheirTooltipsName) {
  ShowPages(1, [this](PreviewWindow& window, PageView&) {
    struct Expected {
      const char* key;
      const char* shortcut;
    };
    for (const auto& [key, shortcut] :
         {Expected{"zoom", "Ctrl+0"}, Expected{"pageset", "Ctrl+Shift+P"},
          Expected{"adjuct", "Ctrl+T"}, Expected{"print", "Ctrl+P"}}) {
      const QAction& action = ButtonOf(window, key);
      EXPECT_EQ(action.shortcut().toString().toStdString(), shortcut);
      EXPECT_TRUE(action.toolTip().contains(shortcut)) << key;
      const QKeyCombination keys = action.shortcut()[0];
      QTest::keyClick(window.windowHandle(), keys.key(), keys.keyboardModifiers());
      EXPECT_EQ(pressed_.back(), key);
    }
    for (const auto& [key, named] : {Expected{"previouspage", "Page Up"},
                                     Expected{"nextpage", "Page Down"}, Expected{"exit", "Esc"}}) {
      EXPECT_TRUE(ButtonOf(window, key).toolTip().contains(named)) << key;
    }
    EXPECT_TRUE(window.findChild<QLineEdit*>("txtPageNo")->toolTip().contains("Ctrl+G"));
  });
}

// Answers the question for a page, which comes while `ask` works.
void AnswerPage(std::function<void()> ask, std::function<void(QInputDialog&)> answer) {
  constexpr int kUntilItIsShown = 200;  // milliseconds
  bool wasAsked = false;
  QTimer::singleShot(kUntilItIsShown, qApp, [&] {
    auto* dialog = dynamic_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    wasAsked = true;
    answer(*dialog);
  });
  ask();
  EXPECT_TRUE(wasAsked);
}

TEST_F(PreviewMoving, APageIsReachedByItsNumber) {
  ShowPages(12, [this](PreviewWindow& window, PageView&) {
    const auto ask = [&] {
      window.activateWindow();
      ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
      QTest::keyClick(window.windowHandle(), Qt::Key_G, Qt::ControlModifier);
    };
    AnswerPage(ask, [](QInputDialog& dialog) {
      EXPECT_EQ(dialog.labelText(), "页码（1 到 12）：");
      auto* number = dialog.findChild<QSpinBox*>();
      QTest::keySequence(number, QKeySequence::SelectAll);
      QTest::keyClicks(number, "11");
      QTest::keyClick(number, Qt::Key_Return);
    });
    EXPECT_EQ(surface_.PreviewPage(), 11);
    EXPECT_EQ(TextIn(window), "第11页   共12页");
    AnswerPage(ask, [](QInputDialog& dialog) {
      EXPECT_EQ(dialog.intValue(), 11);
      dialog.setIntValue(3);
      dialog.reject();
    });
    EXPECT_EQ(surface_.PreviewPage(), 11);
    surface_.ClearDoc();
    ask();
    EXPECT_EQ(QApplication::activeModalWidget(), &window) << "there is no page to ask for";
  });
}

}  // namespace
}  // namespace td
