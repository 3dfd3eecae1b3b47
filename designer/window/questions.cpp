#include "designer/window/questions.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "designer/view/words.h"

namespace td::designer {

WindowDialog::WindowDialog(QWidget* window, const char* name, const QString& title)
    : QDialog(window) {
  setObjectName(name);
  setWindowTitle(title);
  if (window != nullptr) setFont(window->font());
}

namespace {

// A text, and below it what is to be pressed.
class TextBox : public WindowDialog {
 public:
  TextBox(QWidget* window, const char* name, const QString& text, int width)
      : WindowDialog(window, name, Say("Form designer")) {
    text_ = new QLabel(text, this);
    text_->setObjectName("text");
    text_->setTextFormat(Qt::PlainText);
    text_->setWordWrap(true);
    text_->setMinimumWidth(width);
    buttons_ = new QDialogButtonBox(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(buttons_);
  }

  [[nodiscard]] QLabel& Text() { return *text_; }
  // Between the text and the buttons.
  void Insert(QWidget* widget) { static_cast<QVBoxLayout*>(layout())->insertWidget(1, widget); }
  QPushButton* AddButton(const QString& words, const QString& name,
                         QDialogButtonBox::ButtonRole role) {
    auto* button = buttons_->addButton(words, role);
    button->setObjectName(name);
    return button;
  }

 private:
  QLabel* text_;
  QDialogButtonBox* buttons_;
};

}  // namespace

void Tell(QWidget* window, const QString& text) {
  TextBox box(window, "message", text, 360);
  box.Text().setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* close = box.AddButton(Say("Close"), "close", QDialogButtonBox::AcceptRole);
  QObject::connect(close, &QPushButton::clicked, &box, &QDialog::accept);
  box.exec();
}

int Ask(QWidget* window, const QString& text, const QStringList& answers,
        const QStringList& details) {
  TextBox box(window, "question", text, 420);
  if (!details.isEmpty()) {
    auto* list = new QListWidget(&box);
    list->addItems(details);
    list->setWordWrap(true);
    list->setSelectionMode(QAbstractItemView::NoSelection);
    box.Insert(list);
  }
  int answer = -1;
  for (int i = 0; i < answers.size(); ++i) {
    auto* button =
        box.AddButton(answers[i], "answer" + QString::number(i), QDialogButtonBox::AcceptRole);
    QObject::connect(button, &QPushButton::clicked, &box, [&box, &answer, i] {
      answer = i;
      box.accept();
    });
    if (i == 0) button->setDefault(true);
  }
  auto* cancel = box.AddButton(Say("Cancel"), "cancel", QDialogButtonBox::RejectRole);
  QObject::connect(cancel, &QPushButton::clicked, &box, &QDialog::reject);
  box.exec();
  return answer;
}

std::optional<QString> AskName(QWidget* window, const QString& question, const QString& suggested) {
  WindowDialog dialog(window, "name", Say("Form designer"));
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
