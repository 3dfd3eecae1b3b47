#include "run/do_printing.h"

#include "run/document.h"
#include "run/print_rows.h"
#include "run/run_window.h"
#include "store/statements.h"
#include "text/conversions.h"
#include "text/page_text.h"

namespace td {
namespace {

OrientationCode OrientationOf(const Value& orientation) {
  return IsSet(orientation) ? kLandscape : kPortrait;
}

std::int32_t PaperCodeOrZero(const Value& code) {
  return IsNull(code) ? 0 : ToInteger32(code);
}

bool IsNumber(const Value& value, double number) {
  return !IsNull(value) && ToDouble(value) == number;
}

void BeginRun(PrintRun& run) {
  const Guard& guard = run.guard;
  if (run.kind.knowsBlankRows) run.state.BlankRowsAtStart = run.request.PrintBlankRows;
  guard.Step([&] { run.vp.PutMousePointer(kWaitingPointer); });
  guard.Step([&] { run.window.frame->PutPageText(kReadingText); });
  guard.Step([&] { run.vp.PutTableSeparators("|_"); });
  guard.Step([&] { SetRunBusy(run.window, true); });
  run.state.StampCount = 0;
}

void ApplyFormatPaper(PrintRun& run, Query& format) {
  const Guard& guard = run.guard;
  if (guard.Test([&] { return !IsNull(format.Field("FOrientation")); })) {
    guard.Step([&] { run.vp.PutOrientation(OrientationOf(format.Field("FOrientation"))); });
  }
  if (!guard.Test([&] { return !IsNull(format.Field("FPaperWidth")); })) return;

  if (guard.Test([&] { return IsNumber(format.Field("FPaperSize"), kUserDefinedPaper); })) {
    guard.Step([&] { run.vp.PutPaperHeight(ToSingle(format.Field("FPaperHeight"))); });
    guard.Step([&] { run.vp.PutPaperWidth(ToSingle(format.Field("FPaperWidth"))); });
  } else if (!guard.Test([&] { return IsNumber(format.Field("FPaperSize"), kKeepPaper); })) {
    guard.Step([&] { run.vp.PutPaperSize(PaperCodeOrZero(format.Field("FPaperSize"))); });
  }
}

// The row's width and height are not applied: a user-defined sheet keeps the size that it has.
void ApplyMachinePaper(PrintRun& run) {
  const Guard& guard = run.guard;
  Query& paper = run.paper;
  guard.Step([&] { run.vp.PutDevice(ToLoneText(paper.Field("FDevice"))); });
  const auto setOrientation = [&] {
    guard.Step([&] { run.vp.PutOrientation(OrientationOf(paper.Field("FOrientation"))); });
  };
  if (!run.kind.setsPaperBeforeOrientation) setOrientation();
  guard.Step([&] { run.vp.PutPaperSize(PaperCodeOrZero(paper.Field("FPaperSize"))); });
  if (run.kind.setsPaperBeforeOrientation) setOrientation();
}

void ReadLayout(PrintRun& run, Query& format) {
  const Guard& guard = run.guard;
  RunState& state = run.state;
  guard.Step([&] { state.RowsPerPage = ToInteger32(format.Field("FRowsPerPage")); });
  guard.Step([&] { state.AdjuctHeader = ToDouble(format.Field("FAdjuctHeader")); });
  guard.Step([&] { state.RowHeight = ToDouble(format.Field("FRowHeight")); });
  guard.Step([&] { state.AdjuctLeft = ToSingle(format.Field("FAdjuctLeft")); });
  guard.Step([&] { state.AdjuctTop = ToSingle(format.Field("FAdjuctTop")); });
  guard.Step([&] { run.request.TDBillName = ToLoneText(format.Field("FTDBillName")); });
  guard.Step([&] { state.HeaderPerPage = ToFlag(format.Field("FHeaderPerPage")); });
  guard.Step([&] { state.FooterPerPage = ToFlag(format.Field("FFooterPerPage")); });
  guard.Step([&] { state.IntegralPage = ToFlag(format.Field("FIntegralPage")); });
}

// The format's own printer wins over the machine's if it is installed here.
void ChooseFormatPrinter(PrintRun& run, Query& format) {
  const Guard& guard = run.guard;
  if (!guard.Test([&] { return !IsNull(format.Field("FPrintDevice")); })) return;
  int count = 0;
  guard.Step([&] { count = run.vp.DeviceCount(); });
  for (int i = 0; i < count; ++i) {
    if (guard.Test([&] { return run.vp.DeviceName(i) == ToText(format.Field("FPrintDevice")); })) {
      guard.Step([&] { run.vp.PutDevice(run.vp.DeviceName(i)); });
      return;
    }
  }
}

// Chooses the format, sets paper and printer, reads the layout. False: no format, and the window
// is unloaded.
bool PrepareRun(PrintRun& run) {
  const Guard& guard = run.guard;
  Platform& platform = run.window.platform;
  BeginRun(run);

  Query format(platform, run.request);
  guard.Step([&] { format.Open(TemplateRowStatement(run.request)); });
  if (guard.Test([&] { return format.Eof(); })) {
    guard.Step(
        [&] { platform.messages.ShowBox("未指定套打格式，打印被取消！", kInformationIcon); });
    guard.Step([&] { run.window.frame->Unload(); });
    return false;
  }

  // Looked up before the format's stored name replaces the caller's: without a name from the caller
  // nothing is found on a first run.
  guard.Step([&] {
    run.paper.Open(
        MachinePaperStatement(platform.machine.LocalMachineId(), run.request.TDBillName));
  });
  if (guard.Test([&] { return run.paper.Eof(); })) {
    ApplyFormatPaper(run, format);
  } else {
    ApplyMachinePaper(run);
  }
  ReadLayout(run, format);
  if (run.witness != nullptr) run.witness->FormatChosen(run.request.TDBillName);
  ChooseFormatPrinter(run, format);
  guard.Step([&] { format.Close(); });
  return true;
}

void ReportRefusedPrinter(PrintWindow& window, Query& paper) {
  window.platform.messages.ShowBox(
      "找不到打印“" + ToText(paper.Field("FDevice")) + "”，将采用默认打印机！", kInformationIcon);
}

// Tells the witness of the run, its end also where a failure leaves it.
class TellsRun {
 public:
  explicit TellsRun(const PrintWindow& window) : witness_(window.platform.witness) {
    if (witness_ == nullptr) return;
    const PrintContext& request = window.request;
    witness_->RunBegins({.window = window.kind.name,
                         .connection = request.New_PromptString,
                         .billType = request.New_TranType,
                         .format = request.TDBillName,
                         .onlyVariantItems = request.New_OnlyPrintVariantItem,
                         .data = *request.PrintData});
  }
  ~TellsRun() {
    if (witness_ != nullptr) witness_->RunEnds();
  }
  TellsRun(const TellsRun&) = delete;
  TellsRun& operator=(const TellsRun&) = delete;

 private:
  RunWitness* witness_;
};

}  // namespace

void DoPrinting(PrintWindow& window) {
  const TellsRun tellsRun(window);
  LoadWindow(window);
  Query paper(window.platform, window.request);
  const Guard guard(
      window.kind.runReactions, [&] { ReportRefusedPrinter(window, paper); },
      window.platform.witness);
  RunRoutine(guard, window.platform.messages, [&](const Guard&) {
    PrintRun run{.window = window, .guard = guard, .paper = paper};
    if (!PrepareRun(run)) return;
    OpenDocument(run);
    if (window.kind.grouping == Grouping::kBill) {
      PrintRowsByBill(run);
    } else {
      PrintRowsByStockArea(run);
    }
    CloseDocument(run);
  });
}

}  // namespace td
