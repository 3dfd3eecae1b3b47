#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{kBarcodeRefused,
                   "barcode-refused",
                   kError,
                   {"条码内容“{0}”不能用：{1}", "只印出文字，没有条码。",
                    "改正内容，或在 barcode.conf 中换一种条码。"},
                   {"The barcode's text “{0}” can't be carried: {1}",
                    "Only its letters are printed, without bars.",
                    "Correct the text, or choose another code in barcode.conf."}},
    FindingMessage{
        kBarcodeNarrow,
        "barcode-narrow",
        kWarning,
        {"条码“{0}”最细的线宽 {1} 毫米，203 dpi 的打印机上只有 {2} 点。", "扫描枪可能读不出来。",
         "框宽至少 {3} 毫米，或用更短的内容。"},
        {"The narrowest bar of the code “{0}” is {1} mm wide, {2} dots of a printer of 203 dpi.",
         "Scanners may fail to read it.", "Make the box {3} mm wide, or the text shorter."}},
};

}  // namespace

constinit const std::span<const FindingMessage> kBarcodeMessages = kMessages;

}  // namespace td::checker
