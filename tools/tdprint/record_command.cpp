#include "record_command.h"

#include <memory>
#include <string>
#include <utility>

#include "complaint.h"
#include "desktop/desktop_platform.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "platform/failure.h"
#include "platform/retry_while_locked.h"
#include "recording/masking.h"
#include "recording/record_print.h"

namespace td {
namespace {

using recording::RecordedPrint;
using recording::RecordedRequest;

RecordedRequest RequestOf(const PrintArguments& arguments, Platform& platform) {
  RecordedRequest request{.connection = arguments.database,
                          .billType = arguments.billType,
                          .format = arguments.format,
                          .onlyVariantItems = arguments.onlyVariant,
                          .blankRows = arguments.blankRows,
                          .byArea = arguments.byArea,
                          .machine = platform.machine.LocalMachineId(),
                          .printers = {},
                          .defaultPrinter = {},
                          .canLoad = {}};
  const std::unique_ptr<PrintFrame> frame = platform.windows.CreatePrintFrame("frmTdPrint");
  PrintSurface& surface = frame->Surface();
  for (int i = 0; i < surface.DeviceCount(); ++i) request.printers.push_back(surface.DeviceName(i));
  request.defaultPrinter = surface.Device();
  request.canLoad = [&platform](const std::string& path) {
    try {
      return platform.pictures.Load(path) != nullptr;
    } catch (const Failure&) {
      return false;
    }
  };
  return request;
}

}  // namespace

ExitStatus RecordScenario(const RecordArguments& arguments) {
  const std::string out = arguments.out.empty() ? kStandardOutput : arguments.out;
  try {
    DesktopOptions options;
    options.messages = MessageMode::kStandardError;
    DesktopPlatform desktop(std::move(options));
    Platform& platform = desktop.Get();
    const RecordsetRef rows = RetryWhileLocked(
        [&] { return desktop.OpenReadOnly(arguments.print.database, arguments.print.data); });
    const RecordedPrint recorded =
        RecordPrint(platform.database, RequestOf(arguments.print, platform), rows);
    const recording::Json scenario =
        arguments.mask ? recording::Masked(recorded.scenario) : recorded.scenario;
    WriteOutput(out, WriterOf(recording::ScenarioText(scenario)));
    if (recorded.difference.empty()) return ExitStatus::kPrinted;
    Complain("the scenario prints otherwise than the database", recorded.difference);
    return ExitStatus::kPrintedWithMessages;
  } catch (const FileError& error) {
    Complain("not recorded", out + ": " + error.what());
  } catch (const Failure& failure) {
    Complain("not recorded", failure.Description());
  }
  return ExitStatus::kNotPrinted;
}

}  // namespace td
