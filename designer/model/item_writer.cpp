#include "designer/model/item_writer.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "platform/failure.h"
#include "sql_support/sql_scanner.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

// Positions of the items as the run meets them: band by band.
std::vector<std::size_t> ByBand(const std::vector<Row>& rows) {
  std::vector<std::size_t> order(rows.size());
  std::iota(order.begin(), order.end(), 0);
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return rows[i].Number("FSite"); });
  return order;
}

std::vector<Row> KnownRows(const std::vector<StoredRow>& rows) {
  std::vector<Row> known;
  known.reserve(rows.size());
  for (const StoredRow& row : rows) known.push_back(row.known);
  return known;
}

// What was written and read back, in the order of what was written.
struct ReadBack {
  std::vector<StoredRow> rows;
  std::string lost;  // a column that the table hasn't kept; empty: all is there
};

ReadBack Compare(const std::vector<StoredRow>& written, const std::vector<StoredRow>& stored) {
  ReadBack back{.rows = std::vector<StoredRow>(written.size()), .lost = {}};
  if (written.size() != stored.size()) return {.rows = {}, .lost = std::string(kFormatKey)};
  const std::vector<std::size_t> from = ByBand(KnownRows(stored));
  const std::vector<std::size_t> to = ByBand(KnownRows(written));
  for (std::size_t i = 0; i < written.size(); ++i) {
    const KnownColumn* lost =
        FirstLostColumn(ItemColumns(), written[to[i]].known, stored[from[i]].known);
    if (lost != nullptr && back.lost.empty()) back.lost = lost->name;
    back.rows[to[i]] = stored[from[i]];
  }
  return back;
}

std::string WithoutTrailingBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

}  // namespace

bool IsKept(const KnownColumn& column, const Value& written, const Value& stored) {
  if (MeanTheSame(written, stored)) return true;
  if (IsNull(written) || IsNull(stored)) return false;
  if (IsNumeric(written) && IsNumeric(stored)) {
    const double difference = std::abs(ToDouble(written) - ToDouble(stored));
    constexpr double kSinglePrecision = 1e-6;
    const double rounding = std::abs(ToDouble(written)) * kSinglePrecision;
    return difference <= std::max(column.kind == ColumnKind::kLength ? 0.5 : 0.0, rounding);
  }
  const bool areTexts =
      std::holds_alternative<std::string>(written) && std::holds_alternative<std::string>(stored);
  return areTexts && WithoutTrailingBlanks(std::get<std::string>(written)) ==
                         WithoutTrailingBlanks(std::get<std::string>(stored));
}

const KnownColumn* FirstLostColumn(std::span<const KnownColumn> columns, const Row& written,
                                   const Row& stored) {
  for (const KnownColumn& column : columns) {
    if (!written.Has(column.name) || !stored.Has(column.name)) continue;
    if (!IsKept(column, written.Get(column.name), stored.Get(column.name))) return &column;
  }
  return nullptr;
}

ItemWriter::ItemWriter(Transaction& transaction, Value formatId, StoredTable now)
    : transaction_(transaction),
      formatId_(std::move(formatId)),
      now_(std::move(now)),
      keys_(transaction.PrimaryKey(std::string(kItemTable))) {
  std::erase_if(keys_, [](const KeyColumn& key) { return EqualWords(key.name, kFormatKey); });
  for (const KeyColumn& key : keys_) keyNames_.push_back(key.name);
}

std::vector<StoredRow> ItemWriter::Write(const std::vector<WantedItem>& wanted) {
  std::vector<StoredRow> rows;
  rows.reserve(wanted.size());
  for (const WantedItem& one : wanted) {
    rows.push_back({one.item->row, one.now ? now_.rows[*one.now].others : one.item->others});
  }
  ReadBack back = Compare(rows, now_.rows);
  if (back.lost.empty() && KnownRows(back.rows) == KnownRows(rows)) return back.rows;

  constexpr int kTries = 6;
  for (int i = 0; i < kTries; ++i) {
    if (i == 0 && MayWriteChanges(wanted)) {
      WriteChanges(wanted);
    } else if (i < 2 && !keys_.empty()) {
      WriteOverSlots(rows);
    } else {
      WriteAnew(rows);
    }
    now_ = ReadTable(transaction_, ItemAccess(), FormatCondition());
    back = Compare(rows, now_.rows);
    if (back.lost.empty()) return back.rows;
  }
  throw Failure(kDatabaseFailed,
                "数据库没有按原样保存表 " + std::string(kItemTable) + " 的列 " + back.lost);
}

// Items that are there keep their order, and new ones come behind them.
bool ItemWriter::MayWriteChanges(const std::vector<WantedItem>& wanted) const {
  if (keys_.empty()) return false;
  std::optional<std::size_t> last;
  bool newBegan = false;
  std::vector<Row> rows;
  rows.reserve(wanted.size());
  for (const WantedItem& one : wanted) rows.push_back(one.item->row);
  for (const std::size_t i : ByBand(rows)) {
    const WantedItem& one = wanted[i];
    if (last && rows[i].Number("FSite") != rows[*last].Number("FSite")) newBegan = false;
    if (newBegan && one.now) return false;
    const bool follows = !last || !one.now || !wanted[*last].now ||
                         rows[i].Number("FSite") != rows[*last].Number("FSite") ||
                         *wanted[*last].now < *one.now;
    if (!follows) return false;
    newBegan = !one.now.has_value();
    last = i;
  }
  return true;
}

void ItemWriter::WriteChanges(const std::vector<WantedItem>& wanted) {
  std::vector<bool> stays(now_.rows.size(), false);
  for (const WantedItem& one : wanted) {
    if (one.now) stays[*one.now] = true;
  }
  for (std::size_t i = 0; i < now_.rows.size(); ++i) {
    if (!stays[i]) Delete(now_.rows[i]);
  }
  for (const WantedItem& one : wanted) {
    if (!one.now) continue;
    const StoredRow& row = now_.rows[*one.now];
    ColumnList changes(transaction_);
    changes.AddChanges(row.known, one.item->row);
    if (!changes.Empty()) transaction_.Run(changes.UpdateOf(kItemTable, RowCondition(row)));
  }
  for (const WantedItem& one : wanted) {
    if (!one.now) Insert({one.item->row, one.item->others});
  }
}

// Rows that lie in their table by their key have the order of the items then.
void ItemWriter::WriteOverSlots(const std::vector<StoredRow>& rows) {
  const std::vector<StoredRow> slots = RowsByKey();
  for (std::size_t i = rows.size(); i < slots.size(); ++i) Delete(slots[i]);
  for (std::size_t i = 0; i < std::min(rows.size(), slots.size()); ++i) {
    ColumnList columns(transaction_);
    columns.AddKnown(rows[i].known, *now_.known);
    columns.AddOthers(rows[i].others, *now_.others, keyNames_);
    transaction_.Run(columns.UpdateOf(kItemTable, RowCondition(slots[i])));
  }
  for (std::size_t i = slots.size(); i < rows.size(); ++i) Insert(rows[i]);
}

// Rows that lie in the order in which they came have that of the items then. An engine may put some
// into gaps that deleted rows have left long ago; the next time the gaps are full.
void ItemWriter::WriteAnew(const std::vector<StoredRow>& rows) {
  const std::vector<StoredRow> slots = RowsByKey();
  transaction_.Run("delete from " + std::string(kItemTable) + " where " + FormatCondition());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Insert(rows[i], i < slots.size() ? &slots[i] : nullptr);
  }
}

std::vector<StoredRow> ItemWriter::RowsByKey() const {
  std::vector<StoredRow> slots = now_.rows;
  const auto isBefore = [&](const StoredRow& one, const StoredRow& other) {
    for (const std::string& key : keyNames_) {
      const Value& first = one.Get(key);
      const Value& second = other.Get(key);
      const bool areNumbers = IsNumeric(first) && IsNumeric(second);
      if (areNumbers && ToDouble(first) != ToDouble(second)) {
        return ToDouble(first) < ToDouble(second);
      }
      if (!areNumbers && ToText(first) != ToText(second)) return ToText(first) < ToText(second);
    }
    return false;
  };
  std::ranges::stable_sort(slots, isBefore);
  return slots;
}

// With the key of a row that was deleted, or a new one.
void ItemWriter::Insert(const StoredRow& row, const StoredRow* keySource) {
  ColumnList columns(transaction_);
  columns.Add(kFormatKey, formatId_);
  if (keySource != nullptr) {
    columns.AddFrom(*keySource, keyNames_);
  } else {
    AddNewKeys(columns, row);
  }
  columns.AddKnown(row.known, *now_.known);
  columns.AddOthers(row.others, *now_.others, keyNames_);
  transaction_.Run(columns.InsertInto(kItemTable));
}

// A number that the engine doesn't give by itself is the next free one.
void ItemWriter::AddNewKeys(ColumnList& columns, const StoredRow& row) {
  for (const KeyColumn& key : keys_) {
    if (key.isGenerated || row.known.Has(key.name)) continue;
    const Value last = FirstValue(
        transaction_, "select max(" + QuotedName(key.name) + ") from " + std::string(kItemTable));
    if (!IsNull(last) && !IsNumeric(last)) {
      throw Failure(kDatabaseFailed, "表 " + std::string(kItemTable) + " 的主键列 " + key.name +
                                         " 不是数字，也没有默认值，无法增加项目");
    }
    columns.AddQuoted(key.name, NumberValue(IsNull(last) ? 1 : ToDouble(last) + 1));
  }
}

void ItemWriter::Delete(const StoredRow& row) {
  transaction_.Run("delete from " + std::string(kItemTable) + " where " + RowCondition(row));
}

std::string ItemWriter::RowCondition(const StoredRow& row) const {
  std::string condition = FormatCondition();
  for (const std::string& key : keyNames_) {
    condition += " and " + Condition(transaction_, QuotedName(key), row.Get(key));
  }
  return condition;
}

std::string ItemWriter::FormatCondition() const {
  return Condition(transaction_, kFormatKey, formatId_);
}

}  // namespace td::designer
