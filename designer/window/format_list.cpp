#include "designer/window/format_list.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "designer/view/words.h"

namespace td::designer {

std::optional<std::string> ChooseFormat(QWidget* window, const std::vector<FormatEntry>& formats,
                                        const std::string& current) {
  QDialog dialog(window);
  dialog.setObjectName("formats");
  dialog.setWindowTitle(Say("Open a format"));
  dialog.resize(420, 320);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(new QLabel(Say("Formats of this bill type:"), &dialog));
  auto* list = new QListWidget(&dialog);
  list->setObjectName("list");
  for (const FormatEntry& format : formats) {
    const QString name = QString::fromStdString(format.name);
    auto* entry =
        new QListWidgetItem(format.selected ? Say("%1 (selected)").arg(name) : name, list);
    entry->setData(Qt::UserRole, name);
    if (format.name == current) list->setCurrentItem(entry);
  }
  layout->addWidget(list);
  auto* buttons = new QDialogButtonBox(&dialog);
  auto* accept = buttons->addButton(Say("Open"), QDialogButtonBox::AcceptRole);
  accept->setObjectName("accept");
  auto* cancel = buttons->addButton(Say("Cancel"), QDialogButtonBox::RejectRole);
  QObject::connect(accept, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  QObject::connect(list, &QListWidget::itemActivated, &dialog, &QDialog::accept);
  const auto allow = [accept, list] { accept->setEnabled(list->currentItem() != nullptr); };
  QObject::connect(list, &QListWidget::currentItemChanged, &dialog, allow);
  allow();
  layout->addWidget(buttons);
  if (dialog.exec() != QDialog::Accepted || list->currentItem() == nullptr) return std::nullopt;
  return list->currentItem()->data(Qt::UserRole).toString().toStdString();
}

}  // namespace td::designer
