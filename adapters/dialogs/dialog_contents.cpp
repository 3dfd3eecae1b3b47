#include "dialogs/dialog_contents.h"

#include <algorithm>
#include <array>

#include "platform/control_names.h"

namespace td {
namespace {

constexpr std::array<DialogField, 8> kSettingsFields = {
    ListField{controls::kFormats, "已登记套打格式："},
    NumberField{controls::kLeft, "左右偏移量：", kTwipsUnit, "（越大越靠右）"},
    NumberField{controls::kTop, "上下偏移量：", kTwipsUnit, "（越大越靠下）"},
    NumberField{controls::kHeader, "第二页表头上下偏移量：", kTwipsUnit},
    NumberField{controls::kRowHeight, "每行高度：", kTwipsUnit},
    NumberField{controls::kRowsPerPage, "每页打印行数：", "行"},
    NumberField{controls::kQtysPerRow, "复合上次欠款每行打印条数：", "条"},
    ListField{controls::kPrinterList, "首选打印机："},
};

constexpr std::array kOrientations = {"纵向", "横向"};
constexpr OptionGroup kOrientation = {controls::kOrientation, "打印方向", kOrientations};

constexpr std::array kPageOptions = {
    CaptionedControl{controls::kHeaderPerPage, "每页打印完整页眉"},
    CaptionedControl{controls::kFooterPerPage, "每页打印完整页脚"},
    CaptionedControl{controls::kIntegralPage, "不足整页时打印空表格"},
};

constexpr std::array<DialogField, 4> kAreaPrinterFields = {
    ListField{controls::kBillTypes, "单据类型："},
    ListField{controls::kAreaFormats, "套打格式："},
    ListField{controls::kStockAreas, "仓库库区："},
    ListField{controls::kPrinterList, "默认打印机："},
};

constexpr std::array kDialogs = {
    DialogContents{.name = "frmAdjuct",
                   .title = "套打设置",
                   .fields = kSettingsFields,
                   .options = &kOrientation,
                   .checkBoxes = kPageOptions,
                   .confirm = {controls::kConfirm, "确定(&O)"},
                   .leave = {controls::kLeave, "取消(&C)"}},
    DialogContents{.name = "frmAreaPrintSet",
                   .title = "分库区打印设置",
                   .fields = kAreaPrinterFields,
                   .options = nullptr,
                   .checkBoxes = {},
                   .confirm = {controls::kConfirm, "保存(&S)"},
                   .leave = {controls::kLeave, "关闭(&C)"}},
};

}  // namespace

const DialogContents* FindDialogContents(std::string_view name) {
  const auto* found = std::ranges::find(kDialogs, name, &DialogContents::name);
  return found == kDialogs.end() ? nullptr : found;
}

}  // namespace td
