#include "run_witnesses/bill_list.h"

#include <utility>

#include "explanation/place_keeper.h"

namespace td {

void BillList::Clear() {
  hasRun_ = false;
  connection_.clear();
  billType_ = 0;
  format_.clear();
  bills_.clear();
  known_.clear();
}

void BillList::RunBegins(const WitnessedRun& run) {
  Clear();
  hasRun_ = true;
  connection_ = run.connection;
  billType_ = run.billType;
  format_ = run.format;
  data_ = &run.data;
}

void BillList::RowBegins(std::int16_t /*number*/) {
  if (data_ == nullptr) return;
  std::string bill = BillOf(*data_);
  if (bill.empty() || bill == "0" || (!bills_.empty() && bills_.back() == bill)) return;
  if (known_.insert(bill).second) bills_.push_back(std::move(bill));
}

}  // namespace td
