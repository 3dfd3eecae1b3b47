// A modal dialog on Windows.
#pragma once

#include <memory>
#include <utility>

#include "dialogs/dialog_contents.h"
#include "page_document/page_document.h"
#include "platform/dialog.h"
#include "windows/dialogs/dialog_window.h"
#include "windows/system/desktop_host.h"

namespace td {

// The window is made when it is first needed, and lives as long as the dialog. Where no window can
// be shown, ShowModal and all that concerns controls fail with kInvalidCall; so does the latter
// when the window went down with the program's window behind it.
class WindowsDialog : public Dialog {
 public:
  // `contents` and `messages` outlive the dialog.
  WindowsDialog(const DialogContents& contents, std::shared_ptr<const FrameSettings> settings,
                Messages& messages)
      : contents_(contents),
        settings_(std::move(settings)),
        host_(*settings_, messages),
        surface_(host_) {}

  void Connect(DialogEvents events) override { events_ = std::move(events); }

  void ShowModal() override;
  void Unload() override;

  PrintSurface& Surface() override { return surface_; }

  std::string Text(std::string_view textBox) override;
  void PutText(std::string_view textBox, const std::string& text) override;
  int CheckValue(std::string_view checkBox) override;
  void PutCheckValue(std::string_view checkBox, int value) override;
  int Option(std::string_view group) override;
  void PutOption(std::string_view group, int index) override;
  void ClearList(std::string_view list) override;
  void AddItem(std::string_view list, const std::string& text) override;
  int ListCount(std::string_view list) override;
  std::string ListItem(std::string_view list, int index) override;
  int ListIndex(std::string_view list) override;
  void PutListIndex(std::string_view list, int index) override;
  std::string ListText(std::string_view list) override;

 private:
  DialogWindow& Window();

  const DialogContents& contents_;
  std::shared_ptr<const FrameSettings> settings_;
  DesktopHost host_;
  PageDocument surface_;
  DialogEvents events_;
  std::unique_ptr<DialogWindow> window_;
  bool isUnloaded_ = false;
};

}  // namespace td
