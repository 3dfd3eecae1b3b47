// Formats loaded from each engine and saved there.
#include "designer/model/format_store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "designer/model/format_document.h"
#include "desktop/databases.h"
#include "platform/standard_failures.h"
#include "sample_engine.h"
#include "table_lock.h"

namespace td::designer {
namespace {

// Fails the n-th statement of each transaction, and counts what is sent.
class FailingDatabase final : public TransactionalDatabase {
 public:
  explicit FailingDatabase(Databases& real) : real_(real) {}

  int statements = 0;                    // of all transactions
  int failing = -1;                      // the number of the one that fails; below 0: none
  std::function<void()> before = [] {};  // called before each statement

  RecordsetRef OpenQuery(const std::string& connection, const std::string& sql, CursorType cursor,
                         LockType lock) override {
    return real_.OpenQuery(connection, sql, cursor, lock);
  }
  RecordsetRef OpenReadOnly(const std::string& connection, const std::string& sql) override {
    return real_.OpenReadOnly(connection, sql);
  }
  std::unique_ptr<Connection> Connect(const std::string& connection) override {
    return real_.Connect(connection);
  }
  std::unique_ptr<Transaction> Begin(const std::string& connection, Access access) override;

  void Count() {
    before();
    if (statements++ == failing) throw Failure(kDatabaseFailed, "the disk is full");
  }

 private:
  Databases& real_;
};

class FailingTransaction final : public Transaction {
 public:
  FailingTransaction(FailingDatabase& database, std::unique_ptr<Transaction> real)
      : database_(database), real_(std::move(real)) {}

  std::shared_ptr<const MemoryRows> Run(const std::string& sql) override {
    database_.Count();
    return real_->Run(sql);
  }
  std::vector<KeyColumn> PrimaryKey(const std::string& table) override {
    database_.Count();
    return real_->PrimaryKey(table);
  }
  [[nodiscard]] std::string Literal(const Value& value) const override {
    return real_->Literal(value);
  }
  void Commit() override {
    database_.Count();
    real_->Commit();
  }

 private:
  FailingDatabase& database_;
  std::unique_ptr<Transaction> real_;
};

std::unique_ptr<Transaction> FailingDatabase::Begin(const std::string& connection, Access access) {
  return std::make_unique<FailingTransaction>(*this, real_.Begin(connection, access));
}

Databases& Engines() {
  static Databases engines;
  return engines;
}

constexpr int kOrders = 21;

class FormatStoreTest : public ::testing::TestWithParam<SampleEngine> {
 protected:
  FormatStoreTest() { RenewSample(GetParam()); }

  [[nodiscard]] FormatStore Store() { return {Engines(), SampleOn(GetParam())}; }
  static void Run(const std::string& script) { RunScriptOn(GetParam(), script); }

  [[nodiscard]] static Value Ask(const std::string& sql) {
    return Engines()
        .OpenQuery(SampleOn(GetParam()), sql, CursorType::kUnspecified, LockType::kUnspecified)
        ->Field("a");
  }
  [[nodiscard]] static std::int64_t Count(const std::string& sql) {
    return std::get<std::int64_t>(Ask("select count(*) as a from " + sql));
  }

  // Saves what a document holds; a conflict fails the test.
  static void Save(FormatStore& store, FormatDocument& document) {
    auto result = store.Save(document.Base(), document.Current());
    ASSERT_TRUE(std::holds_alternative<Saved>(result));
    document.MarkSaved(std::get<Saved>(std::move(result)).stored);
  }

  // Everything that stands in the tables, to be compared.
  [[nodiscard]] std::vector<Format> Everything() {
    FormatStore store = Store();
    std::vector<Format> all;
    for (const FormatEntry& entry : store.ListAll()) all.push_back(store.LoadById(entry.id));
    return all;
  }
};

INSTANTIATE_TEST_SUITE_P(Engines, FormatStoreTest, kEachEngine, NameOfEngine);

void ExpectSame(const Format& one, const Format& other) {
  for (const Difference& difference : DifferencesOf(one, other)) {
    ADD_FAILURE() << InWords(difference, false);
  }
  ASSERT_EQ(one.items.Size(), other.items.Size());
  for (const Item& item : one.items) {
    const auto found = std::ranges::find_if(
        other.items, [&](const Item& same) { return AreEqual(item.row, same.row); });
    ASSERT_NE(found, other.items.end());
  }
}

void ExpectSame(const std::vector<Format>& one, const std::vector<Format>& other) {
  ASSERT_EQ(one.size(), other.size());
  for (std::size_t i = 0; i < one.size(); ++i) ExpectSame(one[i], other[i]);
}

std::string NameOfFirst(const Format& format) {
  return format.items[0].row.Text("FObjectCaption");
}

TEST_P(FormatStoreTest, ListsTheFormatsOfABillTypeTheSelectedOneFirst) {
  const std::vector<FormatEntry> formats = Store().List(kOrders);
  ASSERT_GE(formats.size(), 2U);
  EXPECT_TRUE(formats.front().selected);
  EXPECT_TRUE(std::ranges::none_of(formats.begin() + 1, formats.end(), &FormatEntry::selected));
  EXPECT_GT(Store().ListAll().size(), formats.size());
}

TEST_P(FormatStoreTest, LoadsTheSelectedFormatWithoutAName) {
  const Format selected = Store().Load(kOrders, "");
  EXPECT_TRUE(selected.row.Flag("FSelected"));
  EXPECT_GT(selected.items.Size(), 10U);
  EXPECT_FALSE(selected.variables.empty());
  EXPECT_THROW((void)Store().Load(kOrders, "没有"), Failure);
}

TEST_P(FormatStoreTest, WhatIsNotTouchedIsNotWritten) {
  FormatStore store = Store();
  for (const FormatEntry& entry : store.ListAll()) {
    const Format loaded = store.LoadById(entry.id);
    FormatDocument document(loaded);
    Save(store, document);
    ExpectSame(store.LoadById(entry.id), loaded);
  }
}

TEST_P(FormatStoreTest, SavesItemsInTheirOrder) {
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  const Format before = document.Current();
  const ItemId first = before.items[0].id;
  const ItemId second = before.items[1].id;
  const ItemId last = before.items[before.items.Size() - 1].id;
  document.Move({first}, 10.25, 20);
  document.Remove({second});
  document.Reorder({last}, Order::kToBack);
  const Item added = NewItem(before, ItemKind::kText, ItemSite::kHead, {1, 2, 3, 4});
  const ItemId id = document.Add({&added, 1}).front();
  document.Set({id}, "FObjectCaption", std::string("it's \\ “新” ; --"));
  document.Reorder({id}, Order::kToBack);
  document.SetFormatNumber("FRowHeight", 400.5);
  Save(store, document);
  EXPECT_FALSE(document.IsModified());

  const Format stored = store.LoadById(before.id);
  ExpectSame(stored, document.Current());
  EXPECT_EQ(NameOfFirst(stored), "it's \\ “新” ; --");
  // A second save begins where the first one ended.
  document.Undo();
  Save(store, document);
  ExpectSame(store.LoadById(before.id), document.Current());
}

TEST_P(FormatStoreTest, TellsWhatSomebodyElseHasChanged) {
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  document.Move({document.Current().items[0].id}, 5, 5);
  FormatDocument theirs(store.Load(kOrders, ""));
  theirs.SetFormatNumber("FRowHeight", 123);
  theirs.Remove({theirs.Current().items[3].id});
  Save(store, theirs);

  auto result = store.Save(document.Base(), document.Current());
  ASSERT_TRUE(std::holds_alternative<Conflict>(result));
  const Conflict& conflict = std::get<Conflict>(result);
  EXPECT_FALSE(conflict.isGone);
  ASSERT_EQ(conflict.differences.size(), 2U);
  EXPECT_EQ(conflict.differences[0].column, "FRowHeight");
  EXPECT_EQ(conflict.differences[1].kind, DifferenceKind::kItemRemoved);
  ExpectSame(store.LoadById(theirs.Base().id), theirs.Current());

  result = store.Save(document.Base(), document.Current(), OnConflict::kOverwrite);
  ASSERT_TRUE(std::holds_alternative<Saved>(result));
  ExpectSame(store.LoadById(theirs.Base().id), document.Current());
}

TEST_P(FormatStoreTest, TellsThatTheFormatIsGone) {
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  store.Delete(document.Base().id);
  EXPECT_EQ(Count("TDBillDetail where FTDBillID=" +
                  std::to_string(std::get<std::int64_t>(document.Base().id))),
            0);
  document.SetFormatNumber("FRowHeight", 123);
  auto result = store.Save(document.Base(), document.Current());
  ASSERT_TRUE(std::holds_alternative<Conflict>(result));
  EXPECT_TRUE(std::get<Conflict>(result).isGone);
  result = store.Save(document.Base(), document.Current(), OnConflict::kOverwrite);
  ASSERT_TRUE(std::holds_alternative<Saved>(result));
  ExpectSame(store.Load(kOrders, document.Current().Name()), document.Current());
}

TEST_P(FormatStoreTest, LeavesTheColumnsOfTheApplicationAlone) {
  Run("alter table TDBill add column FAppNote varchar(20);"
      "alter table TDBillDetail add column FAppColour varchar(20);"
      "update TDBill set FAppNote='mine'; update TDBillDetail set FAppColour='red' where FSite=1;");
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  const std::string ofFormat =
      " where FTDBillID=" + std::to_string(std::get<std::int64_t>(document.Base().id));
  const std::int64_t red = Count("TDBillDetail" + ofFormat + " and FAppColour='red'");
  const ItemIds moved = {document.Current().items[2].id};
  document.Move(moved, 7, 7);
  document.Reorder(moved, Order::kToFront);
  document.SetFormatNumber("FRowHeight", 123);
  Save(store, document);
  EXPECT_EQ(Count("TDBillDetail" + ofFormat + " and FAppColour='red'"), red);
  EXPECT_EQ(Ask("select FAppNote as a from TDBill" + ofFormat), Value(std::string("mine")));
  // Somebody else's change of such a column is no conflict, and stays.
  Run("update TDBillDetail set FAppColour='blue' where FSite=1;");
  document.Move(moved, 7, 7);
  Save(store, document);
  EXPECT_EQ(Count("TDBillDetail" + ofFormat + " and FAppColour='blue'"), red);
}

TEST_P(FormatStoreTest, KeepsTheKeysOfATableThatHasOne) {
  const std::string number = GetParam() == SampleEngine::kSqlite ? "FDetailID integer primary key,"
                             : GetParam() == SampleEngine::kPostgreSql
                                 ? "FDetailID serial primary key,"
                                 : "FDetailID integer auto_increment primary key,";
  const std::string columns =
      "FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FTypeID,FIsVariant,FMustPrint,FObjectFieldName,"
      "FObjectCaption,FFontName,FFontSize,FFontBold,FFontItalic,FAlignMent,FWordWrap,FAutoSize,"
      "FFormatString,Fborderwidth,FPicturePath";
  const std::string real = GetParam() == SampleEngine::kSqlite ? "real" : "double precision";
  Run("alter table TDBillDetail rename to OldDetail; create table TDBillDetail (" + number +
      "FTDBillID integer not null, FSite integer, FLeft " + real + ", FTop " + real + ", FWidth " +
      real + ", FHeight " + real +
      ", FTypeID integer, FIsVariant integer, FMustPrint integer, FObjectFieldName varchar(50), "
      "FObjectCaption varchar(500), FFontName varchar(50), FFontSize " +
      real +
      ", FFontBold integer, FFontItalic integer, FAlignMent integer, FWordWrap integer, "
      "FAutoSize integer, FFormatString varchar(50), Fborderwidth integer, "
      "FPicturePath varchar(260), FAppColour varchar(20)); insert into TDBillDetail(" +
      columns + ") select " + columns +
      " from OldDetail; update TDBillDetail set FAppColour='red' where FSite=1;");
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  const auto keyOf = [](const Item& item) {
    return std::get<std::int64_t>(item.others.Get("FDetailID"));
  };
  const ItemId moved = document.Current().items[2].id;
  const ItemId removed = document.Current().items[3].id;
  const std::int64_t key = keyOf(*document.Find(moved));
  document.Move({moved}, 7, 7);
  document.Remove({removed});
  const Item added = NewItem(document.Current(), ItemKind::kLine, ItemSite::kRow, {1, 2, 30, 4});
  document.Add({&added, 1});
  Save(store, document);
  ExpectSame(store.LoadById(document.Base().id), document.Current());
  EXPECT_EQ(keyOf(*document.Find(moved)), key);

  document.Reorder({moved}, Order::kToFront);
  Save(store, document);
  ExpectSame(store.LoadById(document.Base().id), document.Current());
  EXPECT_EQ(document.Find(moved)->others.Text("FAppColour"), "red");
}

TEST_P(FormatStoreTest, AFailureAtAnyStatementChangesNothing) {
  FailingDatabase failing(Engines());
  FormatStore store(failing, SampleOn(GetParam()));
  FormatDocument document(store.Blank(kOrders, "小格式"));
  for (int i = 0; i < 3; ++i) {
    const Item item = NewItem(document.Current(), ItemKind::kText, ItemSite::kRow, {9.0 * i, 0});
    document.Add({&item, 1});
  }
  Save(store, document);
  document.Move({document.Current().items[0].id}, 5, 5);
  document.Remove({document.Current().items[1].id});
  document.SetFormat("FTDBillName", std::string("改名"));
  document.SetFormatNumber("FRowHeight", 123);
  document.SetFormatNumber("FSelected", 1);
  document.Do(AddVariable(document.Current(), NewVariable("新变量", "FNew")));
  const std::vector<Format> before = Everything();
  int n = 0;
  for (bool done = false; !done; ++n) {
    failing.statements = 0;
    failing.failing = n;
    try {
      const auto result = store.Save(document.Base(), document.Current());
      EXPECT_TRUE(std::holds_alternative<Saved>(result));
      done = true;
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.Description(), "the disk is full");
      ExpectSame(store.LoadById(document.Base().id), document.Base());
      if (n % 8 == 7) ExpectSame(Everything(), before);
    }
  }
  EXPECT_GT(n, 10);
  failing.failing = -1;
  ExpectSame(store.LoadById(document.Base().id), document.Current());
}

TEST_P(FormatStoreTest, WaitsForALock) {
  int waited = 0;
  std::optional<TableLock> lock;
  FormatStore store(Engines(), SampleOn(GetParam()), [&] {
    if (++waited == 2) lock->Release();
    return true;
  });
  FormatDocument document(store.Load(kOrders, ""));
  document.SetFormatNumber("FRowHeight", 123);
  document.Move({document.Current().items[0].id}, 5, 5);
  lock.emplace(Engines(), GetParam(), "TDBillDetail");
  Save(store, document);
  EXPECT_EQ(waited, 2);
  ExpectSame(store.LoadById(document.Base().id), document.Current());
}

TEST_P(FormatStoreTest, GivesUpWaitingWhenItIsTold) {
  FormatStore store(Engines(), SampleOn(GetParam()), [] { return false; });
  FormatDocument document(store.Load(kOrders, ""));
  document.SetFormatNumber("FRowHeight", 123);
  const TableLock lock(Engines(), GetParam(), "TDBill");
  EXPECT_THROW((void)store.Save(document.Base(), document.Current()), Failure);
}

TEST_P(FormatStoreTest, AChangeThatComesWhileItSavesIsNotLost) {
  FailingDatabase watched(Engines());
  FormatStore store(watched, SampleOn(GetParam()), [] { return false; });
  FormatDocument document(store.Load(kOrders, ""));
  const std::string id = std::to_string(std::get<std::int64_t>(document.Base().id));
  document.Move({document.Current().items[0].id}, 5, 5);
  const std::int64_t before = Count("TDBillDetail where FTDBillID=" + id);
  // Another program adds an item after this one has read the items.
  bool inserted = false;
  int statement = 0;
  watched.before = [&] {
    if (++statement != 8) return;
    try {
      Engines()
          .Connect(SampleOn(GetParam()))
          ->Execute("insert into TDBillDetail(FTDBillID,FSite,FLeft,FTop,FWidth,FHeight) values(" +
                    id + ",1,1,1,1,1)");
      inserted = true;
    } catch (const Failure& failure) {
      EXPECT_TRUE(IsLockConflict(failure)) << failure.Description();
    }
  };
  try {
    (void)store.Save(document.Base(), document.Current());
  } catch (const Failure& failure) {
    EXPECT_NE(failure.Description(), "");
  }
  EXPECT_GE(statement, 8);
  EXPECT_EQ(Count("TDBillDetail where FTDBillID=" + id), before + (inserted ? 1 : 0));
}

TEST_P(FormatStoreTest, CopiesRenamesAndSelects) {
  FormatStore store = Store();
  const Format original = store.Load(kOrders, "");
  Run("insert into TDBill_PaperSize(FIP,FTDBillName,FPaperSize) values('1.2.3.4','" +
      original.Name() + "',9);");
  Format copy = store.Copy(original.id, "副本");
  EXPECT_FALSE(copy.row.Flag("FSelected"));
  ExpectSame(store.Load(kOrders, "副本"), copy);
  EXPECT_EQ(copy.items.Size(), original.items.Size());
  EXPECT_THROW((void)store.Copy(original.id, "副本"), Failure);
  EXPECT_THROW(store.Rename(original.id, "副本"), Failure);

  store.Rename(original.id, "新名");
  EXPECT_EQ(store.LoadById(original.id).Name(), "新名");
  EXPECT_EQ(Count("TDBill_PaperSize where FTDBillName='新名'"), 1);
  store.Select(copy.id);
  EXPECT_EQ(store.Load(kOrders, "").Name(), "副本");
  EXPECT_EQ(Count("TDBill where FTranType=21 and FSelected=1"), 1);
  store.Delete(original.id);
  EXPECT_EQ(Count("TDBill_PaperSize where FTDBillName='新名'"), 0);
}

TEST_P(FormatStoreTest, WritesOnlyTheVariablesThatWereChanged) {
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  const std::size_t variables = document.Current().variables.size();
  document.Do(AddVariable(document.Current(), NewVariable("新变量", "FNew")));
  Run("insert into TDVariant(FTranType,FVarCaption,FVarName) values(21,'别人的','FOther');");
  Save(store, document);
  EXPECT_EQ(document.Current().variables.size(), variables + 2);
  EXPECT_EQ(document.Current().variables[variables].Caption(), "新变量");
  document.Undo();
  EXPECT_EQ(document.Current().variables.back().Caption(), "别人的");
  document.Redo();
  EXPECT_EQ(Ask("select FVarName as a from TDVariant where FTranType=21 and FVarCaption='新变量'"),
            Value(std::string("FNew")));
}

TEST_P(FormatStoreTest, AVariableThatAnotherFormatNamesStays) {
  FormatStore store = Store();
  store.Copy(store.Load(kOrders, "").id, "副本");
  FormatDocument document(store.Load(kOrders, ""));
  const auto indexOf = [&](const std::string& caption) {
    const auto& variables = document.Current().variables;
    const auto found = std::ranges::find_if(
        variables, [&](const Variable& one) { return one.Caption() == caption; });
    return static_cast<std::size_t>(found - variables.begin());
  };
  const std::string caption = "客户";
  ASSERT_LT(indexOf(caption), document.Current().variables.size());
  document.Do(SetOnVariable(document.Current(), indexOf(caption), "FVarCaption", "顾客"));
  Save(store, document);
  EXPECT_EQ(Count("TDVariant where FTranType=21 and FVarCaption in ('客户','顾客')"), 2);
  document.Undo();
  Save(store, document);
  EXPECT_EQ(Count("TDVariant where FTranType=21 and FVarCaption in ('客户','顾客')"), 1);
  for (const FormatEntry& entry : store.List(kOrders)) {
    if (entry.id != document.Base().id) store.Delete(entry.id);
  }
  document.Do(RemoveVariableAt(document.Current(), indexOf(caption)));
  Save(store, document);
  EXPECT_EQ(Count("TDVariant where FTranType=21 and FVarCaption in ('客户','顾客')"), 0);
}

TEST_P(FormatStoreTest, AVariableThatTwoGiveAnotherColumnIsAConflict) {
  FormatStore store = Store();
  FormatDocument document(store.Load(kOrders, ""));
  document.Do(SetOnVariable(document.Current(), 0, "FVarName", "FMine"));
  const std::string caption = document.Current().variables[0].Caption();
  Run("update TDVariant set FVarName='FTheirs' where FTranType=21 and FVarCaption='" + caption +
      "';");
  auto result = store.Save(document.Base(), document.Current());
  ASSERT_TRUE(std::holds_alternative<Conflict>(result));
  ASSERT_EQ(std::get<Conflict>(result).differences.size(), 1U);
  EXPECT_EQ(std::get<Conflict>(result).differences[0].subject, caption);
  Run("update TDVariant set FVarName='FMine' where FTranType=21 and FVarCaption='" + caption +
      "';");
  result = store.Save(document.Base(), document.Current());
  EXPECT_TRUE(std::holds_alternative<Saved>(result)) << "both want the same";
}

TEST_P(FormatStoreTest, ANewFormatGetsANumberOfItsOwn) {
  FormatStore store = Store();
  const Format blank = store.Blank(kOrders, "空白");
  FormatDocument document(blank);
  const Item item = NewItem(document.Current(), ItemKind::kText, ItemSite::kHead, {1, 2, 3, 4});
  document.Add({&item, 1});
  Save(store, document);
  EXPECT_FALSE(IsNull(document.Base().id));
  ExpectSame(store.Load(kOrders, "空白"), document.Current());
  EXPECT_THROW((void)store.Save(blank, blank), Failure) << "the name is taken";
}

}  // namespace
}  // namespace td::designer
