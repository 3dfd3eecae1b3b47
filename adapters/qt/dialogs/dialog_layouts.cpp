#include "qt/dialogs/dialog_layouts.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "platform/control_names.h"
#include "qt/dialogs/field_grid.h"

namespace td {
namespace {

struct Caption {
  const char* name;
  const char* text;
};

constexpr ListField kFormatList = {controls::kFormats, "已登记套打格式："};
constexpr std::array kNumbers = {
    NumberField{controls::kLeft, "左右偏移量：", kTwipsUnit, "（越大越靠右）"},
    NumberField{controls::kTop, "上下偏移量：", kTwipsUnit, "（越大越靠下）"},
    NumberField{controls::kHeader, "第二页表头上下偏移量：", kTwipsUnit},
    NumberField{controls::kRowHeight, "每行高度：", kTwipsUnit},
    NumberField{controls::kRowsPerPage, "每页打印行数：", "行"},
    NumberField{controls::kQtysPerRow, "复合上次欠款每行打印条数：", "条"},
};
constexpr ListField kPreferredPrinter = {controls::kPrinterList, "首选打印机："};
constexpr std::array kPageOptions = {
    Caption{controls::kHeaderPerPage, "每页打印完整页眉"},
    Caption{controls::kFooterPerPage, "每页打印完整页脚"},
    Caption{controls::kIntegralPage, "不足整页时打印空表格"},
};

constexpr std::array kAreaPrinterFields = {
    ListField{controls::kBillTypes, "单据类型："},
    ListField{controls::kAreaFormats, "套打格式："},
    ListField{controls::kStockAreas, "仓库库区："},
    ListField{controls::kPrinterList, "默认打印机："},
};

QLayout* Buttons(DialogWindow& window, const Caption& confirm, const Caption& leave) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (const Caption& caption : {confirm, leave}) {
    row->addWidget(
        window.MakeButton(QString::fromUtf8(caption.name), QString::fromUtf8(caption.text)));
  }
  window.Named<QPushButton>(confirm.name).setDefault(true);
  return row;
}

QWidget* Orientation(DialogWindow& window) {
  auto* frame = new QGroupBox(QStringLiteral("打印方向"), &window);
  auto* column = new QVBoxLayout(frame);
  const QStringList captions = {QStringLiteral("纵向"), QStringLiteral("横向")};
  for (QAbstractButton* option :
       window.MakeOptions(QString::fromUtf8(controls::kOrientation), captions)->buttons()) {
    column->addWidget(option);
  }
  column->addStretch();
  return frame;
}

QLayout* PageOptions(DialogWindow& window) {
  auto* column = new QVBoxLayout;
  for (const Caption& caption : kPageOptions) {
    column->addWidget(
        window.MakeCheckBox(QString::fromUtf8(caption.name), QString::fromUtf8(caption.text)));
  }
  return column;
}

// Fields, buttons and what lies between them are set apart by some room.
QVBoxLayout* MakeWhole(DialogWindow& window) {
  constexpr int kRoom = 12;
  auto* whole = new QVBoxLayout(&window);
  whole->setSpacing(kRoom);
  return whole;
}

void LayOutSettings(DialogWindow& window) {
  QVBoxLayout* whole = MakeWhole(window);
  auto* fields = new FieldGrid(window);
  whole->addLayout(fields);
  fields->AddField(kFormatList);
  for (const NumberField& field : kNumbers) fields->AddField(field);
  fields->AddField(kPreferredPrinter);
  auto* page = new QHBoxLayout;
  page->setSpacing(whole->spacing());
  page->addWidget(Orientation(window), 1);
  page->addLayout(PageOptions(window), 1);
  whole->addLayout(page);
  whole->addStretch();
  whole->addLayout(
      Buttons(window, {controls::kConfirm, "确定(&O)"}, {controls::kLeave, "取消(&C)"}));
}

void LayOutAreaPrinters(DialogWindow& window) {
  QVBoxLayout* whole = MakeWhole(window);
  auto* fields = new FieldGrid(window);
  whole->addLayout(fields);
  for (const ListField& field : kAreaPrinterFields) fields->AddField(field);
  whole->addStretch();
  whole->addLayout(
      Buttons(window, {controls::kConfirm, "保存(&S)"}, {controls::kLeave, "关闭(&C)"}));
}

constexpr std::array kLayouts = {
    DialogLayout{"frmAdjuct", "套打设置", LayOutSettings},
    DialogLayout{"frmAreaPrintSet", "分库区打印设置", LayOutAreaPrinters},
};

}  // namespace

const DialogLayout* FindDialogLayout(std::string_view name) {
  const auto* found = std::find_if(kLayouts.begin(), kLayouts.end(),
                                   [&](const DialogLayout& layout) { return layout.name == name; });
  return found == kLayouts.end() ? nullptr : found;
}

}  // namespace td
