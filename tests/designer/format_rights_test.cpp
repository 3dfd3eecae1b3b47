// What an administrator with the rights that docs/databases.md grants can do with formats.
#include <gtest/gtest.h>

#include "designer/model/format_store.h"
#include "desktop/databases.h"
#include "documented_rights.h"
#include "platform/failure.h"
#include "program_run.h"
#include "scratch_folder.h"

namespace td::designer {
namespace {

constexpr int kOrders = 21;

class FormatRights : public testing::TestWithParam<SampleEngine> {
 protected:
  FormatRights() {
    RenewSample(GetParam());
    RunScriptOn(GetParam(),
                "insert into TDBill_PaperSize (FIP, FTDBillName) values ('1', '副本');\n"
                "insert into TDBill_AreaPrinterDevice (FIp, FTranType, FTdBillName, "
                "FStockArea) values ('1', 21, '副本', 'A');\n");
  }
  ~FormatRights() override { RenewSample(GetParam()); }

  [[nodiscard]] FormatStore StoreOf(const UserWithRights& user) {
    return {databases_, user.Connection()};
  }
  void Run(std::vector<std::string> command) const {
    command.insert(command.begin(), TDPRINT_PROGRAM);
    const ProgramResult result = ProgramRun(command, scratch_.Path()).Finish();
    EXPECT_EQ(result.status, 0) << result.err;
  }

  // A format with an item moved and one removed, a variable with another column and one removed.
  static Format Changed(const Format& format) {
    Format changed = format;
    changed.items.Change(0).row.PutNumber("FLeft", 1234);
    changed.items.Remove(changed.items.Size() - 1);
    changed.variables.front().row.Set("FVarName", std::string("FChanged"));
    changed.variables.pop_back();
    return changed;
  }

  const ScratchFolder scratch_;
  Databases databases_;
};
INSTANTIATE_TEST_SUITE_P(Servers, FormatRights,
                         testing::Values(SampleEngine::kPostgreSql, SampleEngine::kMariaDb),
                         NameOfEngine);

TEST_P(FormatRights, OfAnAdministratorSufficeForTheDesignerAndForFiles) {
  const UserWithRights administrator(GetParam(), {"clerk", "administrator"}, {});
  FormatStore store = StoreOf(administrator);
  const Format order = store.Load(kOrders, "");
  const Format wanted = Changed(order);
  const auto saved = store.Save(order, wanted);
  ASSERT_TRUE(std::holds_alternative<Saved>(saved));
  EXPECT_EQ(std::get<Saved>(saved).stored.items.Size(), wanted.items.Size());

  const Format copy = store.Copy(order.id, "副本");
  store.Rename(copy.id, "改名");
  store.Select(copy.id);
  EXPECT_EQ(store.Load(kOrders, "").id, copy.id);
  store.Delete(copy.id);

  const std::string file = (scratch_ / "format.json").string();
  Run({"export-format", "--db", administrator.Connection(), "--type", "21", "--format",
       order.Name(), "--out", file});
  const std::vector<std::string> import = {"import-format", "--db",      administrator.Connection(),
                                           "--type",        "22",        "--format",
                                           "新格式",        "--replace", file};
  Run(import);
  Run(import);  // in the place of the first one
}

TEST_P(FormatRights, OfAClerkLeaveFormatsAsTheyAre) {
  const UserWithRights clerk(GetParam(), {"clerk"}, {});
  FormatStore store = StoreOf(clerk);
  const Format order = store.Load(kOrders, "");
  EXPECT_THROW(static_cast<void>(store.Save(order, Changed(order))), Failure);
  EXPECT_THROW(store.Copy(order.id, "副本"), Failure);
  EXPECT_THROW(store.Delete(order.id), Failure);
  EXPECT_TRUE(DifferencesOf(order, store.Load(kOrders, "")).empty());
}

}  // namespace
}  // namespace td::designer
