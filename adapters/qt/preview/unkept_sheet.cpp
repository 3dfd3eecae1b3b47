#include "qt/preview/unkept_sheet.h"

#include <QMessageBox>
#include <QPushButton>

#include "qt/preview/window_font.h"

namespace td {
namespace {

// Somebody else has to do it: the print window asks the default printer for its sheet.
QString HelpOf(const UnkeptSheet& sheet) {
  if (!sheet.namedPaper.isEmpty()) {
    return QStringLiteral("纸张列表中有同样大小的“%1”，选用它，本机就会记住。")
        .arg(sheet.namedPaper);
  }
  if (!sheet.printers.isEmpty()) {
    return QStringLiteral("打印机“%1”自己的纸张正是这个大小：请管理员把它设为默认打印机。")
        .arg(sheet.printers.join(QStringLiteral("”、“")));
  }
  return QStringLiteral(
      "要长期使用这种纸张，请管理员设置一台以它为默认纸张的打印机，"
      "或者在格式中登记它的宽度和高度，并且不要在这里确定。");
}

}  // namespace

SheetAnswer WarnOfUnkeptSheet(const UnkeptSheet& sheet, QWidget* window) {
  QMessageBox box(window);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(QStringLiteral("页面设置"));
  box.setFont(FontWithChinese(box.font()));
  box.setTextFormat(Qt::PlainText);
  box.setText(QStringLiteral("本机不会记住自定义纸张的宽度和高度（%1）。").arg(sheet.size));
  box.setInformativeText(
      QStringLiteral("它们只在这个预览窗口中有效；以后在本机用这个格式打印，用的是默认打印机自己的"
                     "纸张，大小不同就会打错位置。\n\n") +
      HelpOf(sheet));
  QPushButton* named = nullptr;
  if (!sheet.namedPaper.isEmpty()) {
    named = box.addButton(QStringLiteral("改用这种纸张(&U)"), QMessageBox::YesRole);
  }
  QPushButton* once = box.addButton(QStringLiteral("只在这次使用(&O)"), QMessageBox::AcceptRole);
  QPushButton* back = box.addButton(QStringLiteral("返回修改(&B)"), QMessageBox::RejectRole);
  box.setDefaultButton(named != nullptr ? named : back);
  box.setEscapeButton(back);
  box.exec();
  if (named != nullptr && box.clickedButton() == named) return SheetAnswer::kUseNamedPaper;
  return box.clickedButton() == once ? SheetAnswer::kUseOnce : SheetAnswer::kGoBack;
}

}  // namespace td
