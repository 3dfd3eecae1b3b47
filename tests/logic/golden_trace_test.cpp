// Whole runs as they were agreed upon: golden/NAME.json replays to golden/NAME.trace, line by line.
// After a change that is meant: td_replay golden/NAME.json > golden/NAME.trace, and read the
// difference before it is committed.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <sstream>

#include "recording/replay.h"

namespace td {
namespace {

std::filesystem::path GoldenFolder() {
  return std::filesystem::path(QBTD_SOURCE_DIR) / "tests" / "logic" / "golden";
}

std::string ReadFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(GoldenFolder())) {
    if (entry.path().extension() == ".json") {
      names.push_back(entry.path().stem().string());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

class GoldenTrace : public testing::TestWithParam<std::string> {};

TEST_P(GoldenTrace, IsReplayed) {
  const std::filesystem::path scenario = GoldenFolder() / (GetParam() + ".json");
  std::istringstream expected(ReadFile(GoldenFolder() / (GetParam() + ".trace")));
  const auto recording = recording::Replay(recording::ParseScenario(ReadFile(scenario)));
  std::size_t number = 0;
  for (const recording::Json& line : recording.trace) {
    std::string expectedLine;
    std::getline(expected, expectedLine);
    ++number;
    ASSERT_EQ(recording::LineText(line), expectedLine) << "line " << number;
  }
  std::string further;
  EXPECT_FALSE(std::getline(expected, further)) << "not replayed: " << further;
}

INSTANTIATE_TEST_SUITE_P(Scenarios, GoldenTrace, testing::ValuesIn(Names()),
                         [](const auto& scenario) { return scenario.param; });

}  // namespace
}  // namespace td
