#include "qt/system/message_boxes.h"

#include <QApplication>
#include <QMessageBox>

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

bool MessageBoxes::HasDisplay() const {
  return HasWindowSystem();
}

void MessageBoxes::ShowInBox(const std::string& text, int style) {
  QMessageBox box(IconOf(style), QGuiApplication::applicationDisplayName(),
                  QString::fromStdString(text), QMessageBox::NoButton,
                  QApplication::activeWindow());
  box.setFont(FontWithChinese(box.font()));
  box.setTextFormat(Qt::PlainText);
  box.addButton(QStringLiteral("确定"), QMessageBox::AcceptRole);
  box.exec();
}

}  // namespace td
