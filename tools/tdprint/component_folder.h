// The folder that the component writes goods pictures to while tdprint runs.
#pragma once

#include <string>

#include "files/descriptor.h"

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

  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string path_;
  Descriptor inUse_;  // open as long as the folder is used
};

}  // namespace td
