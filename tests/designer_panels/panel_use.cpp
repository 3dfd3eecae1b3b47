#include "panel_use.h"

#include <QAbstractItemView>

namespace td::designer {

PanelUse::PanelUse() {
  Format format = NewFormat(21, "送货单");
  format.variables.push_back(NewVariable("客户", "FCustName"));
  format.variables.push_back(NewVariable("金额", "FAmount"));
  Document().Reset(std::move(format));
  label_ =
      Add(ItemKind::kText, ItemSite::kHead, {TwipsOf(80), TwipsOf(10), 3000, 500}, {}, "送货单");
  value_ =
      Add(ItemKind::kText, ItemSite::kRow, {TwipsOf(20), TwipsOf(50), 1700, 340}, "金额", "金额");
  line_ = Add(ItemKind::kLine, ItemSite::kRow, {TwipsOf(10), TwipsOf(56), 9000, 0});
  picture_ = Add(ItemKind::kPicture, ItemSite::kFoot, {TwipsOf(10), TwipsOf(60), 1000, 1000});
  Format made = Document().Current();
  Document().Reset(std::move(made));
}

ItemId PanelUse::Add(ItemKind kind, ItemSite site, const Box& place, const std::string& field,
                     const std::string& caption) {
  Item item = NewItem(Document().Current(), kind, site, place);
  item.row.Set("FObjectFieldName", field);
  item.row.Set("FObjectCaption", caption);
  item.row.PutFlag("FIsVariant", !field.empty());
  return Document().Add(std::span(&item, 1)).front();
}

void PanelUse::GiveData() {
  auto names = std::make_shared<const ColumnNames>(
      std::vector<std::string>{"FCustName", "FAmount", "FDate", "FPrice"});
  auto rows = std::make_shared<MemoryRows>(names);
  rows->AddText("和平商店");
  rows->AddReal(1234.5);
  rows->AddDate({45413});
  rows->AddReal(0.036528);
  workspace_.data = rows;
}

void PanelUse::Show() {
  panel_->resize(320, 900);
  panel_->show();
  panel_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(panel_.get()));
}

void PanelUse::Type(QWidget& field, const QString& text, bool finish) {
  field.setFocus();
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&field, text);
  if (finish) QTest::keyClick(&field, Qt::Key_Return);
}

void PanelUse::Choose(QComboBox& list, int index) {
  list.setFocus();
  list.showPopup();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(list.view()->window()));
  list.view()->setCurrentIndex(list.model()->index(index, 0));
  QTest::keyClick(list.view(), Qt::Key_Return);
}

int PanelUse::Steps() {
  int steps = 0;
  while (Document().CanUndo()) {
    Document().Undo();
    ++steps;
  }
  for (int i = 0; i < steps; ++i) Document().Redo();
  return steps;
}

}  // namespace td::designer
