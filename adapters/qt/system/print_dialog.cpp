#include "qt/system/print_dialog.h"

#include <QPageRanges>
#include <QPrintDialog>
#include <QPrintEngine>
#include <QPrinter>
#include <QStringList>

namespace td {
namespace {

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

std::vector<std::pair<std::string, std::string>> OptionsOf(const QPrinter& printer) {
  std::vector<std::pair<std::string, std::string>> options;
  const QStringList driver = printer.printEngine()->property(kDriverOptions).toStringList();
  for (qsizetype i = 0; i + 1 < driver.size(); i += 2) {
    options.emplace_back(driver[i].toStdString(), driver[i + 1].toStdString());
  }
  options.emplace_back("copies", std::to_string(printer.copyCount()));
  options.emplace_back("collate", printer.collateCopies() ? "true" : "false");
  options.emplace_back("sides", SidesOf(printer.duplex()));
  options.emplace_back("print-color-mode",
                       printer.colorMode() == QPrinter::Color ? "color" : "monochrome");
  if (printer.pageOrder() == QPrinter::LastPageFirst)
    options.emplace_back("outputorder", "reverse");
  return options;
}

std::vector<int> PagesOf(const QPrinter& printer, int pageCount) {
  std::vector<int> pages;
  if (printer.printRange() != QPrinter::PageRange) return pages;
  for (int page = 1; page <= pageCount; ++page) {
    if (printer.pageRanges().contains(page)) pages.push_back(page);
  }
  return pages;
}

}  // namespace

std::optional<PrintChoice> AskForPrinter(const std::string& name, int pageCount, QWidget* window) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPrinterName(QString::fromStdString(name));
  QPrintDialog dialog(&printer, window);
  dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
  dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
  dialog.setMinMax(1, pageCount);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;

  PrintChoice choice;
  choice.printer = printer.printerName().toStdString();
  choice.pdfFile = printer.outputFileName().toStdString();
  choice.pages = PagesOf(printer, pageCount);
  choice.options = OptionsOf(printer);
  return choice;
}

}  // namespace td
