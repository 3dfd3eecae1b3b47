#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{
        kFormatString,
        "format-string",
        kWarning,
        {"格式串“{0}”的意思和看上去不同。", "{1} 印成“{2}”。",
         "<3?写作 {3}。|字母和点要放在双引号里。>"},
        {"The picture “{0}” means something else than it seems.", "{1} is printed as “{2}”.",
         "<3?Write {3}.|Put letters and points into double quotes.>"}},
    FindingMessage{
        kFormatStringConstant,
        "format-string-constant",
        kError,
        {"格式串“{0}”里没有数字的位置。", "任何数都印成“{1}”。", "用 0 或 # 表示数字的位置。"},
        {"The picture “{0}” has no place for digits.", "Every number is printed as “{1}”.",
         "0 and # are the places of digits."}},
    FindingMessage{kFormatStringDate,
                   "format-string-date",
                   kWarning,
                   {"格式串“{0}”是日期的，而格式串只对数起作用。",
                    "日期照原样印出；数 {1} 印成“{2}”。", "让数据给出写好的日期文字，格式串留空。"},
                   {"The picture “{0}” is one of dates, and pictures reach numbers only.",
                    "Dates are printed as they are, and {1} as “{2}”.",
                    "Deliver the date as a text that is ready, and leave the picture empty."}},
    FindingMessage{
        kFormatStringUnused,
        "format-string-unused",
        kWarning,
        {"格式串“{0}”在这里不起作用。", "值照原样印出。", "让数据给出已经排好的文字，格式串留空。"},
        {"The picture “{0}” has no effect here.", "The value is printed as it is.",
         "Deliver it as a text that is ready, and leave the picture empty."}},
};

}  // namespace

constinit const std::span<const FindingMessage> kFormatStringMessages = kMessages;

}  // namespace td::checker
