// The preview window on a real display.
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPicture>
#include <QScrollBar>
#include <QShortcut>
#include <QTimer>
#include <QWheelEvent>

#include "page_document/page_document.h"
#include "qt/render/fonts.h"
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

// Input that waits until the program asks for it, as a person's does while a run works.
void QueueMouse(QWidget& receiver, QEvent::Type type) {
  const QPoint place = receiver.rect().center();
  const auto buttons = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
  QCoreApplication::postEvent(&receiver, new QMouseEvent(type, place, receiver.mapToGlobal(place),
                                                         Qt::LeftButton, buttons, Qt::NoModifier));
}

void QueueClick(PreviewWindow& window, const std::string& key) {
  QWidget& button = *window.findChild<QToolBar*>()->widgetForAction(&ButtonOf(window, key));
  QueueMouse(button, QEvent::MouseButtonPress);
  QueueMouse(button, QEvent::MouseButtonRelease);
}

void QueueKey(QWidget& receiver, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QCoreApplication::postEvent(&receiver, new QKeyEvent(type, key, modifiers));
  }
}

class PreviewDuringARun : public Preview {
 protected:
  void PutBusy(bool isBusy) {
    for (const char* key : {"print", "zoom", "exit"}) frame_.EnableButton(key, !isBusy);
  }
  void ExpectPressed(std::vector<std::string> keys) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressed_.size() >= keys.size(); }));
    QApplication::processEvents();
    EXPECT_EQ(pressed_, keys);
  }
};

TEST_F(PreviewDuringARun, InputForDisabledButtonsPressesNothing) {
  Show([] {},
       [this](PreviewWindow& window) {
         PutBusy(true);
         for (const char* key : {"print", "zoom", "exit"}) QueueClick(window, key);
         QueueKey(ViewOf(window), Qt::Key_P, Qt::ControlModifier);
         QueueKey(ViewOf(window), Qt::Key_Plus, Qt::ControlModifier);
         for (QShortcut* shortcut : window.findChildren<QShortcut*>()) {
           if (shortcut->key() != QKeySequence(Qt::Key_Escape)) continue;
           QCoreApplication::postEvent(shortcut, new QShortcutEvent(shortcut->key(), 0));
         }
         PutBusy(false);
         QueueClick(window, "previouspage");  // behind whatever has been kept
         ExpectPressed({"previouspage"});
         EXPECT_TRUE(window.isVisible());
       });
}

TEST_F(PreviewDuringARun, InputForEnabledButtonsIsActedUponWhenTheRunHasEnded) {
  Show([] {},
       [this](PreviewWindow& window) {
         QWidget& adjuct =
             *window.findChild<QToolBar*>()->widgetForAction(&ButtonOf(window, "adjuct"));
         PutBusy(true);
         QueueClick(window, "pageset");
         QueueClick(window, "print");
         QueueClick(window, "nextpage");
         QueueKey(adjuct, Qt::Key_Space);
         QueueKey(ViewOf(window), Qt::Key_PageDown);
         PutBusy(false);
         EXPECT_TRUE(pressed_.empty()) << "the run is still at work";
         QueueClick(window, "previouspage");  // it comes later, and stays behind the others
         ExpectPressed({"pageset", "nextpage", "adjuct", "nextpage", "previouspage"});
       });
}

TEST_F(PreviewDuringARun, AClickWhoseSecondHalfComesAfterTheRunIsWhole) {
  Show([] {},
       [this](PreviewWindow& window) {
         QWidget* next =
             window.findChild<QToolBar*>()->widgetForAction(&ButtonOf(window, "nextpage"));
         PutBusy(true);
         QueueMouse(*next, QEvent::MouseButtonPress);
         PutBusy(false);
         QueueMouse(*next, QEvent::MouseButtonRelease);
         ExpectPressed({"nextpage"});
       });
}

TEST_F(PreviewDuringARun, ADialogKeepsTheRestOfTheInputFromTheWindow) {
  Show([] {},
       [this](PreviewWindow& window) {
         frame_.Connect({.Load = nullptr, .Activate = nullptr, .ButtonPressed = [&](auto key) {
                           pressed_.emplace_back(key);
                           QMessageBox box(&window);
                           QTimer::singleShot(100, &box, &QDialog::reject);
                           box.exec();
                         }});
         PutBusy(true);
         QueueClick(window, "adjuct");
         QueueClick(window, "nextpage");
         PutBusy(false);
         ExpectPressed({"adjuct"});
       });
}

TEST_F(Preview, TheCloseBoxDuringARunClosesTheWindow) {
  bool wasVisible = true;
  frame_.Connect({.Load = nullptr,
                  .Activate =
                      [&] {
                        PreviewWindow& window = ShownWindow();
                        frame_.EnableButton("print", false);
                        QCoreApplication::postEvent(&window, new QCloseEvent);
                        frame_.EnableButton("print", true);
                        wasVisible = window.isVisible();
                      },
                  .ButtonPressed = nullptr});
  frame_.ShowModal();
  EXPECT_FALSE(wasVisible);
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

TEST_F(Preview, ItsPageTextIsWrittenByTheRunAlone) {
  Show([this] { frame_.PutPageText("第1页   共3页"); },
       [](PreviewWindow& window) {
         auto* box = window.findChild<QLineEdit*>("txtPageNo");
         EXPECT_EQ(box->font().families(), FontTable::Instance().Families("宋体"));
         QTest::mouseClick(box, Qt::LeftButton);
         QTest::keyClicks(box, "99");
         QTest::keyClick(box, Qt::Key_Delete);
         EXPECT_EQ(box->text(), "第1页   共3页");
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
         view.verticalScrollBar()->setValue(0);
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

TEST_F(Preview, ScrollsWithTheWheel) {
  Show([this] { MakeDocument(1); },
       [](PreviewWindow& window) {
         constexpr int kNotchDown = -120;
         window.resize(700, 400);
         PageView& view = ViewOf(window);
         ASSERT_TRUE(QTest::qWaitFor([&] { return view.verticalScrollBar()->maximum() > 0; }));
         const double top = view.SheetRect().top();
         const QPointF place = view.viewport()->rect().center();
         QWheelEvent event(place, view.viewport()->mapToGlobal(place), {}, {0, kNotchDown},
                           Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
         QApplication::sendEvent(view.viewport(), &event);
         EXPECT_LT(view.SheetRect().top(), top);
       });
}

TEST_F(Preview, TheTabKeyGoesFromThePageOverTheButtonsToThePageText) {
  Show([] {},
       [](PreviewWindow& window) {
         QStringList visited;
         const QWidget* const start = &ViewOf(window);
         ASSERT_EQ(window.focusWidget(), start);
         do {
           visited.append(window.focusWidget()->accessibleName());
           QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
         } while (window.focusWidget() != start && visited.size() < 20);
         EXPECT_EQ(visited.join(" ").toStdString(),
                   "打印页面 上页 下页 缩放 页面 微调 打印 关闭 页码");
       });
}

TEST_F(Preview, ShowsAnEmptyDeskWithoutAPage) {
  Show([] {},
       [this](PreviewWindow& window) {
         PageView& view = ViewOf(window);
         EXPECT_TRUE(view.SheetRect().isEmpty());
         MakeDocument(1);
         EXPECT_FALSE(view.SheetRect().isEmpty());
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

// The commands with which a view draws itself.
QByteArray DrawingOf(PageView& view) {
  QPicture picture;
  view.viewport()->render(&picture);
  return {picture.data(), static_cast<qsizetype>(picture.size())};
}

TEST_F(Preview, ShowsWhatTheDocumentHoldsWhenTheNextRunStopsHalfway) {
  Show([this] { MakeDocument(3); },
       [this](PreviewWindow& window) {
         PageView& view = ViewOf(window);
         const auto shown = [&] {
           QApplication::processEvents();
           const QRect place = view.geometry();
           return window.screen()
               ->grabWindow(window.winId(), place.x(), place.y(), place.width(), place.height())
               .toImage();
         };
         frame_.Surface().PutPreviewPage(2);
         const QImage former = shown();
         QImage begun;
         frame_.Connect({.Load = nullptr, .Activate = nullptr, .ButtonPressed = [&](auto) {
                           PrintSurface& surface = frame_.Surface();
                           surface.PutPaperSize(9);
                           surface.StartDoc();
                           begun = shown();  // as a message box of the run shows it
                           surface.DrawLine(500, 900, 7000, 900);
                           throw Failure(kInvalidCall, "不行");
                         }});
         testing::internal::CaptureStderr();
         Click(window, "adjuct");
         (void)testing::internal::GetCapturedStderr();
         const QImage stopped = shown();
         EXPECT_NE(stopped, former);
         EXPECT_NE(stopped, begun) << "the line was drawn after that";
         EXPECT_GT(view.SheetRect().height(), 29 / 2.54 * window.logicalDpiY()) << "A4, not A5";
         frame_.Surface().PutPenWidth(14);
         frame_.Surface().ClearDoc();
         EXPECT_NE(shown(), stopped) << "the page that had begun was shown";
       });
}

TEST_F(Preview, ARunThatBeginsLeavesNothingOfTheFormerPicture) {
  Show([this] { MakeDocument(1); },
       [this](PreviewWindow& window) {
         const auto shown = [&] { return window.screen()->grabWindow(window.winId()).toImage(); };
         const QImage former = shown();
         frame_.Surface().StartDoc();
         QApplication::processEvents();  // as a message box of the run does
         EXPECT_FALSE(ViewOf(window).SheetRect().isEmpty());
         EXPECT_NE(shown(), former);
       });
}

TEST_F(Preview, DrawsOnlyTheShownPageHoweverLongTheDocumentIs) {
  constexpr int kPages = 2000;
  Show([this] { MakeDocument(1); },
       [this](PreviewWindow& window) {
         PrintSurface& surface = frame_.Surface();
         PageView& view = ViewOf(window);
         surface.PutZoom(200);
         view.verticalScrollBar()->setValue(0);
         const QByteArray only = DrawingOf(view);
         EXPECT_FALSE(only.contains("PNG")) << "no pixels of the page are kept";
         MakeDocument(kPages);
         EXPECT_EQ(DrawingOf(view), only);
         for (const int page : {2, 1000, kPages}) {
           surface.PutPreviewPage(static_cast<std::int16_t>(page));
           const QByteArray other = DrawingOf(view);
           EXPECT_NE(other, only) << page;
           EXPECT_LT(other.size(), 2 * only.size()) << page;
         }
         surface.PutPreviewPage(1);
         EXPECT_EQ(DrawingOf(view), only) << "after the other pages";
       });
}

}  // namespace
}  // namespace td
