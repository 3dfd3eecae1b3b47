#include "qt/system/document_printing.h"

#include <QGuiApplication>

#include "qt/system/print_job.h"

namespace td {
namespace {

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
  const PageRefs chosen = ChosenPages(document.Pages(), choice.pages);
  if (!choice.pdfFile.empty()) {
    WritePdf(chosen, choice.pdfFile, Title());
    return;
  }
  for (const PageRefs& pages : SheetRuns(chosen)) {
    const int job = PrintPages(pages, pages.front()->Sheet(), choice, correction);
    if (jobs != nullptr) jobs->push_back(job);
  }
}

}  // namespace td
