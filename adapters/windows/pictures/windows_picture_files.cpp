#include "windows/pictures/windows_picture_files.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <utility>

#include "files/path_text.h"
#include "files/windows_files.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/api/windows_api.h"
#include "windows/pictures/component_folder.h"
#include "windows/pictures/picture_decoder.h"

namespace td {
namespace {

Failure FileFailure(int number, const std::string& reason, const std::string& path) {
  return {number, WithoutLockCharacter(reason + "：" + path)};
}

bool FolderIsMissing(const std::string& path) {
  std::error_code error;
  const std::filesystem::path folder = PathOf(path).parent_path();
  return !folder.empty() && !std::filesystem::is_directory(folder, error);
}

Failure SystemFailure(const FileError& error, const std::string& path) {
  switch (error.Number()) {
    case ENOENT:
      if (FolderIsMissing(path)) return FileFailure(kPathNotFound, "文件夹不存在", path);
      return FileFailure(kFileNotFound, "文件不存在", path);
    case ENOTDIR:
    case ENAMETOOLONG:
      return FileFailure(kPathNotFound, "路径无效", path);
    case EEXIST:
      return FileFailure(WindowsPictureFiles::kFileExists, "文件已经存在", path);
    case EACCES:
    case EROFS:
      return FileFailure(WindowsPictureFiles::kPermissionDenied, "没有权限", path);
    case ENOSPC:
      return FileFailure(kDeviceIo, "磁盘空间不足", path);
    default:
      return FileFailure(kDeviceIo, std::string("文件读写失败（") + error.what() + "）", path);
  }
}

// A byte 0 would end the path early and name another file.
void RequireWholePath(const std::string& path) {
  if (path.empty()) throw Failure(kFileNotFound, "没有给出文件名。");
  if (path.find('\0') != std::string::npos) throw Failure(kPathNotFound, "路径无效。");
}

const Bytes& BytesOf(const Value& value, const std::string& path) {
  if (IsNull(value)) throw FileFailure(kInvalidUseOfNull, "没有图片数据（Null），未保存", path);
  const Bytes* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr) throw FileFailure(kTypeMismatch, "图片数据不是二进制数据，未保存", path);
  if (bytes->empty()) throw FileFailure(kInvalidPicture, "图片数据是空的，未保存", path);
  return *bytes;
}

Bytes ReadPictureFile(const std::string& path) {
  try {
    const std::string content = ReadWholeFile(PathOf(path), kLargestFileBytes);
    Bytes bytes(content.size());
    if (!content.empty()) std::memcpy(bytes.data(), content.data(), content.size());
    return bytes;
  } catch (const FileError& error) {
    if (error.Number() == EISDIR || error.Number() == EINVAL) {
      throw FileFailure(kInvalidPicture, "不是图片文件", path);
    }
    if (error.Number() == EFBIG) throw FileFailure(kInvalidPicture, "图片文件过大，不予装入", path);
    throw SystemFailure(error, path);
  }
}

}  // namespace

WindowsPictureFiles::WindowsPictureFiles(std::string componentFolder)
    : componentFolder_(componentFolder.empty() ? FolderOfLoadedComponent()
                                               : std::move(componentFolder)) {
  const auto endsInSeparator = [this] {
    return componentFolder_.size() > 1 &&
           (componentFolder_.back() == '/' || componentFolder_.back() == '\\');
  };
  while (endsInSeparator()) componentFolder_.pop_back();
}

bool WindowsPictureFiles::FileExists(const std::string& path) {
  if (path.empty() || path.find('\0') != std::string::npos) return false;
  const DWORD attributes = GetFileAttributesW(SystemPath(PathOf(path)).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

void WindowsPictureFiles::DeleteFile(const std::string& path) {
  RequireWholePath(path);
  if (DeleteFileW(SystemPath(PathOf(path)).c_str()) == FALSE) {
    throw SystemFailure(LastFileError(), path);
  }
}

void WindowsPictureFiles::SaveNewFile(const std::string& path, const Value& value) {
  RequireWholePath(path);
  const Bytes& bytes = BytesOf(value, path);
  try {
    CreateWholeFile(PathOf(path),
                    WriterOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  } catch (const FileError& error) {
    throw SystemFailure(error, path);
  }
}

PictureRef WindowsPictureFiles::Load(const std::string& path) {
  RequireWholePath(path);
  Bytes bytes = ReadPictureFile(path);
  std::erase_if(inUse_, [](const Known& known) { return known.picture.expired(); });
  for (const Known& known : inUse_) {
    if (known.file == bytes) return known.picture.lock();
  }
  try {
    auto picture = MakePicture(bytes);
    inUse_.push_back({std::move(bytes), picture});
    return picture;
  } catch (const Failure& failure) {
    throw Failure(failure.Number(),
                  failure.Description() + WithoutLockCharacter("（" + path + "）"));
  }
}

}  // namespace td
