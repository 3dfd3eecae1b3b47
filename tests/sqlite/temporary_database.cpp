#include "temporary_database.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>
#include <stdexcept>

namespace td {

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    path_ = std::filesystem::temp_directory_path() / ("qbtd-sqlite-" + std::to_string(random()));
  } while (!std::filesystem::create_directory(path_));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

OtherUser::OtherUser(const std::string& path) {
  if (sqlite3_open(path.c_str(), &engine_) != SQLITE_OK) throw std::runtime_error("can't open");
  sqlite3_busy_timeout(engine_, 5000);
  Run("pragma synchronous=off");  // the files are thrown away
}

OtherUser::~OtherUser() {
  sqlite3_close(engine_);
}

void OtherUser::Run(const std::string& script) {
  const int code = sqlite3_exec(engine_, script.c_str(), nullptr, nullptr, nullptr);
  EXPECT_EQ(code, SQLITE_OK) << sqlite3_errmsg(engine_) << " in " << script;
}

std::string MakeDatabase(const std::string& path, const std::string& script) {
  OtherUser(path).Run(script);
  return "sqlite:" + path;
}

}  // namespace td
