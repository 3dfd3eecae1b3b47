#include "qt/system/print_dialog.h"

#include <QPageRanges>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>

#include "qt/fields/wheel_guard.h"

namespace td {
namespace {

using Options = std::vector<std::pair<std::string, std::string>>;

// Qt hands the settings of the printer's own driver on under this key of the print engine, as a
// list of names and values by turns.
constexpr auto kDriverOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);

std::string SidesOf(QPrinter::DuplexMode mode) {
  switch (mode) {
    case QPrinter::DuplexLongSide:
    case QPrinter::DuplexAuto:
      return "two-sided-long-edge";
    case QPrinter::DuplexShortSide:
      return "two-sided-short-edge";
    case QPrinter::DuplexNone:
      break;
  }
  return "one-sided";
}

Options DriverOptionsOf(const QPrinter& printer) {
  Options options;
  const QStringList driver = printer.printEngine()->property(kDriverOptions).toStringList();
  for (qsizetype i = 0; i + 1 < driver.size(); i += 2) {
    options.emplace_back(driver[i].toStdString(), driver[i + 1].toStdString());
  }
  return options;
}

// Copies page by page are pages repeated: the printing system leaves them to the printer, and not
// every printer makes them. On both sides of a sheet only the printer can make them.
int CopiesOfEachPage(const QPrinter& printer) {
  const bool isRepeated = !printer.collateCopies() && printer.duplex() == QPrinter::DuplexNone &&
                          printer.outputFileName().isEmpty();
  return isRepeated ? printer.copyCount() : 1;
}

// The options without those that choose pages: they are chosen here, before the printing system
// gets any, so that they are chosen once.
Options OptionsOf(const QPrinter& printer) {
  Options options = DriverOptionsOf(printer);
  std::erase_if(options, [](const auto& option) {
    return option.first == "page-ranges" || option.first == "page-set";
  });
  options.emplace_back("copies", std::to_string(printer.copyCount() / CopiesOfEachPage(printer)));
  options.emplace_back("collate", printer.collateCopies() ? "true" : "false");
  options.emplace_back("sides", SidesOf(printer.duplex()));
  options.emplace_back("print-color-mode",
                       printer.colorMode() == QPrinter::Color ? "color" : "monochrome");
  if (printer.pageOrder() == QPrinter::LastPageFirst)
    options.emplace_back("outputorder", "reverse");
  return options;
}

enum class PageSet { kAll, kOdd, kEven };

// Which pages the user wants by their numbers. Of a range that begins with an even page Qt names
// the set by places in the range, where the odd pages are the even ones.
PageSet PageSetOf(const QPrinter& printer) {
  for (const auto& [name, value] : DriverOptionsOf(printer)) {
    if (name != "page-set") continue;
    const bool isByPlace =
        printer.printRange() == QPrinter::PageRange && printer.fromPage() % 2 == 0;
    return (value == "even") != isByPlace ? PageSet::kEven : PageSet::kOdd;
  }
  return PageSet::kAll;
}

std::optional<std::vector<int>> PagesOf(const QPrinter& printer, int pageCount) {
  const bool hasRange = printer.printRange() == QPrinter::PageRange;
  const PageSet set = PageSetOf(printer);
  const int copies = CopiesOfEachPage(printer);
  if (!hasRange && set == PageSet::kAll && copies == 1) return std::nullopt;
  std::vector<int> pages;
  for (int page = 1; page <= pageCount; ++page) {
    const bool isInRange = !hasRange || printer.pageRanges().contains(page);
    const bool isInSet = set == PageSet::kAll || (page % 2 == 0) == (set == PageSet::kEven);
    if (isInRange && isInSet) pages.insert(pages.end(), static_cast<std::size_t>(copies), page);
  }
  return pages;
}

}  // namespace

std::optional<PrintChoice> AskForPrinter(const std::string& name, int pageCount, QWidget* window) {
  QPrinter printer(QPrinter::HighResolution);
  if (!name.empty()) printer.setPrinterName(QString::fromStdString(name));
  QPrintDialog dialog(&printer, window);
  dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  dialog.setMinMax(1, pageCount);
  dialog.setFromTo(1, pageCount);
  GuardFieldsAgainstWheel(dialog);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;

  PrintChoice choice;
  choice.printer = printer.printerName().toStdString();
  choice.pdfFile = printer.outputFileName().toStdString();
  choice.pages = PagesOf(printer, pageCount);
  choice.options = OptionsOf(printer);
  return choice;
}

}  // namespace td
