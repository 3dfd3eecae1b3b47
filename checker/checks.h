// The checks of one format, each of which adds what it finds.
#pragma once

#include <string>
#include <vector>

#include "checker/finding_list.h"
#include "checker/format_rows.h"
#include "checker/machine.h"
#include "checker/trial_run.h"

namespace td::checker {

// The format's row: rows, paper, printer. `trial` is a run of it.
void CheckBill(const FormatRows& format, const TrialResult& trial, const CheckedMachine& machine,
               FindingList& findings);

// The items one by one: bands, kinds, variables, images, pictures, sizes. A format whose pages are
// made by stock area knows no images.
void CheckItems(const FormatRows& format, const TrialResult& trial, bool byArea,
                FindingList& findings);

// The pictures of numbers that items have in FFormatString.
void CheckFormatStrings(const FormatRows& format, const TrialResult& trial, FindingList& findings);

// The fonts that the items name.
void CheckFonts(const FormatRows& format, FindingList& findings);

// The rows that `trial` has printed: columns, Nulls, sums. `rows` is moved.
void CheckData(const FormatRows& format, const TrialResult& trial, Recordset& rows,
               FindingList& findings);

// Whether rows name their bills and come bill by bill, or area by area. `rows` is moved. False: no
// run can print them.
bool CheckGroups(Recordset& rows, bool byArea, FindingList& findings);

}  // namespace td::checker
