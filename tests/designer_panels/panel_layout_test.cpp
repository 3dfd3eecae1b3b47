// How the panels look: nothing is cut off at their smallest size, and every text is in the language
// of the desktop.
#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <set>

#include "designer/panels/findings_panel.h"
#include "designer/panels/format_panel.h"
#include "designer/panels/item_panel.h"
#include "designer/panels/items_panel.h"
#include "designer/panels/palette_panel.h"
#include "designer/panels/variables_panel.h"
#include "designer/view/words.h"
#include "panel_use.h"

namespace td::designer {
namespace {

class PanelLayout : public PanelUse {
 protected:
  void SetUp() override {
    GiveData();
    workspace_.printers = {"前台"};
  }
  template <typename Panel>
  void Look() {
    Open<Panel>();
    panel_->resize(panel_->minimumSizeHint().width(), 1400);
    QApplication::processEvents();
    keys_.clear();
    for (QWidget* part : panel_->findChildren<QWidget*>()) {
      if (part->isVisible() && part->parentWidget() != nullptr) Check(*part);
    }
  }

 private:
  void Check(const QWidget& part) {
    const QRect place(part.mapTo(panel_.get(), QPoint(0, 0)), part.size());
    const bool isText = qobject_cast<const QLabel*>(&part) != nullptr ||
                        qobject_cast<const QAbstractButton*>(&part) != nullptr;
    const QString text = TextOf(part);
    if (text.isEmpty()) return;
    ExpectLanguage(text);
    ExpectKeyOfItsOwn(text);
    EXPECT_GE(place.left(), 0) << text.toStdString();
    EXPECT_LE(place.right(), panel_->width()) << text.toStdString();
    if (!isText) return;
    const auto* label = qobject_cast<const QLabel*>(&part);
    if (label != nullptr && label->wordWrap()) {
      EXPECT_GE(part.height(), part.heightForWidth(part.width())) << text.toStdString();
    } else if (part.objectName() != QLatin1String("FontSample")) {
      EXPECT_GE(part.width(), part.minimumSizeHint().width()) << text.toStdString();
    }
  }
  static QString TextOf(const QWidget& part) {
    if (const auto* label = qobject_cast<const QLabel*>(&part)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&part)) return button->text();
    if (const auto* group = qobject_cast<const QGroupBox*>(&part)) return group->title();
    return {};
  }
  void ExpectKeyOfItsOwn(const QString& text) {
    static const QRegularExpression key(QStringLiteral("&(\\w)"));
    const auto found = key.match(text);
    if (!found.hasMatch()) return;
    EXPECT_TRUE(keys_.insert(found.captured(1).toLower()).second) << text.toStdString();
  }
  static void ExpectLanguage(const QString& text) {
    static const QRegularExpression words(QStringLiteral("[A-Za-z]{3,}"));
    static const QRegularExpression chinese(QStringLiteral("\\p{Han}"));
    if (!SpeaksChinese() || !words.match(text).hasMatch()) return;
    EXPECT_TRUE(chinese.match(text).hasMatch()) << text.toStdString();
  }

  std::set<QString> keys_;  // that lead to a part with Alt
};

TEST_F(PanelLayout, Items) {
  Look<ItemsPanel>();
}
TEST_F(PanelLayout, Palette) {
  Look<PalettePanel>();
}
TEST_F(PanelLayout, Variables) {
  Look<VariablesPanel>();
}
TEST_F(PanelLayout, FindingsOfTheChecker) {
  const std::string words = SpeaksChinese() ? "说明" : "words";
  workspace_.check = [&](const Format&) {
    return std::vector<FormatFinding>{
        {FindingSeverity::kError, label_, words, words, words, false}};
  };
  Look<FindingsPanel>();
}
TEST_F(PanelLayout, Format) {
  Look<FormatPanel>();
}
TEST_F(PanelLayout, ItemOfEachKind) {
  for (const ItemIds& ids : std::vector<ItemIds>{
           {label_}, {value_}, {line_}, {picture_}, {label_, value_, line_, picture_}}) {
    workspace_.selection.Select(ids);
    Look<ItemPanel>();
  }
}

TEST_F(PanelLayout, TabGoesThroughTheFieldsFromTopToBottom) {
  Open<ItemPanel>();
  workspace_.selection.Select({label_});
  QApplication::processEvents();
  auto* field = panel_->findChild<QWidget*>(QStringLiteral("FObjectFieldName"));
  ASSERT_NE(field, nullptr);
  field->setFocus();
  int last = -1;
  for (int i = 0; i < 12; ++i) {
    QWidget* focused = QApplication::focusWidget();
    ASSERT_NE(focused, nullptr);
    const int top = focused->mapTo(panel_->findChild<QWidget*>("PanelContent"), QPoint()).y();
    EXPECT_GE(top, last) << focused->objectName().toStdString();
    last = top - focused->height() / 2;  // beside each other is in order, too
    QTest::keyClick(focused, Qt::Key_Tab);
  }
}

}  // namespace
}  // namespace td::designer
