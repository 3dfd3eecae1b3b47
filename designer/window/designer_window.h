// The designer's window: the sheet in the middle, the panels around it.
#pragma once

#include <QMainWindow>
#include <QTimer>
#include <map>
#include <string>
#include <vector>

#include "checker/desktop_machine.h"
#include "designer/sheet/ruler.h"
#include "designer/sheet/sheet_view.h"
#include "designer/window/aids_file.h"
#include "designer/window/format_session.h"
#include "designer/window/scan_panel.h"

class QComboBox;
class QLabel;

namespace td::designer {

struct DesignerSetup {
  TransactionalDatabase& database;  // outlives the window, as does the platform
  Platform& platform;
  std::string connection;
  int billType = 0;
  std::string data;  // a statement whose first bill is shown; empty: captions
  std::string stateFolder;
  BarcodeSettings barcodes;
  std::vector<std::string> printers;
};

class DesignerWindow : public QMainWindow {
 public:
  // Fails with Failure when the rows that `setup.data` selects can't be read.
  explicit DesignerWindow(DesignerSetup setup);
  ~DesignerWindow() override;

  // See FormatSession::Open.
  bool Open(const std::string& name) { return session_.Open(name); }

  [[nodiscard]] Workspace& TheWorkspace() { return workspace_; }
  [[nodiscard]] SheetView& Sheet() { return *sheet_; }
  [[nodiscard]] ScanPanel& TheScanPanel() { return *scanPanel_; }

  // Called when the window has closed.
  void PutClosed(std::function<void()> closed) { closed_ = std::move(closed); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  struct ActionRow;
  using Handler = std::function<void()>;

  void MakeSheet();
  void MakePanels();
  void MakeStatusBar();
  // Menus, toolbar and their actions (window_actions.cpp).
  void MakeActions();
  void AddActions(const char* menu, const std::vector<ActionRow>& rows);
  void MakeToolBar();
  void MakeContextMenu(const QPoint& global);
  [[nodiscard]] std::vector<ActionRow> FileActions();
  [[nodiscard]] std::vector<ActionRow> EditActions();
  [[nodiscard]] std::vector<ActionRow> ArrangeActions();
  [[nodiscard]] std::vector<ActionRow> ViewActions();
  void ShowActions();  // which can be used now, and what undo would undo

  void PutOption(const std::function<void(SheetOptions&)>& change);
  void ReadData();
  void FormatOpened(Opened opened);
  void DocumentChanged();
  void ShowPicture();
  void ShowMouse(std::optional<Point> place);
  void ShowSelection();
  void PlaceChoice(const DroppedChoice& choice);
  void GoTo(ItemId item);
  void Export();
  void Import();
  [[nodiscard]] AidsFile AidsOf(const std::string& format) const;
  void WriteAids(bool withPicture);
  void ReadAids();
  void ShowHelp();

  DesignerSetup setup_;
  Workspace workspace_;
  checker::DesktopMachine machine_;
  SheetPrinter printer_;
  FormatSession session_;
  SheetView* sheet_ = nullptr;
  Ruler* across_ = nullptr;
  Ruler* down_ = nullptr;
  ScanPanel* scanPanel_ = nullptr;
  std::map<std::string, QAction*> actions_;
  std::map<std::string, QMenu*> menus_;
  QComboBox* zoom_ = nullptr;
  QLabel* mouseLabel_ = nullptr;
  QLabel* selectionLabel_ = nullptr;
  QLabel* pageLabel_ = nullptr;
  QLabel* messageLabel_ = nullptr;
  QTimer recoveryTimer_;
  std::string aidsName_;  // of the format whose aids are shown
  std::function<void()> closed_;
  int documentListener_ = 0;
  int selectionListener_ = 0;
};

}  // namespace td::designer
