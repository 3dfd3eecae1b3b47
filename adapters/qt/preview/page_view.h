// The preview's surface: one page of a document on a grey desk.
#pragma once

#include <QAbstractScrollArea>

#include "page_document/page_document.h"

namespace td {

// Shows the preview page of a closed document at its zoom, and the empty desk otherwise. Only the
// shown page is drawn, and nothing of it is kept in pixels.
class PageView : public QAbstractScrollArea {
 public:
  // The document outlives the view.
  explicit PageView(PageDocument& document, QWidget* parent = nullptr);

  // To be called when the pages, the page shown or the zoom have changed.
  void ShowChanges();

  // Where the page lies, in pixels of the viewport. Empty if no page is shown.
  [[nodiscard]] QRectF SheetRect() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  [[nodiscard]] const Page* ShownPage() const;
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] QSizeF SheetSize() const;
  void FitScrollBars();

  PageDocument& document_;
  int shownNumber_ = 0;
};

}  // namespace td
