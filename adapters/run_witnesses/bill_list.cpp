#include "run_witnesses/bill_list.h"

#include "platform/failure.h"
#include "text/conversions.h"

namespace td {
namespace {

// Empty where the row has no such value. Print data is the program's and may fail in any way.
std::string TextIn(Recordset& row, std::string_view column) {
  try {
    const Value* value = row.Find(column);
    return value == nullptr || IsNull(*value) ? std::string() : ToText(*value);
  } catch (const Failure&) {
    return {};
  }
}

}  // namespace

void BillList::Clear() {
  connection_.clear();
  billType_ = 0;
  format_.clear();
  bills_.clear();
  known_.clear();
}

void BillList::RunBegins(const WitnessedRun& run) {
  Clear();
  connection_ = run.connection;
  billType_ = run.billType;
  format_ = run.format;
  data_ = &run.data;
}

void BillList::RowBegins(std::int16_t /*number*/) {
  if (data_ == nullptr) return;
  std::string bill = TextIn(*data_, "FBillNo");
  if (bill.empty()) bill = TextIn(*data_, "FInterID");
  if (bill.empty() || bill == "0" || (!bills_.empty() && bills_.back() == bill)) return;
  if (known_.insert(bill).second) bills_.push_back(std::move(bill));
}

}  // namespace td
