#include "picture_headers/picture_file_failures.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <variant>

#include "files/path_text.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

bool FolderIsMissing(const std::string& path) {
  std::error_code error;
  const std::filesystem::path folder = PathOf(path).parent_path();
  return !folder.empty() && !std::filesystem::is_directory(folder, error);
}

}  // namespace

Failure PictureFileFailure(int number, const std::string& reason, const std::string& path) {
  return {number, WithoutLockCharacter(reason + "：" + path)};
}

Failure PictureFileFailure(const FileError& error, const std::string& path) {
  switch (error.Number()) {
    case ENOENT:
      if (FolderIsMissing(path)) return PictureFileFailure(kPathNotFound, "文件夹不存在", path);
      return PictureFileFailure(kFileNotFound, "文件不存在", path);
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return PictureFileFailure(kPathNotFound, "路径无效", path);
    case EEXIST:
      return PictureFileFailure(PicturesOnDisk::kFileExists, "文件已经存在", path);
    case EACCES:
    case EPERM:
    case EROFS:
      return PictureFileFailure(PicturesOnDisk::kPermissionDenied, "没有权限", path);
    case ENOSPC:
      return PictureFileFailure(kDeviceIo, "磁盘空间不足", path);
    default:
      return PictureFileFailure(kDeviceIo, std::string("文件读写失败（") + error.what() + "）",
                                path);
  }
}

Failure WithPath(const Failure& failure, const std::string& path) {
  return {failure.Number(), failure.Description() + WithoutLockCharacter("（" + path + "）")};
}

void RequireWholePath(const std::string& path) {
  if (path.empty()) throw Failure(kFileNotFound, "没有给出文件名。");
  if (path.find('\0') != std::string::npos) throw Failure(kPathNotFound, "路径无效。");
}

const Bytes& PictureBytesOf(const Value& value, const std::string& path) {
  if (IsNull(value)) {
    throw PictureFileFailure(kInvalidUseOfNull, "没有图片数据（Null），未保存", path);
  }
  const Bytes* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr) {
    throw PictureFileFailure(kTypeMismatch, "图片数据不是二进制数据，未保存", path);
  }
  if (bytes->empty()) throw PictureFileFailure(kInvalidPicture, "图片数据是空的，未保存", path);
  return *bytes;
}

}  // namespace td
