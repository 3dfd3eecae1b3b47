#include "module/session_print.h"

#include <memory>
#include <utility>

#include "explanation/explanation_text.h"
#include "module/program_progress.h"
#include "module/remote_recordset.h"
#include "page_document/page_document.h"
#include "page_outputs/document_files.h"
#include "service/request.h"

namespace td {
namespace {

constexpr double kUsualDotsPerInch = 150;

using Output = SessionSettings::Output;

// What the reader of a document calls it.
std::string TitleOf(const PrintCall& call) {
  return call.TDBillName.empty() ? "QbTdPrinter" : call.TDBillName;
}

std::function<void(const PageDocument&)> SinkOf(const SessionSettings& settings,
                                                const std::string& title) {
  const std::string& target = settings.target;
  switch (target.empty() ? Output::kPrinter : settings.output) {
    case Output::kPdf:
      return [=](const PageDocument& document) { WritePdf(document.Pages(), target, title); };
    case Output::kPng: {
      const double dots = settings.dotsPerInch == 0 ? kUsualDotsPerInch : settings.dotsPerInch;
      return [=](const PageDocument& document) { WritePngPages(document.Pages(), target, dots); };
    }
    case Output::kHtml:
      return [=](const PageDocument& document) { WriteHtml(document.Pages(), target, title); };
    default:
      return nullptr;
  }
}

DesktopOptions OptionsOf(const SessionSettings& settings, const PrintCall& call,
                         DesktopPlatform& desktop) {
  DesktopOptions options;
  options.documentSink = SinkOf(settings, TitleOf(call));
  (options.documentSink ? options.sinkTarget : options.printer) = settings.target;
  options.messages = settings.messages;
  if (settings.messages == MessageMode::kCollected) options.onComplaint = [](const auto&) {};
  options.lockWaitLimit = settings.lockWaitLimit;
  options.explain = settings.explain;
  options.logFile = settings.logFile;
  if (settings.progress.Get() == nullptr) return options;
  const auto progress =
      std::make_shared<ProgramProgress>(Reference<TdDispatch>::To(settings.progress.Get()));
  options.onPage = [progress, &desktop](int page) {
    if (!progress->PageFinished(page)) desktop.CancelPrint();
  };
  options.onLockWait = [progress](double seconds) { return progress->WaitsForLock(seconds); };
  return options;
}

// The platform's own options come back whatever happens.
class OptionsOfACall {
 public:
  OptionsOfACall(DesktopPlatform& desktop, DesktopOptions options) : desktop_(desktop) {
    desktop_.PutOptions(std::move(options));
  }
  ~OptionsOfACall() { desktop_.PutOptions({}); }
  OptionsOfACall(const OptionsOfACall&) = delete;
  OptionsOfACall& operator=(const OptionsOfACall&) = delete;

 private:
  DesktopPlatform& desktop_;
};

}  // namespace

SessionResult PrintInSession(DesktopPlatform& desktop, const SessionSettings& settings,
                             PrintMethod method, PrintCall call) {
  // A call from within a print leaves that print its options.
  { const Turn isFree(desktop.Get()); }
  const OptionsOfACall options(desktop, OptionsOf(settings, call, desktop));
  const RecordsetRef rows = RecordsetOf(std::move(call.PrintData));
  Print(method, call, desktop.Get(), desktop.Limited(rows));
  SessionResult result{
      .document = desktop.LastDocument(), .explanation = {}, .explanationJson = {}};
  if (settings.explain) {
    const Explanation explanation = desktop.LastExplanation();
    result.explanation = ExplanationText(explanation, LanguageOfLocale());
    result.explanationJson = ExplanationJson(explanation);
  }
  return result;
}

}  // namespace td
