#include "qt/system/document_printing.h"

#include <QGuiApplication>
#include <QTemporaryDir>

#include "qt/render/outputs.h"
#include "qt/system/device_failure.h"
#include "qt/system/print_job.h"

namespace td {
namespace {

std::vector<Page> ChosenPages(const PageDocument& document,
                              const std::optional<std::vector<int>>& numbers) {
  if (!numbers) return document.Pages();
  std::vector<Page> chosen;
  chosen.reserve(numbers->size());
  for (const int number : *numbers)
    chosen.push_back(document.Pages().at(static_cast<std::size_t>(number) - 1));
  return chosen;
}

// What the printing system calls the job.
std::string Title() {
  const QString name = QGuiApplication::applicationDisplayName();
  return name.isEmpty() ? "QbTdPrinter" : name.toStdString();
}

void PrintPages(const std::vector<Page>& pages, const PaperExtent& sheet,
                const PrintChoice& choice) {
  const QTemporaryDir folder;
  if (!folder.isValid()) {
    throw DeviceFailure(kDeviceIo,
                        "无法建立打印用的临时文件夹：" + folder.errorString().toStdString());
  }
  const std::string file = folder.filePath(QStringLiteral("job.pdf")).toStdString();
  WritePdf(pages, file, Title());
  SubmitPrintJob({choice.printer, Title(), file, sheet, choice.options});
}

}  // namespace

PaperExtent SheetOf(const Page& page, PageDocument& document) {
  const bool isTurned = document.Orientation() == 1 && page.width == document.PaperHeight() &&
                        page.height == document.PaperWidth();
  return isTurned ? PaperExtent{page.height, page.width} : PaperExtent{page.width, page.height};
}

void PrintDocument(PageDocument& document, const PrintChoice& choice) {
  const std::vector<Page> pages = ChosenPages(document, choice.pages);
  if (!choice.pdfFile.empty()) {
    WritePdf(pages, choice.pdfFile, Title());
    return;
  }
  for (auto first = pages.begin(); first != pages.end();) {
    const PaperExtent sheet = SheetOf(*first, document);
    auto last = first;
    while (last != pages.end() && SheetOf(*last, document) == sheet) ++last;
    PrintPages({first, last}, sheet, choice);
    first = last;
  }
}

}  // namespace td
