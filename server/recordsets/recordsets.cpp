#include "client/recordsets.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desktop/databases.h"
#include "memory_rows/memory_recordset.h"
#include "objects/failures.h"
#include "objects/variant_values.h"
#include "recordsets/recordset_object.h"

namespace td {
namespace {

// Runs what may fail, and hands over the object or the failure.
template <class Action>
TdResult Deliver(TdDispatch** recordset, TdExceptionInfo* info, Action action) {
  if (info != nullptr) *info = {};
  if (recordset == nullptr) return TD_BAD_POINTER;
  *recordset = nullptr;
  try {
    *recordset = NewRecordsetObject(action());
    return TD_OK;
  } catch (...) {
    const TdResult result = EndDirectCall();
    if (info != nullptr) TakeLastError(info);
    return result;
  }
}

std::vector<std::vector<Value>> Rows(const TdVariant* values, std::uint32_t columnCount,
                                     std::uint32_t rowCount) {
  std::vector<std::vector<Value>> rows(rowCount);
  for (std::vector<Value>& row : rows) {
    for (std::uint32_t column = 0; column < columnCount; ++column) {
      row.push_back(ValueOf(*values++));
    }
  }
  return rows;
}

}  // namespace
}  // namespace td

TdResult TdOpenRecordset(const char* connection, const char* sql, TdDispatch** recordset,
                         TdExceptionInfo* info) {
  if (connection == nullptr || sql == nullptr) return TD_BAD_POINTER;
  return td::Deliver(recordset, info, [connection, sql] {
    td::Databases databases;
    return static_cast<td::Database&>(databases).OpenQuery(connection, sql);
  });
}

TdResult TdMakeRecordset(const char* const* columns, std::uint32_t columnCount,
                         const TdVariant* values, std::uint32_t rowCount, TdDispatch** recordset,
                         TdExceptionInfo* info) {
  const bool hasValues = columnCount > 0 && rowCount > 0;
  if ((columns == nullptr && columnCount > 0) || (values == nullptr && hasValues)) {
    return TD_BAD_POINTER;
  }
  return td::Deliver(recordset, info, [=]() -> td::RecordsetRef {
    return std::make_shared<td::MemoryRecordset>(
        std::vector<std::string>(columns, columns + columnCount),
        td::Rows(values, columnCount, rowCount));
  });
}
