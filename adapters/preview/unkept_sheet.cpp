#include "preview/unkept_sheet.h"

namespace td {
namespace {

// Somebody else has to do it: the print window asks the default printer for its sheet.
std::string HelpOf(const UnkeptSheet& sheet) {
  if (!sheet.namedPaper.empty()) {
    return "纸张列表中有同样大小的“" + sheet.namedPaper + "”，选用它，本机就会记住。";
  }
  if (!sheet.printers.empty()) {
    std::string names;
    for (const std::string& printer : sheet.printers) {
      names += (names.empty() ? "" : "”、“") + printer;
    }
    return "打印机“" + names + "”自己的纸张正是这个大小：请管理员把它设为默认打印机。";
  }
  return "要长期使用这种纸张，请管理员设置一台以它为默认纸张的打印机，"
         "或者在格式中登记它的宽度和高度，并且不要在这里确定。";
}

}  // namespace

std::string WarningOf(const UnkeptSheet& sheet) {
  return "本机不会记住自定义纸张的宽度和高度（" + sheet.size + "）。";
}

std::string AdviceOn(const UnkeptSheet& sheet) {
  return "它们只在这个预览窗口中有效；以后在本机用这个格式打印，用的是默认打印机自己的"
         "纸张，大小不同就会打错位置。\n\n" +
         HelpOf(sheet);
}

}  // namespace td
