#include "designer/panels/findings_panel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "designer/panels/field_group.h"
#include "designer/panels/item_words.h"
#include "designer/view/words.h"

namespace td::designer {
namespace {

constexpr int kAMoment = 600;  // milliseconds

QStyle::StandardPixmap IconOf(FindingSeverity severity) {
  if (severity == FindingSeverity::kError) return QStyle::SP_MessageBoxCritical;
  return severity == FindingSeverity::kWarning ? QStyle::SP_MessageBoxWarning
                                               : QStyle::SP_MessageBoxInformation;
}

QString NameOf(FindingSeverity severity) {
  if (severity == FindingSeverity::kError) return Say("Error");
  return severity == FindingSeverity::kWarning ? Say("Warning") : Say("Hint");
}

}  // namespace

FindingsPanel::FindingsPanel(Workspace& workspace, QWidget* parent)
    : QWidget(parent), workspace_(workspace) {
  LayOut();
  soon_.setSingleShot(true);
  connect(&soon_, &QTimer::timeout, this, [this] {
    if (QApplication::mouseButtons() == Qt::NoButton) {
      Check();
    } else {
      CheckSoon();
    }
  });
  documentListener_ =
      workspace.document.AddListener([this](const DocumentChange&) { CheckSoon(); });
  findingsListener_ = workspace.findings.AddListener([this] { ShowFindings(); });
  ShowFindings();
  CheckSoon();
}

FindingsPanel::~FindingsPanel() {
  workspace_.document.RemoveListener(documentListener_);
  workspace_.findings.RemoveListener(findingsListener_);
}

void FindingsPanel::LayOut() {
  counts_ = MakeNote(this);
  counts_->setObjectName(QStringLiteral("FindingCounts"));
  counts_->setForegroundRole(QPalette::WindowText);
  auto* now = new QPushButton(Say("Check &now"), this);
  now->setObjectName(QStringLiteral("CheckNow"));
  connect(now, &QPushButton::clicked, this, [this] { Check(); });
  auto* top = new QHBoxLayout;
  top->addWidget(counts_, 1);
  top->addWidget(now);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("Findings"));
  list_->setAccessibleName(Say("Findings"));
  list_->setWordWrap(true);
  list_->setTextElideMode(Qt::ElideNone);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setResizeMode(QListView::Adjust);
  connect(list_, &QListWidget::currentRowChanged, this, [this] { Explain(); });
  connect(list_, &QListWidget::activated, this, [this](const QModelIndex& index) {
    const FormatFinding* finding = FindingAt(index.row());
    if (finding != nullptr && finding->item != 0 && workspace_.goTo) workspace_.goTo(finding->item);
  });
  explanation_ = MakeNote(this);
  explanation_->setObjectName(QStringLiteral("FindingExplanation"));
  explanation_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  auto* column = new QVBoxLayout(this);
  column->addLayout(top);
  column->addWidget(list_, 1);
  column->addWidget(explanation_);
}

// A format whose check takes long is checked the later.
void FindingsPanel::CheckSoon() {
  soon_.start(std::max(kAMoment, 3 * cost_));
}

void FindingsPanel::Check() {
  soon_.stop();
  if (!workspace_.check) return;
  QElapsedTimer clock;
  clock.start();
  workspace_.findings.Put(workspace_.check(workspace_.document.Current()));
  cost_ = static_cast<int>(clock.elapsed());
}

void FindingsPanel::ShowFindings() {
  list_->clear();
  for (const FormatFinding& finding : workspace_.findings.All()) {
    auto* entry = new QListWidgetItem(list_);
    const Item* item = workspace_.document.Find(finding.item);
    const QString wrong = QString::fromStdString(finding.wrong);
    entry->setText(item == nullptr ? wrong : NameOfItem(*item) + Say(": ") + wrong);
    entry->setIcon(style()->standardIcon(IconOf(finding.severity)));
    entry->setToolTip(NameOf(finding.severity));
  }
  ShowCounts();
  Explain();
}

void FindingsPanel::ShowCounts() {
  const Findings& findings = workspace_.findings;
  QStringList counts;
  const auto add = [&](FindingSeverity severity, const QString& words) {
    const int count = findings.CountOf(severity);
    if (count > 0) counts << words.arg(count);
  };
  add(FindingSeverity::kError, Say("Errors: %1"));
  add(FindingSeverity::kWarning, Say("Warnings: %1"));
  add(FindingSeverity::kHint, Say("Hints: %1"));
  counts_->setText(counts.isEmpty() ? Say("Nothing found.") : counts.join(Say(", ")));
}

const FormatFinding* FindingsPanel::FindingAt(int row) const {
  const auto& all = workspace_.findings.All();
  if (row < 0 || static_cast<std::size_t>(row) >= all.size()) return nullptr;
  return &all[static_cast<std::size_t>(row)];
}

void FindingsPanel::Explain() {
  const FormatFinding* finding = FindingAt(list_->currentRow());
  explanation_->setVisible(finding != nullptr);
  if (finding == nullptr) return;
  explanation_->setText(QString::fromStdString(finding->effect) + u'\n' +
                        QString::fromStdString(finding->mend));
}

}  // namespace td::designer
