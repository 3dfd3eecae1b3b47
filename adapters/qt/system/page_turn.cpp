#include "qt/system/page_turn.h"

#include <sys/mman.h>
#include <unistd.h>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/read_file.h"
#include "qt/system/cups_handles.h"

namespace td {
namespace {

// The driver's file of a queue; empty if it has none, or none that can be had.
std::string DriverOf(const std::string& printer) {
  constexpr std::size_t kLargest = 4 << 20;
  const Descriptor file(memfd_create("driver", MFD_CLOEXEC));
  const std::string resource = "/printers/" + printer + ".ppd";
  if (!file.IsOpen() || !HasCups() ||
      Cups().cupsGetFd(CUPS_HTTP_DEFAULT, resource.c_str(), file.Number()) != HTTP_STATUS_OK ||
      lseek(file.Number(), 0, SEEK_SET) != 0) {
    return {};
  }
  try {
    return ReadRegularFile(file, kLargest);
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

// The printing system turns a page that lies across its sheet as the driver says, and where it says
// nothing, with the top to the right.
PageTurn TurnOf(const std::string& printer) {
  const std::string driver = DriverOf(printer);
  const std::size_t at = driver.find("\n*LandscapeOrientation:");
  if (at == std::string::npos) return PageTurn::kTopRight;
  const std::string line = driver.substr(at + 1, driver.find('\n', at + 1) - at - 1);
  return line.find("Plus90") == std::string::npos ? PageTurn::kTopRight : PageTurn::kTopLeft;
}

}  // namespace td
