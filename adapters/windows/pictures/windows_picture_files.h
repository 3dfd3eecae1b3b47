// Picture files on the disk.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "page_document/pictures.h"
#include "picture_headers/picture_file_failures.h"

namespace td {

// The pictures are ImagePictures (MakePicture). Files of the same bytes give the same picture as
// long as someone holds it, so that goods on a thousand rows are decoded and kept once.
class WindowsPictureFiles : public PicturesOnDisk {
 public:
  // An empty folder means FolderOfLoadedComponent().
  explicit WindowsPictureFiles(std::string componentFolder = {});

  std::string ComponentFolder() override { return componentFolder_; }
  // False for folders.
  bool FileExists(const std::string& path) override;
  void DeleteFile(const std::string& path) override;
  // Leaves no half-written file behind.
  void SaveNewFile(const std::string& path, const Value& bytes) override;
  PictureRef Load(const std::string& path) override;

 private:
  struct Known {
    Bytes file;
    std::weak_ptr<const ImagePicture> picture;
  };

  std::string componentFolder_;
  std::vector<Known> inUse_;
};

}  // namespace td
