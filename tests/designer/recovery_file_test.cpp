#include "designer/model/recovery_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "designer/model/difference.h"
#include "designer/model/format_document.h"
#include "platform/failure.h"
#include "scratch_folder.h"

namespace td::designer {
namespace {

namespace fs = std::filesystem;
using std::chrono::seconds;
using Moment = std::chrono::steady_clock::time_point;

class RecoveryFileTest : public ::testing::Test {
 protected:
  RecoveryFileTest() {
    const Item item = NewItem(document.Current(), ItemKind::kText, ItemSite::kHead, {1, 2, 3, 4});
    document.Add({&item, 1});
  }
  [[nodiscard]] RecoveryFile File(const std::string& name = "订单") const {
    return {(scratch / "state/designer").string(), "PWD=geheim", 21, name};
  }

  ScratchFolder scratch;
  FormatDocument document{NewFormat(21, "订单")};
  const Moment start{};
};

TEST_F(RecoveryFileTest, WhatWasKeptIsFoundByTheNextRun) {
  EXPECT_FALSE(File().Find().has_value());
  RecoveryFile file = File();
  EXPECT_TRUE(file.Keep(document.Base(), document.Current(), start));
  const auto found = File().Find();
  ASSERT_TRUE(found.has_value());
  EXPECT_TRUE(DifferencesOf(found->base, document.Base()).empty());
  EXPECT_TRUE(DifferencesOf(found->current, document.Current()).empty());
  EXPECT_EQ(found->current.items[0].id, document.Current().items[0].id);
  EXPECT_EQ(found->current.lastItemId, document.Current().lastItemId);
  EXPECT_FALSE(File("别的").Find().has_value());

  FormatDocument recovered(found->base);
  recovered.Recover(found->current);
  EXPECT_TRUE(recovered.IsModified());
  file.Remove();
  EXPECT_FALSE(File().Find().has_value());
}

TEST_F(RecoveryFileTest, IsWrittenOnceAMinuteAtMost) {
  RecoveryFile file = File();
  EXPECT_TRUE(file.Keep(document.Base(), document.Current(), start));
  EXPECT_FALSE(file.Keep(document.Base(), document.Current(), start + seconds(59)));
  EXPECT_TRUE(file.Keep(document.Base(), document.Current(), start + seconds(60)));
}

TEST_F(RecoveryFileTest, IsTheUsersAloneAndHoldsNoPassword) {
  RecoveryFile file = File();
  file.Keep(document.Base(), document.Current(), start);
  EXPECT_EQ(fs::status(file.Path()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(fs::status(scratch / "state/designer").permissions(), fs::perms::owner_all);
  std::ifstream in(file.Path());
  const std::string content((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(content.find("geheim"), std::string::npos);
}

TEST_F(RecoveryFileTest, AFileThatCannotBeReadIsNone) {
  RecoveryFile file = File();
  file.Keep(document.Base(), document.Current(), start);
  for (const char* broken : {"", "{", "[]", R"({"qbtdprinter-recovery":1,"base":{},"current":1})",
                             R"({"qbtdprinter-recovery":1,"written":"x"})"}) {
    std::ofstream(file.Path()) << broken;
    EXPECT_FALSE(file.Find().has_value()) << broken;
  }
}

TEST_F(RecoveryFileTest, AFileThatCannotBeWrittenIsToldAndTriedAMinuteLater) {
  std::ofstream(scratch / "state") << "a file where the folder should be";
  RecoveryFile file = File();
  EXPECT_THROW(file.Keep(document.Base(), document.Current(), start), Failure);
  EXPECT_FALSE(file.Keep(document.Base(), document.Current(), start + seconds(1)));
  fs::remove(scratch / "state");
  EXPECT_TRUE(file.Keep(document.Base(), document.Current(), start + seconds(61)));
}

}  // namespace
}  // namespace td::designer
