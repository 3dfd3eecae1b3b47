#include "qt/preview/page_number_dialog.h"

#include <QInputDialog>

#include "preview/toolbar_buttons.h"
#include "qt/fields/wheel_guard.h"
#include "qt/preview/window_font.h"

namespace td {

std::optional<std::int16_t> AskForPage(std::int16_t shown, std::int16_t count, QWidget* window) {
  QInputDialog dialog(window);
  dialog.setFont(FontWithChinese(dialog.font()));
  dialog.setWindowTitle(QString::fromUtf8(kPageNumberTitle));
  dialog.setInputMode(QInputDialog::IntInput);
  dialog.setIntRange(1, count);
  dialog.setIntValue(shown);
  dialog.setLabelText(QString::fromUtf8(kPageNumberLabel[0]) + QString::number(count) +
                      QString::fromUtf8(kPageNumberLabel[1]));
  dialog.setOkButtonText(QString::fromUtf8(kConfirmCaption));
  dialog.setCancelButtonText(QString::fromUtf8(kCancelCaption));
  GuardFieldsAgainstWheel(dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return static_cast<std::int16_t>(dialog.intValue());
}

}  // namespace td
