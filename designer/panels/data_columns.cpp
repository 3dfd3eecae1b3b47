#include "designer/panels/data_columns.h"

#include "designer/panels/format_example.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"
#include "text/conversions.h"

namespace td::designer {

DataColumns::DataColumns(Workspace& workspace, QWidget* parent)
    : QListWidget(parent), workspace_(workspace) {
  setObjectName(QStringLiteral("DataColumns"));
  setAccessibleName(Say("Columns of the print data"));
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setDragEnabled(true);
  setDragDropMode(QAbstractItemView::DragOnly);
  setUniformItemSizes(true);
  if (workspace.data == nullptr) return;
  for (std::size_t i = 0; i < workspace.data->Columns().Size(); ++i) addItem(QString());
  Refresh();
}

void DataColumns::Refresh() {
  if (workspace_.data == nullptr) return;
  const Format& format = workspace_.document.Current();
  for (int row = 0; row < count(); ++row) {
    const std::string& column = workspace_.data->Columns().Name(static_cast<std::size_t>(row));
    const Variable* variable = VariableNamed(format, column);
    const auto first = FirstValue(workspace_.data.get(), column);
    QString text = QString::fromStdString(column);
    if (first && !IsNull(*first)) {
      text += QStringLiteral(" = ") + QString::fromStdString(ToText(*first)).simplified();
    }
    item(row)->setText(text);
    item(row)->setToolTip(
        variable == nullptr
            ? Say("No variable yet: it becomes one when it is put onto the sheet.")
            : Say("The variable “%1”").arg(QString::fromStdString(variable->Caption())));
    item(row)->setForeground(variable == nullptr ? QBrush()
                                                 : palette().brush(QPalette::PlaceholderText));
  }
}

DroppedChoice DataColumns::ChoiceAt(int row) const {
  const std::string& column = workspace_.data->Columns().Name(static_cast<std::size_t>(row));
  const Format& format = workspace_.document.Current();
  const Variable* variable = VariableNamed(format, column);
  if (variable != nullptr) return ChoiceOfVariable(variable->Caption(), variable->Name());
  return ChoiceOfVariable(FreeCaption(format, column), column);
}

std::vector<std::string> DataColumns::SelectedNewOnes() const {
  std::vector<std::string> columns;
  for (const QListWidgetItem* entry : selectedItems()) {
    const std::string& column =
        workspace_.data->Columns().Name(static_cast<std::size_t>(row(entry)));
    if (VariableNamed(workspace_.document.Current(), column) == nullptr) columns.push_back(column);
  }
  return columns;
}

QMimeData* DataColumns::mimeData(const QList<QListWidgetItem*>& entries) const {
  return entries.isEmpty() ? nullptr : MimeOf(ChoiceAt(row(entries.front()))).release();
}

}  // namespace td::designer
