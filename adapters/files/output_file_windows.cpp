#include <cerrno>

#include "files/output_file.h"
#include "files/path_text.h"
#include "files/windows_file.h"
#include "windows/api/standard_output.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// What is there under a path; a folder can be looked at, too.
WindowsFile OpenToLook(const fs::path& path) {
  return WindowsFile(CreateFileW(SystemPath(path).c_str(), FILE_READ_ATTRIBUTES,
                                 FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// The path of the file behind a link, which stays.
fs::path FinalPath(const WindowsFile& file, const fs::path& path) {
  std::wstring name(32'768, L'\0');
  const DWORD length = GetFinalPathNameByHandleW(
      file.Handle(), name.data(), static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED);
  if (length == 0 || length >= name.size()) return path;
  name.resize(length);
  return name;
}

bool IsDevice(const WindowsFile& file) {
  const DWORD kind = GetFileType(file.Handle());
  return kind == FILE_TYPE_CHAR || kind == FILE_TYPE_PIPE;
}

void WriteDirectly(const fs::path& path, const FileWriter& write) {
  const WindowsFile target(CreateFileW(path.c_str(), GENERIC_WRITE,
                                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                       0, nullptr));
  if (!target.IsOpen()) throw LastFileError();
  write([&target](std::string_view bytes) { WriteBytes(target, bytes); });
}

void WriteToStandard(StandardStream stream, const FileWriter& write) {
  StandardStreamWriter writer(stream);
  write([&writer](std::string_view bytes) {
    if (!writer.Write(bytes)) throw LastFileError();
  });
}

}  // namespace

void WriteOutput(const std::string& path, const FileWriter& write) {
  if (path.empty()) throw FileError(ENOENT);
  if (path == kStandardOutput) return WriteToStandard(StandardStream::kOutput, write);
  if (path == kStandardError) return WriteToStandard(StandardStream::kError, write);
  const fs::path wanted = PathOf(path);
  const WindowsFile there = OpenToLook(wanted);
  if (there.IsOpen() && IsDevice(there)) {
    WriteDirectly(wanted, write);
    return;
  }
  if (!there.IsOpen() && !wanted.has_filename()) throw LastFileError();
  ReplaceWholeFile(there.IsOpen() ? FinalPath(there, wanted) : wanted, write);
}

void MakeOutputFolder(const std::string& path) {
  const std::wstring folder = SystemPath(PathOf(path));
  if (CreateDirectoryW(folder.c_str(), nullptr) != FALSE) return;
  const FileError error = LastFileError();
  const DWORD attributes = GetFileAttributesW(folder.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw error;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) throw FileError(ENOTDIR);
}

bool RemoveOutput(const std::string& path) {
  constexpr DWORD kNoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
  const std::wstring file = SystemPath(PathOf(path));
  const DWORD attributes = GetFileAttributesW(file.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kNoFile) == 0 &&
         DeleteFileW(file.c_str()) != FALSE;
}

}  // namespace td
