// Picture files on the disk, decoded by Qt.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>

#include "page_document/pictures.h"
#include "picture_headers/picture_file_failures.h"
#include "pictures/component_folder.h"

namespace td {

// Backslashes in paths count as separators. The pictures are ImagePictures: they keep the bytes of
// the file (encoded anew when its orientation asks to turn it, or when it is damaged), and take the
// resolution that it states, 96 dots per inch if it states none. Files of the same bytes give the
// same picture as long as someone holds it, so that goods on a thousand rows are decoded and kept
// once.
class QtPictureFiles : public PicturesOnDisk {
 public:
  // An empty folder means FolderOfLoadedComponent().
  explicit QtPictureFiles(const std::string& componentFolder = {});

  std::string ComponentFolder() override { return componentFolder_; }
  // False for folders. A link counts as a file, whether or not its target is there.
  bool FileExists(const std::string& path) override;
  // Deletes a link, never its target.
  void DeleteFile(const std::string& path) override;
  // Follows no link in the file's place, and leaves no half-written file behind.
  void SaveNewFile(const std::string& path, const Value& bytes) override;
  PictureRef Load(const std::string& path) override;

 private:
  std::string componentFolder_;
  // By the file's digest.
  std::unordered_map<std::string, std::weak_ptr<const ImagePicture>> inUse_;
};

}  // namespace td
