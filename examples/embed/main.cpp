// Prints bills from a program of one's own, into a PDF file and without a window.
//
//   embed DATABASE BILL_TYPE SQL PDF
//   embed sample.db 21 "select * from v_sales_order" orders.pdf
//
// The program needs three things: a database that holds the formats, a bill type number, and a
// record set with one row for each line of each bill.

#include <cstdint>
#include <iostream>
#include <string>

#include "desktop/desktop_platform.h"
#include "page_document/page_document.h"
#include "page_outputs/document_files.h"
#include "platform/failure.h"
#include "service/printer.h"

namespace {

// The document goes to a file in the place of a printer. A program that prints on paper leaves
// `documentSink` alone: the printer is then the one that the format or the user chose.
td::DesktopOptions IntoPdf(const std::string& path) {
  td::DesktopOptions options;
  options.documentSink = [path](const td::PageDocument& document) {
    td::WritePdf(document.Pages(), path, "bills");
  };
  return options;
}

// Whether the document was delivered. What went wrong inside the print was shown as a message, and
// part of a bill may be missing then.
bool Report(const td::DocumentOutcome& outcome) {
  if (!outcome.IsDelivered()) {
    std::cerr << "The bills were not printed. " << outcome.reason << "\n";
    return false;
  }
  std::cout << outcome.pages << " pages";
  if (!outcome.printer.empty()) std::cout << " on " << outcome.printer;
  for (const int job : outcome.jobs) std::cout << ", job " << job;
  if (outcome.messages > 0) std::cout << ", look at the messages";
  std::cout << "\n";
  return true;
}

bool Print(const std::string& connection, std::int16_t billType, const std::string& sql,
           const std::string& path) {
  // Databases, printers, windows, messages: one object, which outlives everything that uses it.
  td::DesktopPlatform desktop(IntoPdf(path));
  td::Platform& platform = desktop.Get();

  // The rows of one bill stand together; FInterID tells the bills apart. Any other column may be
  // missing: what a format asks for and the rows don't have stays blank. A program whose data isn't
  // in a database makes a td::MemoryRecordset (memory_rows/memory_recordset.h) or its own
  // Recordset.
  const td::RecordsetRef rows = platform.database.OpenQuery(connection, sql);

  td::Printer printer(platform);
  const bool printAtOnce = true;  // false shows the preview window and returns when it closes
  const bool onlyVariableItems = false;  // true when the forms are pre-printed
  const bool border = false;             // has no effect
  printer.DoPrint(printAtOnce, connection, billType, onlyVariableItems, border, rows);

  // PrintOk says that a print was asked for, and stays true when the document couldn't be handed
  // over. The platform knows what became of it.
  return Report(desktop.LastDocument());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "usage: embed DATABASE BILL_TYPE SQL PDF\n";
    return 2;
  }
  try {
    const auto billType = static_cast<std::int16_t>(std::stoi(argv[2]));
    if (Print(std::string("sqlite:") + argv[1], billType, argv[3], argv[4])) return 0;
  } catch (const td::Failure& failure) {
    std::cerr << "error " << failure.Number() << ": " << failure.Description() << "\n";
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
  }
  return 1;
}
