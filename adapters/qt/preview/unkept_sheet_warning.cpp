#include "qt/preview/unkept_sheet_warning.h"

#include <QMessageBox>
#include <QPushButton>

#include "preview/page_setup_choice.h"
#include "qt/preview/window_font.h"

namespace td {

SheetAnswer WarnOfUnkeptSheet(const UnkeptSheet& sheet, QWidget* window) {
  namespace words = unkept_sheet_words;
  QMessageBox box(window);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(QString::fromUtf8(page_setup_words::kTitle));
  box.setFont(FontWithChinese(box.font()));
  box.setTextFormat(Qt::PlainText);
  box.setText(QString::fromStdString(WarningOf(sheet)));
  box.setInformativeText(QString::fromStdString(AdviceOn(sheet)));
  const auto add = [&box](const char* caption, QMessageBox::ButtonRole role) {
    return box.addButton(QString::fromUtf8(caption), role);
  };
  QPushButton* named = nullptr;
  if (!sheet.namedPaper.empty()) named = add(words::kUseNamedPaper, QMessageBox::YesRole);
  QPushButton* once = add(words::kUseOnce, QMessageBox::AcceptRole);
  QPushButton* back = add(words::kGoBack, QMessageBox::RejectRole);
  box.setDefaultButton(named != nullptr ? named : back);
  box.setEscapeButton(back);
  box.exec();
  if (named != nullptr && box.clickedButton() == named) return SheetAnswer::kUseNamedPaper;
  return box.clickedButton() == once ? SheetAnswer::kUseOnce : SheetAnswer::kGoBack;
}

}  // namespace td
