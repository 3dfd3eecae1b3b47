#include "checked_sample.h"

#include <filesystem>

#include "page_document/commands.h"
#include "sample_files.h"

namespace td::checker {
namespace {

// Made once: each test copies it.
const std::string& Original() {
  static const TemporaryFolder folder;
  static const std::string file = [] {
    std::string path = folder.File("original.db");
    MakeSampleDatabase(QBTD_SOURCE_DIR "/examples", path);
    return path;
  }();
  return file;
}

}  // namespace

std::optional<PaperExtent> FakeMachine::OwnSheet(const std::string& /*printer*/) const {
  return std::nullopt;
}

std::optional<SheetMargins> FakeMachine::Margins(const std::string& printer,
                                                 const PaperExtent& sheet) const {
  constexpr double kMargin = 20 * kTwipsPerMillimetre;
  if (printer == "Laser") return SheetMargins();
  if (PaperCodeOf(sheet) != kPaperA4) return std::nullopt;
  return SheetMargins{kMargin, kMargin, kMargin, kMargin};
}

DesktopPlatform& Desktop() {
  static DesktopPlatform& desktop = *[] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    static const TemporaryFolder folder;  // of goods pictures
    std::filesystem::create_directory(folder.Path() / "picture");
    DesktopOptions options;
    options.componentFolder = folder.Path();
    return new DesktopPlatform(options);  // lives as long as the application
  }();
  return desktop;
}

CheckedSample::CheckedSample() {
  std::filesystem::copy_file(Original(), File());
}

void CheckedSample::Run(const std::string& script) {
  OtherUser(File()).Run(script);
}

std::string CheckedSample::Connection() const {
  return "sqlite:" + File();
}

CheckResult CheckedSample::Check(const Selection& selection, const std::string& data,
                                 bool byArea) const {
  const FakeMachine machine(Desktop().Get().pictures);
  CheckOptions options{.byArea = byArea};
  if (!data.empty()) options.rows = Desktop().OpenReadOnly(Connection(), data);
  return CheckDatabase(Desktop().Get().database, Connection(), selection, machine, options);
}

}  // namespace td::checker
