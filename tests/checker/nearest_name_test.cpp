#include "checker/nearest_name.h"

#include <gtest/gtest.h>

namespace td::checker {
namespace {

const std::vector<std::string> kNames = {"客户", "单据编号", "单据日期", "FCustName", "ftotalpage"};

TEST(NearestName, OneWrongCharacterIsNear) {
  EXPECT_EQ(NearestName("客沪", kNames), "客户");
  EXPECT_EQ(NearestName("单据编好", kNames), "单据编号");
  EXPECT_EQ(NearestName("FCustNam", kNames), "FCustName");
}

TEST(NearestName, SwappedCharactersAreOneMistake) {
  EXPECT_EQ(NearestName("FCsutNmae", kNames), "FCustName");
}

TEST(NearestName, CaseAndBlanksMakeNoDifference) {
  EXPECT_EQ(NearestName("F CUST NAME", kNames), "FCustName");
}

TEST(NearestName, AnotherNameIsNotNear) {
  EXPECT_EQ(NearestName("规格型号", kNames), "");
  EXPECT_EQ(NearestName("x", kNames), "");
  EXPECT_EQ(NearestName("", kNames), "");
  EXPECT_EQ(NearestName("客户", {}), "");
}

TEST(NearestName, OfTwoThatAreEquallyNearNoneIsMeant) {
  EXPECT_EQ(NearestName("客人", {"客户", "客服"}), "");
  EXPECT_EQ(NearestName("FBiller", {"FBillNo"}), "");
  EXPECT_EQ(NearestName("单据编号", {"单据日期"}), "");
}

TEST(NearestName, BlanksOfFullWidthAreBlanks) {
  EXPECT_EQ(WithoutBlanks("客　户 "), "客户");
  EXPECT_TRUE(HasOuterBlanks("客户　"));
  EXPECT_TRUE(HasOuterBlanks(" 客户"));
  EXPECT_FALSE(HasOuterBlanks("客 户"));
  EXPECT_FALSE(HasOuterBlanks(""));
}

}  // namespace
}  // namespace td::checker
