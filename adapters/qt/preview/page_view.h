// The preview's surface: one page of a document on a grey desk.
#pragma once

#include <QAbstractScrollArea>
#include <functional>
#include <optional>

#include "page_document/page_document.h"

namespace td {

enum class PageTurn { kFirst, kPrevious, kNext, kLast };

// What the view calls back.
struct PageViewEvents {
  std::function<void(PageTurn turn)> turn;
  std::function<void(bool isLarger)> zoom;
};

// Shows the preview page of a document at its zoom, be the document finished or not, and the empty
// desk if it has no such page. Only the shown page is drawn, and nothing of it is kept in pixels.
//
// Page Down and Space scroll, and turn the page at its end; Page Up and Shift+Space do so
// backwards. Home and End go to the ends of the page, with Ctrl to those of the document. The wheel
// and a drag scroll, the wheel zooms with Ctrl. A new zoom leaves the middle of the view where it
// was.
class PageView : public QAbstractScrollArea {
 public:
  // The document outlives the view.
  PageView(PageDocument& document, PageViewEvents events, QWidget* parent = nullptr);

  // To be called when the pages, the page shown or the zoom have changed.
  void ShowChanges();

  // Where the page lies, in pixels of the viewport. Empty if no page is shown.
  [[nodiscard]] QRectF SheetRect() const;

  // A key that the view would do something with.
  [[nodiscard]] static bool Knows(const QKeyEvent& key);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  // A drag of the page: the pointer, the scroll bars and the pointer's shape when it began.
  struct Drag {
    QPoint start;
    QPoint scrolled;
    QCursor cursor;
  };

  [[nodiscard]] const Page* ShownPage() const;
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] QSizeF SheetSize() const;
  [[nodiscard]] QPoint Scrolled() const;
  void ScrollTo(const QPoint& place);
  void FitScrollBars();
  void PutZoom(double zoom);
  void PageForward();
  void PageBackward();

  PageDocument& document_;
  PageViewEvents events_;
  int shownNumber_ = 0;
  double shownZoom_;
  std::optional<Drag> drag_;
};

}  // namespace td
