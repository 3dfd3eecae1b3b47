#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{
        kNameQuote,
        "name-quote",
        kError,
        {"格式名“{0}”中有单引号。", "查询语句因此出错：只弹出数据库的错误信息，什么也不印。",
         "去掉格式名中的单引号。"},
        {"The format's name “{0}” has a single quote.",
         "It breaks the statements: nothing is printed but a message of the database.",
         "Take the quote out of the name."}},
    FindingMessage{
        kNameBlanks,
        "name-blanks",
        kWarning,
        {"格式名“{0}”的开头或结尾有空格。", "按不带空格的名称打印时找不到这个格式。", "去掉空格。"},
        {"The format's name “{0}” begins or ends with a blank.",
         "A print that names it without the blank doesn't find it.", "Remove the blank."}},
    FindingMessage{kNoItems,
                   "no-items",
                   kError,
                   {"格式没有任何项目：TDBillDetail 中没有 FTDBillID {0} 的行。",
                    "印出来的是白纸。", "登记项目，或改正项目的 FTDBillID。"},
                   {"The format has no items: TDBillDetail has no row of FTDBillID {0}.",
                    "The pages come out empty.", "Register items, or correct their FTDBillID."}},
    FindingMessage{
        kRowsMissing,
        "rows-missing",
        kError,
        {"每页打印行数 FRowsPerPage 是 {0}。",
         "从不换页：所有的行都印在一页上，超出纸张的部分看不到。", "填入纸上能容纳的行数。"},
        {"The rows a page (FRowsPerPage) are {0}.",
         "No page is ever full: all rows are printed on one page and run off the sheet.",
         "Enter the number of rows that the sheet has."}},
    FindingMessage{kRowsFraction,
                   "rows-fraction",
                   kHint,
                   {"每页打印行数 FRowsPerPage 是 {0}。", "按 {1} 行换页。", "填入整数。"},
                   {"The rows a page (FRowsPerPage) are {0}.", "Pages break behind row {1}.",
                    "Enter a whole number."}},
    FindingMessage{
        kRowsOne,
        "rows-one",
        kWarning,
        {"每页只有一行（FRowsPerPage=1）。",
         "一次打印几张单据时，从第二张起每张多印一页没有明细行的纸。",
         "每一行就是一页（运单、支票、吊牌）时，让数据写 0 as FInterID，仍填 1；每张单据只有一行、"
         "又各有 FInterID 时填 2。FInterID 为 0 时填 2 会丢失一半的行。"},
        {"A page has one row (FRowsPerPage=1).",
         "When several bills are printed at once, each from the second on begins with a page "
         "without its row.",
         "Deliver 0 as FInterID, and keep 1, where each row is a page: waybills, cheques, tags. "
         "Enter 2 where each bill has one row and an FInterID of its own; with FInterID 0 it would "
         "lose every second row."}},
    FindingMessage{
        kRowHeightMissing,
        "row-height-missing",
        kError,
        {"每行高度 FRowHeight 是 {0}。", "<1?用默认的行高 {1} 缇。|各行印在同一处，互相重叠。>",
         "填入行高（缇，1 毫米 ≈ 56.7）。"},
        {"The row height (FRowHeight) is {0}.",
         "<1?The default height of {1} twips is used.|All rows are printed at one place, over "
         "each other.>",
         "Enter the height in twips (1 mm ≈ 56.7)."}},
    FindingMessage{kRowHeightSmall,
                   "row-height-small",
                   kWarning,
                   {"每行高度 FRowHeight 只有 {0} 毫米。", "各行叠印在一起。",
                    "长度以缇为单位：{1} 毫米应为 {2}。"},
                   {"The row height (FRowHeight) is only {0} mm.", "The rows run into each other.",
                    "Lengths are twips: {1} mm are {2}."}},
    FindingMessage{
        kPaperMillimetres,
        "paper-millimetres",
        kError,
        {"自定义纸张是 {0} × {1} 缇，只有 {2} × {3} 毫米，像是按毫米填的。",
         "页面小到看不见，项目都在纸外。", "以缇为单位填（1 毫米 ≈ 56.7 缇）：{4} × {5}。"},
        {"The user-defined sheet is {0} × {1} twips, {2} × {3} mm: it looks like millimetres.",
         "The page is too small to be seen, and the items lie beside it.",
         "Enter twips (1 mm ≈ 56.7): {4} × {5}."}},
    FindingMessage{kPaperUnknown,
                   "paper-unknown",
                   kError,
                   {"不认识纸张编号 FPaperSize {0}。", "沿用打印机原来的纸张，版面可能放不下。",
                    "填标准编号（9 是 A4），或 256 加上宽和高。"},
                   {"FPaperSize {0} is no paper code.",
                    "The document is made on the paper that stood there before.",
                    "Enter a standard code (9 is A4), or 256 with width and height."}},
    FindingMessage{
        kPaperIncomplete,
        "paper-incomplete",
        kWarning,
        {"纸张 FPaperSize 是 {0}，但 {1} 是空值。", "纸张没有设上，沿用打印机原来的纸张。",
         "填入 {1}；标准纸张也要填 FPaperWidth。"},
        {"FPaperSize is {0}, but {1} is Null.", "The paper isn't set: the printer's own one stays.",
         "Enter {1}; standard sheets want FPaperWidth, too."}},
    FindingMessage{kPaperTurned,
                   "paper-turned",
                   kWarning,
                   {"自定义纸张宽 {0}、高 {1} 毫米，又设了横向。",
                    "横向会对调宽和高，成了宽 {1}、高 {0} 毫米的纸。", "把 FOrientation 改为 0。"},
                   {"The user-defined sheet is {0} mm wide and {1} mm high, and landscape.",
                    "Landscape swaps the sides: the page is {1} mm wide and {0} mm high.",
                    "Set FOrientation to 0."}},
    FindingMessage{kPaperKept,
                   "paper-kept",
                   kHint,
                   {"纸张 FPaperSize 是 0。", "用默认打印机自己的纸张，换一台机器可能不同。",
                    "填入纸张编号，各台机器就一样了。"},
                   {"FPaperSize is 0.",
                    "The default printer's own sheet is used, which may differ between machines.",
                    "Enter a paper code, and all machines agree."}},
    FindingMessage{kItemsMillimetres,
                   "items-millimetres",
                   kWarning,
                   {"所有 {0} 个项目都挤在左上角 {1} × {2} 毫米之内，像是按毫米填的位置。",
                    "全部印在纸的左上角，叠在一起。", "长度以缇为单位：1 毫米 ≈ 56.7 缇。"},
                   {"All {0} items lie within {1} × {2} mm in the top left corner: it looks like "
                    "millimetres.",
                    "Everything is printed in that corner, over each other.",
                    "Lengths are twips: 1 mm ≈ 56.7."}},
    FindingMessage{
        kPrinterMissing,
        "printer-missing",
        kWarning,
        {"首选打印机“{0}”在本机没有安装。", "不作提示，改用本机设置的或默认的打印机。",
         "安装这个打印队列，或改正 FPrintDevice<1?；名称相近的有“{1}”|>。"},
        {"The preferred printer “{0}” isn't installed on this machine.",
         "Another printer is used without a message: the machine's, or the default one.",
         "Install that queue, or correct FPrintDevice<1?; the nearest name is “{1}”|>."}},
    FindingMessage{kPrinterSheet,
                   "printer-sheet",
                   kHint,
                   {"打印机“{0}”没有 {1} × {2} 毫米的纸张。",
                    "打印系统会换一种纸，或在前面板上要求装纸。", "在打印队列中加上这种纸张。"},
                   {"The printer “{0}” has no sheet of {1} × {2} mm.",
                    "The printing system takes another one, or asks for the sheet at the printer.",
                    "Give the queue a sheet of this size."}},
    FindingMessage{
        kRunMessage,
        "run-message",
        kError,
        {"打印时会弹出信息：{0}", "<1?这一部分从这个项目起都不印了。|打印到此为止，或缺少一部分。>",
         "改正引起它的值。"},
        {"The print shows the message: {0}",
         "<1?The rest of the band, from this item on, is not printed.|The print ends there, or "
         "lacks a part.>",
         "Correct the value that causes it."}},
    FindingMessage{kTableColumn,
                   "table-column",
                   kWarning,
                   {"表中没有列 {0}。", "按缺列处理：判断它的地方都当作成立，用到它的步骤都跳过。",
                    "按 schema.sql 加上这一列。"},
                   {"The tables have no column {0}.",
                    "What asks for it takes it as set, and what uses it is left out.",
                    "Add the column as schema.sql has it."}},
};

}  // namespace

constinit const std::span<const FindingMessage> kBillMessages = kMessages;

}  // namespace td::checker
