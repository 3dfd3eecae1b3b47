#include "qt/system/document_printing.h"

#include <QGuiApplication>

#include "qt/system/print_job.h"

namespace td {
namespace {

PageRefs ChosenPages(const PageDocument& document, const std::optional<std::vector<int>>& numbers) {
  if (!numbers) return RefsTo(document.Pages());
  PageRefs chosen;
  chosen.reserve(numbers->size());
  for (const int number : *numbers) {
    chosen.push_back(&document.Pages().at(static_cast<std::size_t>(number) - 1));
  }
  return chosen;
}

// What the printing system calls the job.
std::string Title() {
  const QString name = QGuiApplication::applicationDisplayName();
  return name.isEmpty() ? "QbTdPrinter" : name.toStdString();
}

// Returns the job's number.
int PrintPages(const PageRefs& pages, const PaperExtent& sheet, const PrintChoice& choice,
               const PageCorrection& correction) {
  const FileWriter pdf = [&](const ByteSink& sink) { StreamPdf(pages, Title(), sink, correction); };
  return SubmitPrintJob({choice.printer, Title(), pdf, sheet, choice.options});
}

}  // namespace

void PrintDocument(const PageDocument& document, const PrintChoice& choice, std::vector<int>* jobs,
                   const PageCorrection& correction) {
  const PageRefs pages = ChosenPages(document, choice.pages);
  if (!choice.pdfFile.empty()) {
    WritePdf(pages, choice.pdfFile, Title());
    return;
  }
  for (auto first = pages.begin(); first != pages.end();) {
    const PaperExtent sheet = (*first)->Sheet();
    auto last = first;
    while (last != pages.end() && (*last)->Sheet() == sheet) ++last;
    const int job = PrintPages({first, last}, sheet, choice, correction);
    if (jobs != nullptr) jobs->push_back(job);
    first = last;
  }
}

}  // namespace td
