#include "explanation/words.h"

#include <algorithm>
#include <array>

namespace td {
namespace {

constexpr std::array kCauses = {
    CauseWords{Cause::kMissingColumn,
               "missingColumn",
               {"the data have no column {0}", "打印数据中没有 {0} 列"}},
    CauseWords{
        Cause::kNullColumn, "nullColumn", {"{0} is Null in the data", "打印数据的 {0} 为 Null"}},
    CauseWords{Cause::kMissingItemColumn,
               "missingItemColumn",
               {"the table TDBillDetail has no column {0}", "表 TDBillDetail 没有 {0} 列"}},
    CauseWords{Cause::kNullItemColumn,
               "nullItemColumn",
               {"{0} of the item is Null", "该项的 {0} 为 Null"}},
    CauseWords{Cause::kFailedStep, "failedStep", {"a step failed: {1}", "有一步出错：{1}"}},
    CauseWords{Cause::kUnknownKind,
               "unknownKind",
               {"FTypeID is none of 0 (text), 1 (line) and 2 (picture)",
                "FTypeID 不是 0（文本）、1（线）或 2（图片）"}},
    CauseWords{Cause::kNullInBox,
               "nullInBox",
               {"{0} is Null in the data, and a box of the head then stays empty, label included",
                "打印数据的 {0} 为 Null，页眉中的框连同标题都不印"}},
    CauseWords{Cause::kNullDirection,
               "nullDirection",
               {"{0} is Null in the data: there is no quantity of this direction",
                "打印数据的 {0} 为 Null：没有这一方向的数量"}},
    CauseWords{
        Cause::kNoPicture,
        "noPicture",
        {"the goods have no picture in t_icitem_Picture", "t_icitem_Picture 中没有该商品的图片"}},
    CauseWords{Cause::kUnknownVariable,
               "unknownVariable",
               {"TDVariant has no FVarCaption '{2}' for this bill type, only the label is drawn",
                "TDVariant 中该单据类型没有 FVarCaption 为“{2}”的变量，只印标题"}},
    CauseWords{Cause::kUnknownImage,
               "unknownImage",
               {"{2} is no image of this band or of this kind of print, only the label is drawn",
                "此区或此类打印不支持图像“{2}”，只印标题"}},
    CauseWords{Cause::kRepeatedCaption,
               "repeatedCaption",
               {"FObjectCaption repeats FObjectFieldName and is left out",
                "FObjectCaption 与 FObjectFieldName 相同，不印标题"}},
    CauseWords{Cause::kHeadIsOnSheet,
               "headIsOnSheet",
               {"with blank rows at the start the head is on the sheet already",
                "从空行起打印时，纸上已有页眉"}},
    CauseWords{Cause::kSumIsNotKept,
               "sumIsNotKept",
               {"a print by stock area doesn't keep this sum", "按库区打印时不计此合计"}},
    CauseWords{Cause::kQuantityNotComposed,
               "quantityNotComposed",
               {"no quantity of a main unit, and the setting MustShowComplexQty isn't 1: the text "
                "that the band composed last is drawn",
                "没有主单位数量，且系统参数 MustShowComplexQty 不为 1：印出本区上一次组成的文本"}},
    CauseWords{Cause::kStampNotWritten,
               "stampNotWritten",
               {"the total page count was not written there: its item must stand on page 1, or in "
                "the column head, and have a font",
                "总页数未写到此处：该项须在第 1 页出现或位于列标题，并指定字体"}},
    CauseWords{Cause::kStampTaken,
               "stampTaken",
               {"another item took the place of the total page count", "总页数的位置被另一项占用"}},
    CauseWords{Cause::kEmptyValue,
               "emptyValue",
               {"{0} is an empty text in the data", "打印数据的 {0} 为空文本"}},
    CauseWords{Cause::kUnknownBand,
               "unknownBand",
               {"there is no band {3}, FSite is 1 to 5", "没有第 {3} 区，FSite 应为 1 至 5"}},
    CauseWords{Cause::kBandNotDrawn,
               "bandNotDrawn",
               {"its band was not drawn in this print", "本次打印没有印此区"}},
    CauseWords{Cause::kNotVariable,
               "notVariable",
               {"only variable items were asked for, and neither FIsVariant nor FMustPrint is 1",
                "只要求印变量项，而 FIsVariant 和 FMustPrint 都不为 1"}},
    CauseWords{Cause::kHiddenPosition,
               "hiddenPosition",
               {"FLeft or FTop is negative or Null, which hides it",
                "FLeft 或 FTop 为负数或 Null，该项被隐藏"}},
    CauseWords{Cause::kBandStopped,
               "bandStopped",
               {"the band ended before it: {1}", "此区在该项之前中止：{1}"}},
};

constexpr std::array kMarkers = {
    MarkerWords{MarkerCause::kMissingColumn,
                "missingColumn",
                {"the data have no column FMainQty", "打印数据中没有 FMainQty 列"}},
    MarkerWords{
        MarkerCause::kMarkerValue, "markerValue", {"FMainQty is -999.99", "FMainQty 为 -999.99"}},
    MarkerWords{MarkerCause::kNoNumber,
                "noNumber",
                {"FMainQty is a text that is no number", "FMainQty 是非数字文本"}},
};

}  // namespace

const CauseWords& WordsOf(Cause cause) {
  return *std::ranges::find(kCauses, cause, &CauseWords::cause);
}

const MarkerWords& WordsOf(MarkerCause cause) {
  return *std::ranges::find(kMarkers, cause, &MarkerWords::cause);
}

}  // namespace td
