#include "designer/model/variable_writer.h"

#include <algorithm>

namespace td::designer {
namespace {

const Variable* Find(const std::vector<Variable>& variables, const std::string& caption) {
  const auto found = std::ranges::find_if(
      variables, [&](const Variable& one) { return one.Caption() == caption; });
  return found == variables.end() ? nullptr : &*found;
}

bool IsNamedElsewhere(Transaction& transaction, int billType, const Value& formatId,
                      const std::string& caption) {
  return !IsNull(
      FirstValue(transaction,
                 "select TDBillDetail.FTDBillID from TDBillDetail inner join TDBill on "
                 "TDBill.FTDBillID=TDBillDetail.FTDBillID where TDBill.FTranType=" +
                     transaction.Literal(std::int64_t{billType}) + " and TDBill.FTDBillID<>" +
                     transaction.Literal(formatId) +
                     " and TDBillDetail.FObjectFieldName=" + transaction.Literal(caption)));
}

}  // namespace

bool IsVariableWritten(const std::vector<Variable>& base, const std::vector<Variable>& wanted,
                       const std::string& caption) {
  const Variable* before = Find(base, caption);
  const Variable* after = Find(wanted, caption);
  if (before == nullptr || after == nullptr) return before != after;
  return before->Name() != after->Name();
}

void WriteVariables(Transaction& transaction, int billType, const Value& formatId,
                    const std::vector<Variable>& base, const std::vector<Variable>& wanted) {
  const std::string ofType =
      Condition(transaction, kBillTypeColumn, std::int64_t{billType}) + " and ";
  const std::string table(kVariableTable);
  const auto conditionOf = [&](const std::string& caption) {
    return ofType + Condition(transaction, "FVarCaption", caption);
  };
  for (const Variable& variable : base) {
    const std::string caption = variable.Caption();
    if (Find(wanted, caption) != nullptr) continue;
    if (IsNamedElsewhere(transaction, billType, formatId, caption)) continue;
    transaction.Run("delete from " + table + " where " + conditionOf(caption));
  }
  for (const Variable& variable : wanted) {
    const std::string caption = variable.Caption();
    if (!IsVariableWritten(base, wanted, caption)) continue;
    const bool isThere = !IsNull(FirstValue(
        transaction, "select FVarCaption from " + table + " where " + conditionOf(caption)));
    ColumnList columns(transaction);
    columns.Add("FVarName", variable.row.Get("FVarName"));
    if (isThere) {
      transaction.Run(columns.UpdateOf(table, conditionOf(caption)));
      continue;
    }
    columns.Add(kBillTypeColumn, std::int64_t{billType});
    columns.Add("FVarCaption", caption);
    transaction.Run(columns.InsertInto(table));
  }
}

}  // namespace td::designer
