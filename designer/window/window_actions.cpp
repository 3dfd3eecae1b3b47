// Menus and toolbar of the designer's window.
#include <QActionGroup>
#include <QComboBox>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSaveFile>
#include <QToolBar>

#include "designer/model/format_file.h"
#include "designer/view/words.h"
#include "designer/window/action_icons.h"
#include "designer/window/clipboard.h"
#include "designer/window/designer_window.h"
#include "designer/window/questions.h"
#include "platform/failure.h"

namespace td::designer {

// A row without words is a line between its neighbours.
struct DesignerWindow::ActionRow {
  const char* name = "";
  const char* words = "";
  QKeySequence keys = {};
  Handler handler = {};
  std::optional<bool> isOn = std::nullopt;  // of one that is switched on and off
};

namespace {

constexpr double kPasteDistance = 2 * kTwipsPerMillimetre;

const char* WordsOf(CommandKind kind) {
  switch (kind) {
    case CommandKind::kAdd:
      return "Add";
    case CommandKind::kPaste:
      return "Paste";
    case CommandKind::kRemove:
      return "Delete";
    case CommandKind::kMove:
      return "Move";
    case CommandKind::kResize:
      return "Resize";
    case CommandKind::kAlign:
      return "Align";
    case CommandKind::kDistribute:
      return "Distribute";
    case CommandKind::kChangeItems:
      return "Change items";
    case CommandKind::kChangeBand:
      return "Change the band";
    case CommandKind::kReorder:
      return "Change the order";
    case CommandKind::kChangeFormat:
      return "Change the format";
    case CommandKind::kChangeVariables:
      return "Change variables";
  }
  return "Change items";
}

}  // namespace

std::vector<DesignerWindow::ActionRow> DesignerWindow::FileActions() {
  return {{"new", "New …", QKeySequence::New, [this] { session_.New(); }},
          {"open", "Open …", QKeySequence::Open, [this] { session_.OpenAnother(); }},
          {"save", "Save", QKeySequence::Save, [this] { session_.Save(); }},
          {},
          {"copyFormat", "Copy the format …", {}, [this] { session_.Copy(); }},
          {"rename", "Rename …", {}, [this] { session_.Rename(); }},
          {"deleteFormat",
           "Delete the format …",
           {},
           [this] {
             const AidsFile aids = AidsOf(session_.StoredName());
             if (session_.Delete()) aids.Remove();
           }},
          {"select", "Make it the selected format", {}, [this] { session_.Select(); }},
          {},
          {"export", "Export to a file …", {}, [this] { Export(); }},
          {"import", "Import from a file …", {}, [this] { Import(); }},
          {},
          {"close", "Close", QKeySequence::Quit, [this] { close(); }}};
}

std::vector<DesignerWindow::ActionRow> DesignerWindow::EditActions() {
  FormatDocument& document = workspace_.document;
  Selection& selection = workspace_.selection;
  const auto copy = [this] {
    CopyItems(workspace_.document.Current(), workspace_.selection.Items());
    ShowActions();
  };
  return {{"undo", "Undo", QKeySequence::Undo, [&] { selection.Select(document.Undo()); }},
          {"redo", "Redo", QKeySequence::Redo, [&] { selection.Select(document.Redo()); }},
          {},
          {"cut", "Cut", QKeySequence::Cut,
           [&, copy] {
             copy();
             document.Remove(ItemIds(selection.Items()));
           }},
          {"copy", "Copy", QKeySequence::Copy, copy},
          {"paste", "Paste", QKeySequence::Paste,
           [&] { selection.Select(PasteCopied(document, kPasteDistance)); }},
          {"delete", "Delete", QKeySequence::Delete,
           [&] { document.Remove(ItemIds(selection.Items())); }},
          {},
          {"selectAll", "Select all", QKeySequence::SelectAll, [&] {
             ItemIds all;
             for (const Item& item : document.Current().items) {
               if (sheet_->BoxOf(item.id)) all.push_back(item.id);
             }
             selection.Select(all);
           }}};
}

std::vector<DesignerWindow::ActionRow> DesignerWindow::ArrangeActions() {
  const auto align = [this](Alignment alignment) {
    return
        [this, alignment] { workspace_.document.Align(workspace_.selection.Items(), alignment); };
  };
  const auto distribute = [this](Direction direction) {
    return [this, direction] {
      workspace_.document.Distribute(workspace_.selection.Items(), direction);
    };
  };
  const auto equalise = [this](Direction direction) {
    return [this, direction] {
      workspace_.document.Do(
          EqualiseItems(workspace_.document.Current(), workspace_.selection.Items(), direction));
    };
  };
  const auto reorder = [this](Order order) {
    return [this, order] { workspace_.document.Reorder(workspace_.selection.Items(), order); };
  };
  return {{"alignLeft", "Align left edges", {}, align(Alignment::kLeft)},
          {"alignCentre", "Align centres", {}, align(Alignment::kCentre)},
          {"alignRight", "Align right edges", {}, align(Alignment::kRight)},
          {"alignTop", "Align top edges", {}, align(Alignment::kTop)},
          {"alignMiddle", "Align middles", {}, align(Alignment::kMiddle)},
          {"alignBottom", "Align bottom edges", {}, align(Alignment::kBottom)},
          {},
          {"distributeAcross", "Distribute across", {}, distribute(Direction::kAcross)},
          {"distributeDown", "Distribute down", {}, distribute(Direction::kDown)},
          {"sameWidth", "Same width", {}, equalise(Direction::kAcross)},
          {"sameHeight", "Same height", {}, equalise(Direction::kDown)},
          {},
          {"toFront", "To the front", {}, reorder(Order::kToFront)},
          {"forward", "Forward", {}, reorder(Order::kForward)},
          {"backward", "Backward", {}, reorder(Order::kBackward)},
          {"toBack", "To the back", {}, reorder(Order::kToBack)}};
}

std::vector<DesignerWindow::ActionRow> DesignerWindow::ViewActions() {
  const auto toggle = [this](const char* name, bool SheetOptions::*option) {
    return [this, name, option] {
      PutOption([&](SheetOptions& options) { options.*option = actions_.at(name)->isChecked(); });
    };
  };
  constexpr double kZoomStep = 1.25;
  return {
      {"zoomIn", "Zoom in", QKeySequence::ZoomIn,
       [this] { sheet_->PutZoom(sheet_->Zoom() * kZoomStep); }},
      {"zoomOut", "Zoom out", QKeySequence::ZoomOut,
       [this] { sheet_->PutZoom(sheet_->Zoom() / kZoomStep); }},
      {"trueSize", "True size", QKeySequence("Ctrl+1"), [this] { sheet_->PutZoom(100); }},
      {"fitSheet", "Whole sheet", QKeySequence("Ctrl+0"), [this] { sheet_->FitSheet(); }},
      {"fitWidth", "Whole width", QKeySequence("Ctrl+2"), [this] { sheet_->FitWidth(); }},
      {},
      {"onlyValues", "Values only, as on the pre-printed form", QKeySequence("F6"),
       toggle("onlyValues", &SheetOptions::onlyValues), false},
      {"showData", "Values of the data in the place of captions", QKeySequence("F7"),
       [this] {
         const bool isOn = actions_.at("showData")->isChecked();
         PutOption([isOn](SheetOptions& options) {
           options.contents = isOn ? SheetContents::kData : SheetContents::kCaptions;
         });
       },
       false},
      {"previousPage", "Previous page", QKeySequence("PgUp"),
       [this] { sheet_->PutPage(sheet_->PageNumber() - 1); }},
      {"nextPage", "Next page", QKeySequence("PgDown"),
       [this] { sheet_->PutPage(sheet_->PageNumber() + 1); }},
      {},
      {"showBands", "Bands", QKeySequence("F8"), toggle("showBands", &SheetOptions::showsBands),
       true},
      {"showFrames",
       "Frames of the items",
       {},
       toggle("showFrames", &SheetOptions::showsFrames),
       true},
      {"showGrid", "Grid", QKeySequence("F9"), toggle("showGrid", &SheetOptions::showsGrid), true},
      {"snap", "Snap to grid, guides and items", {}, toggle("snap", &SheetOptions::snaps), true},
      {"clearGuides", "Remove all guides", {}, [this] {
         sheet_->Aids().guides = {};
         sheet_->AidsWereChanged();
       }}};
}

void DesignerWindow::AddActions(const char* menu, const std::vector<ActionRow>& rows) {
  QMenu*& shown = menus_[menu];
  if (shown == nullptr) shown = menuBar()->addMenu(Say(menu));
  for (const ActionRow& row : rows) {
    if (*row.words == '\0') {
      shown->addSeparator();
      continue;
    }
    QAction* action = shown->addAction(ActionIcon(row.name), Say(row.words));
    action->setObjectName(row.name);
    action->setShortcut(row.keys);
    action->setCheckable(row.isOn.has_value());
    action->setChecked(row.isOn.value_or(false));
    QObject::connect(action, &QAction::triggered, this, row.handler);
    actions_[row.name] = action;
  }
}

void DesignerWindow::MakeActions() {
  AddActions("File", FileActions());
  AddActions("Edit", EditActions());
  AddActions("Arrange", ArrangeActions());
  QMenu* bands = menus_["Arrange"]->addMenu(Say("Put into the band"));
  bands->menuAction()->setObjectName("bands");
  actions_["bands"] = bands->menuAction();
  for (const ItemSite site : kAllSites) {
    QAction* action = bands->addAction(NameOfBand(static_cast<int>(site)));
    action->setObjectName("band" + QString::number(static_cast<int>(site)));
    QObject::connect(action, &QAction::triggered, this, [this, site] {
      workspace_.document.SetBand(workspace_.selection.Items(), site);
    });
  }
  AddActions("View", ViewActions());
  QMenu* view = menus_["View"];
  view->addSeparator();
  for (QDockWidget* dock : findChildren<QDockWidget*>()) view->addAction(dock->toggleViewAction());
  AddActions("Help",
             {{"help", "Mouse and keys", QKeySequence::HelpContents, [this] { ShowHelp(); }}});
  // The sheet has the keys to itself while it has the focus: it turns the pages.
  actions_["previousPage"]->setShortcutContext(Qt::WidgetShortcut);
  actions_["nextPage"]->setShortcutContext(Qt::WidgetShortcut);
  actions_["showData"]->setEnabled(workspace_.data != nullptr);
  if (workspace_.data) {
    actions_["showData"]->setChecked(true);
    PutOption([](SheetOptions& options) { options.contents = SheetContents::kData; });
  }
  MakeToolBar();
  ShowActions();
}

void DesignerWindow::MakeToolBar() {
  QToolBar* bar = addToolBar(Say("Toolbar"));
  bar->setObjectName("toolbar");
  bar->setIconSize({18, 18});
  for (const char* name : {"new",
                           "open",
                           "save",
                           "",
                           "undo",
                           "redo",
                           "",
                           "cut",
                           "copy",
                           "paste",
                           "delete",
                           "",
                           "alignLeft",
                           "alignCentre",
                           "alignRight",
                           "alignTop",
                           "alignMiddle",
                           "alignBottom",
                           "distributeAcross",
                           "distributeDown",
                           "",
                           "onlyValues",
                           "showData",
                           ""}) {
    if (*name == '\0') {
      bar->addSeparator();
    } else {
      bar->addAction(actions_.at(name));
    }
  }
  zoom_ = new QComboBox(bar);
  zoom_->setObjectName("zoom");
  zoom_->setAccessibleName(Say("Zoom"));
  zoom_->setToolTip(Say("Zoom"));
  zoom_->setEditable(true);
  zoom_->setInsertPolicy(QComboBox::NoInsert);
  zoom_->setMinimumContentsLength(7);
  for (const int percent : {25, 50, 75, 100, 150, 200, 400, 800}) {
    zoom_->addItem(QString::number(percent) + QStringLiteral(" %"));
  }
  zoom_->setEditText(QStringLiteral("100 %"));
  const auto apply = [this] {
    const auto number = QRegularExpression("[0-9]+([.,][0-9]+)?").match(zoom_->currentText());
    const double percent = number.captured().replace(',', '.').toDouble();
    sheet_->PutZoom(percent > 0 ? percent : sheet_->Zoom());
    sheet_->setFocus();
  };
  QObject::connect(zoom_, &QComboBox::activated, this, apply);
  QObject::connect(zoom_->lineEdit(), &QLineEdit::returnPressed, this, apply);
  bar->addWidget(zoom_);
  bar->addAction(actions_.at("fitSheet"));
}

void DesignerWindow::MakeContextMenu(const QPoint& global) {
  QMenu menu(this);
  for (const char* name : {"cut", "copy", "paste", "delete", ""}) {
    if (*name == '\0') {
      menu.addSeparator();
    } else {
      menu.addAction(actions_.at(name));
    }
  }
  menu.addAction(actions_.at("bands"));
  for (const char* name : {"toFront", "toBack"}) menu.addAction(actions_.at(name));
  menu.exec(global);
}

void DesignerWindow::ShowActions() {
  if (!actions_.contains("help")) return;  // they are being made
  const FormatDocument& document = workspace_.document;
  const auto count = workspace_.selection.Items().size();
  const auto show = [this](const char* name, bool isEnabled) {
    actions_.at(name)->setEnabled(isEnabled);
  };
  const auto step = [this](const char* name, const char* words, const Command* command) {
    actions_.at(name)->setEnabled(command != nullptr);
    actions_.at(name)->setText(command == nullptr ? Say(words)
                                                  : Say(words) + QStringLiteral(": ") +
                                                        Say(WordsOf(command->kind)));
  };
  step("undo", "Undo", document.CanUndo() ? &document.NextUndo() : nullptr);
  step("redo", "Redo", document.CanRedo() ? &document.NextRedo() : nullptr);
  for (const char* name :
       {"cut", "copy", "delete", "bands", "toFront", "forward", "backward", "toBack", "alignLeft",
        "alignCentre", "alignRight", "alignTop", "alignMiddle", "alignBottom"}) {
    show(name, count > 0);
  }
  for (const char* name : {"sameWidth", "sameHeight"}) show(name, count > 1);
  for (const char* name : {"distributeAcross", "distributeDown"}) show(name, count > 2);
  show("paste", CanPaste());
  show("save", document.IsModified() || IsNull(document.Base().id));
  const bool isStored = !session_.StoredName().empty();
  for (const char* name : {"copyFormat", "rename", "deleteFormat", "select"}) show(name, isStored);
  show("previousPage", sheet_->PageNumber() > 0);
}

void DesignerWindow::PutOption(const std::function<void(SheetOptions&)>& change) {
  SheetOptions options = sheet_->Options();
  change(options);
  sheet_->PutOptions(options);
}

void DesignerWindow::Export() {
  const QString filter = Say("Formats") + QStringLiteral(" (*.json)");
  const QString suggested = QString::fromStdString(workspace_.document.Current().Name()) + ".json";
  const QString path =
      QFileDialog::getSaveFileName(this, Say("Export to a file"), suggested, filter);
  if (path.isEmpty()) return;
  QSaveFile file(path);
  const std::string text = WriteFormatFile(workspace_.document.Current());
  if (!file.open(QIODevice::WriteOnly) ||
      file.write(text.data(), static_cast<qint64>(text.size())) < 0 || !file.commit()) {
    Tell(this, path + QStringLiteral(": ") + file.errorString());
  }
}

void DesignerWindow::Import() {
  const QString filter = Say("Formats") + QStringLiteral(" (*.json)");
  const QString path = QFileDialog::getOpenFileName(this, Say("Import from a file"), {}, filter);
  if (path.isEmpty()) return;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    Tell(this, path + QStringLiteral(": ") + file.errorString());
    return;
  }
  try {
    session_.Adopt(ReadFormatFile(file.readAll().toStdString()).format);
  } catch (const Failure& failure) {
    Tell(this, path + QStringLiteral(": ") + QString::fromStdString(failure.Description()));
  }
}

void DesignerWindow::ShowHelp() {
  Tell(this,
       Say("Click selects, Ctrl and click adds, dragging over free space catches: from left "
           "to right what lies inside, from right to left what is touched.\n\n"
           "Dragging moves, with Shift along one direction, with Alt without snapping; Escape "
           "takes a drag back. Arrow keys move by 0.1 mm, with Shift by 1 mm.\n\n"
           "Guides are dragged out of the rulers, and off the sheet to remove them. Beside "
           "the rows, the upper handle drags their height, the lower one their number.\n\n"
           "Ctrl and the wheel zoom."));
}

}  // namespace td::designer
