#include "run_witnesses/witness_group.h"

#include <gtest/gtest.h>

#include "recording/replay.h"
#include "scenario.h"
#include "told_witness.h"

namespace td {
namespace {

TEST(WitnessGroup, TellsEachMemberEverything) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}});
  scenario.FieldItem("FName").FieldItem("FGone").FieldItem("ftotalpage", {{"FSite", 5}});
  scenario.FieldItem("ftotalpageno", {{"FSite", 2}}).FieldItem("fcomplexqty_in");
  scenario.Data({"FInterID", "FName", "FMainQty_In", "FAmount"},
                {{1, "甲", nullptr, 5}, {1, "乙", 1, 6}, {2, "丙", 1, 7}});
  scenario.Fault({{"on", "TextBox"}, {"nth", 2}, {"number", 5}, {"description", "坏了"}});
  scenario.Fault({{"on", "TextBox"}, {"nth", 3}, {"number", 5}, {"description", "行被锁定"}});
  scenario.BlankRows(1).Print();
  ToldWitness alone;
  (void)recording::Replay(scenario.Document(), &alone);
  ToldWitness first;
  ToldWitness second;
  WitnessGroup group;
  group.Add(first);
  group.Add(second);
  (void)recording::Replay(scenario.Document(), group.OrNone());
  EXPECT_EQ(first.Lines(), alone.Lines());
  EXPECT_EQ(second.Lines(), alone.Lines());
  EXPECT_EQ(second.met, alone.met);
  EXPECT_EQ(second.lastRead, alone.lastRead);
  for (const char* word : {"RowIsSkipped", "RowIsMarker", "GroupBreaks", "Ends", "TriesAgain",
                           "Forgives", "StampKept", "StampWritten", "Shows"}) {
    const std::vector<std::string> lines = alone.Lines();
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                            [&](const std::string& line) { return line.starts_with(word); }))
        << word << " isn't told by this run";
  }
  EXPECT_FALSE(alone.met.empty());
}

TEST(WitnessGroup, NobodyIsToldWithoutMembers) {
  WitnessGroup group;
  EXPECT_EQ(group.OrNone(), nullptr);
  ToldWitness only;
  group.Add(only);
  EXPECT_EQ(group.OrNone(), &only);
}

}  // namespace
}  // namespace td
