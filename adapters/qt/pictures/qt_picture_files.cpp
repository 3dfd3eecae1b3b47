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

namespace td {
namespace {

std::string NativePath(const std::string& path) {
  std::string native = path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

// A full quota is a full disk.
Failure SystemFailure(int error, const std::string& path) {
  return PictureFileFailure(FileError(error == EDQUOT ? ENOSPC : error), path);
}

// Reads a regular file up to one byte beyond the bound, which the decoder then refuses.
Bytes ReadPictureFile(const std::string& path) {
  // Without O_NONBLOCK, a pipe in the file's place would hold the program up.
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!file.IsOpen()) throw SystemFailure(errno, path);
  struct stat status = {};
  if (fstat(file.Number(), &status) != 0) throw SystemFailure(errno, path);
  if (!S_ISREG(status.st_mode)) throw PictureFileFailure(kInvalidPicture, "不是图片文件", path);

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
  const Bytes& bytes = PictureBytesOf(value, native);
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
    throw WithPath(failure, native);
  }
}

}  // namespace td
