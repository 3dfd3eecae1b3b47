// The sheet of a format on the screen.
#pragma once

#include <QAbstractScrollArea>
#include <QPixmap>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "designer/model/sheet_layout.h"
#include "designer/print/sheet_print.h"
#include "designer/sheet/sheet_aids.h"
#include "designer/sheet/sheet_tool.h"
#include "designer/view/workspace.h"

namespace td::designer {

struct SheetOptions {
  SheetContents contents = SheetContents::kCaptions;
  bool onlyValues = false;  // as on a pre-printed form
  bool showsGrid = true;
  bool showsFrames = true;  // of texts and pictures
  bool showsBands = true;
  bool snaps = true;
  double grid = 0;  // twips
};

// Called by the view; each may be empty.
struct SheetEvents {
  std::function<void(std::optional<Point> place)> mouseMoved;
  std::function<void()> pictureChanged;  // other pages, other messages
  std::function<void()> viewChanged;     // scrolled, zoomed: the rulers follow
  std::function<void()> aidsChanged;     // the scan or a guide was moved
  std::function<void(const QPoint& global)> menuWanted;
  std::function<void(ItemId item)> itemOpened;  // a double click
};

class SheetView : public QAbstractScrollArea {
 public:
  // All outlive the view.
  SheetView(Workspace& workspace, SheetPrinter& printer, SheetEvents events,
            QWidget* parent = nullptr);
  ~SheetView() override;

  [[nodiscard]] Workspace& TheWorkspace() { return workspace_; }
  [[nodiscard]] const Format& TheFormat() const { return workspace_.document.Current(); }

  [[nodiscard]] const SheetOptions& Options() const { return options_; }
  void PutOptions(const SheetOptions& options);

  // Scan and guides; whoever changes them calls ShowAids.
  [[nodiscard]] SheetAids& Aids() { return aids_; }
  void ShowAids();
  // The same, and tells that they have changed.
  void AidsWereChanged();

  // Percent of the true size; the point of the sheet under `fixed`, or in the middle, stays.
  static constexpr double kLeastZoom = 10;
  static constexpr double kMostZoom = 1600;
  [[nodiscard]] double Zoom() const { return zoom_; }
  void PutZoom(double percent, std::optional<QPointF> fixed = std::nullopt);
  void FitSheet();
  void FitWidth();

  // The pages that the run has made, from 0.
  [[nodiscard]] int PageNumber() const { return page_; }
  void PutPage(int page);
  // As it stands now, after a run if something has changed meanwhile.
  [[nodiscard]] const SheetPicture& Picture();
  [[nodiscard]] const SheetPage& Page();

  // From twips of the sheet to pixels of the viewport, and back.
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] QPointF ToView(Point onSheet) const;
  [[nodiscard]] Point ToSheet(QPointF inView) const;
  [[nodiscard]] QRectF ToView(const designer::Box& onSheet) const;
  [[nodiscard]] QRectF SheetRect() const;

  // Where an item is seen on this page, of a row's item in the first row; nothing if it isn't.
  [[nodiscard]] std::optional<designer::Box> BoxOf(ItemId item);
  // The layout, and how far this page's bands lie below those of a first page.
  [[nodiscard]] const SheetLayout& Layout() const { return layout_; }
  [[nodiscard]] double PageShift() const;
  // The topmost item under a place, of a row's items in any row; 0 for none.
  [[nodiscard]] ItemId ItemAt(Point place);
  [[nodiscard]] ItemIds ItemsIn(const designer::Box& area, bool touching);
  // In which band a place lies: that of the rows if there is an item in it, or else the one whose
  // items are nearest.
  [[nodiscard]] ItemSite SiteAt(Point place);
  // The lines that a dragged box snaps to, those of some items left out.
  [[nodiscard]] SnapLines LinesWithout(const ItemIds& items);

  // Draws some items above all others, as far away as they are dragged, without a new run.
  void LiftItems(const ItemIds& items);
  void MoveLifted(double dx, double dy);
  void DropLifted();

  // Takes the mouse from the other tools until it is taken away (nothing).
  void PutTool(std::unique_ptr<SheetTool> tool);
  [[nodiscard]] SheetTool* Tool() { return tool_.get(); }
  // A guide that is dragged out of a ruler: from a mouse that is pressed elsewhere.
  void DragGuide(Qt::Orientation orientation, const QPoint& global);
  void DropGuide(const QPoint& global);

  void ScrollTo(const designer::Box& box);
  // The middle of what is seen of the sheet.
  [[nodiscard]] Point Middle() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  bool viewportEvent(QEvent* event) override;

 private:
  friend class SheetPainter;

  void DocumentChanged(const DocumentChange& change);
  void Run();
  void BeFresh();
  void FitScrollBars();
  void Renew();  // what lies still is drawn anew
  void FindBoxes();
  void DrawLifted(QPainter& painter);
  [[nodiscard]] QRect LiftedArea() const;
  [[nodiscard]] const QImage& ScanAt(double pixelsPerPixel);
  [[nodiscard]] SheetMouse MouseOf(const QMouseEvent& event) const;
  [[nodiscard]] std::vector<SheetTool*> Tools();
  void MoveByKey(const QKeyEvent& key);

  Workspace& workspace_;
  SheetPrinter& printer_;
  SheetEvents events_;
  SheetOptions options_;
  SheetAids aids_;
  int documentListener_ = 0;
  int selectionListener_ = 0;
  int findingsListener_ = 0;

  double zoom_ = 100;
  int page_ = 0;
  bool isStale_ = true;  // the document is not what was run last
  QTimer runTimer_;
  SheetPicture picture_;
  SheetLayout layout_;
  std::unordered_map<ItemId, designer::Box> boxes_;  // on this page

  std::optional<QPixmap> still_;
  // The scan, and the same at half, a quarter … of its pixels.
  std::vector<QImage> scanSizes_;
  std::unordered_set<ItemId> lifted_;
  Point liftedBy_;
  std::optional<QPixmap> liftedPicture_;
  QPoint liftedCorner_;  // of that picture, in the view

  std::unique_ptr<SheetTool> tool_;
  std::vector<std::unique_ptr<SheetTool>> usualTools_;
  SheetTool* pressed_ = nullptr;
  std::uint64_t keyGesture_ = 0;
};

}  // namespace td::designer
