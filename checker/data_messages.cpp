#include <array>

#include "checker/message_tables.h"

namespace td::checker {
namespace {

using enum FindingKind;
using enum Severity;

constexpr std::array kMessages = {
    FindingMessage{kDataNoBill,
                   "data-no-bill",
                   kError,
                   {"数据中没有 FInterID 列。", "打印进行不下去。",
                    "查询给出 FInterID；不分单据时写 0 as FInterID。"},
                   {"The rows have no column FInterID.", "The print fails.",
                    "Deliver it: 0 as FInterID for rows of no bill."}},
    FindingMessage{
        kDataNoRows,
        "data-no-rows",
        kWarning,
        {"查询没有返回任何行。", "tdprint 不打印；程序打印的是空表。", "检查查询的条件。"},
        {"The query gave no row.", "tdprint prints nothing, programs an empty form.",
         "Look at the query's condition."}},
    FindingMessage{
        kDataScattered,
        "data-scattered",
        kError,
        {"单据 {0} 的行没有排在一起：第 {1} 行又是它。", "单据被拆成几份，合计和页眉取错。",
         "查询按 FInterID 排序。"},
        {"The rows of bill {0} don't stand together: row {1} is of it again.",
         "The bill is split, with wrong totals and heads.", "Order the query by FInterID."}},
    FindingMessage{kDataNoArea,
                   "data-no-area",
                   kError,
                   {"数据中没有 FStockArea 列，却要按库区打印。", "每一行单独占一页。",
                    "让查询给出 FStockArea。"},
                   {"The rows have no column FStockArea, and are printed by stock area.",
                    "Each row gets a page of its own.", "Deliver FStockArea."}},
    FindingMessage{kAreasScattered,
                   "areas-scattered",
                   kError,
                   {"库区“{0}”的行没有排在一起：第 {1} 行又是它。", "一个库区分成几处，各有一页。",
                    "查询按 FStockArea 排序。"},
                   {"The rows of area “{0}” don't stand together: row {1} is of it again.",
                    "The area is printed in several places.", "Order the query by FStockArea."}},
    FindingMessage{
        kColumnMissing,
        "column-missing",
        kError,
        {"数据中没有列 {0}<1?，是否指 {1}|>？", "<2?只印出标题。|什么也不印，也没有提示。>",
         "<1?在 TDVariant 中改为 {1}，或让查询给出 {0}。|让查询给出 {0}，或删去项目。>"},
        {"The rows have no column {0}<1?: is {1} meant?|.>",
         "<2?Only the caption is printed.|Nothing is printed, without a message.>",
         "<1?Write {1} in TDVariant, or deliver {0}.|Deliver {0}, or remove the item.>"}},
    FindingMessage{kImageColumnMissing,
                   "image-column-missing",
                   kError,
                   {"数据中没有列 {0}。", "印出的是前一次的图；第一次印的是条码控件自带的样例。",
                    "让查询给出 {0}，或删去项目。"},
                   {"The rows have no column {0}.",
                    "The image before it is drawn once more; the first time that is a sample code.",
                    "Deliver {0}, or remove the item."}},
    FindingMessage{kImageValueNull,
                   "image-value-null",
                   kError,
                   {"列 {0} 在 {2} 次中有 {1} 次是空值（NULL）；先是单据 {3} 第 {4} 行。",
                    "那里印出的是前一次的图。", "让查询给出 {0}。"},
                   {"The column {0} is Null in {1} of {2} cases, first in bill {3}, row {4}.",
                    "The image before it is drawn there once more.", "Deliver {0}."}},
    FindingMessage{
        kNextBill,
        "next-bill",
        kWarning,
        {"列 {0} 在单据 {1} 的末页上取自下一张单据 {2}。", "印出“{3}”，而这张单据的值是“{4}”。",
         "带格式串的数改由数据给出文字；FFooterPerPage=1 时放到明细之后（FSite 4）；或逐张打印。"},
        {"The column {0} is read from the next bill {2} on the last page of bill {1}.",
         "“{3}” is printed, and the value of this bill is “{4}”.",
         "Deliver numbers under a picture as texts; with FFooterPerPage=1 put it behind the "
         "rows (FSite 4); or print one bill at a time."}},
    FindingMessage{kValueNull,
                   "value-null",
                   kHint,
                   {"列 {0} 在 {2} 次中有 {1} 次是空值（NULL）；先是单据 {3} 第 {4} 行。",
                    "<5?那里只印标题。|那里的框是空的。>", "要印 0 或空白时，让查询给出。"},
                   {"The column {0} is Null in {1} of {2} cases, first in bill {3}, row {4}.",
                    "<5?Only the caption is printed there.|The box is empty there.>",
                    "Deliver 0 or a text where something shall stand."}},
    FindingMessage{kValueAlwaysNull,
                   "value-always-null",
                   kWarning,
                   {"列 {0} 一直是空值（NULL）。", "<1?只印出标题。|框是空的。>", "检查查询。"},
                   {"The column {0} is Null throughout.",
                    "<1?Only the caption is printed.|The box is empty.>", "Look at the query."}},
    FindingMessage{kSumColumnMissing,
                   "sum-column-missing",
                   kError,
                   {"数据中没有列 {1}，{0} 要从它相加。", "合计是 {2}。", "让查询给出 {1}。"},
                   {"The rows have no column {1}, which {0} is summed from.", "The sum is {2}.",
                    "Deliver {1}."}},
    FindingMessage{
        kMarkerColumnMissing,
        "marker-column-missing",
        kError,
        {"数据中没有列 FMainQty，所有的行都当作不计入合计的行。",
         "{0} 的合计是 {1}，而行上有金额。", "让查询给出 FMainQty，没有时写 0 as FMainQty。"},
        {"The rows have no column FMainQty: all of them count as rows outside the sums.",
         "{0} is {1} below rows with amounts.", "Deliver FMainQty, if need be as 0 as FMainQty."}},
    FindingMessage{kMarkerRows,
                   "marker-rows",
                   kHint,
                   {"{0} 行的 FMainQty 是 −999.99。", "照印，但不计入合计。",
                    "这是说明行；若不是，改正数据。"},
                   {"<1?{0} rows have|1 row has> FMainQty −999.99.",
                    "<1?They are|It is> printed and <1?stay|stays> out of the sums.",
                    "<1?They are remarks|It is a remark>; if not, correct the data."}},
    FindingMessage{
        kRowsNowhere,
        "rows-nowhere",
        kError,
        {"{1} 行数据中有 {0} 行没有印在任何地方。",
         "这些行被略过：没有项目印出它们的值，也不提示。",
         "每页打印行数 FRowsPerPage 是 {2}：每一行就是一页时填 1；否则给明细行加上项目。"},
        {"{0} of {1} rows appear nowhere.",
         "They are passed over without a message: no item prints a value of theirs.",
         "FRowsPerPage is {2}: enter 1 where each row is a page; otherwise give the row "
         "band items."}},
    FindingMessage{kAmountText,
                   "amount-text",
                   kWarning,
                   {"列 {0} 的值“{1}”是文字，合计只取开头的 {2}。", "{3} 的合计不对。",
                    "让查询给出数，不带千分位。"},
                   {"The column {0} holds the text “{1}”, of which sums take {2}.", "{3} is wrong.",
                    "Deliver a number, without commas."}},
};

}  // namespace

std::span<const FindingMessage> DataMessages() {
  return kMessages;
}

}  // namespace td::checker
