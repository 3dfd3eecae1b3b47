#include "designer/window/questions.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "designer/view/words.h"

namespace td::designer {

void Tell(QWidget* window, const QString& text) {
  QDialog dialog(window);
  dialog.setObjectName("message");
  dialog.setWindowTitle(Say("Form designer"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new QLabel(text, &dialog);
  label->setObjectName("text");
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(360);
  layout->addWidget(label);
  auto* buttons = new QDialogButtonBox(&dialog);
  auto* close = buttons->addButton(Say("Close"), QDialogButtonBox::AcceptRole);
  close->setObjectName("close");
  QObject::connect(close, &QPushButton::clicked, &dialog, &QDialog::accept);
  layout->addWidget(buttons);
  dialog.exec();
}

int Ask(QWidget* window, const QString& text, const QStringList& answers,
        const QStringList& details) {
  QDialog dialog(window);
  dialog.setObjectName("question");
  dialog.setWindowTitle(Say("Form designer"));
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new QLabel(text, &dialog);
  label->setObjectName("text");
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(420);
  layout->addWidget(label);
  if (!details.isEmpty()) {
    auto* list = new QListWidget(&dialog);
    list->addItems(details);
    list->setWordWrap(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    layout->addWidget(list);
  }
  auto* buttons = new QDialogButtonBox(&dialog);
  int answer = -1;
  for (int i = 0; i < answers.size(); ++i) {
    auto* button = buttons->addButton(answers[i], QDialogButtonBox::AcceptRole);
    button->setObjectName("answer" + QString::number(i));
    QObject::connect(button, &QPushButton::clicked, &dialog, [&dialog, &answer, i] {
      answer = i;
      dialog.accept();
    });
    if (i == 0) button->setDefault(true);
  }
  auto* cancel = buttons->addButton(Say("Cancel"), QDialogButtonBox::RejectRole);
  cancel->setObjectName("cancel");
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  layout->addWidget(buttons);
  dialog.exec();
  return answer;
}

std::optional<QString> AskName(QWidget* window, const QString& question, const QString& suggested) {
  QDialog dialog(window);
  dialog.setObjectName("name");
  dialog.setWindowTitle(Say("Form designer"));
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(new QLabel(question, &dialog));
  auto* edit = new QLineEdit(suggested, &dialog);
  edit->setObjectName("edit");
  edit->setMinimumWidth(320);
  edit->selectAll();
  layout->addWidget(edit);
  auto* buttons = new QDialogButtonBox(&dialog);
  auto* accept = buttons->addButton(Say("OK"), QDialogButtonBox::AcceptRole);
  accept->setObjectName("accept");
  auto* cancel = buttons->addButton(Say("Cancel"), QDialogButtonBox::RejectRole);
  QObject::connect(accept, &QPushButton::clicked, &dialog, &QDialog::accept);
  QObject::connect(cancel, &QPushButton::clicked, &dialog, &QDialog::reject);
  const auto allow = [accept, edit] { accept->setEnabled(!edit->text().trimmed().isEmpty()); };
  QObject::connect(edit, &QLineEdit::textChanged, &dialog, allow);
  allow();
  layout->addWidget(buttons);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return edit->text().trimmed();
}

}  // namespace td::designer
