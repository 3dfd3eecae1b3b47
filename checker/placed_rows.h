// Which of the rows that a run has placed have come onto a page.
#pragma once

#include <map>
#include <set>
#include <string>

#include "platform/database.h"

namespace td::checker {

// Rows are known by their numbers. Those of one bill stand for each other; a row of no bill stands
// for itself.
class PlacedRows {
 public:
  // The row on which `rows` stand.
  void Place(int row, Recordset& rows);

  // A value of the rows, or what their band draws, or a sum with their amounts has been drawn.
  void Show(int row) { shown_.insert(row); }
  void Show(const std::set<int>& rows) { shown_.insert(rows.begin(), rows.end()); }

  // How many have not come onto a page, nor any of their bill. Where none at all has, the format
  // shows no value, and no row is lost.
  [[nodiscard]] int Lost() const;

 private:
  std::map<int, std::string> bills_;  // of the rows that have been placed
  std::set<int> shown_;
};

}  // namespace td::checker
