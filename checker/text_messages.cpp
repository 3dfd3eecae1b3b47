#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{kFontMissing,
                   "font-missing",
                   kWarning,
                   {"字体“{0}”没有安装，{2} 个项目用到。", "用“{1}”代替，字形和宽度可能不同。",
                    "安装这种字体，或在 fonts.conf 中指定代替它的字体。"},
                   {"The font “{0}” isn't installed; items that have it: {2}.",
                    "“{1}” stands in for it, with other shapes and widths.",
                    "Install it, or name the family that shall stand for it in fonts.conf."}},
    FindingMessage{kTextTooLong,
                   "text-too-long",
                   kWarning,
                   {"“{0}”宽 {1} 毫米，框宽 {2} 毫米。", "伸出框外 {3} 毫米，可能压住旁边的内容。",
                    "加宽框、缩小字号，或设 FWordWrap=1。"},
                   {"“{0}” is {1} mm wide, its box {2} mm.",
                    "It runs {3} mm out of its box, possibly over its neighbour.",
                    "Make the box wider or the font smaller, or set FWordWrap=1."}},
    FindingMessage{kTextTooHigh,
                   "text-too-high",
                   kWarning,
                   {"“{0}”有 {1} 行，高 {2} 毫米，框高 {3} 毫米。",
                    "上下伸出框外，可能压住上下的内容。", "加高或加宽框，或缩小字号。"},
                   {"“{0}” has {1} lines, {2} mm high; its box is {3} mm.",
                    "It runs out of its box above and below.",
                    "Make the box higher or wider, or the font smaller."}},
    FindingMessage{
        kTextsOverlap,
        "texts-overlap",
        kWarning,
        {"“{0}”和“{1}”的“{2}”重叠 {3} × {4} 毫米。", "两处文字印在一起，看不清。",
         "<5?FAdjuctHeader 把第一页之后各页的列标题、明细行等移动 {5} "
         "毫米：改正它，或逐张打印单据。|><6?移开其中一个，或缩小条码框。|><7?"
         "移开其中一个，或缩小字号。|>"},
        {"“{0}” lies over “{2}” of “{1}” by {3} × {4} mm.", "Both are printed into each other.",
         "<5?FAdjuctHeader moves the bands below the head by {5} mm on all pages but the first: "
         "correct it, or print one bill at a time.|><6?Move one of them, or make the code's box "
         "smaller.|><7?Move one of them, or make the font smaller.|>"}},
};

}  // namespace

constinit const std::span<const FindingMessage> kTextMessages = kMessages;

}  // namespace td::checker
