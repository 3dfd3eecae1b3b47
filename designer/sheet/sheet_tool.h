// What the mouse does on a sheet.
#pragma once

#include <QPainter>
#include <QPointF>
#include <optional>

#include "designer/model/lengths.h"

namespace td::designer {

struct SheetMouse {
  QPointF at;   // pixels of the view
  Point sheet;  // twips
  Qt::KeyboardModifiers modifiers;
  Qt::MouseButton button = Qt::NoButton;
};

class SheetTool {
 public:
  SheetTool() = default;
  virtual ~SheetTool() = default;
  SheetTool(const SheetTool&) = delete;
  SheetTool& operator=(const SheetTool&) = delete;

  // Whether it takes the button that was pressed; the moves until the release are then its own.
  virtual bool Press(const SheetMouse& mouse) = 0;
  virtual void Drag(const SheetMouse& mouse) = 0;
  virtual void Release(const SheetMouse& mouse) = 0;
  // Escape: what was dragged is as it was before.
  virtual void Cancel() = 0;
  // The pointer over a place where nothing is pressed; nothing if the place is none of the tool's.
  [[nodiscard]] virtual std::optional<Qt::CursorShape> CursorAt(const SheetMouse& mouse) const = 0;
  // In pixels of the view, above the sheet.
  virtual void Paint(QPainter& /*painter*/) const {}
};

}  // namespace td::designer
