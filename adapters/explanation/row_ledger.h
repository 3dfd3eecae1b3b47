// The rows of a run: their bills, and what they add to which sum.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "explanation/explanation.h"
#include "explanation/item_ledger.h"
#include "explanation/read_column.h"

namespace td {

class RowLedger {
 public:
  void BeginPage();
  void BreakGroup() { isGroupNew_ = true; }
  void PlaceRow(const std::string& bill);
  void SkipRow(const std::string& bill);
  void MarkRow(MarkerCause cause, const Occasion& where);

  void Read(const ReadColumnState& column);
  void Add(const double& sum, std::string_view columns, double amount);
  void ShowSum(const double& sum, const std::string& variable);

  // What is known, into `explanation`.
  void Tell(Explanation& explanation) const;

 private:
  struct Sum {
    std::string columns;
    int rowsAdded = 0;
    int rowsWithout = 0;
    double amount = 0;
  };

  ExplainedBill& BillNamed(const std::string& bill, bool isNew);
  [[nodiscard]] std::string MissingOf(std::string_view columns) const;

  int pages_ = 0;
  int rows_ = 0;
  bool isGroupNew_ = true;
  std::vector<int> fullPages_;  // that have a row
  std::vector<ExplainedBill> bills_;
  std::vector<MarkerRows> markers_;
  std::map<std::string, bool> isMissing_;  // by column
  std::map<const double*, Sum> sums_;
  std::vector<std::pair<std::string, const double*>> shown_;
};

}  // namespace td
