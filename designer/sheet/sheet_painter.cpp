#include "designer/sheet/sheet_painter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "designer/model/item_choices.h"
#include "designer/sheet/band_tool.h"
#include "designer/view/words.h"
#include "qt/render/page_painter.h"

namespace td::designer {
namespace {

constexpr QColor kDesk(142, 146, 151);
constexpr QColor kFrame(120, 140, 170, 110);
constexpr QColor kGuide(0, 160, 200, 170);
constexpr QColor kSelected(0, 95, 184);
constexpr QColor kGridLine(0, 0, 0, 22);
constexpr double kGhost = 0.3;    // how much of a row's items shows in the rows behind the first
constexpr double kLeastGrid = 5;  // pixels between two lines

}  // namespace

QColor ColourOf(ItemSite site) {
  switch (site) {
    case ItemSite::kHead:
      return {52, 101, 164};
    case ItemSite::kColumnHead:
      return {6, 130, 130};
    case ItemSite::kRow:
      return {206, 120, 0};
    case ItemSite::kAfterRows:
      return {117, 80, 123};
    case ItemSite::kFoot:
      return {78, 130, 6};
  }
  return Qt::gray;
}

bool SheetPainter::IsLifted(ItemId item) const {
  return std::ranges::find(view_.lifted_, item) != view_.lifted_.end();
}

QColor ColourOf(FindingSeverity severity) {
  switch (severity) {
    case FindingSeverity::kHint:
      return {70, 130, 180};
    case FindingSeverity::kWarning:
      return {230, 145, 0};
    case FindingSeverity::kError:
      return {200, 20, 30};
  }
  return Qt::gray;
}

void SheetPainter::DrawStill(QPainter& painter) const {
  painter.fillRect(view_.viewport()->rect(), kDesk);
  DrawPaper(painter);
  painter.save();
  painter.setClipRect(view_.SheetRect());
  DrawScan(painter);
  if (view_.Options().showsGrid) DrawGrid(painter);
  painter.restore();
  if (view_.Options().showsBands) DrawBands(painter);
  painter.save();
  painter.setClipRect(view_.SheetRect());
  DrawPieces(painter, false);
  painter.restore();
  if (view_.Options().showsFrames) DrawFrames(painter, false);
}

void SheetPainter::DrawPaper(QPainter& painter) const {
  const QRectF sheet = view_.SheetRect();
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 26));
  for (int i = 1; i <= 4; ++i) {
    painter.drawRect(sheet.translated(1, 1).adjusted(1 - i, 1 - i, i, i));
  }
  painter.fillRect(sheet, Qt::white);
}

void SheetPainter::DrawScan(QPainter& painter) const {
  const Scan& scan = view_.Aids().scan;
  if (scan.Empty() || !scan.isShown) return;
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setOpacity(scan.opacity);
  painter.translate(view_.SheetRect().topLeft());
  painter.scale(view_.PixelsPerTwip(), view_.PixelsPerTwip());
  painter.setTransform(scan.toSheet, true);
  const double shown = std::sqrt(std::abs(painter.deviceTransform().determinant()));
  painter.drawImage(QRectF(scan.image.rect()), view_.ScanAt(shown));
  painter.restore();
}

// Where its lines would lie too close together, only each second, fifth or tenth is drawn.
void SheetPainter::DrawGrid(QPainter& painter) const {
  double step = view_.Options().grid;
  if (step <= 0) return;
  for (const double times : {1.0, 2.0, 2.5, 2.0, 2.0, 2.5}) {
    step *= times;
    if (step * view_.PixelsPerTwip() >= kLeastGrid) break;
  }
  const QRectF sheet = view_.SheetRect();
  const double pixels = step * view_.PixelsPerTwip();
  painter.setPen(QPen(kGridLine, 0));
  QList<QLineF> lines;
  for (double x = sheet.left() + pixels; x < sheet.right(); x += pixels) {
    lines.append({x, sheet.top(), x, sheet.bottom()});
  }
  for (double y = sheet.top() + pixels; y < sheet.bottom(); y += pixels) {
    lines.append({sheet.left(), y, sheet.right(), y});
  }
  painter.drawLines(lines);
}

void SheetPainter::DrawBands(QPainter& painter) const {
  const QRectF sheet = view_.SheetRect();
  for (const BandStrip& strip : StripsOf(view_)) {
    const QRectF seen = view_.ToView(strip.box);
    QColor colour = ColourOf(strip.site);
    colour.setAlpha(16);
    painter.fillRect(QRectF(sheet.left(), seen.top(), sheet.width(), seen.height()), colour);
    colour.setAlpha(210);
    const QRectF bar = BarOf(view_, strip);
    painter.fillRect(bar, colour);
    painter.setPen(colour.darker(120));
    QFont font = painter.font();
    font.setPixelSize(11);
    painter.setFont(font);
    painter.setPen(QColor(250, 250, 250));
    painter.drawText(QRectF(sheet.right() + 6, seen.top() - 2, 90, 16),
                     Qt::AlignLeft | Qt::AlignVCenter, NameOfBand(static_cast<int>(strip.site)));
    painter.fillRect(QRectF(sheet.right() + 1, seen.top(), 3, seen.height()), colour);
  }
  DrawRows(painter);
}

void SheetPainter::DrawRows(QPainter& painter) const {
  const QRectF sheet = view_.SheetRect();
  QColor colour = ColourOf(ItemSite::kRow);
  colour.setAlpha(90);
  painter.setPen(QPen(colour, 0, Qt::DashLine));
  const double height = view_.Layout().rowHeight;
  if (height * view_.PixelsPerTwip() < 3) return;
  for (const BandStrip& strip : StripsOf(view_)) {
    if (strip.site != ItemSite::kRow) continue;
    for (double y = strip.box.top; y <= strip.box.Bottom() + 1; y += height) {
      const double at = view_.ToView(Point{0, y}).y();
      if (at > sheet.bottom() + 1) break;
      painter.drawLine(QPointF(sheet.left(), at), QPointF(sheet.right(), at));
    }
    for (const RowHandle& handle : RowHandlesOf(view_)) {
      painter.setPen(QPen(Qt::white, 1));
      painter.setBrush(ColourOf(ItemSite::kRow).darker(handle.isHeight ? 100 : 140));
      painter.drawRoundedRect(handle.box, 2, 2);
    }
  }
}

void SheetPainter::DrawPieces(QPainter& painter, bool lifted) const {
  if (view_.page_ >= static_cast<int>(view_.picture_.pages.size())) return;
  const SheetPage& shown = view_.picture_.pages[static_cast<std::size_t>(view_.page_)];
  const bool hasGhosts = view_.Options().contents == SheetContents::kCaptions;
  ::td::Page first;
  ::td::Page ghosts;
  for (const SheetPiece& piece : shown.pieces) {
    if (IsLifted(piece.item) != lifted) continue;
    const bool isGhost = hasGhosts && piece.site == ItemSite::kRow && piece.row > 0;
    for (const DrawingCommand& command : piece.commands) {
      (isGhost ? ghosts : first).commands.push_back(command);
    }
  }
  painter.save();
  painter.translate(view_.SheetRect().topLeft());
  painter.scale(view_.PixelsPerTwip(), view_.PixelsPerTwip());
  painter.setOpacity(kGhost);
  DrawPage(painter, ghosts);
  painter.setOpacity(1);
  DrawPage(painter, first);
  painter.restore();
}

void SheetPainter::DrawFrames(QPainter& painter, bool lifted) const {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kFrame, 0, Qt::DotLine));
  for (const Item& item : view_.TheFormat().items) {
    if (item.Kind() == ItemKind::kLine || IsLifted(item.id) != lifted) continue;
    if (const auto box = view_.BoxOf(item.id)) painter.drawRect(view_.ToView(*box));
  }
}

void SheetPainter::DrawLifted(QPainter& painter) const {
  DrawPieces(painter, true);
  if (view_.Options().showsFrames) DrawFrames(painter, true);
}

void SheetPainter::DrawMarks(QPainter& painter) const {
  DrawGuides(painter);
  DrawFindings(painter);
  DrawSelection(painter);
}

// A flag on the item's upper right corner.
void SheetPainter::DrawFindings(QPainter& painter) const {
  constexpr double kFlag = 9;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [item, severity] : view_.TheWorkspace().findings.Marks()) {
    const auto box = view_.BoxOf(item);
    if (!box) continue;
    const QPointF corner = view_.ToView(*box).topRight();
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(ColourOf(severity));
    painter.drawPolygon(
        QPolygonF({corner, corner - QPointF(kFlag, 0), corner + QPointF(0, kFlag)}));
  }
  painter.restore();
}

void SheetPainter::DrawGuides(QPainter& painter) const {
  painter.setPen(QPen(kGuide, 1));
  const QRect all = view_.viewport()->rect();
  for (const double x : view_.Aids().guides.x) {
    const double at = view_.ToView(Point{x, 0}).x();
    painter.drawLine(QPointF(at, all.top()), QPointF(at, all.bottom()));
  }
  for (const double y : view_.Aids().guides.y) {
    const double at = view_.ToView(Point{0, y}).y();
    painter.drawLine(QPointF(all.left(), at), QPointF(all.right(), at));
  }
}

void SheetPainter::DrawSelection(QPainter& painter) const {
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(kSelected, 1));
  for (const ItemId id : view_.TheWorkspace().selection.Items()) {
    const auto box = view_.BoxOf(id);
    if (!box) continue;
    painter.drawRect(view_.ToView(*box).adjusted(-1, -1, 1, 1));
  }
  painter.setBrush(Qt::white);
  for (const Handle& handle : HandlesOf(view_)) {
    painter.drawRect(QRectF(handle.at - QPointF(kHandleSize / 2, kHandleSize / 2),
                            QSizeF(kHandleSize, kHandleSize)));
  }
}

std::optional<Box> SelectedBox(SheetView& view) {
  std::optional<Box> around;
  for (const ItemId id : view.TheWorkspace().selection.Items()) {
    if (const auto box = view.BoxOf(id)) around = around ? Around(*around, *box) : *box;
  }
  return around;
}

std::vector<Handle> HandlesOf(SheetView& view) {
  const auto box = SelectedBox(view);
  if (!box) return {};
  const ItemIds& selected = view.TheWorkspace().selection.Items();
  bool across = true;
  bool down = true;
  if (selected.size() == 1) {
    const Item* item = view.TheFormat().items.Find(selected.front());
    if (item->Kind() == ItemKind::kLine) {
      across = item->Place().width > item->Place().height;
      down = !across;
    }
    // A picture file prints at its own size.
    if (item->Kind() == ItemKind::kPicture) across = down = false;
  }
  const QRectF seen = view.ToView(*box);
  std::vector<Handle> handles;
  for (const int y : {-1, 0, 1}) {
    for (const int x : {-1, 0, 1}) {
      if ((x == 0 && y == 0) || (x != 0 && !across) || (y != 0 && !down)) continue;
      handles.push_back(
          {{seen.center().x() + x * seen.width() / 2, seen.center().y() + y * seen.height() / 2},
           {.left = x<0, .top = y<0, .right = x> 0, .bottom = y> 0}});
    }
  }
  return handles;
}

}  // namespace td::designer
