// Finds mistakes in formats without printing anything.
//
// A format is run by the code that prints it, into pages that go nowhere: once over rows in which
// every column is 1, which shows where its items come to lie, and, where there are rows, once over
// them. What the run tells of itself on the way is what the findings are made of.
#pragma once

#include <string>
#include <vector>

#include "checker/finding.h"
#include "checker/format_rows.h"
#include "checker/machine.h"
#include "checker/stored_formats.h"
#include "platform/database.h"

namespace td::checker {

struct CheckOptions {
  bool byArea = false;    // the format is printed by stock area, not by bill
  std::string printer{};  // that takes the documents whatever the formats say; empty: none
  // The rows that are to be printed: a clone of them is read. None: the format alone is checked.
  RecordsetRef rows{};
};

// The findings on one format, saved or not. `database` is asked for goods pictures and settings
// when there are rows. Needs a Qt application. Fails where the rows or the database do.
[[nodiscard]] std::vector<Finding> CheckFormat(const FormatRows& format,
                                               const CheckedMachine& machine,
                                               const CheckOptions& options = {},
                                               Database* database = nullptr,
                                               const std::string& connection = {});

struct CheckResult {
  std::vector<Finding> findings;
  int formats = 0;  // that were looked at
};

// The findings on a database's formats and settings. Only reads. A lock is waited for; other
// failures of the database leave the call.
[[nodiscard]] CheckResult CheckDatabase(Database& database, const std::string& connection,
                                        const Selection& selection, const CheckedMachine& machine,
                                        const CheckOptions& options = {});

// Nothing counts as a hint.
[[nodiscard]] Severity WorstOf(const std::vector<Finding>& findings);
[[nodiscard]] int CountOf(const std::vector<Finding>& findings, Severity severity);

}  // namespace td::checker
