#include "text_encoding/text_repair.h"

#include <gtest/gtest.h>

#include "platform/standard_failures.h"

namespace td {
namespace {

TEST(ValidUtf8, LeavesValidTextAsItIs) {
  const std::string text = std::string("a\0b", 3) + "é销售\uFFFD\U0001F5A8\U0010FFFF";
  EXPECT_EQ(ValidUtf8(text), text);
  EXPECT_EQ(ValidUtf8(""), "");
}

TEST(ValidUtf8, ReplacesEachByteThatIsNoPartOfACharacter) {
  EXPECT_EQ(ValidUtf8("a\xB5\xA5z"), "a\uFFFD\uFFFDz");
  EXPECT_EQ(ValidUtf8("cut \xE9\x94"), "cut \uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xFF"), "\uFFFD");
}

TEST(ValidUtf8, RefusesOverlongFormsSurrogatesAndNumbersBeyondUnicode) {
  EXPECT_EQ(ValidUtf8("\xC0\x80"), "\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xE0\x80\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(ValidUtf8("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(WithoutLockCharacter, ReplacesEveryOneByItsTraditionalForm) {
  EXPECT_EQ(WithoutLockCharacter("锁表锁"), "鎖表鎖");
  EXPECT_EQ(WithoutLockCharacter("销售"), "销售");
}

}  // namespace
}  // namespace td
