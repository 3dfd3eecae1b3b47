#include "checker/trial_run.h"

#include <cmath>

#include "checker/format_database.h"
#include "checker/numbered_rows.h"
#include "checker/sample_rows.h"
#include "checker/trial_platform.h"
#include "checker/trial_witness.h"
#include "platform/failure.h"
#include "run/do_printing.h"
#include "windows/open_window.h"

namespace td::checker {
namespace {

// Enough rows to fill the second page, which may have more of them than the first, and one on a
// page of its own: the band behind the last row then comes where there is no row any more. Where no
// sheet has so many rows, as many as leave it.
int SampleCount(const FormatRows& format) {
  constexpr int kMostRows = 1000;  // which leave any sheet
  constexpr int kPages = 3;
  const double rows = format.Bill().Number("FRowsPerPage").value_or(0);
  if (rows > kMostRows) return kMostRows;
  return rows >= 1 ? kPages * static_cast<int>(std::lround(rows)) + 1 : 5;
}

}  // namespace

TrialResult RunTrial(const FormatRows& format, const CheckedMachine& machine,
                     const TrialRequest& request, const std::vector<TrialObserver*>& observers) {
  TrialWitness witness(format.ItemCount(), observers);
  FormatDatabase database(format, request.database);
  TrialPlatform platform(machine, request.printer, database, witness, witness);

  PrintContext context;
  context.New_PromptString = request.connection;
  context.New_DoPrint = true;
  context.New_TranType = format.billType;
  context.TDBillName = format.name;
  context.PrintData =
      std::make_shared<NumberedRows>(request.rows ? request.rows : SampleRows(SampleCount(format)));
  context.PrintDataClone = context.PrintData->Clone();

  const auto window =
      OpenWindow(platform.Get(), context, request.byArea ? kStockAreaWindow : kPlainWindow);
  witness.Watch(dynamic_cast<PageDocument&>(window->vp), *context.PrintDataClone,
                context.PrintData->Clone());
  try {
    DoPrinting(*window);
  } catch (const Failure& failure) {
    witness.MessageShown(failure.Description());
  }
  witness.result.rowHeight = window->state.RowHeight;
  witness.result.rowsPerPage = window->state.RowsPerPage;
  witness.result.printer = platform.Host().Printer();
  return std::move(witness.result);
}

}  // namespace td::checker
