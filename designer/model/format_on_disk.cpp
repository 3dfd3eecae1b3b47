#include "designer/model/format_on_disk.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#include "files/file_error.h"
#include "files/output_file.h"
#include "files/path_text.h"
#include "files/user_files.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLargestFile = std::size_t{256} << 20U;

std::string ContentOf(const std::string& path) {
  try {
    std::optional<std::string> content = ReadUserFile(PathOf(path), kLargestFile);
    if (!content) throw FileError(ENOENT);
    return std::move(*content);
  } catch (const FileError& error) {
    throw Failure(kFileNotFound, path + ": " + error.what());
  }
}

bool HoldsAlready(const std::string& path, const Bytes& bytes) {
  return fs::exists(PathOf(path)) && PictureAt(path) == bytes;
}

}  // namespace

FormatFile LoadFormatFile(const std::string& path) {
  const std::string content = ContentOf(path);
  try {
    return ReadFormatFile(content);
  } catch (const Failure& failure) {
    throw Failure(failure.Number(), path + ": " + failure.Description());
  }
}

std::optional<Bytes> PictureAt(const std::string& path) {
  const std::string content = ContentOf(path);
  const auto* begin = reinterpret_cast<const std::byte*>(content.data());
  return Bytes(begin, begin + content.size());
}

void PictureFolder::Place(FormatFile& file) {
  for (const FilePicture& picture : file.pictures) {
    const std::string path = FreePath(picture);
    files_.push_back({path, picture.bytes});
    for (std::size_t i = 0; i < file.format.items.Size(); ++i) {
      if (file.format.items[i].row.Text("FPicturePath") == picture.path) {
        file.format.items.Change(i).row.Set("FPicturePath", path);
      }
    }
  }
}

void PictureFolder::Write() {
  for (const FilePicture& file : files_) {
    if (HoldsAlready(file.path, file.bytes)) continue;
    written_.push_back(file.path);
    const auto* begin = reinterpret_cast<const char*>(file.bytes.data());
    try {
      WriteOutput(file.path, WriterOf({begin, file.bytes.size()}));
    } catch (const FileError& error) {
      throw Failure(kDeviceIo, file.path + ": " + error.what());
    }
  }
}

void PictureFolder::TakeBack() const {
  for (const std::string& path : written_) {
    std::error_code ignored;
    fs::remove(PathOf(path), ignored);
  }
}

std::string PictureFolder::FreePath(const FilePicture& picture) const {
  const std::size_t separator = picture.path.find_last_of("/\\:");
  std::string given =
      separator == std::string::npos ? picture.path : picture.path.substr(separator + 1);
  if (given.empty() || given == "." || given == "..") given = "picture";
  const fs::path name = PathOf(given);
  for (int number = 1;; ++number) {
    const std::string numbered = TextOf(name.stem()) + "-" + std::to_string(number);
    const std::string called = number == 1 ? given : numbered + TextOf(name.extension());
    std::string path = TextOf((fs::absolute(PathOf(folder_)) / PathOf(called)).lexically_normal());
    const auto isAnother = [&](const FilePicture& file) {
      return file.path == path && file.bytes != picture.bytes;
    };
    const bool isTaken = std::ranges::any_of(files_, isAnother) ||
                         (fs::exists(PathOf(path)) && !HoldsAlready(path, picture.bytes));
    if (!isTaken) return path;
  }
}

}  // namespace td::designer
