// The work that the table of docs/performance.md measures: one bill on A4, 25 rows a page.
#pragma once

#include <string>

namespace td {

inline constexpr int kWorkBillType = 90;
inline constexpr const char* kWorkFormat = "基准A4";
inline constexpr const char* kWorkData = "select * from t_work order by FEntryID";

// Make the format and the bill in a database that holds the sample's tables, in place of those of
// a former call: ten boxes and two lines a row, six boxes in the head, ten in the column head, page
// number, page sum and number of pages in the foot. The rows have none of the columns that sums ask
// for but FMainQty, FQty, FPrice, FAmount and FTax.
void MakeWorkFormat(const std::string& connection);
void MakeWorkRows(const std::string& connection, int rows);
// The same rows as bills of `rowsOfABill` each.
void MakeWorkBills(const std::string& connection, int rows, int rowsOfABill);

}  // namespace td
