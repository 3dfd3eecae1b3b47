#include <cmath>
#include <string>

#include "platform/standard_failures.h"
#include "run/finish_bill.h"
#include "run/place_row.h"
#include "run/print_rows.h"
#include "text/characters.h"
#include "text/conversions.h"

namespace td {
namespace {

std::string AreaOf(const std::string& stockArea) {
  return std::string(FirstCharacter(stockArea));
}

bool IsNewArea(const PrintRun& run) {
  const Value& area = run.request.PrintData->Field("FStockArea");
  const RunState& state = run.state;
  return !IsNull(area) && AreaOf(ToText(area)) != state.CurrentArea && state.CurrentArea != "-1" &&
         state.RowsOnPage != 0;
}

// The page of a new area has only what the new-page event draws: the head is not forced.
void BreakArea(PrintRun& run) {
  const Guard& guard = run.guard;
  guard.Step([&] { FinishBill(run.window, false); });
  MoveCloneToBill(run);
  guard.Step([&] { run.vp.NewPage(); });
  run.state.CurrentRowTop = -run.state.RowHeight;
}

std::int32_t WholeNumber(const Value& value) {
  if (!IsNull(value) && ToDouble(value) != std::trunc(ToDouble(value))) throw MismatchFailure();
  return ToInteger32(value);
}

void RememberArea(PrintRun& run) {
  const Guard& guard = run.guard;
  Recordset& row = *run.request.PrintData;
  guard.Step([&] { run.state.CurrentArea = AreaOf(ToLoneText(row.Field("FStockArea"))); });
  guard.Step([&] { run.state.RowInterId = WholeNumber(row.Field("FInterID")); });
}

}  // namespace

void PrintRowsByStockArea(PrintRun& run) {
  const Guard& guard = run.guard;
  while (guard.Test([&] { return !run.request.PrintData->Eof(); })) {
    if (guard.Test([&] { return IsNewArea(run); })) BreakArea(run);
    RememberArea(run);
    PlaceRow(run);
  }
}

}  // namespace td
