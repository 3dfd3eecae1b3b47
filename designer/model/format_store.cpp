#include "designer/model/format_store.h"

#include <utility>

#include "designer/model/format_reading.h"
#include "designer/model/format_writing.h"
#include "designer/model/known_columns.h"
#include "designer/model/stored_table.h"
#include "designer/model/variable_writer.h"
#include "platform/standard_failures.h"
#include "policy/error_policy.h"

namespace td::designer {
namespace {

// Takes the format's row, so that two who save wait for each other. Whatever is read from here on
// stays as it is until the end.
void Lock(Transaction& transaction, const Value& id) {
  transaction.Run("update TDBill set FTDBillName=FTDBillName where " +
                  IdCondition(transaction, id));
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
  const Variable* ours = FindVariable(wanted.variables, caption);
  const Variable* theirs = FindVariable(now.variables, caption);
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
    result = WriteFormat(transaction, base, wanted, now);
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
    copy = WriteFormat(transaction, nothing, wanted, std::nullopt).stored;
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
