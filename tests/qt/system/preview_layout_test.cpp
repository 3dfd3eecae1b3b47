// How the preview and its page setup look at the size at which they open, on screens of different
// resolutions.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "qt/preview/page_setup_dialog.h"
#include "shown_preview.h"

namespace td {
namespace {

using PreviewLayout = ShownPreview;

TEST_F(PreviewLayout, NoButtonIsHiddenAtTheOpeningSize) {
  Show([] {},
       [](PreviewWindow& window) {
         const auto* toolbar = window.findChild<QToolBar*>();
         for (QAction* action : toolbar->actions()) {
           const QWidget* part = toolbar->widgetForAction(action);
           EXPECT_TRUE(part->isVisible()) << action->text().toStdString();
           EXPECT_TRUE(toolbar->rect().contains(part->geometry())) << action->text().toStdString();
         }
       });
}

TEST_F(PreviewLayout, ThePageTextFitsItsBoxWithoutWastingRoom) {
  Show([] {},
       [](PreviewWindow& window) {
         const auto* box = window.findChild<QLineEdit*>();
         for (const char* text : {"请稍候，正在读入打印数据...", "第2000页   共2000页"}) {
           const int needed = box->fontMetrics().horizontalAdvance(QString::fromUtf8(text));
           EXPECT_GT(box->width(), needed + 6) << text;
         }
         EXPECT_LT(box->width(), 260);
       });
}

class PageSetupLayout : public testing::Test {
 protected:
  PageSetupLayout() {
    document_.PutMarginLeft(20000);  // so that the objection shows
    dialog_.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&dialog_));
    dialog_.resize(1, 1);
    QApplication::processEvents();
  }

  // All that a person sees in the dialog.
  std::vector<QWidget*> Parts() {
    std::vector<QWidget*> parts;
    const auto add = [&](const auto& widgets) {
      parts.insert(parts.end(), widgets.begin(), widgets.end());
    };
    add(dialog_.findChildren<QLabel*>());
    add(dialog_.findChildren<QComboBox*>());
    add(dialog_.findChildren<QDoubleSpinBox*>());
    add(dialog_.findChildren<QAbstractButton*>());
    return parts;
  }
  QRect Place(const QWidget* part) { return {part->mapTo(&dialog_, QPoint(0, 0)), part->size()}; }

  FrameSettings settings_;
  MessageBoxes messages_{MessageMode::kStandardError};
  DesktopHost host_{settings_, messages_};
  PageDocument document_{host_};
  PageSetupDialog dialog_{document_, "", {}, nullptr};
};

TEST_F(PageSetupLayout, NothingIsCutOffAtItsSmallestSize) {
  for (const QWidget* part : Parts()) {
    const std::string name = part->metaObject()->className() + std::string(" ") +
                             part->property("text").toString().toStdString();
    EXPECT_TRUE(dialog_.rect().contains(Place(part))) << name;
    const bool wraps = part->property("wordWrap").toBool();
    const int height = wraps ? part->heightForWidth(part->width()) : part->sizeHint().height();
    const int width = wraps ? 1 : part->sizeHint().width();
    EXPECT_GE(part->height(), height) << name;
    EXPECT_GE(part->width(), width) << name;
  }
}

TEST_F(PageSetupLayout, NoTwoPartsOverlap) {
  const std::vector<QWidget*> parts = Parts();
  for (const QWidget* one : parts) {
    for (const QWidget* other : parts) {
      EXPECT_TRUE(one == other || !Place(one).intersects(Place(other)))
          << one->property("text").toString().toStdString() << " and "
          << other->property("text").toString().toStdString();
    }
  }
}

TEST_F(PageSetupLayout, FitsASmallScreen) {
  EXPECT_LT(dialog_.width(), 760);
  EXPECT_LT(dialog_.height(), 560);
}

}  // namespace
}  // namespace td
