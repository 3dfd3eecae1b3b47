// Picture files of a replay: names without contents.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "platform/pictures.h"
#include "recording/recorder.h"

namespace td::recording {

// A picture is known by where it came from: "file:PATH", "barcode:DATA" or "goods:ID".
class RecordingPicture : public Picture {
 public:
  explicit RecordingPicture(std::string origin) : origin_(std::move(origin)) {}
  [[nodiscard]] const std::string& Origin() const { return origin_; }

 private:
  std::string origin_;
};

// The origin of a picture of this platform, null without a picture.
[[nodiscard]] Json OriginOf(const PictureRef& picture);

class RecordingPictures : public Pictures {
 public:
  // `files`: paths that load beside the goods pictures that were saved.
  RecordingPictures(Recorder& recorder, std::vector<std::string> files, bool hasFolder);

  std::string ComponentFolder() override;
  bool FileExists(const std::string& path) override;
  void DeleteFile(const std::string& path) override;
  void SaveNewFile(const std::string& path, const Value& bytes) override;
  PictureRef Load(const std::string& path) override;

 private:
  Recorder& recorder_;
  std::set<std::string> files_;
  bool hasFolder_;
};

}  // namespace td::recording
