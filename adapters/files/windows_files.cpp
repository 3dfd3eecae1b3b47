#include "files/windows_files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <random>
#include <string_view>
#include <system_error>
#include <vector>

#include "files/path_text.h"
#include "files/windows_file.h"
#include "windows/api/environment.h"
#include "windows/api/system_error.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kPrefix = L".qbtdprinter-";
constexpr std::wstring_view kDigits = L"0123456789abcdef";
constexpr std::size_t kRandomDigits = 16;
constexpr int kSystemErrors = 100'000;   // numbers from here on are the system's own
constexpr DWORD kMostBytes = 1U << 24U;  // of one call

void Require(BOOL succeeded) {
  if (succeeded == FALSE) throw LastFileError();
}

WindowsFile OpenForWriting(const fs::path& path, DWORD disposition) {
  return WindowsFile(CreateFileW(SystemPath(path).c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                 disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::uint64_t TicksOf(const FILETIME& time) {
  return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

std::wstring RandomName() {
  std::random_device random;
  std::wstring name(kPrefix);
  for (std::size_t i = 0; i < kRandomDigits; ++i) name += kDigits[random() % kDigits.size()];
  return name;
}

// The names of the drafts in a folder that nobody has written to for an hour.
std::vector<std::wstring> OldDraftsIn(const fs::path& folder) {
  constexpr std::uint64_t kAnHour = 36'000'000'000;  // in the system's unit
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  WIN32_FIND_DATAW found{};
  HANDLE search = FindFirstFileW((folder / (std::wstring(kPrefix) + L"*")).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return {};
  std::vector<std::wstring> names;
  do {
    const std::wstring_view name = found.cFileName;
    const bool isDraft = name.starts_with(kPrefix) &&
                         name.size() == kPrefix.size() + kRandomDigits &&
                         name.find_first_not_of(kDigits, kPrefix.size()) == name.npos;
    const bool isOld = TicksOf(found.ftLastWriteTime) + kAnHour < TicksOf(now);
    if (isDraft && isOld) names.emplace_back(name);
  } while (FindNextFileW(search, &found) != FALSE);
  FindClose(search);
  return names;
}

// What is old and can be removed belongs to no process: a file that is being written is shared with
// nobody.
void SweepLeftovers(const fs::path& folder) {
  for (const std::wstring& name : OldDraftsIn(folder)) DeleteFileW((folder / name).c_str());
}

// A file that isn't finished, in the folder of its later name.
class Draft {
 public:
  explicit Draft(const fs::path& path)
      : folder_(fs::path(SystemPath(path)).parent_path()), file_(INVALID_HANDLE_VALUE) {
    SweepLeftovers(folder_);
    while (!file_.IsOpen()) {
      path_ = folder_ / RandomName();
      file_ = OpenForWriting(path_, CREATE_NEW);
      if (!file_.IsOpen() && GetLastError() != ERROR_FILE_EXISTS) throw LastFileError();
    }
  }
  ~Draft() {
    if (path_.empty()) return;
    file_.Close();
    DeleteFileW(SystemPath(path_).c_str());
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  void Fill(const FileWriter& write) {
    write([this](std::string_view bytes) { WriteBytes(file_, bytes); });
    Require(FlushFileBuffers(file_.Handle()));
    file_.Close();
  }

  void PutUnder(const fs::path& path, DWORD flags) {
    Require(MoveFileExW(SystemPath(path_).c_str(), SystemPath(path).c_str(),
                        flags | MOVEFILE_WRITE_THROUGH));
    path_.clear();
  }

  // The new file takes the name, the rights and the date of making of the old one.
  void PutInPlaceOf(const fs::path& path) {
    if (ReplaceFileW(SystemPath(path).c_str(), SystemPath(path_).c_str(), nullptr,
                     REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != FALSE) {
      path_.clear();
    } else {
      PutUnder(path, MOVEFILE_REPLACE_EXISTING);
    }
  }

 private:
  fs::path folder_;
  fs::path path_;
  WindowsFile file_;
};

// A file that another program holds is found out before anything is written.
void RequireReplaceable(const fs::path& path) {
  const WindowsFile there(CreateFileW(SystemPath(path).c_str(), DELETE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!there.IsOpen()) throw LastFileError();
}

}  // namespace

std::string SystemReasonOf(int number) {
  return number < kSystemErrors ? "错误 " + std::to_string(number)
                                : SystemWords(static_cast<unsigned long>(number - kSystemErrors));
}

int NumberOfError(unsigned long error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      return ENOENT;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
      return EACCES;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_FILE_TOO_LARGE:
      return EFBIG;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    case ERROR_BROKEN_PIPE:
    case ERROR_NO_DATA:
      return EPIPE;
    case ERROR_INVALID_HANDLE:
      return EBADF;
    case ERROR_CRC:
    case ERROR_IO_DEVICE:
    case ERROR_NOT_READY:
      return EIO;
    default:
      return kSystemErrors + static_cast<int>(error);
  }
}

FileError LastFileError() {
  return FileError(NumberOfError(GetLastError()));
}

std::wstring SystemPath(const fs::path& path) {
  std::wstring whole(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
    if (length == 0) throw LastFileError();
    const bool fits = length < whole.size();
    whole.resize(length);
    if (fits) break;
  }
  if (whole.starts_with(LR"(\\?\)") || whole.starts_with(LR"(\\.\)")) return whole;
  if (whole.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + whole.substr(1);
  return LR"(\\?\)" + whole;
}

fs::path OpenPathOf(std::string_view utf8) {
  const fs::path path = PathOf(utf8);
  return path.empty() ? path : fs::path(SystemPath(path));
}

fs::path AbsolutePathFrom(const wchar_t* variable) {
  const fs::path path = EnvironmentText(variable);
  return path.is_absolute() ? path : fs::path();
}

void WriteBytes(const WindowsFile& file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kMostBytes));
    Require(WriteFile(file.Handle(), bytes.data(), part, &written, nullptr));
    bytes.remove_prefix(written);
  }
}

void ReplaceWholeFile(const fs::path& path, const FileWriter& write) {
  const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
  if (isThere && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw FileError(EISDIR);
  if (isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0) throw FileError(EACCES);
  if (isThere) RequireReplaceable(path);
  Draft draft(path);
  draft.Fill(write);
  if (isThere) {
    draft.PutInPlaceOf(path);
  } else {
    draft.PutUnder(path, MOVEFILE_REPLACE_EXISTING);
  }
}

void CreateWholeFile(const fs::path& path, const FileWriter& write) {
  Draft draft(path);
  draft.Fill(write);
  draft.PutUnder(path, 0);
}

void ReadInParts(const fs::path& path, const ByteSink& sink) {
  const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) throw LastFileError();
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) throw FileError(EISDIR);
  const WindowsFile file(CreateFileW(SystemPath(path).c_str(), GENERIC_READ,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file.IsOpen()) throw LastFileError();
  if (GetFileType(file.Handle()) != FILE_TYPE_DISK) throw FileError(EINVAL);
  std::array<char, 65536> part{};
  for (DWORD count = 0;;) {
    Require(ReadFile(file.Handle(), part.data(), static_cast<DWORD>(part.size()), &count, nullptr));
    if (count == 0) return;
    sink({part.data(), count});
  }
}

std::string ReadWholeFile(const fs::path& path, std::size_t largest) {
  std::string content;
  ReadInParts(path, [&](std::string_view bytes) {
    content += bytes;
    if (content.size() > largest) throw FileError(EFBIG);
  });
  return content;
}

TemporaryFile::TemporaryFile() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) throw FileError(error.default_error_condition().value());
  SweepLeftovers(folder);
  path_ = folder / RandomName();
}

TemporaryFile::~TemporaryFile() {
  DeleteFileW(path_.c_str());
}

}  // namespace td
