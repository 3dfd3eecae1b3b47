// Which bills a run prints.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "run_witnesses/quiet_witness.h"

namespace td {

// Keeps what the last run was asked for, and the bills of its rows.
class BillList : public QuietWitness {
 public:
  [[nodiscard]] bool HasRun() const { return hasRun_; }
  // Of the last run; empty before the first one.
  [[nodiscard]] const std::string& Connection() const { return connection_; }
  [[nodiscard]] std::int16_t BillType() const { return billType_; }
  // The one that was asked for, and, once it was found, its name in the table.
  [[nodiscard]] const std::string& Format() const { return format_; }
  // In the order of their first rows, each once: the number (FBillNo) of those that have one, else
  // the key (FInterID), unless that is 0. Rows that are left blank don't count.
  [[nodiscard]] const std::vector<std::string>& Bills() const { return bills_; }

  void Clear();

  void RunBegins(const WitnessedRun& run) override;
  void FormatChosen(const std::string& name) override { format_ = name; }
  void RunEnds() override { data_ = nullptr; }
  void RowBegins(std::int16_t number) override;

 private:
  bool hasRun_ = false;
  std::string connection_;
  std::int16_t billType_ = 0;
  std::string format_;
  std::vector<std::string> bills_;
  std::unordered_set<std::string> known_;  // those among the bills
  Recordset* data_ = nullptr;              // of the run that goes on
};

}  // namespace td
