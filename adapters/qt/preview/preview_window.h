// The preview window: a tool strip with the toolbar and the page text, and the page below.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QShortcut>
#include <QToolBar>
#include <QWidget>
#include <map>
#include <string>
#include <string_view>

#include "page_document/page_document.h"
#include "preview/preview_events.h"
#include "qt/preview/held_input.h"
#include "qt/preview/page_view.h"

class QEventLoop;

namespace td {

// Most buttons have a key, which their tooltips name; Esc closes the window. The keys of the page's
// view work wherever the focus is, and Ctrl+G asks for a page's number. All lengths of the layout
// are twips, so that they follow the screen's resolution.
class PreviewWindow : public QWidget {
 public:
  // The document outlives the window.
  PreviewWindow(PageDocument& document, PreviewEvents events);

  // Shows the window and returns when it was closed; the application's other windows take no input
  // meanwhile.
  void ShowModal();
  // Hides the window. Closing it twice is no error.
  void Close();

  // What dialogs open on.
  QWidget* Handle() { return this; }

  // An unknown key has no effect. Both are visible at once, in the middle of a run, too. What was
  // clicked and typed before a button is enabled does nothing if it was meant for a disabled one;
  // the rest is acted upon when the run has returned to the event loop.
  void EnableButton(std::string_view key, bool enabled);
  void PutPageText(const std::string& text);

  void ShowDocumentChanges() { view_->ShowChanges(); }
  void PutPointer(std::int32_t shape);

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddButtons();
  void AddPageText();
  void AddShortcuts();
  void Press(std::string_view key);
  void Turn(PageTurn turn);
  void Zoom(bool isLarger);
  void ShowPage(std::int16_t page);
  void GoToPage();
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] QSize PageTextSize() const;
  void UseSensibleSize();
  void ReportActivation();
  void LayOutParts();

  PageDocument& document_;
  PreviewEvents events_;
  QWidget* strip_;
  QToolBar* toolbar_;
  QLineEdit* pageText_;
  PageView* view_;
  QShortcut* zoomIn_;
  QShortcut* zoomOut_;
  HeldInput* heldInput_;
  QEventLoop* loop_ = nullptr;  // while it is shown
  std::map<std::string, QAction*, std::less<>> buttons_;
  bool wasActivated_ = false;
};

}  // namespace td
