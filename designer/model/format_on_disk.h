// Format files on the disk, and the picture files that go into them and come out of them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "designer/model/format_file.h"

namespace td::designer {

// Fails with Failure, in words that begin with the path, for a file that can't be read or is none.
[[nodiscard]] FormatFile LoadFormatFile(const std::string& path);

// The bytes of a picture file, for WriteFormatFile. Fails like LoadFormatFile.
[[nodiscard]] std::optional<Bytes> PictureAt(const std::string& path);

// Where each picture of a format file goes: its own name in the folder, with a number where another
// picture has the name already. What has the same content is the same picture.
class PictureFolder {
 public:
  explicit PictureFolder(std::string folder) : folder_(std::move(folder)) {}

  // Changes the paths of the items to the files that Write will make.
  void Place(FormatFile& file);

  // Fails with Failure; what was written until then is there.
  void Write();

  // Removes what Write has made, for a format that nobody has got.
  void TakeBack() const;

  [[nodiscard]] const std::vector<FilePicture>& Files() const { return files_; }

 private:
  [[nodiscard]] std::string FreePath(const FilePicture& picture) const;

  std::string folder_;
  std::vector<FilePicture> files_;
  std::vector<std::string> written_;
};

}  // namespace td::designer
