#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{kNoFormat,
                   "no-format",
                   kError,
                   {"<0?单据类型 {0} |数据库中>没有<1?名为“{1}”的|>套打格式。",
                    "什么也不印：未指定套打格式，打印被取消！",
                    "在 TDBill 中登记格式<2?；名称相近的有“{2}”|>。"},
                   {"<0?Bill type {0} has|There is> no format<1? named “{1}”|>.",
                    "Nothing is printed: the print is cancelled with a message.",
                    "Register the format in TDBill<2?; the nearest name is “{2}”|>."}},
    FindingMessage{
        kNoneSelected,
        "none-selected",
        kWarning,
        {"单据类型 {0} 没有选用任何格式（FSelected=1）。",
         "程序不指定格式名时什么也不印：未指定套打格式，打印被取消！", "选用其中一个格式。"},
        {"Bill type {0} has no selected format (FSelected=1).",
         "Nothing is printed when the program names no format.", "Select one of them."}},
    FindingMessage{
        kSeveralSelected,
        "several-selected",
        kError,
        {"单据类型 {0} 选用了 {1} 个格式：{2}。",
         "程序不指定格式名时，印出数据库先返回的那一个，可能不是要用的。",
         "只留一个 FSelected=1。"},
        {"Bill type {0} has {1} selected formats: {2}.",
         "When the program names no format, the one that the database returns first is printed.",
         "Leave FSelected=1 in one of them."}},
    FindingMessage{
        kNameTwice,
        "name-twice",
        kError,
        {"单据类型 {0} 有 {1} 个同名的格式“{2}”。",
         "各个格式的项目叠印在同一张纸上，纸张和行数取数据库先返回的那一个。",
         "给其中的格式改名。"},
        {"Bill type {0} has {1} formats named “{2}”.",
         "The items of all of them are printed over each other, on the paper of the first one.",
         "Give them different names."}},
    FindingMessage{kNumberShared,
                   "number-shared",
                   kError,
                   {"格式编号 FTDBillID {0} 用在了 {1} 个格式上：{2}。",
                    "每个格式都会印出其他格式的项目。", "给每个格式一个自己的 FTDBillID。"},
                   {"{1} formats have the same FTDBillID {0}: {2}.",
                    "Each of them prints the items of the others, too.",
                    "Give each format an FTDBillID of its own."}},
    FindingMessage{
        kMachineNoFormat,
        "machine-no-format",
        kWarning,
        {"机器 {0} 有格式“{1}”的页面设置，但没有这个格式。", "这一行不起作用。",
         "删去这一行，或改正格式名<2?（相近的有“{2}”）|>。"},
        {"Machine {0} has a page setup of the format “{1}”, which doesn't exist.",
         "The row has no effect.", "Delete it, or correct the name<2? (“{2}” is near)|>."}},
    FindingMessage{kMachineSheet,
                   "machine-sheet",
                   kWarning,
                   {"机器 {0} 上格式“{1}”的页面设置是自定义纸张。",
                    "宽和高不会恢复：在那台机器上按打印机自己的纸张印。",
                    "让打印队列默认用这种纸张，或删去这一行。"},
                   {"The page setup of the format “{1}” on machine {0} is a user-defined sheet.",
                    "Its size isn't brought back: that machine prints on the printer's own sheet.",
                    "Make the sheet the queue's own, or delete the row."}},
    FindingMessage{
        kMachinePaper,
        "machine-paper",
        kWarning,
        {"机器 {0} 上格式“{1}”的页面设置中，不认识纸张编号 {2}。", "那台机器沿用打印机原来的纸张。",
         "重新设置页面，或删去这一行。"},
        {"The page setup of the format “{1}” on machine {0} has the unknown paper code {2}.",
         "That machine prints on the paper that stood there before.",
         "Confirm the page setup again, or delete the row."}},
    FindingMessage{kMachinePrinter,
                   "machine-printer",
                   kWarning,
                   {"本机（{0}）上格式“{1}”的打印机“{2}”没有安装。",
                    "弹出信息“找不到打印“{2}”，将采用默认打印机！”，改用默认打印机。",
                    "重新设置页面，或删去这一行。"},
                   {"The printer “{2}” of the format “{1}” on this machine ({0}) isn't installed.",
                    "A message says so, and the default printer is used.",
                    "Confirm the page setup again, or delete the row."}},
    FindingMessage{
        kAreaNoFormat,
        "area-no-format",
        kWarning,
        {"库区“{0}”的打印机属于单据类型 {1} 的格式“{2}”，但没有这个格式。", "这一行不起作用。",
         "删去这一行。"},
        {"The printer of area “{0}” belongs to the format “{2}” of bill type {1}, which doesn't "
         "exist.",
         "The row has no effect.", "Delete it."}},
    FindingMessage{
        kAreaPrinter,
        "area-printer",
        kWarning,
        {"本机（{0}）库区“{1}”的打印机“{3}”没有安装（格式“{2}”）。",
         "按库区选打印机的程序找不到它。", "安装这个打印队列，或重新指定。"},
        {"The printer “{3}” of area “{1}” on this machine ({0}) isn't installed (format “{2}”).",
         "Programs that choose a printer by area don't find it.",
         "Install that queue, or assign another one."}},
};

}  // namespace

constinit const std::span<const FindingMessage> kSettingsMessages = kMessages;

}  // namespace td::checker
