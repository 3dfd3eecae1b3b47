#include "page_document/offered_papers.h"

#include <gtest/gtest.h>

#include <set>

#include "page_document/paper.h"

namespace td {
namespace {

TEST(OfferedPapersTest, EachIsAStandardSheetAndIsOfferedOnce) {
  std::set<std::int32_t> codes;
  std::set<std::string_view> english;
  std::set<std::string_view> chinese;
  for (const OfferedPaper& paper : OfferedPapers()) {
    EXPECT_TRUE(StandardPaper(paper.code)) << paper.english;
    EXPECT_TRUE(codes.insert(paper.code).second) << paper.code;
    EXPECT_TRUE(english.insert(paper.english).second) << paper.english;
    EXPECT_TRUE(chinese.insert(paper.chinese).second) << paper.chinese;
    EXPECT_EQ(FindOfferedPaper(paper.code), &paper);
  }
  EXPECT_EQ(OfferedPapers().front().code, kPaperA4);
  EXPECT_EQ(FindOfferedPaper(118), nullptr);
}

}  // namespace
}  // namespace td
