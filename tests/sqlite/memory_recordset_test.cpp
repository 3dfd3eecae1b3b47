#include "memory_rows/memory_recordset.h"

#include <gtest/gtest.h>

#include "failure_of.h"

namespace td {
namespace {

MemoryRecordset TwoBills() {
  return {{"FInterID", "FBillNo"}, {{std::int64_t{1}, "XS-1"}, {std::int64_t{2}, "XS-2"}}};
}

std::string Text(Recordset& rows, std::string_view column) {
  return std::get<std::string>(rows.Field(column));
}

TEST(MemoryRecordset, StandsOnTheFirstRowAndWalksToTheEnd) {
  MemoryRecordset rows = TwoBills();
  EXPECT_FALSE(rows.Eof());
  EXPECT_EQ(Text(rows, "FBillNo"), "XS-1");
  rows.MoveNext();
  EXPECT_EQ(Text(rows, "FBillNo"), "XS-2");
  rows.MoveNext();
  EXPECT_TRUE(rows.Eof());
  rows.MoveFirst();
  EXPECT_EQ(Text(rows, "FBillNo"), "XS-1");
}

TEST(MemoryRecordset, KeepsValuesOfEachKind) {
  const std::vector<Value> values = {Null{},
                                     true,
                                     false,
                                     std::int64_t{-5},
                                     0.1,
                                     Date{45418.75},
                                     std::string(1000, 'x'),
                                     "",
                                     std::string("a\0b", 3),
                                     Bytes{std::byte{0}, std::byte{255}},
                                     Bytes{}};
  for (const Value& first : values) {
    for (const Value& second : values) {
      MemoryRecordset rows({"a"}, {{first}, {second}});
      EXPECT_EQ(rows.Field("a"), first);
      EXPECT_EQ(rows.Field("a"), first);
      rows.MoveNext();
      EXPECT_EQ(rows.Field("a"), second);
    }
  }
}

TEST(MemoryRecordset, SaysWithoutAFailureThatItHasNoColumn) {
  MemoryRecordset rows = TwoBills();
  EXPECT_EQ(rows.Find("FQty"), nullptr);
  ASSERT_NE(rows.Find("FINTERID"), nullptr);
  EXPECT_EQ(*rows.Find("FINTERID"), Value(std::int64_t{1}));
  rows.MoveNext();
  rows.MoveNext();
  EXPECT_EQ(rows.Find("FQty"), nullptr);
  EXPECT_EQ(FailureOf([&] { rows.Find("FBillNo"); }).Number(), kNoCurrentRow);
}

TEST(MemoryRecordset, FindsColumnsWithoutRegardToCase) {
  MemoryRecordset rows = TwoBills();
  EXPECT_EQ(Text(rows, "fbillNO"), "XS-1");
}

TEST(MemoryRecordset, FindsTheFirstOfTwoColumnsWithOneName) {
  MemoryRecordset rows({"FName", "fname"}, {{"first", "second"}});
  EXPECT_EQ(Text(rows, "FNAME"), "first");
}

TEST(MemoryRecordset, FindsEachOfThousandsOfColumns) {
  std::vector<std::string> names;
  std::vector<Value> row;
  for (std::int64_t i = 0; i < 5000; ++i) {
    names.push_back("Column" + std::to_string(i));
    row.emplace_back(i);
  }
  MemoryRecordset rows(std::move(names), {std::move(row)});
  for (std::int64_t i = 0; i < 5000; ++i) {
    EXPECT_EQ(rows.Field("COLUMN" + std::to_string(i)), Value(i));
  }
  EXPECT_EQ(FailureOf([&] { rows.Field("Column5000"); }).Number(), kNoSuchColumn);
}

TEST(MemoryRecordset, HasAColumnWithAnEmptyName) {
  MemoryRecordset rows({""}, {{"x"}});
  EXPECT_EQ(Text(rows, ""), "x");
}

TEST(MemoryRecordset, TellsAMissingColumnFromAMissingRow) {
  MemoryRecordset rows({"FQty"}, {});
  EXPECT_EQ(FailureOf([&] { rows.Field("FPrice"); }).Number(), kNoSuchColumn);
  EXPECT_EQ(FailureOf([&] { rows.Field("FQty"); }).Number(), kNoCurrentRow);
}

TEST(MemoryRecordset, NamesTheMissingColumnWithoutTheLockCharacter) {
  MemoryRecordset rows = TwoBills();
  const std::string description = FailureOf([&] { rows.Field("锁定"); }).Description();
  EXPECT_EQ(description, "记录集中找不到该名称的列：鎖定");
}

TEST(MemoryRecordset, HasNoRowToMoveToBehindItsEnd) {
  MemoryRecordset rows({"FQty"}, {});
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }).Number(), kNoCurrentRow);
  EXPECT_EQ(FailureOf([&] { rows.MoveFirst(); }).Number(), kNoCurrentRow);
}

TEST(MemoryRecordset, FailsInEveryUseOnceClosed) {
  MemoryRecordset rows = TwoBills();
  rows.Close();
  EXPECT_EQ(FailureOf([&] { rows.Eof(); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.Field("FBillNo"); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.Field("FNone"); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.MoveNext(); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.MoveFirst(); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.Clone(); }).Number(), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { rows.Close(); }).Number(), kObjectClosed);
}

TEST(MemoryRecordset, ClonesWithACursorOfItsOwn) {
  MemoryRecordset rows = TwoBills();
  rows.MoveNext();
  const RecordsetRef clone = rows.Clone();
  EXPECT_EQ(Text(*clone, "FBillNo"), "XS-1");
  clone->MoveNext();
  clone->MoveNext();
  EXPECT_TRUE(clone->Eof());
  EXPECT_EQ(Text(rows, "FBillNo"), "XS-2");
}

TEST(MemoryRecordset, LeavesItsCloneOpenWhenItCloses) {
  RecordsetRef clone;
  {
    MemoryRecordset rows = TwoBills();
    clone = rows.Clone();
    rows.Close();
  }
  EXPECT_EQ(Text(*clone, "FBillNo"), "XS-1");
}

TEST(MemoryRecordset, RefusesARowThatDoesNotFitItsColumns) {
  EXPECT_EQ(FailureOf([] { MemoryRecordset({"A", "B"}, {{"only one"}}); }).Number(), kInvalidCall);
  EXPECT_EQ(FailureOf([] { MemoryRecordset({"A"}, {{"one", "two"}}); }).Number(), kInvalidCall);
}

}  // namespace
}  // namespace td
