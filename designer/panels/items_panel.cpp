#include "designer/panels/items_panel.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "designer/view/words.h"

namespace td::designer {
namespace {

struct OrderButton {
  const char* name;
  QString text;
  Order order;
};

std::vector<OrderButton> Orders() {
  return {{"ToBack", Say("To back"), Order::kToBack},
          {"Backward", Say("Backward"), Order::kBackward},
          {"Forward", Say("Forward"), Order::kForward},
          {"ToFront", Say("To front"), Order::kToFront}};
}

}  // namespace

ItemsPanel::ItemsPanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace) {
  table_ = new ItemsTable(workspace, this);
  filtered_ = new QSortFilterProxyModel(this);
  filtered_->setFilterCaseSensitivity(Qt::CaseInsensitive);
  filtered_->setFilterKeyColumn(-1);
  filtered_->setDynamicSortFilter(false);  // an item doesn't vanish while it is being renamed
  filtered_->setSourceModel(table_);
  LayOut();
  selectionListener_ = workspace.selection.AddListener([this] { ShowSelection(); });
  // The list has lost its selection: the same items may stand elsewhere now.
  connect(filtered_, &QAbstractItemModel::modelReset, this, [this] { ShowSelection(); });
  ShowSelection();
}

ItemsPanel::~ItemsPanel() {
  workspace_.selection.RemoveListener(selectionListener_);
}

void ItemsPanel::LayOut() {
  filter_ = new QLineEdit(this);
  filter_->setObjectName(QStringLiteral("ItemsFilter"));
  filter_->setPlaceholderText(Say("Search"));
  filter_->setAccessibleName(Say("Search"));
  filter_->setClearButtonEnabled(true);
  view_ = new QTreeView(this);
  view_->setObjectName(QStringLiteral("Items"));
  view_->setAccessibleName(Say("Items in the order in which they are drawn"));
  view_->setModel(filtered_);
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  view_->setAllColumnsShowFocus(true);
  QHeaderView& header = *view_->header();
  header.setStretchLastSection(false);
  header.setSectionsMovable(false);
  header.setSectionResizeMode(QHeaderView::ResizeToContents);
  header.setSectionResizeMode(ItemsTable::kName, QHeaderView::Stretch);
  auto* column = new QVBoxLayout(this);
  column->addWidget(filter_);
  column->addWidget(view_, 1);
  column->addLayout(OrderButtons());
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    isShowing_ = true;  // what the filter hides stays selected on the sheet
    filtered_->setFilterFixedString(text);
    isShowing_ = false;
    ShowSelection();
  });
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this] { TakeSelection(); });
  connect(view_, &QTreeView::activated, this, [this](const QModelIndex& index) {
    if (workspace_.goTo) workspace_.goTo(IdAt(index));
  });
}

QLayout* ItemsPanel::OrderButtons() {
  auto* grid = new QGridLayout;
  for (const OrderButton& order : Orders()) {
    auto* button = new QPushButton(order.text, this);
    button->setObjectName(QString::fromUtf8(order.name));
    button->setToolTip(Say("What is drawn later lies upon what is drawn before."));
    connect(button, &QPushButton::clicked, this, [this, order = order.order] {
      workspace_.document.Reorder(workspace_.selection.Items(), order);
    });
    const int place = static_cast<int>(buttons_.size());
    grid->addWidget(button, place / 2, place % 2);
    buttons_.push_back(button);
  }
  return grid;
}

ItemId ItemsPanel::IdAt(const QModelIndex& index) const {
  return table_->IdAt(filtered_->mapToSource(index).row());
}

void ItemsPanel::TakeSelection() {
  if (isShowing_) return;
  ItemIds ids;
  for (const QModelIndex& index : view_->selectionModel()->selectedRows()) {
    ids.push_back(IdAt(index));
  }
  isShowing_ = true;
  workspace_.selection.Select(std::move(ids));
  isShowing_ = false;
  for (QWidget* button : buttons_) button->setEnabled(!workspace_.selection.Empty());
}

void ItemsPanel::ShowSelection() {
  for (QWidget* button : buttons_) button->setEnabled(!workspace_.selection.Empty());
  if (isShowing_) return;
  isShowing_ = true;
  QItemSelection rows;
  QModelIndex last;
  for (const ItemId id : workspace_.selection.Items()) {
    const int row = table_->RowOf(id);
    if (row < 0) continue;
    const QModelIndex index = filtered_->mapFromSource(table_->index(row, 0));
    if (!index.isValid()) continue;
    rows.select(index, index);
    last = index;
  }
  QItemSelectionModel& selection = *view_->selectionModel();
  selection.select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  if (last.isValid()) {
    selection.setCurrentIndex(last, QItemSelectionModel::NoUpdate);
    view_->scrollTo(last);
  }
  isShowing_ = false;
}

}  // namespace td::designer
