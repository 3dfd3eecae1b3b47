#include <cerrno>

#include "files/path_text.h"
#include "files/windows_file.h"
#include "sqlite/file_stamp.h"

namespace td {
namespace {

std::uint64_t Joined(DWORD high, DWORD low) {
  return (std::uint64_t{high} << 32U) | low;
}

}  // namespace

std::optional<FileStamp> StampOf(const std::string& path) {
  try {
    const WindowsFile file(CreateFileW(SystemPath(PathOf(path)).c_str(), FILE_READ_ATTRIBUTES,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                       nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                       nullptr));
    BY_HANDLE_FILE_INFORMATION state{};
    if (!file.IsOpen() || GetFileInformationByHandle(file.Handle(), &state) == FALSE) {
      throw LastFileError();
    }
    if ((state.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw FileError(EISDIR);
    constexpr std::uint64_t kUnitsOfASecond = 10'000'000;
    const std::uint64_t written =
        Joined(state.ftLastWriteTime.dwHighDateTime, state.ftLastWriteTime.dwLowDateTime);
    return FileStamp{state.dwVolumeSerialNumber, Joined(state.nFileIndexHigh, state.nFileIndexLow),
                     Joined(state.nFileSizeHigh, state.nFileSizeLow),
                     static_cast<std::int64_t>(written / kUnitsOfASecond),
                     static_cast<std::int64_t>(written % kUnitsOfASecond)};
  } catch (const FileError& error) {
    errno = error.Number();
    return std::nullopt;
  }
}

}  // namespace td
