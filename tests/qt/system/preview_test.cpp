// The preview window on a real display.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>

#include "page_document/page_document.h"
#include "shown_preview.h"
#include "test_tools.h"

namespace td {
namespace {

using Preview = ShownPreview;

TEST_F(Preview, LoadsIsActivatedAndReturnsWhenItIsClosed) {
  Show([this] { EXPECT_EQ(loads_, 1); },
       [](PreviewWindow& window) {
         EXPECT_EQ(window.windowTitle(), "打印预览");
         EXPECT_TRUE(window.isModal());
       });
  EXPECT_EQ(loads_, 1);
  EXPECT_GE(activations_, 1);
  EXPECT_EQ(messages_.Shown(), 0);
}

TEST_F(Preview, HasItsSevenButtonsInTheirOrder) {
  Show([] {},
       [](PreviewWindow& window) {
         QStringList captions;
         for (const QAction* action : window.findChild<QToolBar*>()->actions()) {
           captions.append(action->isSeparator() ? "|" : action->text());
           EXPECT_EQ(action->icon().isNull(), action->isSeparator())
               << captions.last().toStdString();
         }
         EXPECT_EQ(captions.join(" ").toStdString(), "上页 下页 | 缩放 | 页面 微调 | 打印 | 关闭");
         EXPECT_EQ(window.findChild<QLineEdit*>()->text(), "第    页 共    页");
       });
}

TEST_F(Preview, ReportsPressedButtonsByTheirKeysUnlessDisabled) {
  Show(
      [this] {
        frame_.EnableButton("print", false);
        frame_.EnableButton("unknown", false);
      },
      [this](PreviewWindow& window) {
        for (const char* key : {"previouspage", "nextpage", "zoom", "pageset", "adjuct", "print"}) {
          Click(window, key);
        }
        frame_.EnableButton("print", true);
        Click(window, "print");
      });
  EXPECT_EQ(pressed_, (std::vector<std::string>{"previouspage", "nextpage", "zoom", "pageset",
                                                "adjuct", "print"}));
}

TEST_F(Preview, TurnsPagesAndPrintsByKeysAsTheButtonsDo) {
  Show([] {},
       [this](PreviewWindow& window) {
         window.activateWindow();
         ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
         QTest::keyClick(&window, Qt::Key_PageDown);
         QTest::keyClick(&window, Qt::Key_PageUp);
         QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier);
         frame_.EnableButton("print", false);
         QTest::keyClick(&window, Qt::Key_P, Qt::ControlModifier);
       });
  EXPECT_EQ(pressed_, (std::vector<std::string>{"nextpage", "previouspage", "print"}));
}

TEST_F(Preview, ClosesOnEscape) {
  bool wasVisible = true;
  Show([] {},
       [&](PreviewWindow& window) {
         window.activateWindow();
         ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
         QTest::keyClick(&window, Qt::Key_Escape);
         wasVisible = window.isVisible();
         window.show();  // for the fixture, which closes it again
       });
  EXPECT_FALSE(wasVisible);
}

TEST_F(Preview, ShowsTheTextOfARunAtOnce) {
  Show([this] { frame_.PutPageText("请稍候，正在读入打印数据..."); },
       [this](PreviewWindow& window) {
         EXPECT_EQ(window.findChild<QLineEdit*>()->text(), "请稍候，正在读入打印数据...");
         frame_.PutPageText("第1页   共3页");
         EXPECT_EQ(window.findChild<QLineEdit*>()->text(), "第1页   共3页");
       });
}

TEST_F(Preview, WaitsWithTheWaitingPointer) {
  Show([this] { frame_.Surface().PutMousePointer(11); },
       [this](PreviewWindow& window) {
         EXPECT_EQ(ViewOf(window).viewport()->cursor().shape(), Qt::WaitCursor);
         frame_.Surface().PutMousePointer(1);
         EXPECT_EQ(ViewOf(window).viewport()->cursor().shape(), Qt::ArrowCursor);
       });
}

TEST_F(Preview, LetsAFailureOfTheFirstActivationThrough) {
  const int number = NumberOf(
      [this] { Show([] { throw Failure(kDatabaseFailed, "没有表"); }, [](PreviewWindow&) {}); });
  EXPECT_EQ(number, kDatabaseFailed);
  EXPECT_EQ(messages_.Shown(), 0);
}

TEST_F(Preview, EndsWhenTheRunUnloadsIt) {
  frame_.Connect({.Load = nullptr,
                  .Activate =
                      [this] {
                        frame_.Unload();
                        frame_.Unload();
                      },
                  .ButtonPressed = nullptr});
  frame_.ShowModal();
  EXPECT_THROW(ShownWindow(), std::runtime_error);
}

TEST_F(Preview, ShowsAFailureOfAButtonAndStays) {
  frame_.Connect({.Load = nullptr, .Activate = nullptr, .ButtonPressed = [](std::string_view) {
                    throw Failure(kInvalidCall, "不行");
                  }});
  testing::internal::CaptureStderr();
  // Without the real boxes a message is a line, which does not wait for anybody.
  bool stayed = false;
  QTimer::singleShot(600, qApp, [&] {
    Click(ShownWindow(), "nextpage");
    stayed = ShownWindow().isVisible();
    ShownWindow().close();
  });
  frame_.ShowModal();
  EXPECT_TRUE(stayed);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("不行"), std::string::npos);
  EXPECT_EQ(messages_.Shown(), 1);
}

TEST_F(Preview, CanBeShownAgain) {
  Show([] {}, [](PreviewWindow&) {});
  activations_ = 0;
  Show([] {}, [](PreviewWindow&) {});
  EXPECT_EQ(loads_, 2);
}

TEST_F(Preview, PlacesItsPartsInTwips) {
  Show([] {},
       [](PreviewWindow& window) {
         const auto pixels = [&window](double twips) {
           return qRound(twips * window.logicalDpiX() / 1440.0);
         };
         for (const QSize size : {QSize(1000, 700), QSize(640, 400)}) {
           window.resize(size);
           QTest::qWait(50);
           const auto* text = window.findChild<QLineEdit*>();
           const QWidget* strip = text->parentWidget();
           EXPECT_EQ(strip->geometry().left(), 0);
           EXPECT_NEAR(strip->width(), size.width() - pixels(100), 1);
           EXPECT_NEAR(text->geometry().left(), size.width() - text->width() - pixels(300), 1);
           EXPECT_NEAR(window.findChild<QToolBar*>()->width(),
                       size.width() - text->width() - pixels(1000), 1);
           EXPECT_EQ(ViewOf(window).geometry(),
                     QRect(pixels(30), strip->height(), size.width() - pixels(60),
                           size.height() - strip->height()));
         }
       });
}

TEST_F(Preview, SurvivesAVeryNarrowWindow) {
  Show([this] { MakeDocument(1); },
       [](PreviewWindow& window) {
         window.resize(20, 20);
         QTest::qWait(50);
         EXPECT_LE(window.findChild<QToolBar*>()->width(), 1);
         EXPECT_LE(window.width(), 20);
       });
}

TEST_F(Preview, ScrollsAPageThatIsLargerThanTheWindow) {
  Show([this] { MakeDocument(2); },
       [this](PreviewWindow& window) {
         window.resize(700, 400);
         frame_.Surface().PutZoom(200);
         QTest::qWait(50);
         PageView& view = ViewOf(window);
         ASSERT_GT(view.verticalScrollBar()->maximum(), 0);
         const double top = view.SheetRect().top();
         QTest::keyClick(&view, Qt::Key_End);
         EXPECT_LT(view.SheetRect().top(), top);
         EXPECT_LT(view.SheetRect().bottom(), view.viewport()->height());
         QTest::keyClick(&view, Qt::Key_Home);
         EXPECT_EQ(view.SheetRect().top(), top);
         QTest::keyClick(&view, Qt::Key_Down);
         EXPECT_LT(view.SheetRect().top(), top);
         frame_.Surface().PutPreviewPage(2);
         EXPECT_EQ(view.SheetRect().top(), top) << "another page is shown from its top";
       });
}

TEST_F(Preview, ShowsAnEmptyDeskWithoutAFinishedDocument) {
  Show([] {},
       [this](PreviewWindow& window) {
         PageView& view = ViewOf(window);
         EXPECT_TRUE(view.SheetRect().isEmpty());
         MakeDocument(1);
         EXPECT_FALSE(view.SheetRect().isEmpty());
         frame_.Surface().StartDoc();
         EXPECT_TRUE(view.SheetRect().isEmpty());
         frame_.Surface().EndDoc();
         frame_.Surface().PutPreviewPage(5);
         EXPECT_TRUE(view.SheetRect().isEmpty());
         frame_.Surface().ClearDoc();
         EXPECT_TRUE(view.SheetRect().isEmpty());
         view.viewport()->repaint();
       });
}

TEST_F(Preview, GivesEachPartANameForScreenReaders) {
  Show([] {},
       [](PreviewWindow& window) {
         EXPECT_FALSE(ViewOf(window).accessibleName().isEmpty());
         EXPECT_FALSE(window.findChild<QLineEdit*>()->accessibleName().isEmpty());
         const auto* toolbar = window.findChild<QToolBar*>();
         for (QAction* action : toolbar->actions()) {
           if (action->isSeparator()) continue;
           EXPECT_EQ(toolbar->widgetForAction(action)->accessibleName(), action->text());
           EXPECT_TRUE(toolbar->widgetForAction(action)->focusPolicy() & Qt::TabFocus);
         }
       });
}

TEST_F(Preview, TurnsThePagesOfALongDocumentWithoutAWait) {
  constexpr int kPages = 2000;
  static constexpr qint64 kFrames = 100;  // milliseconds, for a debug build under a sanitizer, too
  Show([this] { MakeDocument(kPages); },
       [this](PreviewWindow& window) {
         QElapsedTimer timer;
         qint64 longest = 0;
         for (const int page : {2, 1000, 1999, 2000, 1}) {
           timer.start();
           frame_.Surface().PutPreviewPage(static_cast<std::int16_t>(page));
           ViewOf(window).viewport()->repaint();
           longest = std::max(longest, timer.elapsed());
         }
         EXPECT_LT(longest, kFrames);
       });
}

}  // namespace
}  // namespace td
