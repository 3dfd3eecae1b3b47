#include "explanation/row_ledger.h"

#include <algorithm>
#include <cmath>

namespace td {

void RowLedger::BeginPage() {
  ++pages_;
}

ExplainedBill& RowLedger::BillNamed(const std::string& bill, bool isNew) {
  if (isNew || bills_.empty()) bills_.push_back({.number = bill});
  return bills_.back();
}

void RowLedger::PlaceRow(const std::string& bill) {
  // Skipped rows of the same bill stand there already.
  const bool isSkipped = !bills_.empty() && bills_.back().rows == 0 && bills_.back().number == bill;
  ++BillNamed(bill, isGroupNew_ && !isSkipped).rows;
  isGroupNew_ = false;
  ++rows_;
  if (fullPages_.empty() || fullPages_.back() != pages_) fullPages_.push_back(pages_);
}

void RowLedger::SkipRow(const std::string& bill) {
  ++BillNamed(bill, bills_.empty() || bills_.back().number != bill).skippedRows;
}

void RowLedger::MarkRow(MarkerCause cause, const Occasion& where) {
  if (!bills_.empty()) ++bills_.back().markerRows;
  const auto known = std::ranges::find(markers_, cause, &MarkerRows::cause);
  if (known != markers_.end()) {
    ++known->times;
    return;
  }
  markers_.push_back(
      {.cause = cause, .times = 1, .bill = where.bill, .row = where.row, .page = where.page});
}

void RowLedger::Read(const ReadColumnState& column) {
  if (column.isData) isMissing_[column.column] = column.found == ReadColumnState::Found::kMissing;
}

void RowLedger::Add(const double& sum, std::string_view columns, double amount) {
  Sum& added = sums_[&sum];
  added.columns = columns;
  if (std::isfinite(amount)) {
    ++added.rowsAdded;
    added.amount += amount;
  } else {
    ++added.rowsWithout;
  }
}

void RowLedger::ShowSum(const double& sum, const std::string& variable) {
  const std::pair shown(variable, &sum);
  if (std::ranges::find(shown_, shown) == shown_.end()) shown_.push_back(shown);
}

std::string RowLedger::MissingOf(std::string_view columns) const {
  std::string missing;
  while (!columns.empty()) {
    const std::size_t comma = columns.find(',');
    const std::string column(columns.substr(0, comma));
    const auto found = isMissing_.find(column);
    if (found != isMissing_.end() && found->second) {
      missing += (missing.empty() ? "" : ", ") + column;
    }
    columns.remove_prefix(comma == std::string_view::npos ? columns.size() : comma + 1);
  }
  return missing;
}

void RowLedger::Tell(Explanation& explanation) const {
  explanation.pages = pages_;
  explanation.rows = rows_;
  explanation.bills = bills_;
  explanation.markerRows = markers_;
  for (int page = 1; page <= pages_; ++page) {
    if (!std::ranges::binary_search(fullPages_, page)) {
      explanation.pagesWithoutRows.push_back(page);
    }
  }
  for (const auto& [variable, sum] : shown_) {
    ExplainedSum told;
    told.variable = variable;
    if (const auto found = sums_.find(sum); found != sums_.end()) {
      told.columns = found->second.columns;
      told.rowsAdded = found->second.rowsAdded;
      told.rowsWithout = found->second.rowsWithout;
      told.amount = found->second.amount;
      told.missing = MissingOf(told.columns);
    }
    explanation.sums.push_back(std::move(told));
  }
}

}  // namespace td
