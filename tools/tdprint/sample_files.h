// The files of the sample that comes with the component.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct sqlite3;

namespace td {

// One print of the sample: a line of prints.tsv.
struct SamplePrint {
  std::string name;  // of the files that it makes
  std::int16_t billType = 0;
  std::string format;
  bool onlyVariant = false;
  std::int16_t blankRows = 0;
  bool byArea = false;  // a new page at each stock area instead of each bill
  std::string data;     // the statement that selects its rows
};

// The folder of the sample: `given` if that is not empty, else the installed one beside the running
// program, else the one of the source tree that the program was built in. Fails with kPathNotFound.
std::filesystem::path FindSamples(const std::string& given);

// Fails with kFileNotFound, and with kInvalidCall for a line that can't be read.
std::vector<SamplePrint> ReadSamplePrints(const std::filesystem::path& samples);

// Makes a new database from the folder's SQL files: schema.sql, then the others by name. Pictures
// that the formats name get their path in the folder. An older database of that name is removed
// first. Fails with kDatabaseFailed.
void MakeSampleDatabase(const std::filesystem::path& samples,
                        const std::filesystem::path& database);

struct CloseSampleDatabase {
  void operator()(sqlite3* database) const;
};
using SampleDatabase = std::unique_ptr<sqlite3, CloseSampleDatabase>;

// The same in a database of this process alone.
SampleDatabase OpenSampleDatabase(const std::filesystem::path& samples);

}  // namespace td
