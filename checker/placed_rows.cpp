#include "checker/placed_rows.h"

#include <algorithm>

#include "explanation/place_keeper.h"

namespace td::checker {

void PlacedRows::Place(int row, Recordset& rows) {
  const std::string bill = td::TextOf(rows, "FInterID");
  bills_[row] = bill.empty() || bill == "0" ? "#" + std::to_string(row) : bill;
}

int PlacedRows::Lost() const {
  std::set<std::string> shownBills;
  for (const int row : shown_) {
    const auto found = bills_.find(row);
    if (found != bills_.end()) shownBills.insert(found->second);
  }
  if (shownBills.empty()) return 0;
  return static_cast<int>(std::ranges::count_if(
      bills_, [&](const auto& row) { return !shownBills.contains(row.second); }));
}

}  // namespace td::checker
