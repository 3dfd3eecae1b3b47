#include "designer/panels/variables_panel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QMessageBox>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "designer/panels/edited_rows.h"
#include "designer/panels/field_group.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"
#include "qt/fields/wheel_guard.h"

namespace td::designer {
namespace {

// Offers the columns of the data and the computed fields.
class NameDelegate : public QStyledItemDelegate {
 public:
  NameDelegate(Workspace& workspace, QObject* parent)
      : QStyledItemDelegate(parent), workspace_(workspace) {}

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                        const QModelIndex&) const override {
    auto* names = new QComboBox(parent);
    names->setEditable(true);
    names->setInsertPolicy(QComboBox::NoInsert);
    if (workspace_.data != nullptr) {
      for (std::size_t i = 0; i < workspace_.data->Columns().Size(); ++i) {
        names->addItem(QString::fromStdString(workspace_.data->Columns().Name(i)));
      }
    }
    for (const ItemChoice& choice : ItemChoices()) {
      if (choice.kind != ChoiceKind::kComputed) continue;
      const std::string name(choice.name);
      names->addItem(QString::fromStdString(name));
      names->setItemData(names->count() - 1, NameOfChoice(choice), Qt::ToolTipRole);
    }
    return names;
  }
  void setEditorData(QWidget* editor, const QModelIndex& index) const override {
    static_cast<QComboBox*>(editor)->setEditText(index.data(Qt::EditRole).toString());
  }
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override {
    model->setData(index, static_cast<QComboBox*>(editor)->currentText(), Qt::EditRole);
  }

 private:
  Workspace& workspace_;
};

}  // namespace

VariablesPanel::VariablesPanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace) {
  sharing_ = MakeNote(this);
  sharing_->setObjectName(QStringLiteral("Sharing"));
  auto* parts = new QSplitter(Qt::Vertical, this);
  parts->setChildrenCollapsible(false);
  parts->addWidget(MakeTable());
  parts->addWidget(MakeColumns());
  auto* column = new QVBoxLayout(this);
  column->addWidget(sharing_);
  column->addWidget(parts, 1);
  listener_ = workspace.document.AddListener([this](const DocumentChange& change) {
    if (change.variables || change.format) Refresh();
  });
  Refresh();
  GuardFieldsAgainstWheel(*this);
}

VariablesPanel::~VariablesPanel() {
  workspace_.document.RemoveListener(listener_);
}

QPushButton* VariablesPanel::MakeButton(const char* name, const QString& text,
                                        void (VariablesPanel::*clicked)()) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(QString::fromUtf8(name));
  connect(button, &QPushButton::clicked, this, clicked);
  return button;
}

QWidget* VariablesPanel::MakeTable() {
  table_ = new VariablesTable(workspace_, this);
  table_->changed = [this](std::size_t variable, VariablesTable::Column column,
                           const QString& text) { return Change(variable, column, text); };
  view_ = new QTreeView;
  view_->setObjectName(QStringLiteral("Variables"));
  view_->setAccessibleName(Say("Variables of the bill type"));
  view_->setModel(table_);
  view_->setItemDelegateForColumn(VariablesTable::kName, new NameDelegate(workspace_, view_));
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setDragEnabled(true);
  view_->setDragDropMode(QAbstractItemView::DragOnly);
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  QHeaderView& header = *view_->header();
  header.setStretchLastSection(false);
  header.setSectionResizeMode(QHeaderView::Stretch);
  header.setSectionResizeMode(VariablesTable::kUses, QHeaderView::ResizeToContents);
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { remove_->setEnabled(CurrentVariable().has_value()); });
  refusal_ = MakeNote(this);
  refusal_->setObjectName(QStringLiteral("Refusal"));
  refusal_->setForegroundRole(QPalette::WindowText);
  refusal_->hide();
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(MakeButton("AddVariable", Say("A&dd"), &VariablesPanel::AddNew));
  remove_ = MakeButton("RemoveVariable", Say("Re&move"), &VariablesPanel::RemoveCurrent);
  buttons->addWidget(remove_);
  buttons->addStretch();
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  column->addWidget(view_, 1);
  column->addWidget(refusal_);
  column->addLayout(buttons);
  return part;
}

QWidget* VariablesPanel::MakeColumns() {
  auto* part = new QWidget;
  auto* column = new QVBoxLayout(part);
  column->setContentsMargins({});
  if (workspace_.data == nullptr) {
    QLabel* note = MakeNote(part);
    note->setText(
        Say("Opened with --data, the designer shows the columns of the print data here."));
    column->addWidget(note);
    column->addStretch();
    return part;
  }
  columns_ = new DataColumns(workspace_);
  connect(columns_, &QListWidget::activated, this, [this](const QModelIndex& index) {
    if (workspace_.place) workspace_.place(columns_->ChoiceAt(index.row()));
  });
  connect(columns_, &QListWidget::itemSelectionChanged, this,
          [this] { addColumns_->setEnabled(!columns_->SelectedNewOnes().empty()); });
  addColumns_ = MakeButton("AddColumns", Say("Add as variables"), &VariablesPanel::AddColumns);
  auto* title = new QLabel(Say("Columns of the print data, first row:"));
  title->setBuddy(columns_);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(addColumns_);
  buttons->addStretch();
  column->addWidget(title);
  column->addWidget(columns_, 1);
  column->addLayout(buttons);
  return part;
}

void VariablesPanel::Refresh() {
  sharing_->setText(Say("All formats of bill type %1 share these variables.")
                        .arg(workspace_.document.Current().BillType()));
  remove_->setEnabled(CurrentVariable().has_value());
  if (columns_ == nullptr) return;
  columns_->Refresh();
  addColumns_->setEnabled(!columns_->SelectedNewOnes().empty());
}

std::optional<std::size_t> VariablesPanel::CurrentVariable() const {
  const QModelIndexList rows = view_->selectionModel()->selectedRows();
  if (rows.isEmpty()) return std::nullopt;
  return static_cast<std::size_t>(rows.front().row());
}

bool VariablesPanel::Ask(const QString& question, const QString& doIt) {
  QMessageBox box(QMessageBox::Question, Say("Variables"), question, QMessageBox::Cancel, this);
  box.button(QMessageBox::Cancel)->setText(Say("Cancel"));
  QPushButton* yes = box.addButton(doIt, QMessageBox::AcceptRole);
  box.setDefaultButton(yes);
  box.exec();
  return box.clickedButton() == yes;
}

void VariablesPanel::AddNew() {
  const Format& format = workspace_.document.Current();
  const std::string caption = FreeCaption(format, Say("New variable").toStdString());
  workspace_.document.Do(AddVariable(format, NewVariable(caption, {})));
  const QModelIndex added = table_->index(table_->rowCount() - 1, VariablesTable::kCaption);
  view_->setCurrentIndex(added);
  view_->edit(added);
}

void VariablesPanel::RemoveCurrent() {
  const auto current = CurrentVariable();
  if (!current) return;
  const Format& format = workspace_.document.Current();
  const std::string caption = format.variables[*current].Caption();
  const int uses = UsesOf(format, caption);
  const QString name = QString::fromStdString(caption);
  const QString question =
      uses == 0 ? Say("Remove “%1” from bill type %2? Its other formats lose it, too.")
                      .arg(name)
                      .arg(format.BillType())
                : Say("%1 items of this format show “%2”; without the variable they print as fixed "
                      "text. The other formats of bill type %3 lose it, too. Remove it?")
                      .arg(uses)
                      .arg(name)
                      .arg(format.BillType());
  if (!Ask(question, Say("Remove"))) return;
  workspace_.document.Do(RemoveVariableAt(workspace_.document.Current(), *current));
}

void VariablesPanel::AddColumns() {
  Format format = workspace_.document.Current();
  Command command{.kind = CommandKind::kChangeVariables, .edits = {}, .items = {}};
  for (const std::string& column : columns_->SelectedNewOnes()) {
    const Command added = AddVariable(format, NewVariable(FreeCaption(format, column), column));
    Do(format, added);
    command = Together(std::move(command), added);
  }
  workspace_.document.Do(std::move(command));
}

void VariablesPanel::Rename(const std::string& from, const QString& to) {
  const Format& format = workspace_.document.Current();
  const auto found = std::ranges::find(format.variables, from, &Variable::Caption);
  if (found == format.variables.end()) return;
  const auto variable = static_cast<std::size_t>(found - format.variables.begin());
  const int uses = UsesOf(format, from);
  const QString question = Say("%1 items of this format show “%2” and will show “%3”. Items of the "
                               "bill type's other formats keep the old name and lose their "
                               "variable. Rename it?")
                               .arg(uses)
                               .arg(QString::fromStdString(from), to);
  if (uses > 0 && !Ask(question, Say("Rename"))) return;
  workspace_.document.Do(
      SetOnVariable(workspace_.document.Current(), variable, "FVarCaption", to.toStdString()));
}

// A caption is the key by which items know a variable: it is there, and there once.
bool VariablesPanel::Change(std::size_t variable, VariablesTable::Column column,
                            const QString& text) {
  const Format& format = workspace_.document.Current();
  if (variable >= format.variables.size()) return false;
  const std::string wanted = text.toStdString();
  const Variable& changed = format.variables[variable];
  const bool isCaption = column == VariablesTable::kCaption;
  if (wanted == (isCaption ? changed.Caption() : changed.Name())) return false;
  const bool isTaken = isCaption && std::ranges::find(format.variables, wanted,
                                                      &Variable::Caption) != format.variables.end();
  QString refusal;
  if (isCaption && wanted.empty()) refusal = Say("A variable needs a caption.");
  if (isTaken) refusal = Say("There is a variable “%1” already.").arg(text);
  refusal_->setText(refusal);
  refusal_->setVisible(!refusal.isEmpty());
  if (!refusal.isEmpty()) return false;
  if (!isCaption) {
    return workspace_.document.Do(SetOnVariable(format, variable, "FVarName", wanted));
  }
  // Not while the cell is still being edited: it would lose the focus to the question, and enter
  // its text a second time.
  const std::string from = changed.Caption();
  QMetaObject::invokeMethod(
      this, [this, from, text] { Rename(from, text); }, Qt::QueuedConnection);
  return true;
}

}  // namespace td::designer
