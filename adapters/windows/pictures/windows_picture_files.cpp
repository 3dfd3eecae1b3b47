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

Bytes ReadPictureFile(const std::string& path) {
  try {
    const std::string content = ReadWholeFile(PathOf(path), kLargestFileBytes);
    Bytes bytes(content.size());
    if (!content.empty()) std::memcpy(bytes.data(), content.data(), content.size());
    return bytes;
  } catch (const FileError& error) {
    if (error.Number() == EISDIR || error.Number() == EINVAL) {
      throw PictureFileFailure(kInvalidPicture, "不是图片文件", path);
    }
    if (error.Number() == EFBIG)
      throw PictureFileFailure(kInvalidPicture, "图片文件过大，不予装入", path);
    throw PictureFileFailure(error, path);
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
    throw PictureFileFailure(LastFileError(), path);
  }
}

void WindowsPictureFiles::SaveNewFile(const std::string& path, const Value& value) {
  RequireWholePath(path);
  const Bytes& bytes = PictureBytesOf(value, path);
  try {
    CreateWholeFile(PathOf(path),
                    WriterOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  } catch (const FileError& error) {
    throw PictureFileFailure(error, path);
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
    throw WithPath(failure, path);
  }
}

}  // namespace td
