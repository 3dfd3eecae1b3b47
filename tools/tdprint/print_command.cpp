#include "print_command.h"

#include <filesystem>
#include <string>

#include "complaint.h"
#include "component_folder.h"
#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "platform/failure.h"
#include "platform/lock_character.h"
#include "progress.h"
#include "qt/render/outputs.h"
#include "service/printer.h"

namespace td {
namespace {

constexpr double kPngDotsPerInch = 150;

// A step before the print that failed: which one, and the reason. A reason in words of tdprint's
// own that hold names or numbers comes in Chinese, too.
class StepFailure : public Failure {
 public:
  StepFailure(std::string step, const Failure& reason, std::string reasonInChinese = {})
      : Failure(reason.Number(), reason.Description()),
        step_(std::move(step)),
        reasonInChinese_(std::move(reasonInChinese)) {}
  [[nodiscard]] const std::string& Step() const { return step_; }
  [[nodiscard]] const std::string& ReasonInChinese() const { return reasonInChinese_; }

 private:
  std::string step_;
  std::string reasonInChinese_;
};

// Waits for other users of the database as the component itself does: by trying again.
template <typename Operation>
auto Try(const std::string& step, Operation operation) {
  for (;;) {
    try {
      return operation();
    } catch (const Failure& failure) {
      if (!IsLockConflict(failure)) throw StepFailure(step, failure);
    }
  }
}

std::string QuotedText(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

void RequireFormat(Database& database, const PrintArguments& arguments) {
  const std::string condition =
      arguments.format.empty() ? "FSelected=1" : "FTDBillName=" + QuotedText(arguments.format);
  const std::string billType = std::to_string(arguments.billType);
  const bool registered = Try("the registered formats can't be read", [&] {
    return !database
                .OpenQuery(arguments.database, "select FTDBillName from TDBill where FTranType=" +
                                                   billType + " and " + condition)
                ->Eof();
  });
  if (registered) return;
  throw StepFailure("not printed",
                    Failure(kInvalidCall, arguments.format.empty()
                                              ? "bill type " + billType + " has no selected format"
                                              : "bill type " + billType + " has no format named " +
                                                    arguments.format),
                    arguments.format.empty() ? "单据类型 " + billType + " 没有选用任何套打格式。"
                                             : "单据类型 " + billType + " 没有名为“" +
                                                   arguments.format + "”的套打格式。");
}

bool GoesToFiles(const PrintArguments& arguments) {
  return !arguments.pdf.empty() || !arguments.png.empty() || !arguments.html.empty();
}

std::string Title(const PrintArguments& arguments) {
  return arguments.format.empty() ? "tdprint" : arguments.format;
}

void WriteFiles(const PageDocument& document, const PrintArguments& arguments) {
  const std::vector<Page>& pages = document.Pages();
  if (!arguments.pdf.empty()) WritePdf(pages, arguments.pdf, Title(arguments));
  if (!arguments.png.empty()) WritePngPages(pages, arguments.png, kPngDotsPerInch);
  if (!arguments.html.empty()) WriteHtml(pages, arguments.html, Title(arguments));
}

// What became of the document, as the platform tells it.
struct Outcome {
  bool hasPages = false;
  bool delivered = false;  // to the printer or into the files
};

DesktopOptions OptionsFor(const PrintArguments& arguments, const ComponentFolder& folder,
                          Progress& progress, Outcome& outcome) {
  DesktopOptions options;
  options.printer = arguments.printer;
  if (!arguments.preview) options.messages = MessageMode::kStandardError;
  options.componentFolder = folder.Path();
  options.onPage = [&](int page) {
    progress.PageFinished(page);
    outcome.hasPages = true;
  };
  options.onPrinted = [&outcome] { outcome.delivered = true; };
  if (GoesToFiles(arguments)) {
    options.documentSink = [&](const PageDocument& document) { WriteFiles(document, arguments); };
  }
  return options;
}

// The rows that the data statement delivers.
RecordsetRef OpenRows(Database& database, const PrintArguments& arguments) {
  return Try("the rows can't be read", [&] {
    RecordsetRef opened = database.OpenQuery(arguments.database, arguments.data);
    (void)opened->Eof();  // fails for a statement that delivers no rows at all
    return opened;
  });
}

ExitStatus Print(const PrintArguments& arguments) {
  const ComponentFolder folder;
  Progress progress;
  Outcome outcome;
  DesktopPlatform desktop(OptionsFor(arguments, folder, progress, outcome));
  if (arguments.preview && !desktop.HasDisplay()) {
    Complain("not shown", "there is no display");
    return ExitStatus::kNotPrinted;
  }
  Platform& platform = desktop.Get();
  Try("the database can't be opened",
      [&] { return platform.database.Connect(arguments.database) != nullptr; });
  RequireFormat(platform.database, arguments);
  const RecordsetRef rows = OpenRows(platform.database, arguments);

  Printer printer(platform);
  printer.PrintBlankRows(arguments.blankRows);
  const auto print = arguments.byArea ? &Printer::DoPrint_GroupByArea : &Printer::DoPrint;
  (printer.*print)(!arguments.preview, arguments.database, arguments.billType,
                   arguments.onlyVariant, false, progress.Watch(rows), arguments.format, nullptr);

  const bool isDone = arguments.preview ? outcome.hasPages : printer.PrintOk() && outcome.delivered;
  if (!isDone) {
    if (desktop.MessagesShown() == 0) {
      Complain(arguments.preview ? "not shown" : "not printed", "the run ended without a message");
    }
    return ExitStatus::kNotPrinted;
  }
  return desktop.MessagesShown() == 0 ? ExitStatus::kPrinted : ExitStatus::kPrintedWithMessages;
}

void ComplainAbout(const PrintArguments& arguments, const std::string& what, const std::string& why,
                   const std::string& whyInChinese = {}) {
  if (arguments.preview) {
    ComplainInABox(what, why, whyInChinese);
  } else {
    Complain(what, why);
  }
}

}  // namespace

ExitStatus PrintBills(const PrintArguments& arguments) {
  try {
    return Print(arguments);
  } catch (const StepFailure& failure) {
    ComplainAbout(arguments, failure.Step(), failure.Description(), failure.ReasonInChinese());
  } catch (const Failure& failure) {
    ComplainAbout(arguments, "not printed", failure.Description());
  }
  return ExitStatus::kNotPrinted;
}

}  // namespace td
