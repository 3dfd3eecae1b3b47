// The preview's surface: one page of a document on a grey desk.
#pragma once

#include <functional>
#include <optional>

#include "page_document/page_document.h"
#include "windows/preview/window.h"

namespace td {

// Shows the preview page of a document at its zoom, be the document finished or not, and the empty
// desk if it has no such page. Only the shown page is drawn, and nothing of it is kept in pixels.
// The wheel and a drag scroll. A new zoom leaves the middle of the view where it was.
class PageView : public Window {
 public:
  // The document outlives the view. `zoom` is called when the wheel is turned with Ctrl.
  PageView(PageDocument& document, std::function<void(bool isLarger)> zoom, HWND parent);

  // To be called when the pages, the page shown or the zoom have changed.
  void ShowChanges();
  // The view comes to a monitor of a resolution, for which `resize` gives it its size. The same
  // part of the page is seen there.
  void PutResolution(int dotsPerInch, const std::function<void()>& resize);

  // Where the page lies, in pixels; nothing if no page is shown.
  [[nodiscard]] std::optional<RECT> SheetRect() const;

  enum class Part { kStart, kEnd };
  // By the height of what is seen, or a line up or down, left or right.
  void ScrollPage(bool isDown);
  void ScrollLine(int bar, bool isForward);
  void ScrollTo(Part part);
  [[nodiscard]] bool IsAt(Part part) const;

  void PutPointer(const wchar_t* pointer);

 protected:
  LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;

 private:
  // A drag of the page: the pointer and the scroll bars when it began.
  struct Drag {
    POINT start;
    POINT scrolled;
  };

  [[nodiscard]] const Page* ShownPage() const;
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] int DeskMargin() const;
  [[nodiscard]] SCROLLINFO Bar(int bar) const;
  [[nodiscard]] int Last(int bar) const;
  [[nodiscard]] POINT Scrolled() const;
  void Scroll(int bar, int position);
  void ScrollBy(int bar, int pixels) { Scroll(bar, Bar(bar).nPos + pixels); }
  void FollowBar(int bar, int action);
  void TurnWheel(int bar, int turned);
  void FitScrollBars();
  void ShowZoom(double pixelsPerTwip);
  void Paint();
  void DrawDesk(HDC device, const RECT& seen) const;
  void BeginDrag(const POINT& place);
  void EndDrag();

  PageDocument& document_;
  std::function<void(bool isLarger)> zoom_;
  int dotsPerInch_ = 96;
  int shownNumber_ = 0;
  double shownScale_ = 0;  // pixels per twip
  bool isFitting_ = false;
  int turned_ = 0;  // of the wheel, not yet made into a step of the zoom
  const wchar_t* pointer_;
  std::optional<Drag> drag_;
};

}  // namespace td
