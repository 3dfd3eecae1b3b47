#include "designer/panels/palette_panel.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

#include "designer/panels/field_group.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"
#include "qt/fields/choice_list.h"
#include "qt/fields/wheel_guard.h"

namespace td::designer {
namespace {

constexpr int kChoice = Qt::UserRole;  // the place in the list of choices
constexpr int kAnyBand = 0;

}  // namespace

class PaletteTree : public QTreeWidget {
 public:
  explicit PaletteTree(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(2);
    setHeaderHidden(true);
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    setTextElideMode(Qt::ElideMiddle);
    setUniformRowHeights(true);
    setIndentation(fontMetrics().averageCharWidth() * 2);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  }

  // The names take what the bands leave; in one band alone grey says it.
  void ShareWidth() {
    const int width = viewport()->width();
    const int bands = isColumnHidden(1) ? 0 : std::min(sizeHintForColumn(1), width / 3);
    header()->resizeSection(0, width - bands);
  }

  std::function<std::unique_ptr<QMimeData>(const QTreeWidgetItem& entry)> dragged;

 protected:
  QMimeData* mimeData(const QList<QTreeWidgetItem*>& entries) const override {
    return entries.isEmpty() ? nullptr : dragged(*entries.front()).release();
  }
  void resizeEvent(QResizeEvent* event) override {
    QTreeWidget::resizeEvent(event);
    ShareWidth();
  }
};

PalettePanel::PalettePanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace) {
  LayOut();
  Fill();
  listener_ = workspace.document.AddListener([this](const DocumentChange& change) {
    if (change.variables) Fill();
  });
  GuardFieldsAgainstWheel(*this);
}

PalettePanel::~PalettePanel() {
  workspace_.document.RemoveListener(listener_);
}

void PalettePanel::LayOut() {
  band_ = new ChoiceList(this);
  band_->setObjectName(QStringLiteral("PaletteBand"));
  band_->setAccessibleName(Say("Band"));
  band_->addItem(Say("Into the band under the mouse"), kAnyBand);
  for (const ItemSite site : kAllSites) {
    const int code = static_cast<int>(site);
    band_->addItem(Say("Into: %1").arg(NameOfBand(code)), code);
  }
  filter_ = new QLineEdit(this);
  filter_->setObjectName(QStringLiteral("PaletteFilter"));
  filter_->setPlaceholderText(Say("Search"));
  filter_->setAccessibleName(Say("Search"));
  filter_->setClearButtonEnabled(true);
  tree_ = new PaletteTree(this);
  tree_->setObjectName(QStringLiteral("Palette"));
  tree_->setAccessibleName(Say("What can be put onto the sheet"));
  tree_->header()->setStretchLastSection(true);
  tree_->header()->setMinimumSectionSize(1);
  description_ = MakeNote(this);
  description_->setObjectName(QStringLiteral("PaletteDescription"));
  description_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  description_->setMinimumHeight(3 * fontMetrics().lineSpacing());
  auto* column = new QVBoxLayout(this);
  column->addWidget(band_);
  column->addWidget(filter_);
  column->addWidget(tree_, 1);
  column->addWidget(description_);
  connect(band_, &QComboBox::currentIndexChanged, this, [this] { ShowBand(); });
  connect(filter_, &QLineEdit::textChanged, this, [this] { Filter(); });
  connect(tree_, &QTreeWidget::currentItemChanged, this, [this] { Describe(); });
  connect(tree_, &QTreeWidget::itemActivated, this,
          [this](QTreeWidgetItem* entry) { Place(entry); });
  tree_->dragged = [this](const QTreeWidgetItem& entry) {
    DroppedChoice choice = choices_[entry.data(0, kChoice).toUInt()];
    choice.site = Band();
    return MimeOf(choice);
  };
}

QTreeWidgetItem* PalettePanel::AddGroup(const QString& name) {
  auto* group = new QTreeWidgetItem(tree_, {name});
  group->setFlags(Qt::ItemIsEnabled);
  group->setFirstColumnSpanned(true);
  QFont font = tree_->font();
  font.setBold(true);
  group->setFont(0, font);
  group->setExpanded(true);
  return group;
}

void PalettePanel::AddChoice(QTreeWidgetItem* group, const DroppedChoice& choice,
                             const QString& name) {
  auto* entry = new QTreeWidgetItem(group, {name, BandsOf(choice.choice)});
  entry->setData(0, kChoice, static_cast<uint>(choices_.size()));
  choices_.push_back(choice);
}

void PalettePanel::Fill() {
  const Format& format = workspace_.document.Current();
  tree_->clear();
  choices_.clear();
  QTreeWidgetItem* simple = AddGroup(Say("Texts, lines, pictures"));
  QTreeWidgetItem* variables = AddGroup(Say("Variables"));
  QTreeWidgetItem* images = AddGroup(Say("Images"));
  QTreeWidgetItem* fields = AddGroup(Say("Computed fields"));
  for (const ItemChoice& choice : ItemChoices()) {
    const QString name = NameOfChoice(choice);
    if (choice.kind == ChoiceKind::kImage) {
      AddChoice(images, {choice, {}}, name);
    } else if (choice.kind == ChoiceKind::kComputed) {
      const Variable* variable = VariableNamed(format, std::string(choice.name));
      const std::string caption =
          variable != nullptr ? variable->Caption() : FreeCaption(format, name.toStdString());
      AddChoice(fields, {choice, caption}, name);
    } else {
      const std::string text = choice.kind == ChoiceKind::kText ? name.toStdString() : "";
      AddChoice(simple, {choice, text}, name);
    }
  }
  for (const Variable& variable : format.variables) {
    AddChoice(variables, {{ChoiceKind::kVariable}, variable.Caption(), variable.Name()},
              QString::fromStdString(variable.Caption()));
  }
  ShowBand();
  Filter();
}

std::optional<ItemSite> PalettePanel::Band() const {
  const int code = band_->currentData().toInt();
  if (code == kAnyBand) return std::nullopt;
  return static_cast<ItemSite>(code);
}

QString PalettePanel::ReasonAgainstHere(const DroppedChoice& choice) const {
  const auto band = Band();
  return band ? ReasonAgainst(choice.choice, *band) : QString();
}

// What doesn't print in the band stays in its place, so that nobody searches for it.
void PalettePanel::ShowBand() {
  for (QTreeWidgetItemIterator entry(tree_, QTreeWidgetItemIterator::NoChildren); *entry != nullptr;
       ++entry) {
    if ((*entry)->parent() == nullptr) continue;
    const DroppedChoice& choice = choices_[(*entry)->data(0, kChoice).toUInt()];
    const QString reason = ReasonAgainstHere(choice);
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (reason.isEmpty()) flags |= Qt::ItemIsDragEnabled;
    (*entry)->setFlags(flags);
    for (int column = 0; column < tree_->columnCount(); ++column) {
      const bool isGrey = !reason.isEmpty() || column > 0;
      const auto group = reason.isEmpty() ? QPalette::Active : QPalette::Disabled;
      (*entry)->setForeground(
          column, isGrey ? palette().brush(
                               group, reason.isEmpty() ? QPalette::PlaceholderText : QPalette::Text)
                         : QBrush());
      (*entry)->setToolTip(column, reason.isEmpty() ? DescriptionOf(choice.choice) : reason);
    }
  }
  tree_->setColumnHidden(1, Band().has_value());
  tree_->ShareWidth();
  Describe();
}

void PalettePanel::Filter() {
  for (int i = 0; i < tree_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* group = tree_->topLevelItem(i);
    int shown = 0;
    for (int k = 0; k < group->childCount(); ++k) {
      QTreeWidgetItem* entry = group->child(k);
      const DroppedChoice& choice = choices_[entry->data(0, kChoice).toUInt()];
      const QString names = entry->text(0) + u'\n' + QString::fromStdString(choice.caption) +
                            u'\n' + QString::fromStdString(choice.column) + u'\n' +
                            QString::fromStdString(std::string(choice.choice.name));
      const bool isShown = names.contains(filter_->text(), Qt::CaseInsensitive);
      entry->setHidden(!isShown);
      shown += isShown ? 1 : 0;
    }
    group->setHidden(shown == 0);
  }
}

void PalettePanel::Describe() {
  const QTreeWidgetItem* entry = tree_->currentItem();
  if (entry == nullptr || entry->parent() == nullptr) {
    description_->setText(Say("Drag one to its place on the sheet, or double-click it."));
    return;
  }
  const DroppedChoice& choice = choices_[entry->data(0, kChoice).toUInt()];
  const QString reason = ReasonAgainstHere(choice);
  description_->setText(reason.isEmpty() ? DescriptionOf(choice.choice) : reason);
}

void PalettePanel::Place(const QTreeWidgetItem* entry) {
  if (entry == nullptr || entry->parent() == nullptr || !workspace_.place) return;
  DroppedChoice choice = choices_[entry->data(0, kChoice).toUInt()];
  if (!ReasonAgainstHere(choice).isEmpty()) return;
  choice.site = Band();
  workspace_.place(choice);
}

}  // namespace td::designer
