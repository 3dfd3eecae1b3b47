#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{
        kRowsOffSheet,
        "rows-off-sheet",
        kError,
        {"每页 {0} 行、行高 {1} 毫米，超出了纸张。",
         "{2} 个随行移动的项目印到了纸外：最低的到 {3} 毫米，纸高 {4} 毫米。",
         "减少 FRowsPerPage 或 FRowHeight；明细之后和页脚的位置要减去（行数 − 1）× 行高。"},
        {"{0} rows a page of {1} mm leave the sheet.",
         "Items that ride on the rows are printed beside the paper ({2}): the lowest reaches {3} "
         "mm, the sheet is {4} mm high.",
         "Lower FRowsPerPage or FRowHeight; bands 4 and 5 have (rows − 1) × row height taken off "
         "their place."}},
    FindingMessage{
        kImageRepeated,
        "image-repeated",
        kWarning,
        {"条码放在明细行中。", "每一行的条码都印在同一处，看得见的只有最后一行的。",
         "条码放在页眉或明细之后。"},
        {"A barcode stands in the row band.",
         "The codes of all rows are printed at one place; only the last row's can be seen.",
         "Put it into the head or behind the rows."}},
    FindingMessage{kOffSheet,
                   "off-sheet",
                   kError,
                   {"项目在纸外：在 {0}, {1} 毫米处，纸张 {2} × {3} 毫米。", "看不到。",
                    "改正 FLeft、FTop，或纸张。"},
                   {"It lies beside the sheet: at {0}, {1} mm on {2} × {3} mm.",
                    "It can't be seen.", "Correct FLeft and FTop, or the paper."}},
    FindingMessage{
        kPartlyOffSheet,
        "partly-off-sheet",
        kWarning,
        {"项目伸出纸外：到 {0}, {1} 毫米处，纸张 {2} × {3} 毫米。", "纸外的部分印不出来。",
         "改正位置或大小，或纸张。"},
        {"It reaches beyond the sheet: to {0}, {1} mm on {2} × {3} mm.",
         "What lies beside the sheet is not printed.", "Correct its place or size, or the paper."}},
    FindingMessage{kBehindMargin,
                   "behind-margin",
                   kWarning,
                   {"离纸边只有 {0} 毫米，打印机“{1}”的边距是 {2} 毫米。",
                    "打印机印不到那里，边上会缺。", "移进去，或用无边距的打印机。"},
                   {"It is {0} mm from the edge, and the printer “{1}” leaves {2} mm there.",
                    "The printer can't reach that place: a part is missing.",
                    "Move it inwards, or choose another printer."}},
    FindingMessage{
        kNoArea,
        "no-area",
        kError,
        {"图片框的大小是 {0} × {1}。", "看不到图片。", "填入 FWidth 和 FHeight。"},
        {"The image's box is {0} × {1}.", "The image can't be seen.", "Enter FWidth and FHeight."}},
    FindingMessage{
        kBoxSize,
        "box-size",
        kWarning,
        {"文字框的大小是 {0} × {1}。", "文字不在框里：居中和靠右的会向左伸，上下也对不齐。",
         "填入 FWidth 和 FHeight。"},
        {"The text's box is {0} × {1}.",
         "The text stands beside its place: to the left of it when centred or right-aligned.",
         "Enter FWidth and FHeight."}},
    FindingMessage{kLineLength,
                   "line-length",
                   kError,
                   {"线没有长度（FWidth {0}、FHeight {1}）。", "只印出一个点。",
                    "横线填 FWidth，竖线填 FHeight。"},
                   {"The line has no length (FWidth {0}, FHeight {1}).", "Only a dot is printed.",
                    "Enter FWidth for a line to the right, FHeight for one downwards."}},
};

}  // namespace

constinit const std::span<const FindingMessage> kSheetMessages = kMessages;

}  // namespace td::checker
