// The commands that the docs show run as they stand there.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "sample_shop.h"

namespace td {
namespace {

// The blocks of a page in that language, or without one.
std::vector<std::string> Blocks(const std::string& page, const std::string& language) {
  std::ifstream file(std::string(QBTD_SOURCE_DIR "/docs/") + page);
  const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  const std::string fence = "\n```";
  std::vector<std::string> blocks;
  for (auto at = text.find(fence); at != std::string::npos; at = text.find(fence, at)) {
    const auto begin = text.find('\n', at + 1);
    const auto end = text.find(fence, begin);
    if (text.substr(at + fence.size(), begin - at - fence.size()) == language) {
      blocks.push_back(text.substr(begin + 1, end - begin));
    }
    at = end + fence.size();
  }
  return blocks;
}

using DocExamples = SampleShop;

TEST_F(DocExamples, TheQuestionWhyABoxIsEmptyIsAnsweredAsThePageSays) {
  const std::vector<std::string> commands = Blocks("troubleshooting.md", "sh");
  ASSERT_EQ(commands.size(), 1U);
  const ProgramResult result = Shell(commands[0]);
  EXPECT_EQ(result.status, 0) << result.err;
  std::string lines = Blocks("troubleshooting.md", "")[0];
  for (std::size_t end = lines.find('\n'); end != std::string::npos; end = lines.find('\n')) {
    EXPECT_NE(result.err.find(lines.substr(0, end + 1)), std::string::npos)
        << lines.substr(0, end) << "\n"
        << result.err;
    lines.erase(0, end + 1);
  }
}

TEST_F(DocExamples, AMisprintIsRecordedAndReplayedAsThePageSays) {
  const std::vector<std::string> commands = Blocks("replay.md", "sh");
  ASSERT_EQ(commands.size(), 1U);
  const ProgramResult result = Shell(commands[0]);
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_GT(std::stoi(result.out), 50) << "texts";
}

}  // namespace
}  // namespace td
