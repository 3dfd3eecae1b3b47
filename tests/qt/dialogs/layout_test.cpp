// How the dialogs look: nothing is cut off, and what belongs together stands in line.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>
#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include "qt/dialogs/dialog_layouts.h"

namespace td {
namespace {

class DialogLook : public testing::TestWithParam<const char*> {
 protected:
  DialogLook() {
    const DialogContents& contents = *FindDialogContents(GetParam());
    window_ = std::make_unique<DialogWindow>(
        contents.title,
        DialogWindowEvents{[this](std::string_view control) { clicked_ = control; }, [] {}},
        nullptr);
    LayOutDialog(*window_, contents);
    for (QLineEdit* box : window_->findChildren<QLineEdit*>()) box->setText("-12345.678");
  }

  void Show() {
    window_->show();
    QApplication::processEvents();
  }
  [[nodiscard]] QRect Place(const QWidget* widget) const {
    return {widget->mapTo(window_.get(), QPoint(0, 0)), widget->size()};
  }
  // All that a person sees in the dialog.
  [[nodiscard]] std::vector<QWidget*> Parts() const {
    std::vector<QWidget*> parts;
    const auto add = [&](const auto& widgets) {
      parts.insert(parts.end(), widgets.begin(), widgets.end());
    };
    add(window_->findChildren<QLabel*>());
    add(window_->findChildren<QLineEdit*>());
    add(window_->findChildren<QComboBox*>());
    add(window_->findChildren<QAbstractButton*>());
    return parts;
  }

  std::string clicked_;
  std::unique_ptr<DialogWindow> window_;
};

TEST_P(DialogLook, NothingIsCutOffAtItsSmallestSize) {
  window_->resize(1, 1);
  Show();
  for (const QWidget* part : Parts()) {
    const std::string name =
        part->accessibleName().toStdString() + part->objectName().toStdString();
    EXPECT_TRUE(window_->rect().contains(Place(part))) << name;
    const QSize needed = qobject_cast<const QLineEdit*>(part) != nullptr ? part->minimumSizeHint()
                                                                         : part->sizeHint();
    EXPECT_GE(part->width(), needed.width()) << name;
    EXPECT_GE(part->height(), needed.height()) << name;
  }
}

TEST_P(DialogLook, NoTwoPartsOverlap) {
  Show();
  const std::vector<QWidget*> parts = Parts();
  for (const QWidget* one : parts) {
    for (const QWidget* other : parts) {
      if (one == other) continue;
      EXPECT_FALSE(Place(one).intersects(Place(other)))
          << one->objectName().toStdString() << " and " << other->objectName().toStdString();
    }
  }
}

TEST_P(DialogLook, ANumberOfUsualLengthFitsItsBox) {
  Show();
  for (const QLineEdit* box : window_->findChildren<QLineEdit*>()) {
    EXPECT_GT(box->width(), box->fontMetrics().horizontalAdvance("-12345.678")) << box->width();
  }
}

TEST_P(DialogLook, LabelsEndAndFieldsBeginOnCommonLines) {
  Show();
  std::set<int> ends;
  std::set<int> beginnings;
  for (const QLabel* label : window_->findChildren<QLabel*>()) {
    if (label->buddy() == nullptr) continue;
    ends.insert(Place(label).right());
    beginnings.insert(Place(label->buddy()).left());
    EXPECT_NEAR(Place(label).center().y(), Place(label->buddy()).center().y(), 1)
        << label->text().toStdString();
  }
  EXPECT_EQ(ends.size(), 1U);
  EXPECT_EQ(beginnings.size(), 1U);
}

TEST_P(DialogLook, FitsASmallScreen) {
  Show();
  EXPECT_LT(window_->width(), 760);
  EXPECT_LT(window_->height(), 500);
}

TEST_P(DialogLook, EveryFieldHasANameForScreenReaders) {
  for (const QWidget* field : window_->findChildren<QComboBox*>()) {
    EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
  }
  for (const QWidget* field : window_->findChildren<QLineEdit*>()) {
    EXPECT_FALSE(field->accessibleName().isEmpty()) << field->objectName().toStdString();
  }
}

TEST_P(DialogLook, EveryButtonHasAKeyOfItsOwn) {
  constexpr int kUntilTheButtonComesUp = 1000;  // milliseconds
  Show();
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  for (const QPushButton* button : window_->findChildren<QPushButton*>()) {
    const QString caption = button->text();
    const QChar key = caption[caption.indexOf('&') + 1];
    clicked_.clear();
    QTest::keyClick(window_.get(), key.toLatin1(), Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked_ == button->objectName().toStdString(); },
                                kUntilTheButtonComesUp))
        << caption.toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogLook, testing::Values("frmAdjuct", "frmAreaPrintSet"),
                         [](const auto& dialog) { return std::string(dialog.param); });

TEST(SettingsLook, ALengthIsNotedInMillimetres) {
  const DialogContents& contents = *FindDialogContents("frmAdjuct");
  DialogWindow window(contents.title, {[](std::string_view) {}, [] {}}, nullptr);
  LayOutDialog(window, contents);
  const auto shows = [&](const char* note) {
    const QList<QLabel*> labels = window.findChildren<QLabel*>();
    return std::count_if(labels.begin(), labels.end(),
                         [&](const QLabel* label) { return label->text() == note; });
  };
  window.Named<QLineEdit>("txtLeft").setText("567");
  EXPECT_EQ(shows("≈ 10.0 毫米"), 1);
  window.Named<QLineEdit>("txtLeft").setText("-567缇");
  EXPECT_EQ(shows("≈ -10.0 毫米"), 1);
  window.Named<QLineEdit>("txtRowsPerPage").setText("567");
  EXPECT_EQ(shows("≈ 10.0 毫米"), 0) << "rows are no length";
  window.Named<QLineEdit>("txtLeft").setText("1e300");
  EXPECT_EQ(shows("≈ -10.0 毫米"), 0);
}

}  // namespace
}  // namespace td
