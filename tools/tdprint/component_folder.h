// The folder that the component writes goods pictures to while tdprint runs.
#pragma once

#include <memory>
#include <string>

namespace td {

// A folder of this run alone, with the folder "picture" in it: two runs at a time would write files
// of the same names, and the program's own folder belongs to the administrator. Removed at the end;
// what a killed run left is removed by a later one.
class ComponentFolder {
 public:
  // Fails with kPathNotFound.
  ComponentFolder();
  ~ComponentFolder();
  ComponentFolder(const ComponentFolder&) = delete;
  ComponentFolder& operator=(const ComponentFolder&) = delete;

  // UTF-8.
  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  struct Mark;  // of a folder that is in use, as long as it lives

  std::string path_;
  std::unique_ptr<Mark> mark_;
};

}  // namespace td
