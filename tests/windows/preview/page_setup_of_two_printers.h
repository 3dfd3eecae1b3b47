// The page-setup dialog of a document on a machine with two printers, the first its default.
#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "shown_preview.h"
#include "windows/preview/page_setup_dialog.h"
#include "windows/system/desktop_host.h"

namespace td {

class TwoPrinters : public DesktopHost {
 public:
  using DesktopHost::DesktopHost;

  std::vector<std::string> Devices() override { return {"前台", "仓库"}; }
  std::string DefaultDevice() override { return "前台"; }
  bool HasDevice(const std::string& name) override { return name == "前台" || name == "仓库"; }
  std::optional<PaperExtent> DefaultSheet() override { return std::nullopt; }
};

class PageSetupOfTwoPrinters : public testing::Test {
 protected:
  using Step = std::function<void()>;

  PageSetupOfTwoPrinters() { document_.PutMarginLeft(0); }
  ~PageSetupOfTwoPrinters() override { LetGoOfKeys(); }

  void Open() { Open(document_.Device()); }
  void Open(const std::string& printer) {
    dialog_ = std::make_unique<PageSetupDialog>(document_, printer, ownSheets_);
  }
  // Opens the dialog and works off the steps while it is shown; it is closed behind the last.
  // Whether it was confirmed.
  bool Show(std::vector<Step> steps);

  [[nodiscard]] HWND Part(int id) const { return GetDlgItem(dialog_->Window(), id); }
  // Whatever dialog has the focus.
  [[nodiscard]] static HWND Front() { return GetAncestor(GetFocus(), GA_ROOT); }
  [[nodiscard]] bool CanConfirm() const { return IsWindowEnabled(Part(IDOK)) != FALSE; }
  [[nodiscard]] std::string Entry(int list) const;
  void Choose(int list, const std::string& beginning);
  void Write(int field, const wchar_t* millimetres) const {
    SetWindowTextW(Part(field), millimetres);
  }
  void ChooseLandscape() const;

  FrameSettings settings_;
  MessageBoxes messages_{MessageMode::kStandardError};
  TwoPrinters host_{settings_, messages_};
  PageDocument document_{host_};
  OwnSheets ownSheets_;
  std::unique_ptr<PageSetupDialog> dialog_;

 private:
  void Next();

  std::deque<Step> steps_;
  bool isShown_ = false;
};

}  // namespace td
