// The variables, and the columns of the data.
#include "designer/panels/variables_panel.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

#include "panel_use.h"

namespace td::designer {
namespace {

class VariablesPanelTest : public PanelUse {
 protected:
  QTreeView& Table() { return Named<QTreeView>("Variables"); }
  [[nodiscard]] QModelIndex Cell(int row, int column) {
    return Table().model()->index(row, column);
  }
  [[nodiscard]] const std::vector<Variable>& Variables() { return Document().Current().variables; }
  // Answers the next question with one of its buttons.
  void Answer(QMessageBox::ButtonRole role) {
    question_.clear();
    auto* waiting = new QTimer(panel_.get());
    QObject::connect(waiting, &QTimer::timeout, panel_.get(), [this, role, waiting] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      waiting->deleteLater();
      question_ = box->text();
      for (QAbstractButton* button : box->buttons()) {
        if (box->buttonRole(button) == role) return button->click();
      }
    });
    waiting->start();
  }
  void Edit(const QModelIndex& cell, const QString& text) {
    panel_->activateWindow();  // a question had the keyboard
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel_.get()));
    Table().setCurrentIndex(cell);
    Table().setFocus();
    QTest::keyClick(&Table(), Qt::Key_F2);
    TypeInto(text);
  }
  // The editor that has the focus takes what is typed, and closes.
  void TypeInto(const QString& text) {
    QWidget* editor = QApplication::focusWidget();
    ASSERT_TRUE(Table().viewport()->isAncestorOf(editor));
    const QPointer<QWidget> open(editor);
    Type(*editor, text);
    EXPECT_TRUE(QTest::qWaitFor([&] { return open.isNull(); }));
    QApplication::processEvents();  // a new caption is taken when the cell is closed
  }
  QString question_;
};

TEST_F(VariablesPanelTest, ShowsTheVariablesAndTheirUse) {
  Open<VariablesPanel>();
  ASSERT_EQ(Table().model()->rowCount(), 2);
  EXPECT_EQ(Cell(1, VariablesTable::kCaption).data().toString(), "金额");
  EXPECT_EQ(Cell(1, VariablesTable::kName).data().toString(), "FAmount");
  EXPECT_EQ(Cell(1, VariablesTable::kUses).data().toInt(), 1);
  Document().Remove({value_});
  EXPECT_EQ(Cell(1, VariablesTable::kUses).data().toInt(), 0);
}

TEST_F(VariablesPanelTest, AddsOneAndAsksForItsCaption) {
  Open<VariablesPanel>();
  Named<QPushButton>("AddVariable").click();
  ASSERT_EQ(Variables().size(), 3U);
  EXPECT_EQ(Variables()[2].Caption(), "New variable");
  TypeInto("abc");
  EXPECT_EQ(Variables()[2].Caption(), "abc");
  Edit(Cell(2, VariablesTable::kName), "FNote");
  EXPECT_EQ(Variables()[2].Name(), "FNote");
}

TEST_F(VariablesPanelTest, RenamingAsksWhereItemsUseItAndTakesThemAlong) {
  Open<VariablesPanel>();
  Answer(QMessageBox::RejectRole);
  Edit(Cell(1, VariablesTable::kCaption), "sum");
  EXPECT_EQ(Variables()[1].Caption(), "金额");
  EXPECT_TRUE(question_.contains("1 items of this format show “金额”")) << question_.toStdString();
  Answer(QMessageBox::AcceptRole);
  Edit(Cell(1, VariablesTable::kCaption), "sum");
  EXPECT_EQ(Variables()[1].Caption(), "sum");
  EXPECT_EQ(Text(value_, "FObjectFieldName"), "sum");
  EXPECT_EQ(Steps(), 1);
}

TEST_F(VariablesPanelTest, ACaptionIsThereAndThereOnce) {
  Open<VariablesPanel>();
  EXPECT_FALSE(Table().model()->setData(Cell(0, 0), "金额"));
  EXPECT_TRUE(Named<QLabel>("Refusal").isVisible());
  EXPECT_FALSE(Table().model()->setData(Cell(0, 0), ""));
  EXPECT_EQ(Variables()[0].Caption(), "客户");
  EXPECT_TRUE(Table().model()->setData(Cell(0, 0), "顾客"));
  QApplication::processEvents();
  EXPECT_EQ(Variables()[0].Caption(), "顾客");
  EXPECT_FALSE(Named<QLabel>("Refusal").isVisible());
}

TEST_F(VariablesPanelTest, RemovingAsks) {
  Open<VariablesPanel>();
  EXPECT_FALSE(Named("RemoveVariable").isEnabled());
  Table().setCurrentIndex(Cell(1, 0));
  Answer(QMessageBox::RejectRole);
  Named<QPushButton>("RemoveVariable").click();
  EXPECT_EQ(Variables().size(), 2U);
  Answer(QMessageBox::AcceptRole);
  Named<QPushButton>("RemoveVariable").click();
  ASSERT_EQ(Variables().size(), 1U);
  EXPECT_EQ(Variables()[0].Caption(), "客户");
  Document().Undo();
  EXPECT_EQ(Variables().size(), 2U);
}

TEST_F(VariablesPanelTest, ColumnsOfTheDataBecomeVariables) {
  GiveData();
  Open<VariablesPanel>();
  auto& columns = Named<DataColumns>("DataColumns");
  ASSERT_EQ(columns.count(), 4);
  EXPECT_EQ(columns.item(0)->text(), "FCustName = 和平商店");
  EXPECT_EQ(columns.ChoiceAt(0).caption, "客户");  // it is a variable already
  EXPECT_EQ(columns.ChoiceAt(2).caption, "FDate");
  EXPECT_EQ(columns.ChoiceAt(2).column, "FDate");
  auto& add = Named<QPushButton>("AddColumns");
  columns.item(0)->setSelected(true);
  EXPECT_FALSE(add.isEnabled());
  columns.selectAll();
  add.click();
  ASSERT_EQ(Variables().size(), 4U);
  EXPECT_EQ(Variables()[2].Name(), "FDate");
  EXPECT_EQ(Variables()[3].Name(), "FPrice");
  EXPECT_EQ(Steps(), 1);
  EXPECT_FALSE(add.isEnabled());
}

TEST_F(VariablesPanelTest, AColumnOnTheSheetBringsItsVariable) {
  GiveData();
  workspace_.place = [this](const DroppedChoice& choice) {
    AddChoice(Document(), choice, ItemSite::kRow, UsualPlace(choice.choice, {}));
  };
  Open<VariablesPanel>();
  auto& columns = Named<DataColumns>("DataColumns");
  columns.setFocus();
  columns.setCurrentRow(2);
  QTest::keyClick(&columns, Qt::Key_Return);
  ASSERT_EQ(Variables().size(), 3U);
  EXPECT_EQ(Document().Current().items.Size(), 5U);
  const auto data =
      std::unique_ptr<QMimeData>(columns.model()->mimeData({columns.model()->index(3, 0)}));
  ASSERT_TRUE(ChoiceIn(*data));
  EXPECT_EQ(ChoiceIn(*data)->column, "FPrice");
}

}  // namespace
}  // namespace td::designer
