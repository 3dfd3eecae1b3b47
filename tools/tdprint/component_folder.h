// The folder that the component writes goods pictures to while tdprint runs.
#pragma once

#include <string>

namespace td {

// A folder of this run alone, with the folder "picture" in it: two runs at a time would write files
// of the same names, and the program's own folder belongs to the administrator. Removed at the end.
class ComponentFolder {
 public:
  // Fails with kPathNotFound.
  ComponentFolder();
  ~ComponentFolder();
  ComponentFolder(const ComponentFolder&) = delete;
  ComponentFolder& operator=(const ComponentFolder&) = delete;

  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace td
