// The checks of one format, each of which adds what it finds.
#pragma once

#include <string>
#include <vector>

#include "checker/finding_list.h"
#include "checker/format_rows.h"
#include "checker/machine.h"
#include "checker/trial_run.h"

namespace td::checker {

// The format's row: rows, paper, printer. `trial` is a run of it. Where there are rows to be
// printed, they tell whether one row a page is a mistake.
void CheckBill(const FormatRows& format, const TrialResult& trial, const CheckedMachine& machine,
               bool hasRows, FindingList& findings);

// The items one by one: bands, kinds, variables, images, pictures, sizes. A format whose pages are
// made by stock area knows no images. `dataColumns` are those of the rows, as far as they are
// known.
void CheckItems(const FormatRows& format, const TrialResult& trial, bool byArea,
                const std::vector<std::string>& dataColumns, FindingList& findings);

// The pictures of numbers that items have in FFormatString.
void CheckFormatStrings(const FormatRows& format, const TrialResult& trial, FindingList& findings);

// The fonts that the items name.
void CheckFonts(const FormatRows& format, FindingList& findings);

// The columns of the rows; none where the rows don't tell them.
[[nodiscard]] std::vector<std::string> ColumnsOf(const Recordset& rows);

// The rows that `trial` has printed: columns, Nulls, sums. `rows` is moved.
void CheckData(const FormatRows& format, const TrialResult& trial, Recordset& rows,
               FindingList& findings);

// Whether rows name their bills and come bill by bill, or area by area. `rows` is moved. False: no
// run can print them.
bool CheckGroups(Recordset& rows, bool byArea, FindingList& findings);

}  // namespace td::checker
