#include "pictures/qt_picture_files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QCryptographicHash>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "files/descriptor.h"
#include "files/file_error.h"
#include "files/whole_file.h"
#include "page_document/pictures.h"
#include "picture_headers/picture_headers.h"
#include "pictures/picture_decoder.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

std::string NativePath(const std::string& path) {
  std::string native = path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

Failure FileFailure(int number, const std::string& reason, const std::string& path) {
  return {number, WithoutLockCharacter(reason + "：" + path)};
}

bool FolderIsMissing(const std::string& path) {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return !folder.empty() && !std::filesystem::is_directory(folder, error);
}

Failure SystemFailure(int error, const std::string& path) {
  switch (error) {
    case ENOENT:
      if (FolderIsMissing(path)) return FileFailure(kPathNotFound, "文件夹不存在", path);
      return FileFailure(kFileNotFound, "文件不存在", path);
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
      return FileFailure(kPathNotFound, "路径无效", path);
    case EEXIST:
      return FileFailure(QtPictureFiles::kFileExists, "文件已经存在", path);
    case EACCES:
    case EPERM:
    case EROFS:
      return FileFailure(QtPictureFiles::kPermissionDenied, "没有权限", path);
    case ENOSPC:
    case EDQUOT:
      return FileFailure(kDeviceIo, "磁盘空间不足", path);
    default:
      return FileFailure(kDeviceIo, "文件读写失败（系统错误 " + std::to_string(error) + "）", path);
  }
}

// A byte 0 would end the path early and name another file.
void RequireWholePath(const std::string& path) {
  if (path.empty()) throw Failure(kFileNotFound, "没有给出文件名。");
  if (path.find('\0') != path.npos) throw Failure(kPathNotFound, "路径无效。");
}

const Bytes& BytesOf(const Value& value, const std::string& path) {
  if (IsNull(value)) throw FileFailure(kInvalidUseOfNull, "没有图片数据（Null），未保存", path);
  const Bytes* bytes = std::get_if<Bytes>(&value);
  if (bytes == nullptr) throw FileFailure(kTypeMismatch, "图片数据不是二进制数据，未保存", path);
  if (bytes->empty()) throw FileFailure(kInvalidPicture, "图片数据是空的，未保存", path);
  return *bytes;
}

// Reads a regular file up to one byte beyond the bound, which the decoder then refuses.
Bytes ReadPictureFile(const std::string& path) {
  // Without O_NONBLOCK, a pipe in the file's place would hold the program up.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.IsOpen()) throw SystemFailure(errno, path);
  struct stat status = {};
  if (fstat(file.Number(), &status) != 0) throw SystemFailure(errno, path);
  if (!S_ISREG(status.st_mode)) throw FileFailure(kInvalidPicture, "不是图片文件", path);

  const auto size = std::min(static_cast<std::size_t>(status.st_size), kLargestFileBytes + 1);
  Bytes bytes(size);
  std::size_t filled = 0;
  while (filled < size) {
    const ssize_t step = read(file.Number(), bytes.data() + filled, size - filled);
    if (step < 0 && errno == EINTR) continue;
    if (step < 0) throw SystemFailure(errno, path);
    if (step == 0) break;
    filled += static_cast<std::size_t>(step);
  }
  bytes.resize(filled);
  return bytes;
}

std::string DigestOf(const Bytes& bytes) {
  const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
  return QCryptographicHash::hash(view, QCryptographicHash::Sha256).toStdString();
}

std::shared_ptr<const ImagePicture> MakePicture(Bytes bytes) {
  const auto [image, turned, mended] = DecodePicture(bytes);
  const PictureResolution resolution = ResolutionOf(bytes);
  // Outputs don't look at orientations, and some put the bytes of the file into their own.
  if (turned || mended) bytes = EncodePicture(image, FormatOf(bytes));
  return std::make_shared<ImagePicture>(std::move(bytes), image.width(), image.height(),
                                        resolution.x, resolution.y);
}

}  // namespace

QtPictureFiles::QtPictureFiles(const std::string& componentFolder)
    : componentFolder_(componentFolder.empty() ? FolderOfLoadedComponent()
                                               : NativePath(componentFolder)) {
  while (componentFolder_.size() > 1 && componentFolder_.back() == '/') componentFolder_.pop_back();
}

bool QtPictureFiles::FileExists(const std::string& path) {
  if (path.find('\0') != path.npos) return false;
  struct stat status = {};
  return lstat(NativePath(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

void QtPictureFiles::DeleteFile(const std::string& path) {
  RequireWholePath(path);
  const std::string native = NativePath(path);
  if (unlink(native.c_str()) != 0) throw SystemFailure(errno, native);
}

void QtPictureFiles::SaveNewFile(const std::string& path, const Value& value) {
  RequireWholePath(path);
  const std::string native = NativePath(path);
  const Bytes& bytes = BytesOf(value, native);
  const std::filesystem::path file = native;
  const Descriptor folder(open(file.has_parent_path() ? file.parent_path().c_str() : ".",
                               O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) throw SystemFailure(errno, native);
  try {
    CreateNewFile(folder, file.filename(), {},
                  WriterOf({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
  } catch (const FileError& error) {
    throw SystemFailure(error.Number(), native);
  }
}

PictureRef QtPictureFiles::Load(const std::string& path) {
  RequireWholePath(path);
  const std::string native = NativePath(path);
  Bytes bytes = ReadPictureFile(native);
  std::weak_ptr<const ImagePicture>& known = inUse_[DigestOf(bytes)];
  if (PictureRef picture = known.lock()) return picture;
  try {
    const auto picture = MakePicture(std::move(bytes));
    known = picture;
    return picture;
  } catch (const Failure& failure) {
    throw Failure(failure.Number(),
                  failure.Description() + WithoutLockCharacter("（" + native + "）"));
  }
}

}  // namespace td
