#include "qt/system/message_boxes.h"

#include <QApplication>
#include <QMessageBox>
#include <cstdio>

#include "qt/preview/window_font.h"
#include "qt/system/application.h"

namespace td {
namespace {

QMessageBox::Icon IconOf(int style) {
  switch (style & 0xF0) {
    case 0x10:
      return QMessageBox::Critical;
    case 0x20:
      return QMessageBox::Question;
    case 0x30:
      return QMessageBox::Warning;
    case kInformationIcon:
      return QMessageBox::Information;
    default:
      return QMessageBox::NoIcon;
  }
}

}  // namespace

void MessageBoxes::ShowBox(const std::string& text, int style) {
  ++shown_;
  const std::string place = place_ ? place_() : std::string();
  if (outcome_ != nullptr) {
    ++outcome_->messages;
    outcome_->texts.push_back(text);
    outcome_->places.push_back(place);
  }
  if (mode_ == MessageMode::kCollected) return;
  const QString words = QString::fromStdString(text);
  if (mode_ == MessageMode::kStandardError || !HasWindowSystem()) {
    const QString note = place.empty() ? QString() : QString::fromStdString(" (" + place + ")");
    std::fprintf(stderr, "%s\n", (words + note).simplified().toUtf8().constData());
    return;
  }
  QMessageBox box(IconOf(style), QGuiApplication::applicationDisplayName(), words,
                  QMessageBox::NoButton, QApplication::activeWindow());
  box.setFont(FontWithChinese(box.font()));
  box.setTextFormat(Qt::PlainText);
  box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace td
