#include "print_command.h"

#include <filesystem>
#include <string>
#include <variant>

#include "complaint.h"
#include "component_folder.h"
#include "desktop/desktop_platform.h"
#include "document_bounds.h"
#include "explanation/explanation_text.h"
#include "files/file_error.h"
#include "files/output_file.h"
#include "page_document/page_document.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "progress.h"
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

// What has become of the bills when a step fails.
std::string NothingDone(const PrintArguments& arguments) {
  return arguments.preview ? "not shown" : "not printed";
}

bool HasColumn(Recordset& rows, std::string_view column) {
  try {
    (void)rows.Field(column);
    return true;
  } catch (const Failure& failure) {
    return failure.Number() != kNoSuchColumn;
  }
}

// The text of a column, empty if it is Null or missing.
std::string TextOrNothing(Recordset& rows, std::string_view column) {
  if (!HasColumn(rows, column)) return {};
  const auto* text = std::get_if<std::string>(&rows.Field(column));
  return text == nullptr ? std::string() : *text;
}

// Fails if there is no such format. Returns the printer that it prefers, or nothing.
std::string RequireFormat(Database& database, const PrintArguments& arguments) {
  const std::string condition =
      arguments.format.empty() ? "FSelected=1" : "FTDBillName=" + QuotedText(arguments.format);
  const std::string billType = std::to_string(arguments.billType);
  const RecordsetRef format = Try("the registered formats can't be read", [&] {
    return database.OpenQuery(arguments.database, "select * from TDBill where " + condition +
                                                      " and FTranType=" + billType);
  });
  if (!format->Eof()) return TextOrNothing(*format, "FPrintDevice");
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

// What the platform has told meanwhile.
struct Seen {
  const DesktopPlatform* desktop = nullptr;  // when it is made
  bool hasPages = false;                     // also when a later run of a preview made none
  bool isWhole = true;                       // nothing of the document was complained about
};

DesktopOptions OptionsFor(const PrintArguments& arguments, const ComponentFolder& folder,
                          Progress& progress, Seen& seen) {
  DesktopOptions options;
  options.printer = arguments.printer;
  if (!arguments.preview) options.messages = MessageMode::kStandardError;
  options.componentFolder = folder.Path();
  options.explain = !arguments.explain.empty();
  if (!arguments.log.empty()) options.logFile = arguments.log;
  options.onLogFailure = [](const std::string& text) {
    Complain("the print isn't in the log", text);
  };
  options.onPage = [&](int page) {
    progress.PageFinished(page);
    seen.hasPages = true;
  };
  options.onComplaint = [&seen](const std::string& text) {
    seen.isWhole = false;
    const RunPlace place = seen.desktop == nullptr ? RunPlace() : seen.desktop->CurrentPlace();
    Complain("the document is not as the format wants it",
             WithPlace(text, place, LanguageOfLocale()));
  };
  if (GoesToFiles(arguments)) {
    options.documentSink = [&](const PageDocument& document) { WriteFiles(document, arguments); };
    options.sinkTarget = arguments.pdf + arguments.png + arguments.html;
  }
  return options;
}

// The rows that the data statement delivers, of which there is one at least.
RecordsetRef OpenRows(DesktopPlatform& desktop, const PrintArguments& arguments) {
  RecordsetRef rows = Try("the rows can't be read",
                          [&] { return desktop.OpenReadOnly(arguments.database, arguments.data); });
  if (!HasColumn(*rows, "FInterID")) {
    throw StepFailure(NothingDone(arguments),
                      Failure(kNoSuchColumn, "the rows have no column FInterID"));
  }
  if (rows->Eof()) {
    throw StepFailure(NothingDone(arguments), Failure(kNothingToPrint, "the query gave no row"));
  }
  return rows;
}

// The run passes over a preferred printer that isn't installed without a word.
void TellOfAnotherPrinter(const DesktopPlatform& desktop, const PrintArguments& arguments,
                          const std::string& preferred) {
  const std::string used = desktop.LastDocument().printer;
  if (preferred.empty() || used.empty() || used == preferred || !arguments.printer.empty()) return;
  if (desktop.HasPrinter(preferred)) return;
  Complain("printed on " + used, "the format asks for " + preferred + ", which isn't installed");
}

// Whether the explanation that was asked for, if one was, has been written.
bool Explain(const DesktopPlatform& desktop, const std::string& file) {
  if (file.empty()) return true;
  const Explanation explanation = desktop.LastExplanation();
  try {
    WriteOutput(
        file, WriterOf(file.ends_with(".json") ? ExplanationJson(explanation) + "\n"
                                               : ExplanationText(explanation, LanguageOfLocale())));
    return true;
  } catch (const FileError& error) {
    Complain("the explanation wasn't written", file + ": " + error.what());
    return false;
  }
}

ExitStatus Print(const PrintArguments& arguments) {
  const ComponentFolder folder;
  Progress progress;
  Seen seen;
  DesktopPlatform desktop(OptionsFor(arguments, folder, progress, seen));
  seen.desktop = &desktop;
  if (arguments.preview && !desktop.HasDisplay()) {
    Complain("not shown", "there is no display");
    return ExitStatus::kNotPrinted;
  }
  Platform& platform = desktop.Get();
  Try("the database can't be opened",
      [&] { return platform.database.Connect(arguments.database) != nullptr; });
  const std::string preferredPrinter = RequireFormat(platform.database, arguments);
  const RecordsetRef rows = OpenRows(desktop, arguments);
  RequireFewRows(*rows, arguments.blankRows);

  Printer printer(platform);
  printer.PrintBlankRows(arguments.blankRows);
  const auto print = arguments.byArea ? &Printer::DoPrint_GroupByArea : &Printer::DoPrint;
  (printer.*print)(!arguments.preview, arguments.database, arguments.billType,
                   arguments.onlyVariant, false, progress.Watch(rows), arguments.format, nullptr);

  const bool isExplained = Explain(desktop, arguments.explain);
  const bool isDone =
      arguments.preview ? seen.hasPages : printer.PrintOk() && desktop.LastDocument().IsDelivered();
  if (!isDone) {
    if (desktop.MessagesShown() == 0) {
      Complain(NothingDone(arguments), "the run ended without a message");
    }
    return ExitStatus::kNotPrinted;
  }
  TellOfAnotherPrinter(desktop, arguments, preferredPrinter);
  return desktop.MessagesShown() == 0 && seen.isWhole && isExplained
             ? ExitStatus::kPrinted
             : ExitStatus::kPrintedWithMessages;
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
