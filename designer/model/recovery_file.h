// What is not saved yet, kept in a file against a crash or a power cut.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include "designer/model/format.h"

namespace td::designer {

// What a recovery file holds.
struct Recovered {
  Format base;     // as it was loaded: a save still sees what others have changed since
  Format current;  // as it was when the file was written
  std::chrono::system_clock::time_point written;
};

// The file of one format of one database in a folder of the user's, which is made for the user
// alone when it is missing. Its name says nothing; the file holds no connection text.
class RecoveryFile {
 public:
  static constexpr std::chrono::seconds kInterval{60};

  // `folder` is where the program keeps such files; `connection` and `name` tell whose file it is.
  RecoveryFile(std::string folder, const std::string& connection, int billType,
               const std::string& name);

  // Writes if a minute has gone since the last time, whole or not at all. True if it was written.
  // Fails with Failure when the file can't be written; the next try is a minute later, too.
  bool Keep(const Format& base, const Format& current,
            std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now());

  // What an earlier run left, if anything. A file that can't be read any more is none.
  [[nodiscard]] std::optional<Recovered> Find() const;

  // After saving, or when nobody wants it.
  void Remove();

  [[nodiscard]] const std::string& Path() const { return path_; }

 private:
  std::string folder_;
  std::string fileName_;
  std::string path_;
  std::optional<std::chrono::steady_clock::time_point> lastTry_;
};

}  // namespace td::designer
