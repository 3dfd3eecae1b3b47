// The sentences of an explanation.
#pragma once

#include <string_view>

#include "explanation/explanation.h"
#include "explanation/language.h"

namespace td {

// One for each cause: its sentence, in which {0} is the column, {1} the words of a failure, {2} the
// item's name and {3} its FSite, and its name for programs.
struct CauseWords {
  Cause cause{};
  std::string_view name;
  Sentence sentence;
};

[[nodiscard]] const CauseWords& WordsOf(Cause cause);

struct MarkerWords {
  MarkerCause cause{};
  std::string_view name;
  Sentence sentence;
};

[[nodiscard]] const MarkerWords& WordsOf(MarkerCause cause);

namespace words {

inline constexpr Sentence kNoRun{"nothing was printed: no run took place", "没有打印过任何单据"};
inline constexpr Sentence kNoFormat{"bill type {0}: no format was found, nothing was printed",
                                    "单据类型 {0}：未找到套打格式，没有打印"};
inline constexpr Sentence kSummary{"format {0} (bill type {1}): pages {2}, rows {3}, bills {4}",
                                   "格式“{0}”（单据类型 {1}）：{2} 页，{3} 行，{4} 张单据"};
inline constexpr Sentence kAreaSummary{
    "format {0} (bill type {1}): pages {2}, rows {3}, stock areas {4}",
    "格式“{0}”（单据类型 {1}）：{2} 页，{3} 行，{4} 个库区"};
inline constexpr Sentence kAllAsFormat{"items drawn as the format says: {0} of {1}",
                                       "按格式印出的项：{1} 项中的 {0} 项"};
inline constexpr Sentence kOnSheet{"items left out because only variable items were asked for: {0}",
                                   "因只要求印变量项而未印出的项：{0} 项"};
inline constexpr Sentence kHeadOnSheet{
    "items of the head left empty because it is on the sheet already (blank rows at the start): "
    "{0}",
    "从空行起打印，纸上已有页眉，留空的项：{0} 项"};
inline constexpr Sentence kItemsUnread{"the items that no band reached can't be read: {0}",
                                       "读不出未被印到的项：{0}"};

inline constexpr Sentence kItem{"{0}, {1}: {2}", "{0}，{1}：{2}"};
inline constexpr Sentence kItemWithVariable{"{0} (variable {1}) at {2}", "{0}（变量 {1}，{2}）"};
inline constexpr Sentence kItemAlone{"{0} at {1}", "{0}（{1}）"};
inline constexpr Sentence kMillimetres{"{0}, {1} mm", "左 {0}、上 {1} 毫米"};
inline constexpr Sentence kText{"text", "文本"};
inline constexpr Sentence kLine{"line", "线"};
inline constexpr Sentence kPicture{"picture", "图片"};

inline constexpr Sentence kNeverDrawn{"never drawn: {0}", "从未印出：{0}"};
inline constexpr Sentence kNotDrawn{"not drawn {0} of {1} times: {2}",
                                    "{1} 次中有 {0} 次未印出：{2}"};
inline constexpr Sentence kDrawnOtherwise{"drawn, but {1} of {0} times: {2}",
                                          "已印出，但 {0} 次中有 {1} 次：{2}"};
inline constexpr Sentence kDrawnEmpty{"drawn, but {1} of {0} times as an empty text",
                                      "已印出，但 {0} 次中有 {1} 次为空文本"};
inline constexpr Sentence kFirst{"{0} (first: {1})", "{0}（首次：{1}）"};

inline constexpr Sentence kMarkerRows{
    "marker rows, which stand outside all sums but FSumTotalPage: {0} of {1} rows: {2}",
    "标记行（除 FSumTotalPage 外不计入任何合计）：{1} 行中的 {0} 行：{2}"};
inline constexpr Sentence kSum{"sum {0}: {1} from {2} rows ({3})", "合计 {0}：{2} 行共 {1}（{3}）"};
inline constexpr Sentence kNoImageNoLabel{
    "{0} is no image of this band or of this kind of print, and there is no label: nothing is "
    "drawn",
    "此区或此类打印不支持图像“{0}”，又没有标题：什么也不印"};
inline constexpr Sentence kNoVariableNoLabel{
    "TDVariant has no FVarCaption '{0}' for this bill type, and there is no label: nothing is "
    "drawn",
    "TDVariant 中该单据类型没有 FVarCaption 为“{0}”的变量，又没有标题：什么也不印"};
inline constexpr Sentence kPageSum{"sum {0}: of each page; all pages {1} from {2} rows ({3})",
                                   "合计 {0}：每页各计；各页共 {1}，{2} 行（{3}）"};
inline constexpr Sentence kEmptySum{"sum {0}: no row added anything", "合计 {0}：没有任何行计入"};
inline constexpr Sentence kSumWithout{"; {0} rows without a number", "；{0} 行没有数值"};
inline constexpr Sentence kSumMissing{"; the data have no column {0}", "；打印数据中没有 {0} 列"};
inline constexpr Sentence kBill{"bill {0}: rows {1}, marker rows {2}, rows passed over {3}",
                                "单据 {0}：{1} 行，标记行 {2} 行，跳过 {3} 行"};
inline constexpr Sentence kArea{"stock area {0}: rows {1}, marker rows {2}, rows passed over {3}",
                                "库区 {0}：{1} 行，标记行 {2} 行，跳过 {3} 行"};
inline constexpr Sentence kPageWithoutRows{"page {0} has no row", "第 {0} 页没有数据行"};

inline constexpr Sentence kShown{"message: {0}", "提示：{0}"};
inline constexpr Sentence kShownOften{"message, {1} times: {0}", "提示（{1} 次）：{0}"};
inline constexpr Sentence kPassedOver{"passed over {1} times: {0}", "忽略 {1} 次：{0}"};
inline constexpr Sentence kOfColumn{"{0}, column {1}", "{0}，列 {1}"};
inline constexpr Sentence kAtPlace{"{0} ({1})", "{0}（{1}）"};
inline constexpr Sentence kLockWaits{"something locked by others was tried again {0} times",
                                     "数据被其他用户占用，重试 {0} 次"};

}  // namespace words
}  // namespace td
