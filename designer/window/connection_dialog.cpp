#include "designer/window/connection_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <algorithm>
#include <limits>

#include "designer/view/words.h"
#include "designer/window/questions.h"
#include "platform/failure.h"
#include "qt/preview/window_font.h"
#include "sql_support/connection_entries.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

// A text with a password isn't kept.
bool HoldsPassword(const std::string& connection) {
  try {
    return std::ranges::any_of(ReadConnectionEntries(connection), [](const ConnectionEntry& entry) {
      const std::string key = LowerCase(entry.key);
      return key == "pwd" || key == "password";
    });
  } catch (const Failure&) {
    return false;
  }
}

class ConnectionDialog : public QDialog {
 public:
  ConnectionDialog() {
    setObjectName("connection");
    setWindowTitle(Say("Form designer"));
    setFont(FontWithChinese(font()));
    auto* form = new QFormLayout(this);
    form->addRow(new QLabel(Say("Which database holds the formats?"), this));
    auto* row = new QHBoxLayout;
    text_ = new QLineEdit(this);
    text_->setObjectName("text");
    text_->setMinimumWidth(420);
    text_->setPlaceholderText(QStringLiteral("sqlite:/srv/shop.db, Driver=…;Server=…;Database=…"));
    row->addWidget(text_);
    auto* file = new QPushButton(Say("File …"), this);
    row->addWidget(file);
    form->addRow(Say("Connection text:"), row);
    type_ = new QSpinBox(this);
    type_->setObjectName("type");
    type_->setRange(std::numeric_limits<std::int16_t>::min(),
                    std::numeric_limits<std::int16_t>::max());
    form->addRow(Say("Bill type:"), type_);
    auto* buttons = new QDialogButtonBox(this);
    auto* accept = buttons->addButton(Say("Open"), QDialogButtonBox::AcceptRole);
    accept->setObjectName("accept");
    auto* cancel = buttons->addButton(Say("Cancel"), QDialogButtonBox::RejectRole);
    form->addRow(buttons);
    connect(accept, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(file, &QPushButton::clicked, this, [this] {
      const QString path = QFileDialog::getOpenFileName(this, Say("Database file"));
      if (!path.isEmpty()) text_->setText(QStringLiteral("sqlite:") + path);
    });
    const auto allow = [this, accept] { accept->setEnabled(!text_->text().trimmed().isEmpty()); };
    connect(text_, &QLineEdit::textChanged, this, allow);
    allow();
  }

  void Put(const QString& text, int type) {
    text_->setText(text);
    type_->setValue(type);
  }
  [[nodiscard]] ChosenConnection Chosen() const {
    return {text_->text().trimmed().toStdString(), type_->value()};
  }

 private:
  QLineEdit* text_;
  QSpinBox* type_;
};

}  // namespace

std::optional<ChosenConnection> AskForConnection(TransactionalDatabase& database,
                                                 const std::string& stateFolder) {
  QSettings settings(QString::fromStdString(stateFolder + "/designer.ini"), QSettings::IniFormat);
  ConnectionDialog dialog;
  dialog.Put(settings.value("connection").toString(), settings.value("billType", 21).toInt());
  while (dialog.exec() == QDialog::Accepted) {
    const ChosenConnection chosen = dialog.Chosen();
    try {
      database.Connect(chosen.connection);
    } catch (const Failure& failure) {
      Tell(&dialog, QString::fromStdString(failure.Description()));
      continue;
    }
    settings.setValue("billType", chosen.billType);
    if (HoldsPassword(chosen.connection)) {
      settings.remove("connection");
    } else {
      settings.setValue("connection", QString::fromStdString(chosen.connection));
    }
    return chosen;
  }
  return std::nullopt;
}

}  // namespace td::designer
