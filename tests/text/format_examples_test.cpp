#include "format_examples.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace td {
namespace {

TEST(PictureReference, EveryExamplePrintsAsItSays) {
  const auto examples =
      ReadFormatExamples(std::string(QBTD_SOURCE_DIR) + "/docs/format-pictures.md");
  EXPECT_GT(examples.size(), 300U);
  for (const FormatExample& example : examples) {
    EXPECT_EQ(FormatValue(example.value, example.picture, example.language), example.result)
        << "line " << example.line << ", picture " << example.picture;
  }
}

TEST(PictureReference, HasExamplesInBothLanguages) {
  bool chinese = false;
  bool english = false;
  for (const FormatExample& example :
       ReadFormatExamples(std::string(QBTD_SOURCE_DIR) + "/docs/format-pictures.md")) {
    (example.language == FormatLanguage::kEnglish ? english : chinese) = true;
  }
  EXPECT_TRUE(chinese);
  EXPECT_TRUE(english);
}

}  // namespace
}  // namespace td
