#include "designer/model/format_store.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

#include "designer/model/format_reading.h"
#include "designer/model/item_writer.h"
#include "designer/model/known_columns.h"
#include "designer/model/stored_table.h"
#include "designer/model/variable_writer.h"
#include "platform/standard_failures.h"
#include "policy/error_policy.h"
#include "sql_support/sql_scanner.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

void CheckNameIsFree(Transaction& transaction, int billType, const std::string& name,
                     const Value& except) {
  if (name.empty()) throw Failure(kInvalidCall, "套打格式要有名称");
  std::string sql = "select FTDBillID from TDBill where " + TypeCondition(transaction, billType) +
                    " and " + NameCondition(transaction, name);
  if (!IsNull(except)) sql += " and FTDBillID<>" + transaction.Literal(except);
  if (!IsNull(FirstValue(transaction, sql))) {
    throw Failure(kInvalidCall, "已有名为“" + name + "”的套打格式");
  }
}

// Takes the format's row, so that two who save wait for each other. Whatever is read from here on
// stays as it is until the end.
void Lock(Transaction& transaction, const Value& id) {
  transaction.Run("update TDBill set FTDBillName=FTDBillName where " +
                  IdCondition(transaction, id));
}

void ClearSelection(Transaction& transaction, int billType, const Value& except) {
  transaction.Run("update TDBill set FSelected=" + transaction.Literal(std::int64_t{0}) +
                  " where " + TypeCondition(transaction, billType) +
                  " and FSelected=" + transaction.Literal(std::int64_t{1}) + " and FTDBillID<>" +
                  transaction.Literal(except));
}

bool IsNameUsed(Transaction& transaction, const std::string& name) {
  return !IsNull(FirstValue(
      transaction, "select FTDBillID from TDBill where " + NameCondition(transaction, name)));
}

// What machines have kept under a name goes with it, unless another bill type has a format of that
// name, which shares the machines' papers.
void DeleteMachineRows(Transaction& transaction, int billType, const std::string& name) {
  const std::string condition = NameCondition(transaction, name);
  transaction.Run("delete from TDBill_AreaPrinterDevice where " +
                  TypeCondition(transaction, billType) + " and " + condition);
  if (!IsNameUsed(transaction, name)) {
    transaction.Run("delete from TDBill_PaperSize where " + condition);
  }
}

void RenameMachineRows(Transaction& transaction, int billType, const std::string& from,
                       const std::string& to) {
  const std::string assignment = Assignment(transaction, "FTDBillName", to);
  const std::string condition = NameCondition(transaction, from);
  const std::string ofType = TypeCondition(transaction, billType) + " and ";
  transaction.Run("delete from TDBill_AreaPrinterDevice where " + ofType +
                  NameCondition(transaction, to));
  transaction.Run("update TDBill_AreaPrinterDevice set " + assignment + " where " + ofType +
                  condition);
  if (IsNameUsed(transaction, from)) return;
  const auto users =
      transaction.Run("select FTDBillID from TDBill where " + NameCondition(transaction, to));
  if (users->RowCount() > 1) return;
  transaction.Run("delete from TDBill_PaperSize where " + NameCondition(transaction, to));
  transaction.Run("update TDBill_PaperSize set " + assignment + " where " + condition);
}

Value InsertFormat(Transaction& transaction, const Row& row, const Row& others) {
  const StoredTable table = ReadTable(transaction, FormatAccess(), "1=0");
  const std::vector<KeyColumn> keys = transaction.PrimaryKey(std::string(kFormatTable));
  const bool isGenerated = std::ranges::any_of(keys, [](const KeyColumn& key) {
    return EqualWords(key.name, kFormatKey) && key.isGenerated;
  });
  ColumnList columns(transaction);
  if (!isGenerated) {
    const Value last = FirstValue(transaction, "select max(FTDBillID) from TDBill");
    columns.Add(kFormatKey, NumberValue(IsNull(last) ? 1 : ToDouble(last) + 1));
  }
  columns.AddKnown(row, *table.known);
  const std::vector<std::string> without = {std::string(kFormatKey)};
  columns.AddOthers(others, *table.others, without);
  transaction.Run(columns.InsertInto(kFormatTable));
  return FirstValue(transaction,
                    "select FTDBillID from TDBill where " +
                        TypeCondition(transaction, static_cast<int>(row.Number(kBillTypeColumn))) +
                        " and " + NameCondition(transaction, row.Text("FTDBillName")));
}

void UpdateFormat(Transaction& transaction, const Format& now, const Format& wanted) {
  ColumnList changes(transaction);
  changes.AddChanges(now.row, wanted.row);
  if (!changes.Empty()) {
    transaction.Run(changes.UpdateOf(kFormatTable, IdCondition(transaction, now.id)));
  }
  if (now.Name() != wanted.Name()) {
    RenameMachineRows(transaction, now.BillType(), now.Name(), wanted.Name());
  }
}

bool SameSequence(const std::vector<const Item*>& items, const StoredTable& table,
                  const std::vector<std::size_t>& order) {
  if (items.size() != order.size()) return false;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (!AreEqual(items[i]->row, table.rows[order[i]].known)) return false;
  }
  return true;
}

const Value& ColumnOf(const Item& item, const std::string& column) {
  return item.row.Has(column) ? item.row.Get(column) : item.others.Get(column);
}

// Which row of the table each item of a format is: by its place if the table is as it was loaded,
// else by its key. Without keys all rows are written anew.
std::vector<WantedItem> FindRows(const Format& base, const Format& wanted, const StoredTable& now,
                                 const std::vector<std::string>& keys) {
  std::vector<std::size_t> order(now.rows.size());
  std::iota(order.begin(), order.end(), 0);
  const auto siteOfRow = [&](std::size_t i) { return now.rows[i].known.Number("FSite"); };
  std::ranges::stable_sort(order, {}, siteOfRow);
  const std::vector<const Item*> loaded = ByBand(base.items);

  const bool isUnchanged = SameSequence(loaded, now, order);
  const auto hasKeyOf = [&](const Item& item, const StoredRow& row) {
    return std::ranges::all_of(keys, [&](const std::string& key) {
      return MeanTheSame(ColumnOf(item, key), row.Get(key));
    });
  };
  std::unordered_map<ItemId, std::size_t> rowOf;
  for (std::size_t i = 0; i < loaded.size(); ++i) {
    if (isUnchanged) {
      rowOf[loaded[i]->id] = order[i];
    } else if (!keys.empty()) {
      const auto row = std::ranges::find_if(
          now.rows, [&](const StoredRow& one) { return hasKeyOf(*loaded[i], one); });
      if (row != now.rows.end()) {
        rowOf[loaded[i]->id] = static_cast<std::size_t>(row - now.rows.begin());
      }
    }
  }
  std::vector<WantedItem> found;
  for (const Item& item : wanted.items) {
    WantedItem one{.item = &item, .now = {}};
    if (const auto row = rowOf.find(item.id); row != rowOf.end()) one.now = row->second;
    found.push_back(one);
  }
  return found;
}

const Variable* VariableNamed(const std::vector<Variable>& variables, const std::string& caption) {
  const auto found = std::ranges::find_if(
      variables, [&](const Variable& one) { return one.Caption() == caption; });
  return found == variables.end() ? nullptr : &*found;
}

bool IsOfVariables(const Difference& difference) {
  return difference.kind == DifferenceKind::kVariableAdded ||
         difference.kind == DifferenceKind::kVariableRemoved ||
         difference.kind == DifferenceKind::kVariableColumn;
}

// Whether a save would write another value over that of somebody else's.
bool IsVariableInDispute(const std::string& caption, const Format& base, const Format& wanted,
                         const Format& now) {
  if (!IsVariableWritten(base.variables, wanted.variables, caption)) return false;
  const Variable* ours = VariableNamed(wanted.variables, caption);
  const Variable* theirs = VariableNamed(now.variables, caption);
  if (ours == nullptr || theirs == nullptr) return ours != theirs;
  return ours->Name() != theirs->Name();
}

// What somebody else has changed of what a save would write.
std::vector<Difference> ForeignChanges(const Format& base, const Format& wanted,
                                       const Format& now) {
  std::vector<Difference> differences;
  for (Difference& difference : DifferencesOf(base, now)) {
    const bool counts =
        !IsOfVariables(difference) || IsVariableInDispute(difference.subject, base, wanted, now);
    if (counts) differences.push_back(std::move(difference));
  }
  return differences;
}

// The variables that are wanted in their order, then what others have added. One that was removed
// here and stays for another format's sake is none of this format.
std::vector<Variable> InOrder(const std::vector<Variable>& stored, const Format& base,
                              const Format& wanted) {
  std::vector<Variable> ordered;
  for (const Variable& variable : wanted.variables) {
    const Variable* found = VariableNamed(stored, variable.Caption());
    ordered.push_back(found == nullptr ? variable : *found);
  }
  for (const Variable& variable : stored) {
    const bool isKnown = VariableNamed(wanted.variables, variable.Caption()) != nullptr ||
                         VariableNamed(base.variables, variable.Caption()) != nullptr;
    if (!isKnown) ordered.push_back(variable);
  }
  return ordered;
}

// The format as it stands in the tables, with the items' ids and in the order of `wanted`.
Format Stored(Transaction& transaction, const Format& base, const Format& wanted, const Value& id,
              std::vector<StoredRow> rows) {
  Format stored = ReadFormatById(transaction, id);
  if (const KnownColumn* lost = FirstLostColumn(FormatColumns(), wanted.row, stored.row)) {
    throw Failure(kDatabaseFailed, "数据库没有按原样保存表 " + std::string(kFormatTable) +
                                       " 的列 " + std::string(lost->name));
  }
  stored.items = {};
  for (std::size_t i = 0; i < rows.size(); ++i) {
    stored.items.Append({.id = wanted.items[i].id,
                         .row = std::move(rows[i].known),
                         .others = std::move(rows[i].others)});
  }
  stored.variables = InOrder(stored.variables, base, wanted);
  stored.lastItemId = wanted.lastItemId;
  return stored;
}

Saved Write(Transaction& transaction, const Format& base, const Format& wanted,
            const std::optional<Format>& now) {
  const int billType = wanted.BillType();
  CheckNameIsFree(transaction, billType, wanted.Name(), now ? now->id : Value(Null{}));
  Value id = now ? now->id : InsertFormat(transaction, wanted.row, wanted.others);
  if (now) UpdateFormat(transaction, *now, wanted);
  if (wanted.row.Flag("FSelected")) ClearSelection(transaction, billType, id);
  const StoredTable items = ReadTable(transaction, ItemAccess(), IdCondition(transaction, id));
  ItemWriter writer(transaction, id, items);
  std::vector<StoredRow> rows = writer.Write(FindRows(base, wanted, items, writer.KeyNames()));
  WriteVariables(transaction, billType, id, base.variables, wanted.variables);
  return {Stored(transaction, base, wanted, id, std::move(rows))};
}

}  // namespace

FormatStore::FormatStore(TransactionalDatabase& database, std::string connection,
                         WhileLocked whileLocked)
    : database_(database),
      connection_(std::move(connection)),
      whileLocked_(std::move(whileLocked)) {}

// The whole transaction is one statement of the policy's: a lock begins it anew.
void FormatStore::InTransaction(Access access,
                                const std::function<void(Transaction&)>& action) const {
  Guard(reactions::kSettingsSave).Step([&] {
    try {
      const auto transaction = database_.Begin(connection_, access);
      action(*transaction);
    } catch (const Failure& failure) {
      if (IsLockConflict(failure) && whileLocked_ && !whileLocked_()) {
        throw Failure(failure.Number(), WithoutLockCharacter(failure.Description()));
      }
      throw;
    }
  });
}

std::vector<FormatEntry> FormatStore::List(int billType) const {
  std::vector<FormatEntry> entries;
  InTransaction(Access::kReadOnly, [&](Transaction& transaction) {
    entries = ReadEntries(transaction, TypeCondition(transaction, billType));
  });
  return entries;
}

std::vector<FormatEntry> FormatStore::ListAll() const {
  std::vector<FormatEntry> entries;
  InTransaction(Access::kReadOnly,
                [&](Transaction& transaction) { entries = ReadEntries(transaction, "1=1"); });
  return entries;
}

Format FormatStore::Load(int billType, const std::string& name) const {
  std::optional<Format> format;
  InTransaction(Access::kReadOnly, [&](Transaction& transaction) {
    const std::string chosen = name.empty() ? Condition(transaction, "FSelected", std::int64_t{1})
                                            : NameCondition(transaction, name);
    format = ReadFormat(transaction, TypeCondition(transaction, billType) + " and " + chosen);
  });
  if (!format) throw NoSuchFormat(name);
  return *std::move(format);
}

Format FormatStore::LoadById(const Value& id) const {
  Format format;
  InTransaction(Access::kReadOnly,
                [&](Transaction& transaction) { format = ReadFormatById(transaction, id); });
  return format;
}

std::vector<Variable> FormatStore::Variables(int billType) const {
  std::vector<Variable> variables;
  InTransaction(Access::kReadOnly, [&](Transaction& transaction) {
    variables = ReadVariables(transaction, billType);
  });
  return variables;
}

Format FormatStore::Blank(int billType, const std::string& name) const {
  Format format = NewFormat(billType, name);
  InTransaction(Access::kReadOnly, [&](Transaction& transaction) {
    const StoredTable formats = ReadTable(transaction, FormatAccess(), "1=0");
    const StoredTable items = ReadTable(transaction, ItemAccess(), "1=0");
    Row row = NewRow(FormatColumns(), formats.known);
    row.PutNumber(kBillTypeColumn, billType);
    row.Set("FTDBillName", name);
    format.row = std::move(row);
    format.itemColumns = items.known;
    format.variables = ReadVariables(transaction, billType);
  });
  return format;
}

std::variant<Saved, Conflict> FormatStore::Save(const Format& base, const Format& wanted,
                                                OnConflict onConflict) {
  std::variant<Saved, Conflict> result;
  InTransaction(Access::kReadWrite, [&](Transaction& transaction) {
    std::optional<Format> now;
    if (!IsNull(base.id)) {
      Lock(transaction, base.id);
      now = ReadFormat(transaction, IdCondition(transaction, base.id));
    }
    if (onConflict == OnConflict::kReport && !IsNull(base.id)) {
      std::vector<Difference> differences;
      if (now) differences = ForeignChanges(base, wanted, *now);
      if (!now || !differences.empty()) {
        result = Conflict{.isGone = !now,
                          .theirs = now ? *std::move(now) : Format(),
                          .differences = std::move(differences)};
        return;
      }
    }
    result = Write(transaction, base, wanted, now);
    transaction.Commit();
  });
  return result;
}

Format FormatStore::Copy(const Value& id, const std::string& newName) {
  Format copy;
  InTransaction(Access::kReadWrite, [&](Transaction& transaction) {
    Format wanted = ReadFormatById(transaction, id);
    wanted.id = Null{};
    wanted.row.Set("FTDBillName", newName);
    wanted.row.PutFlag("FSelected", false);
    Format nothing;
    nothing.variables = wanted.variables;
    copy = Write(transaction, nothing, wanted, std::nullopt).stored;
    transaction.Commit();
  });
  return copy;
}

void FormatStore::Rename(const Value& id, const std::string& newName) {
  InTransaction(Access::kReadWrite, [&](Transaction& transaction) {
    Lock(transaction, id);
    const Format now = ReadFormatById(transaction, id);
    CheckNameIsFree(transaction, now.BillType(), newName, id);
    Format wanted = now;
    wanted.row.Set("FTDBillName", newName);
    UpdateFormat(transaction, now, wanted);
    transaction.Commit();
  });
}

void FormatStore::Delete(const Value& id) {
  InTransaction(Access::kReadWrite, [&](Transaction& transaction) {
    Lock(transaction, id);
    const Format now = ReadFormatById(transaction, id);
    for (const std::string_view table : {kItemTable, kFormatTable}) {
      transaction.Run("delete from " + std::string(table) + " where " +
                      IdCondition(transaction, id));
    }
    DeleteMachineRows(transaction, now.BillType(), now.Name());
    transaction.Commit();
  });
}

void FormatStore::Select(const Value& id) {
  InTransaction(Access::kReadWrite, [&](Transaction& transaction) {
    Lock(transaction, id);
    const Format now = ReadFormatById(transaction, id);
    ClearSelection(transaction, now.BillType(), id);
    transaction.Run("update TDBill set FSelected=" + transaction.Literal(std::int64_t{1}) +
                    " where " + IdCondition(transaction, id));
    transaction.Commit();
  });
}

}  // namespace td::designer
