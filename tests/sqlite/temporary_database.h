// A folder with database files that is gone when the test ends, and a second user of them.
#pragma once

#include <filesystem>
#include <string>

#include "files/path_text.h"

struct sqlite3;

namespace td {

class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  [[nodiscard]] std::string File(const std::string& name) const {
    return TextOf(path_ / PathOf(name));
  }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

// The engine used directly, as another program would.
class OtherUser {
 public:
  // Makes the file if there is none.
  explicit OtherUser(const std::string& path);
  ~OtherUser();
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;

  // Runs any number of statements; a failure fails the test.
  void Run(const std::string& script);

 private:
  sqlite3* engine_ = nullptr;
};

// Makes a database file by a script and returns its connection text.
std::string MakeDatabase(const std::string& path, const std::string& script);

}  // namespace td
