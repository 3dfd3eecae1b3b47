#include "recording/recording_pictures.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td::recording {
namespace {

constexpr std::string_view kComponentFolder = "/component";
constexpr std::string_view kGoodsFolder = "picture/";
constexpr std::string_view kGoodsSuffix = ".jpg";
constexpr int kFileExists = 58;

// Paths below the component's folder lose it, whichever separator they use.
std::string KnownName(const std::string& path) {
  if (!path.starts_with(kComponentFolder)) {
    return path;
  }
  std::string name = path.substr(std::min(path.size(), kComponentFolder.size() + 1));
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::string OriginOfFile(const std::string& name) {
  if (!name.starts_with(kGoodsFolder) || !name.ends_with(kGoodsSuffix)) {
    return "file:" + name;
  }
  const std::size_t length = name.size() - kGoodsFolder.size() - kGoodsSuffix.size();
  return "goods:" + name.substr(kGoodsFolder.size(), length);
}

}  // namespace

Json OriginOf(const PictureRef& picture) {
  const auto* recorded = dynamic_cast<const RecordingPicture*>(picture.get());
  return recorded == nullptr ? Json(nullptr) : Json(recorded->Origin());
}

RecordingPictures::RecordingPictures(Recorder& recorder, std::vector<std::string> files,
                                     bool hasFolder)
    : recorder_(recorder), files_(files.begin(), files.end()), hasFolder_(hasFolder) {}

std::string RecordingPictures::ComponentFolder() {
  return std::string(kComponentFolder);
}

bool RecordingPictures::FileExists(const std::string& path) {
  return files_.contains(KnownName(path));
}

void RecordingPictures::DeleteFile(const std::string& path) {
  const std::string name = KnownName(path);
  recorder_.Write("file", {{"a", "delete"}, {"path", name}});
  if (files_.erase(name) == 0) {
    throw Failure(kFileNotFound, "文件未找到");
  }
}

void RecordingPictures::SaveNewFile(const std::string& path, const Value& bytes) {
  // What is no blob fails while it is written to the stream, before any file is asked for.
  if (IsNull(bytes)) {
    throw NullFailure();
  }
  if (!std::holds_alternative<Bytes>(bytes)) {
    throw MismatchFailure();
  }
  const std::string name = KnownName(path);
  recorder_.Write("file", {{"a", "save"}, {"path", name}});
  if (!hasFolder_) {
    throw Failure(kPathNotFound, "路径未找到");
  }
  if (!files_.insert(name).second) {
    throw Failure(kFileExists, "文件已存在");
  }
}

PictureRef RecordingPictures::Load(const std::string& path) {
  const std::string name = KnownName(path);
  recorder_.Write("file", {{"a", "load"}, {"path", name}});
  recorder_.Request("loadpicture", name);
  if (!files_.contains(name)) {
    throw Failure(kFileNotFound, "文件未找到");
  }
  return std::make_shared<RecordingPicture>(OriginOfFile(name));
}

}  // namespace td::recording
