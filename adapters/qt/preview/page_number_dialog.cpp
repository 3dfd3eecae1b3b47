#include "qt/preview/page_number_dialog.h"

#include <QInputDialog>

#include "qt/fields/wheel_guard.h"
#include "qt/preview/window_font.h"

namespace td {

std::optional<std::int16_t> AskForPage(std::int16_t shown, std::int16_t count, QWidget* window) {
  QInputDialog dialog(window);
  dialog.setFont(FontWithChinese(dialog.font()));
  dialog.setWindowTitle(QStringLiteral("转到某一页"));
  dialog.setInputMode(QInputDialog::IntInput);
  dialog.setIntRange(1, count);
  dialog.setIntValue(shown);
  dialog.setLabelText(QStringLiteral("页码（1 到 %1）：").arg(count));
  dialog.setOkButtonText(QStringLiteral("确定(&O)"));
  dialog.setCancelButtonText(QStringLiteral("取消(&C)"));
  GuardFieldsAgainstWheel(dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return static_cast<std::int16_t>(dialog.intValue());
}

}  // namespace td
