#include <QFontDatabase>
#include <algorithm>

#include "designer/panels/item_groups.h"
#include "designer/view/words.h"
#include "qt/render/fonts.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

constexpr NumberForm kFontSize = {NumberUnit::kPoints, 2, 1, 500, 0.5};

// Names that formats usually have, whatever this machine has installed, then what it has.
QStringList FontNames() {
  QStringList names = {QStringLiteral("宋体"),        QStringLiteral("黑体"),
                       QStringLiteral("楷体"),        QStringLiteral("仿宋"),
                       QStringLiteral("微软雅黑"),    QStringLiteral("Arial"),
                       QStringLiteral("Courier New"), QStringLiteral("Times New Roman")};
  for (const QString& family : QFontDatabase::families()) {
    if (!QFontDatabase::isPrivateFamily(family) && !names.contains(family)) names << family;
  }
  return names;
}

QString SampleText(const std::vector<const Item*>& items) {
  const QString text = items.empty() ? QString() : NameOfItem(*items.front());
  return text + (text.isEmpty() ? QString() : QStringLiteral("  ")) +
         QStringLiteral("永和九年 AaBb 0123");
}

}  // namespace

FontGroup::FontGroup(EditedItems& items) : FieldGroup(Say("Font")), items_(items) {
  Add(Say("F&ont"),
      new ListedTextField(items, "FFontName", FontNames(), ListedTextField::Typing::kWhenFinished));
  Add(Say("Si&ze"), new NumberField(items, "FFontSize", kFontSize));
  AddWide(new FlagField(items, "FFontBold", Say("Bold")));
  AddWide(new FlagField(items, "FFontItalic", Say("Italic")));
  sample_ = new QLabel;
  sample_->setObjectName(QStringLiteral("FontSample"));
  sample_->setTextFormat(Qt::PlainText);
  sample_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  Form().addRow(sample_);
  standIn_ = AddNote();
  standIn_->setObjectName(QStringLiteral("FontStandIn"));
}

void FontGroup::Refresh() {
  FieldGroup::Refresh();
  constexpr double kLargestSample = 28;  // points
  const SharedValue name = items_.Shared("FFontName");
  const SharedValue size = items_.Shared("FFontSize");
  const SharedValue bold = items_.Shared("FFontBold");
  const SharedValue italic = items_.Shared("FFontItalic");
  const bool isOne = name.isThere && !name.isMixed && !IsNull(name.value);
  sample_->setVisible(isOne);
  standIn_->setVisible(isOne);
  if (!isOne) return;
  const QString wanted = WordsFor(name);
  const QStringList families = FontTable::Instance().Families(wanted.toStdString());
  QFont font(families);
  const double points = IsNumeric(size.value) ? ToDouble(size.value) : font.pointSizeF();
  font.setPointSizeF(std::clamp(points, 1.0, kLargestSample));
  font.setBold(bold.isSet && !bold.isMixed);
  font.setItalic(italic.isSet && !italic.isMixed);
  sample_->setFont(font);
  sample_->setText(SampleText(items_.Items()));
  const bool standsIn =
      !families.isEmpty() && families.front().compare(wanted.trimmed(), Qt::CaseInsensitive) != 0;
  standIn_->setText(standsIn ? Say("Not on this machine: %1 stands in.").arg(families.front())
                             : QString());
  Form().setRowVisible(standIn_, standsIn);
}

}  // namespace td::designer
