// The component's dialogs on a display, each on the thread of its test.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "desktop/desktop_platform.h"
#include "dialog_user.h"
#include "temporary_database.h"

namespace td {

class ShownDialog : public testing::Test {
 protected:
  using Use = std::function<void(DialogUser&)>;

  // Runs `show`, which shows a dialog modally. Once that has the keyboard, `use` runs on a thread
  // of its own; the dialog is closed afterwards if it is still open. Message boxes are noted and
  // confirmed as they come. What `show` throws leaves this call.
  void WhileShown(const char* dialog, const std::function<void()>& show, Use use);

  // The texts of the boxes so far.
  [[nodiscard]] std::vector<std::string> Boxes() const;
  // Waits for so many.
  [[nodiscard]] bool WaitForBoxes(std::size_t count) const {
    return WaitFor([=, this] { return Boxes().size() >= count; });
  }

 private:
  void ConfirmBox(HWND box);

  mutable std::mutex mutex_;
  std::vector<std::string> boxes_;
};

// On a database: formats 销售单 (selected) and 两联单 of bill type 21, 入库单 of 12; stock areas A
// and B. QbTd-PDF is one of the queues of scripts/cups-for-tests.sh.
class DialogOnDatabase : public ShownDialog {
 protected:
  DialogOnDatabase();

  void ShowSettings(Use use);
  void ShowAreaPrinters(Use use);

  // The value that a statement selects, as text; Null is "Null". On the test's own thread, and on
  // that of the user while the dialog waits.
  [[nodiscard]] std::string Cell(const std::string& statement);
  [[nodiscard]] std::string Setting(const std::string& column,
                                    const std::string& format = "销售单") {
    return Cell("select " + column + " from TDBill where FTDBillName='" + format + "'");
  }

  TemporaryFolder folder_;
  std::string connection_;
  OtherUser other_;
  DesktopPlatform desktop_;
};

}  // namespace td
