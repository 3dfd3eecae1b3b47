#include "designer/panels/item_changes.h"

#include "designer/model/sheet_layout.h"
#include "designer/panels/edited_rows.h"

namespace td::designer {
namespace {

// A hidden left or top: -1 stands for 0, so that 0 can be hidden, too.
double Mirrored(double length) {
  return StoredTwips(-length - 1);
}

void MirrorIf(bool isWanted, Command& command, const Format& format, const Item& item,
              std::string_view column) {
  if (!isWanted) return;
  const double mirrored = Mirrored(item.row.Number(column));
  command = Together(std::move(command), SetNumberOnItems(format, {item.id}, column, mirrored));
}

}  // namespace

Command ShowField(const Format& format, const ItemIds& ids, const std::string& name) {
  Command command = SetOnItems(format, ids, "FObjectFieldName", name);
  command = Together(std::move(command),
                     SetNumberOnItems(format, ids, "FIsVariant", name.empty() ? 0 : 1));
  for (const ItemId id : ids) {
    const Item* item = format.items.Find(id);
    if (item == nullptr || name.empty()) continue;
    if (item->row.Text("FObjectCaption") != item->FieldName()) continue;
    command = Together(std::move(command), SetOnItems(format, {id}, "FObjectCaption", name));
  }
  return command;
}

bool CanHide(const Item& item) {
  return item.Site() != ItemSite::kHead;
}

bool IsHidden(const Item& item) {
  return CanHide(item) && (item.row.Number("FLeft") < 0 || item.row.Number("FTop") < 0);
}

Command HideItems(const Format& format, const ItemIds& ids, bool hide) {
  Command command{.kind = CommandKind::kChangeItems, .edits = {}, .items = {}};
  for (const ItemId id : ids) {
    const Item* item = format.items.Find(id);
    if (item == nullptr || !CanHide(*item) || IsHidden(*item) == hide) continue;
    MirrorIf(hide || item->row.Number("FLeft") < 0, command, format, *item, "FLeft");
    MirrorIf(!hide && item->row.Number("FTop") < 0, command, format, *item, "FTop");
  }
  return command;
}

namespace {

// An item stands at the place that is stored plus an offset of its band.
Command PutOnSheet(const Format& format, const ItemIds& ids, std::string_view column,
                   double Point::*axis, double place) {
  Command command{.kind = CommandKind::kChangeItems, .edits = {}, .items = {}};
  const SheetLayout layout = LayoutOf(format);
  for (const ItemId id : ids) {
    const Item* item = format.items.Find(id);
    if (item == nullptr) continue;
    const double stored = StoredTwips(place - layout.OffsetOf(item->Site()).*axis);
    command = Together(std::move(command), SetNumberOnItems(format, {id}, column, stored));
  }
  return command;
}

}  // namespace

Command PutLeftOnSheet(const Format& format, const ItemIds& ids, double left) {
  return PutOnSheet(format, ids, "FLeft", &Point::x, left);
}

Command PutTopOnSheet(const Format& format, const ItemIds& ids, double top) {
  return PutOnSheet(format, ids, "FTop", &Point::y, top);
}

}  // namespace td::designer
