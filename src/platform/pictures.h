// Picture files and the pictures made from them.
#pragma once

#include <memory>
#include <string>

#include "platform/value.h"

namespace td {

// A loaded picture, opaque to the logic: only the surface of the same platform can draw it.
class Picture {
 public:
  virtual ~Picture() = default;
};
using PictureRef = std::shared_ptr<const Picture>;  // empty: no picture

// Paths are UTF-8. Failures: kFileNotFound, kPathNotFound, kInvalidPicture.
class Pictures {
 public:
  virtual ~Pictures() = default;

  // The folder of the component, without a separator at its end. The goods pictures lie in the
  // folder "picture" below it, which nobody creates.
  virtual std::string ComponentFolder() = 0;

  virtual bool FileExists(const std::string& path) = 0;
  virtual void DeleteFile(const std::string& path) = 0;

  // Writes a blob into a new file. Fails when `bytes` is Null or no blob, when the folder is
  // missing, and when the file exists already: it never overwrites.
  virtual void SaveNewFile(const std::string& path, const Value& bytes) = 0;

  // Loads a picture by its content, whatever the file's name.
  virtual PictureRef Load(const std::string& path) = 0;
};

}  // namespace td
