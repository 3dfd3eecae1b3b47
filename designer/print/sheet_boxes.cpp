#include "designer/print/sheet_boxes.h"

namespace td::designer {
namespace {

struct CommandBox {
  const Box& stored;

  std::optional<Box> operator()(const BoxText& text) const {
    return Box{text.left, text.top, text.width, text.height};
  }
  // The point is an edge or the middle of the box, by the alignment.
  std::optional<Box> operator()(const PointText& text) const {
    return Box{text.x, text.y, stored.width, stored.height};
  }
  std::optional<Box> operator()(const Line& line) const {
    const double pen = line.penWidth;
    if (line.y1 == line.y2) return Box{line.x1, line.y1 - pen / 2, line.x2 - line.x1, pen};
    return Box{line.x1 - pen / 2, line.y1, pen, line.y2 - line.y1};
  }
  std::optional<Box> operator()(const PlacedPicture& placed) const {
    return Box{placed.left, placed.top, placed.width, placed.height};
  }
};

std::optional<Box> BoxOfPiece(const SheetPiece& piece, const Item& item) {
  const Box stored = item.Place();
  std::optional<Box> around;
  for (const DrawingCommand& command : piece.commands) {
    const auto box = std::visit(CommandBox{stored}, command);
    if (box) around = around ? Around(*around, *box) : *box;
  }
  return around;
}

}  // namespace

std::unordered_map<ItemId, Box> BoxesOn(const SheetPicture& picture, std::size_t page,
                                        const Format& format, const SheetLayout& layout,
                                        bool onlyValues) {
  std::unordered_map<ItemId, Box> boxes;
  const SheetPage& shown = picture.pages[page];
  std::unordered_map<ItemId, bool> isAsked;
  for (const SheetPiece& piece : shown.pieces) {
    const Item* item = format.items.Find(piece.item);
    if (item == nullptr || boxes.contains(piece.item)) continue;
    isAsked[piece.item] = true;
    if (piece.site == ItemSite::kRow && piece.row > 0) continue;
    if (const auto box = BoxOfPiece(piece, *item)) boxes.emplace(piece.item, *box);
  }
  const PageOfBill place = page == 0 ? PageOfBill::kFirst : PageOfBill::kLater;
  for (const Item& item : format.items) {
    if (boxes.contains(item.id) || !IsDrawn(item)) continue;
    if (onlyValues && !IsDrawnOnForm(item)) continue;
    // A later page may not have the head, nor the foot.
    if (page > 0 && !isAsked.contains(item.id)) continue;
    const Point right = layout.OffsetOf(item.Site());
    const Point here = layout.OffsetOf(item.Site(), 0, shown.rows > 0 ? shown.rows : 1, place);
    boxes.emplace(item.id, DrawnBox(layout, item).MovedBy(here.x - right.x, here.y - right.y));
  }
  return boxes;
}

std::vector<Box> FramesOn(const SheetPage& page, const Format& format, const SheetLayout& layout) {
  std::vector<Box> frames;
  for (const SheetPiece& piece : page.pieces) {
    if (const Item* item = format.items.Find(piece.item)) {
      const auto drawn = BoxOfPiece(piece, *item);
      if (drawn) {
        frames.push_back(*drawn);
      } else if (IsDrawn(*item) && IsDrawnOnForm(*item)) {
        frames.push_back(DrawnBox(layout, *item, piece.row));
      }
      continue;
    }
    for (const DrawingCommand& command : piece.commands) {
      const auto* text = std::get_if<BoxText>(&command);
      if (text != nullptr) frames.push_back({text->left, text->top, text->width, text->height});
    }
  }
  return frames;
}

std::optional<Box> BoxOrNowhere(const std::unordered_map<ItemId, Box>& boxes, const Item& item) {
  constexpr double kNowhere = -1e9;
  const auto found = boxes.find(item.id);
  return found != boxes.end() ? found->second : Box{kNowhere, kNowhere, 0, 0};
}

}  // namespace td::designer
