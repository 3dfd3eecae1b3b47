// The sample's database, broken by a script and checked.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "checker/checker.h"
#include "checker/machine.h"
#include "desktop/desktop_platform.h"
#include "temporary_database.h"

namespace td::checker {

// A machine with two printers: "Laser", the default one, prints every sheet to its edges; "Dot" has
// A4 only and leaves 20 mm on each side.
class FakeMachine : public CheckedMachine {
 public:
  explicit FakeMachine(Pictures& pictures) : pictures_(pictures) {}

  [[nodiscard]] std::vector<std::string> Printers() const override { return {"Laser", "Dot"}; }
  [[nodiscard]] std::string DefaultPrinter() const override { return "Laser"; }
  [[nodiscard]] std::string Id() const override { return "192.0.2.7"; }
  [[nodiscard]] std::optional<PaperExtent> OwnSheet(const std::string& printer) const override;
  [[nodiscard]] std::optional<SheetMargins> Margins(const std::string& printer,
                                                    const PaperExtent& sheet) const override;
  [[nodiscard]] bool Answers(const std::string& /*printer*/) const override { return true; }
  [[nodiscard]] Pictures& PictureFiles() const override { return pictures_; }
  [[nodiscard]] BarcodeSettings Barcodes() const override { return {}; }

 private:
  Pictures& pictures_;
};

// The platform of all tests of this program.
[[nodiscard]] DesktopPlatform& Desktop();

// A database file of its own with the sample in it.
class CheckedSample {
 public:
  CheckedSample();

  void Run(const std::string& script);
  [[nodiscard]] std::string Connection() const;
  [[nodiscard]] std::string File() const { return folder_.File("sample.db"); }
  [[nodiscard]] std::string Folder() const { return folder_.Path().string(); }

  [[nodiscard]] CheckResult Check(const Selection& selection = {}, const std::string& data = {},
                                  bool byArea = false) const;

 private:
  TemporaryFolder folder_;
};

}  // namespace td::checker
