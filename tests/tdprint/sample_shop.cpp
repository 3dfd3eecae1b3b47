#include "sample_shop.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "sample_files.h"

namespace td {

namespace fs = std::filesystem;

SampleShop::SampleShop() {
  MakeSampleDatabase(QBTD_SOURCE_DIR "/examples", folder_ / "sample.db");
}

void SampleShop::Execute(const std::string& sql) {
  sqlite3* database = nullptr;
  sqlite3_open((folder_ / "sample.db").c_str(), &database);
  EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK)
      << sqlite3_errmsg(database);
  sqlite3_close(database);
}

ProgramResult SampleShop::Shell(const std::string& command) const {
  const std::string tools = fs::path(TDPRINT_PROGRAM).parent_path().string() + ":" +
                            fs::path(TD_REPLAY_PROGRAM).parent_path().string();
  return ProgramRun({"bash", "-c",
                     "set -e; export PATH=\"$1:$PATH\" LC_ALL=C.UTF-8; cd \"$2\"; " + command,
                     "bash", tools, folder_.Path().string()},
                    folder_.Path())
      .Finish();
}

std::string SampleShop::ContentOf(const std::string& file) const {
  std::ostringstream text;
  text << std::ifstream(folder_ / file).rdbuf();
  return text.str();
}

}  // namespace td
