// Documents as PDF files, by the printer of the system that makes them.
#include <algorithm>
#include <filesystem>
#include <system_error>

#include "files/path_text.h"
#include "files/windows_files.h"
#include "page_outputs/document_files.h"
#include "page_outputs/written_file.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "windows/printing/document_printing.h"
#include "windows/printing/printers.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// What the driver is called in all languages.
constexpr const char* kPdfDriver = "Microsoft Print To PDF";

Failure NotWritten(const std::string& path, const std::string& reason) {
  return {kDeviceIo, WithoutLockCharacter("无法写入文件“" + path + "”：" + reason + "。")};
}

// False if there is no document, or one without its end: a job that is deleted from its queue
// leaves what was written of it.
bool HandOn(const fs::path& pdf, const ByteSink& sink) {
  constexpr std::size_t kLongestEnd = 1024;  // bytes, in which readers look for the mark
  std::error_code error;
  if (!fs::exists(pdf, error)) return false;
  std::string end;
  ReadInParts(pdf, [&](std::string_view bytes) {
    sink(bytes);
    end += bytes;
    end.erase(0, end.size() - std::min(end.size(), kLongestEnd));
  });
  return end.find("%%EOF") != std::string::npos;
}

}  // namespace

bool CanWritePdf() {
  return !PrinterOfDriver(kPdfDriver).empty();
}

void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  RequirePages(pages.size());
  const std::string printer = PrinterOfDriver(kPdfDriver);
  if (printer.empty()) {
    throw NotWritten(path, "本机没有可生成 PDF 的打印机（Microsoft Print to PDF）");
  }
  WriteFile(path, [&](const ByteSink& sink) {
    // The printing system makes a file in its own time, and only under a name that has none: an
    // older document stays until the new one is whole.
    const TemporaryFile printed;
    PrintChoice choice;
    choice.printer = printer;
    choice.title = title;
    choice.file = TextOf(printed.Path());
    std::vector<int> jobs;
    // Nobody waits at a printer: the file itself shows the sheet.
    const auto ignore = [](const std::string&) {};
    if (!PrintDocument(pages, choice, jobs, ignore)) throw NotWritten(path, "打印被取消");
    if (!WaitForJobs(printer, jobs) || !HandOn(printed.Path(), sink)) {
      throw NotWritten(path, "打印系统没有写入文件");
    }
  });
}

}  // namespace td
