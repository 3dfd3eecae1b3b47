#include "sample_files.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <fstream>
#include <memory>
#include <sstream>
#include <system_error>

#include "files/path_text.h"
#include "platform/failure.h"
#include "program_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

constexpr const char* kPrintList = "prints.tsv";
constexpr const char* kSchema = "schema.sql";
constexpr std::size_t kPrintColumns = 7;

bool HoldsSamples(const fs::path& folder) {
  std::error_code error;
  return fs::exists(folder / kPrintList, error) && fs::exists(folder / kSchema, error);
}

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream content;
  content << file.rdbuf();
  if (!file) throw Failure(kFileNotFound, TextOf(path) + " can't be read");
  return content.str();
}

std::vector<std::string> SplitAtTabs(const std::string& line) {
  std::vector<std::string> parts;
  std::stringstream rest(line);
  for (std::string part; std::getline(rest, part, '\t');) parts.push_back(part);
  return parts;
}

std::int16_t Number(const std::string& text, const std::string& line) {
  std::int16_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || stop != end) {
    throw Failure(kInvalidCall, "“" + text + "” is no number in the sample's line: " + line);
  }
  return number;
}

SamplePrint ReadLine(const std::string& line) {
  const std::vector<std::string> parts = SplitAtTabs(line);
  if (parts.size() != kPrintColumns) {
    throw Failure(kInvalidCall, "wrong number of columns in the sample's line: " + line);
  }
  return {.name = parts[0],
          .billType = Number(parts[1], line),
          .format = parts[2],
          .onlyVariant = Number(parts[3], line) != 0,
          .blankRows = Number(parts[4], line),
          .byArea = Number(parts[5], line) != 0,
          .data = parts[6]};
}

std::vector<fs::path> SqlFiles(const fs::path& samples) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(samples)) {
    if (entry.path().extension() == ".sql" && entry.path().filename() != kSchema) {
      files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  files.insert(files.begin(), samples / kSchema);
  return files;
}

void Run(sqlite3* database, const std::string& script, const std::string& name) {
  char* text = nullptr;
  if (sqlite3_exec(database, script.c_str(), nullptr, nullptr, &text) == SQLITE_OK) return;
  const std::unique_ptr<char, decltype(&sqlite3_free)> reason(text, &sqlite3_free);
  throw Failure(kDatabaseFailed, name + ": " + (reason ? reason.get() : sqlite3_errmsg(database)));
}

// The formats name their picture files by the name alone.
void NamePicturesByPath(sqlite3* database, const fs::path& samples, const std::string& name) {
  const bool hasFormats =
      sqlite3_table_column_metadata(database, nullptr, "TDBillDetail", "FPicturePath", nullptr,
                                    nullptr, nullptr, nullptr, nullptr) == SQLITE_OK;
  if (!hasFormats) return;
  const std::string folder = TextOf(fs::absolute(samples) / "");
  const std::unique_ptr<char, decltype(&sqlite3_free)> statement(
      sqlite3_mprintf("update TDBillDetail set FPicturePath=%Q||FPicturePath"
                      " where FPicturePath<>''",
                      folder.c_str()),
      &sqlite3_free);
  Run(database, statement.get(), name);
}

// Opens a new database and runs the sample's files in it.
SampleDatabase Fill(const std::string& name, const fs::path& samples) {
  sqlite3* handle = nullptr;
  const int result = sqlite3_open(name.c_str(), &handle);
  SampleDatabase database(handle);
  if (result != SQLITE_OK) {
    throw Failure(kDatabaseFailed, name + ": " + sqlite3_errstr(result));
  }
  Run(handle, "begin", name);
  for (const fs::path& file : SqlFiles(samples)) Run(handle, ReadFile(file), TextOf(file));
  NamePicturesByPath(handle, samples, name);
  Run(handle, "commit", name);
  return database;
}

}  // namespace

fs::path FindSamples(const std::string& given) {
  if (!given.empty()) {
    if (HoldsSamples(PathOf(given))) return PathOf(given);
    throw Failure(kPathNotFound, given + " holds no sample");
  }
  const fs::path programFolder = ProgramFolder();
  fs::path installed = (programFolder / TDPRINT_SAMPLES_FROM_PROGRAM).lexically_normal();
  if (HoldsSamples(installed)) return installed;
  for (fs::path folder = programFolder; folder.has_relative_path(); folder = folder.parent_path()) {
    if (HoldsSamples(folder / "examples")) return folder / "examples";
  }
  throw Failure(kPathNotFound, "the sample is neither in " + TextOf(installed) +
                                   " nor beside the program's source; name its folder: --samples");
}

std::vector<SamplePrint> ReadSamplePrints(const fs::path& samples) {
  std::stringstream lines(ReadFile(samples / kPrintList));
  std::vector<SamplePrint> prints;
  bool headerSeen = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line.front() == '#') continue;
    if (headerSeen) prints.push_back(ReadLine(line));
    headerSeen = true;
  }
  return prints;
}

void MakeSampleDatabase(const fs::path& samples, const fs::path& database) {
  fs::remove(database);
  Fill(TextOf(database), samples);
}

void CloseSampleDatabase::operator()(sqlite3* database) const {
  sqlite3_close(database);
}

SampleDatabase OpenSampleDatabase(const fs::path& samples) {
  return Fill(":memory:", samples);
}

}  // namespace td
