// The preview window: a tool strip with the toolbar and the page text, and the page below.
#pragma once

#include <QAction>
#include <QLineEdit>
#include <QToolBar>
#include <QWidget>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "page_document/page_document.h"
#include "qt/preview/page_view.h"

namespace td {

// What the window calls back. No call leaves an exception behind.
struct PreviewEvents {
  std::function<void()> activated;  // it has got the focus, and has been drawn
  std::function<void(std::string_view key)> buttonPressed;
  std::function<void()> closed;
};

// Page Up and Page Down turn pages, Ctrl+P prints and Esc closes the window, as the buttons do. All
// lengths of its layout are twips, so that they follow the screen's resolution.
class PreviewWindow : public QWidget {
 public:
  // The document outlives the window.
  PreviewWindow(PageDocument& document, PreviewEvents events);

  // An unknown key has no effect. Both are visible at once, in the middle of a run, too. What was
  // clicked and typed before a button is enabled does nothing: it was meant for a disabled one.
  void EnableButton(std::string_view key, bool enabled);
  void PutPageText(const std::string& text);

  void ShowDocumentChanges() { view_->ShowChanges(); }
  void PutPointer(std::int32_t shape);

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void AddButtons();
  void AddPageText();
  [[nodiscard]] double PixelsPerTwip() const;
  [[nodiscard]] QSize PageTextSize() const;
  void UseSensibleSize();
  void ReportActivation();
  void LayOutParts();

  PreviewEvents events_;
  QWidget* strip_;
  QToolBar* toolbar_;
  QLineEdit* pageText_;
  PageView* view_;
  std::map<std::string, QAction*, std::less<>> buttons_;
  bool wasActivated_ = false;
};

}  // namespace td
