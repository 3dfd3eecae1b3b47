#include <array>
#include <chrono>
#include <filesystem>
#include <random>
#include <string_view>
#include <system_error>
#include <utility>

#include "component_folder.h"
#include "files/path_text.h"
#include "files/windows_file.h"
#include "platform/failure.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr std::wstring_view kPrefix = L"tdprint-";
constexpr std::wstring_view kDigits = L"0123456789abcdef";
constexpr std::size_t kRandomDigits = 16;
constexpr const wchar_t* kMarkName = L"in-use";
constexpr const wchar_t* kPictures = L"picture";

std::wstring RandomName() {
  std::random_device random;
  std::wstring name(kPrefix);
  for (std::size_t i = 0; i < kRandomDigits; ++i) name += kDigits[random() % kDigits.size()];
  return name;
}

bool IsOfThisKind(const std::wstring& name) {
  return name.starts_with(kPrefix) && name.size() == kPrefix.size() + kRandomDigits &&
         name.find_first_not_of(kDigits, kPrefix.size()) == std::wstring::npos;
}

// A folder itself, and no way to one that lies elsewhere and is somebody else's.
bool IsFolder(const fs::path& path) {
  const DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
         (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
}

void RemoveWithFiles(const fs::path& folder) {
  if (!IsFolder(folder)) return;
  std::error_code error;
  for (fs::directory_iterator file(folder, error), end; !error && file != end;
       file.increment(error)) {
    DeleteFileW(SystemPath(file->path()).c_str());
  }
  RemoveDirectoryW(SystemPath(folder).c_str());
}

// What no program of this kind makes stays, and the folder with it.
void Remove(const fs::path& folder) {
  if (!IsFolder(folder)) return;
  RemoveWithFiles(folder / kPictures);
  RemoveWithFiles(folder);
}

// An old one without the mark of a running program belongs to nobody any more.
void SweepLeftovers(const fs::path& parent) {
  const auto anHourAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(parent, error)) {
    const fs::path& folder = entry.path();
    if (!IsOfThisKind(folder.filename().wstring())) continue;
    std::error_code ignored;
    const bool isOld = entry.last_write_time(ignored) < anHourAgo && !ignored;
    if (isOld && !fs::exists(folder / kMarkName, ignored)) Remove(folder);
  }
}

// The system removes the file when its owner ends, in whatever way.
WindowsFile MarkIn(const fs::path& folder) {
  WindowsFile mark(CreateFileW(SystemPath(folder / kMarkName).c_str(), GENERIC_WRITE | DELETE, 0,
                               nullptr, CREATE_NEW,
                               FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  if (!mark.IsOpen()) throw LastFileError();
  return mark;
}

}  // namespace

struct ComponentFolder::Mark {
  explicit Mark(WindowsFile made) : file(std::move(made)) {}

  WindowsFile file;
};

ComponentFolder::ComponentFolder() {
  try {
    const fs::path parent = fs::temp_directory_path();
    SweepLeftovers(parent);
    fs::path folder;
    do {
      folder = parent / RandomName();
    } while (!fs::create_directory(folder));
    path_ = TextOf(folder);
    mark_ = std::make_unique<Mark>(MarkIn(folder));
    fs::create_directory(folder / kPictures);
  } catch (const fs::filesystem_error& failure) {
    throw Failure(kPathNotFound, "no folder for temporary files can be made: " +
                                     ReasonOf(failure.code().default_error_condition().value()));
  } catch (const FileError& failure) {
    throw Failure(kPathNotFound,
                  "no folder for temporary files can be made: " + std::string(failure.what()));
  }
}

ComponentFolder::~ComponentFolder() {
  mark_.reset();
  Remove(PathOf(path_));
}

}  // namespace td
