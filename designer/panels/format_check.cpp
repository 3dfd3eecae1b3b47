#include "designer/panels/format_check.h"

#include <cstdint>
#include <span>
#include <utility>

#include "checker/checker.h"
#include "checker/finding_messages.h"
#include "designer/model/known_columns.h"
#include "designer/view/words.h"
#include "explanation/language.h"
#include "memory_rows/memory_recordset.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

// Rows of one table with the columns that they have, and one more, of the same value in each, which
// links the tables of a format with each other.
template <typename Rows>
checker::StoredRows StoredRowsOf(const ColumnNames& names, const Rows& rows,
                                 const std::string& link, const Value& linked) {
  checker::StoredRows stored;
  for (std::size_t i = 0; i < names.Size(); ++i) stored.columns.push_back(names.Name(i));
  stored.columns.push_back(link);
  for (const auto& row : rows) {
    std::vector<Value> values;
    for (std::size_t i = 0; i < names.Size(); ++i) values.push_back(row.row.Get(names.Name(i)));
    values.push_back(linked);
    stored.rows.push_back(std::move(values));
  }
  return stored;
}

// As the tables would hold it: what is in none yet has a key all the same.
checker::FormatRows RowsOf(const Format& format) {
  const Value key = IsNull(format.id) ? Value(std::int64_t{1}) : format.id;
  const Value billType = std::int64_t{format.BillType()};
  checker::FormatRows rows;
  rows.billType = static_cast<std::int16_t>(format.BillType());
  rows.name = format.Name();
  rows.bill = StoredRowsOf(format.row.Names(), std::span(&format, 1), "FTDBillID", key);
  rows.items = StoredRowsOf(*format.itemColumns, format.items, "FTDBillID", key);
  rows.variables =
      StoredRowsOf(*NamesOf(VariableColumns()), format.variables, "FTranType", billType);
  checker::ResolveVariables(rows);
  return rows;
}

FindingSeverity SeverityOf(checker::Severity severity) {
  if (severity == checker::Severity::kError) return FindingSeverity::kError;
  return severity == checker::Severity::kWarning ? FindingSeverity::kWarning
                                                 : FindingSeverity::kHint;
}

bool IsOnPictureString(checker::FindingKind kind) {
  using enum checker::FindingKind;
  return kind == kFormatString || kind == kFormatStringConstant || kind == kFormatStringUnused;
}

FormatFinding FindingOf(const Format& format, const checker::Finding& finding) {
  const auto language = SpeaksChinese() ? Language::kChinese : Language::kEnglish;
  checker::FindingText text = checker::TextOf(finding, language);
  const bool hasItem = finding.item && finding.item->index < format.items.Size();
  return {.severity = SeverityOf(checker::MessageOf(finding.kind).severity),
          .item = hasItem ? format.items[finding.item->index].id : 0,
          .wrong = std::move(text.wrong),
          .effect = std::move(text.effect),
          .mend = std::move(text.mend),
          .onPictureString = IsOnPictureString(finding.kind)};
}

}  // namespace

std::function<std::vector<FormatFinding>(const Format& format)> CheckWith(
    const checker::CheckedMachine& machine, std::shared_ptr<const MemoryRows> data,
    Database* database, std::string connection) {
  return [&machine, database, data = std::move(data),
          connection = std::move(connection)](const Format& format) {
    const checker::FormatRows rows = RowsOf(format);
    std::vector<checker::Finding> found;
    try {
      checker::CheckOptions options;
      if (data != nullptr) options.rows = std::make_shared<MemoryRecordset>(data);
      found = checker::CheckFormat(rows, machine, options, database, connection);
    } catch (const Failure&) {
      found = checker::CheckFormat(rows, machine);
    }
    std::vector<FormatFinding> findings;
    findings.reserve(found.size());
    for (const checker::Finding& finding : found) findings.push_back(FindingOf(format, finding));
    return findings;
  };
}

}  // namespace td::designer
