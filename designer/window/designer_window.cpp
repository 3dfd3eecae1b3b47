#include "designer/window/designer_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QDockWidget>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSettings>
#include <QStatusBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "designer/model/hit_testing.h"
#include "designer/panels/format_check.h"
#include "designer/view/words.h"
#include "designer/window/questions.h"
#include "designer/window/window_panels.h"
#include "platform/failure.h"
#include "qt/fields/wheel_guard.h"
#include "qt/preview/window_font.h"

namespace td::designer {
namespace {

constexpr int kRecoveryLook = 5000;  // milliseconds; the file itself is written once a minute

QString Millimetres(double twips) {
  return QString::number(MillimetresOf(twips), 'f', 1);
}

QSettings Settings(const std::string& folder) {
  return {QString::fromStdString(folder + "/designer.ini"), QSettings::IniFormat};
}

// A panel may be higher than the screen.
QWidget* Scrolling(QWidget* panel) {
  auto* area = new QScrollArea;
  area->setWidget(panel);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  return area;
}

}  // namespace

DesignerWindow::DesignerWindow(DesignerSetup setup)
    : setup_(std::move(setup)),
      machine_(setup_.platform),
      printer_(setup_.platform, setup_.connection, setup_.barcodes),
      session_({setup_.database, setup_.connection, setup_.billType, setup_.stateFolder},
               workspace_, *this, [this](Opened opened) { FormatOpened(opened); }) {
  ReadData();
  workspace_.printers = setup_.printers;
  workspace_.check = CheckWith(machine_, workspace_.data, &setup_.database, setup_.connection);
  workspace_.place = [this](const DroppedChoice& choice) { PlaceChoice(choice); };
  workspace_.goTo = [this](ItemId item) { GoTo(item); };
  setObjectName("designer");
  setFont(FontWithChinese(font()));
  GuardFieldsAgainstWheel(*this);
  setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);
  setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
  resize(1360, 900);
  MakeSheet();
  MakeStatusBar();
  MakePanels();
  MakeActions();
  documentListener_ =
      workspace_.document.AddListener([this](const DocumentChange&) { DocumentChanged(); });
  selectionListener_ = workspace_.selection.AddListener([this] { ShowSelection(); });
  QObject::connect(&recoveryTimer_, &QTimer::timeout, this, [this] { session_.KeepRecovery(); });
  recoveryTimer_.start(kRecoveryLook);
  QSettings settings = Settings(setup_.stateFolder);
  restoreGeometry(settings.value("geometry").toByteArray());
  restoreState(settings.value("panels").toByteArray());
}

DesignerWindow::~DesignerWindow() {
  workspace_.document.RemoveListener(documentListener_);
  workspace_.selection.RemoveListener(selectionListener_);
  // What listens to the workspace goes before it.
  delete takeCentralWidget();
  for (QDockWidget* dock : findChildren<QDockWidget*>()) delete dock;
}

void DesignerWindow::ReadData() {
  if (setup_.data.empty()) return;
  workspace_.data = setup_.database.Begin(setup_.connection, Access::kReadOnly)->Run(setup_.data);
  if (!workspace_.data || !workspace_.data->Columns().Find("FInterID")) {
    throw Failure(kNoSuchColumn, Say("the rows have no column FInterID").toStdString());
  }
  printer_.PutRows(workspace_.data);
}

void DesignerWindow::MakeSheet() {
  auto* middle = new QWidget(this);
  auto* grid = new QGridLayout(middle);
  grid->setSpacing(0);
  grid->setContentsMargins(0, 0, 0, 0);
  sheet_ = new SheetView(
      workspace_, printer_,
      {.mouseMoved = [this](std::optional<Point> place) { ShowMouse(place); },
       .pictureChanged = [this] { ShowPicture(); },
       .viewChanged =
           [this] {
             across_->update();
             down_->update();
             if (zoom_ != nullptr) {
               zoom_->setEditText(QString::number(qRound(sheet_->Zoom())) + QStringLiteral(" %"));
             }
           },
       .aidsChanged =
           [this] {
             if (scanPanel_ != nullptr) scanPanel_->ShowAids();
             WriteAids(false);
           },
       .menuWanted = [this](const QPoint& global) { MakeContextMenu(global); },
       .itemOpened =
           [this](ItemId) {
             if (auto* dock = findChild<QDockWidget*>("item")) {
               dock->show();
               dock->raise();
             }
           }},
      middle);
  across_ = new Ruler(Qt::Horizontal, *sheet_, middle);
  down_ = new Ruler(Qt::Vertical, *sheet_, middle);
  auto* corner = new QLabel(QStringLiteral("mm"), middle);
  corner->setAlignment(Qt::AlignCenter);
  QFont small = corner->font();
  small.setPixelSize(9);
  corner->setFont(small);
  corner->setFixedSize(Ruler::kThickness, Ruler::kThickness);
  grid->addWidget(corner, 0, 0);
  grid->addWidget(across_, 0, 1);
  grid->addWidget(down_, 1, 0);
  grid->addWidget(sheet_, 1, 1);
  setCentralWidget(middle);
}

void DesignerWindow::MakePanels() {
  std::map<Qt::DockWidgetArea, QDockWidget*> first;
  std::map<Qt::DockWidgetArea, int> titles;  // how wide the tabs are that stand side by side
  constexpr int kAroundTitle = 34;           // pixels
  const auto add = [&](const char* name, const char* title, Qt::DockWidgetArea area,
                       QWidget* panel) {
    auto* dock = new QDockWidget(Say(title), this);
    dock->setObjectName(name);
    dock->setWidget(Scrolling(panel));
    titles[area] += fontMetrics().horizontalAdvance(Say(title)) + kAroundTitle;
    const auto [front, isFirst] = first.try_emplace(area, dock);
    if (isFirst) {
      addDockWidget(area, dock);
    } else {
      tabifyDockWidget(front->second, dock);
    }
  };
  for (const Panel& panel : Panels()) {
    add(panel.name, panel.title, panel.area, panel.make(workspace_));
  }
  scanPanel_ = new ScanPanel(*sheet_, [this] { WriteAids(true); });
  add("scanPanel", "Scan", Qt::LeftDockWidgetArea, scanPanel_);
  for (const auto& [area, dock] : first) {
    dock->raise();
    resizeDocks({dock}, {std::max(titles[area], dock->sizeHint().width())}, Qt::Horizontal);
  }
}

void DesignerWindow::MakeStatusBar() {
  messageLabel_ = new QLabel(this);
  messageLabel_->setObjectName("messages");
  selectionLabel_ = new QLabel(this);
  selectionLabel_->setObjectName("selection");
  mouseLabel_ = new QLabel(this);
  mouseLabel_->setObjectName("mouse");
  mouseLabel_->setMinimumWidth(fontMetrics().horizontalAdvance("X 888.8  Y 888.8 mm "));
  pageLabel_ = new QLabel(this);
  pageLabel_->setObjectName("page");
  statusBar()->addWidget(messageLabel_, 1);
  statusBar()->addPermanentWidget(selectionLabel_);
  statusBar()->addPermanentWidget(mouseLabel_);
  statusBar()->addPermanentWidget(pageLabel_);
}

// Scan and guides go where the format goes.
void DesignerWindow::FormatOpened(Opened opened) {
  const std::string former = std::exchange(aidsName_, session_.StoredName());
  if (opened == Opened::kAnother) {
    ReadAids();
  } else if (former != aidsName_) {
    WriteAids(true);
    if (opened == Opened::kRenamed) AidsOf(former).Remove();
  }
  DocumentChanged();
  ShowSelection();
}

void DesignerWindow::DocumentChanged() {
  const FormatDocument& document = workspace_.document;
  setWindowTitle(QString::fromStdString(document.Current().Name()) + QStringLiteral("[*] – ") +
                 Say("Form designer"));
  setWindowModified(document.IsModified());
  ShowActions();
  ShowSelection();
}

void DesignerWindow::ShowPicture() {
  const SheetPicture& picture = sheet_->Picture();
  pageLabel_->setText(Say("Page %1 of %2")
                          .arg(sheet_->PageNumber() + 1)
                          .arg(std::max<std::size_t>(picture.pages.size(), 1)));
  QStringList messages;
  for (const std::string& message : picture.messages) {
    messages << QString::fromStdString(message).simplified();
  }
  messageLabel_->setText(messages.join(QStringLiteral(" · ")));
  messageLabel_->setToolTip(messages.join(QStringLiteral("\n")));
  ShowActions();
}

void DesignerWindow::ShowMouse(std::optional<Point> place) {
  across_->PutMark(place ? std::optional(place->x) : std::nullopt);
  down_->PutMark(place ? std::optional(place->y) : std::nullopt);
  mouseLabel_->setText(
      place ? QStringLiteral("X %1  Y %2 mm").arg(Millimetres(place->x), Millimetres(place->y))
            : QString());
}

void DesignerWindow::ShowSelection() {
  const ItemIds& items = workspace_.selection.Items();
  ShowActions();
  if (items.empty()) {
    selectionLabel_->clear();
    return;
  }
  const auto box = BoxAround(sheet_->Layout(), workspace_.document.Current(), items);
  if (!box) return;
  const QString place = QStringLiteral("%1, %2 · %3 × %4 mm")
                            .arg(Millimetres(box->left), Millimetres(box->top),
                                 Millimetres(box->width), Millimetres(box->height));
  selectionLabel_->setText(items.size() == 1 ? place
                                             : Say("%1 items: %2").arg(items.size()).arg(place));
}

void DesignerWindow::PlaceChoice(const DroppedChoice& choice) {
  const Point middle = sheet_->Middle();
  const ItemSite site = choice.site.value_or(sheet_->SiteAt(middle));
  Box place = UsualPlace(choice.choice, ToStored(sheet_->Layout(), site, middle));
  const double step = TwipsOf(0.1);
  place.left = std::max(std::round((place.left - place.width / 2) / step) * step, 0.0);
  place.top = std::max(std::round((place.top - place.height / 2) / step) * step, 0.0);
  workspace_.selection.Select({AddChoice(workspace_.document, choice, site, place)});
  sheet_->setFocus();
}

void DesignerWindow::GoTo(ItemId item) {
  if (workspace_.document.Find(item) == nullptr) return;
  workspace_.selection.Select({item});
  if (!sheet_->BoxOf(item)) sheet_->PutPage(0);
  if (const auto box = sheet_->BoxOf(item)) sheet_->ScrollTo(*box);
  sheet_->setFocus();
}

AidsFile DesignerWindow::AidsOf(const std::string& format) const {
  return {setup_.stateFolder + "/designer", setup_.connection, setup_.billType, format};
}

void DesignerWindow::ReadAids() {
  sheet_->Aids() = aidsName_.empty() ? SheetAids() : AidsOf(aidsName_).Read();
  sheet_->ShowAids();
  scanPanel_->ShowAids();
}

// Those of a format without a name in the tables are kept when it is saved.
void DesignerWindow::WriteAids(bool withPicture) {
  if (aidsName_.empty()) return;
  const AidsFile file = AidsOf(aidsName_);
  try {
    if (withPicture) file.WritePicture(sheet_->Aids());
    file.WritePlaces(sheet_->Aids());
  } catch (const Failure& failure) {
    Tell(this, QString::fromStdString(failure.Description()));
  }
}

void DesignerWindow::closeEvent(QCloseEvent* event) {
  if (!session_.MayLeave()) {
    event->ignore();
    return;
  }
  recoveryTimer_.stop();
  QSettings settings = Settings(setup_.stateFolder);
  settings.setValue("geometry", saveGeometry());
  settings.setValue("panels", saveState());
  event->accept();
  if (closed_) closed_();
}

}  // namespace td::designer
