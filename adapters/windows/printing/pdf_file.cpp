// Documents as PDF files, by the printer of the system that makes them.
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "files/file_error.h"
#include "files/output_file.h"
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

// What the driver is called in all languages.
constexpr const char* kPdfDriver = "Microsoft Print To PDF";

Failure NotWritten(const std::string& path, const std::string& reason) {
  return {kDeviceIo, WithoutLockCharacter("无法写入文件“" + path + "”：" + reason + "。")};
}

}  // namespace

bool CanWritePdf() {
  return !PrinterOfDriver(kPdfDriver).empty();
}

// The printing system writes a file only under a name that has no file, and only to the disk.
void WritePdf(const std::vector<Page>& pages, const std::string& path, const std::string& title) {
  RequirePages(pages.size());
  if (path == kStandardOutput) throw NotWritten("-", "PDF 只能写入文件");
  const std::string printer = PrinterOfDriver(kPdfDriver);
  if (printer.empty()) {
    throw NotWritten(path, "本机没有可生成 PDF 的打印机（Microsoft Print to PDF）");
  }
  const std::filesystem::path target = PathOf(path);
  std::error_code error;
  if (std::filesystem::is_directory(target, error)) throw NotWritten(path, ReasonOf(EISDIR));
  PrintChoice choice;
  choice.printer = printer;
  choice.title = title;
  choice.file = TextOf(std::filesystem::absolute(target, error));
  if (DeleteFileW(SystemPath(target).c_str()) == FALSE) {
    const FileError refused = LastFileError();
    if (refused.Number() != ENOENT) throw NotWritten(path, refused.what());
  }
  std::vector<int> jobs;
  // Nobody waits at a printer: the file itself shows the sheet.
  const auto ignore = [](const std::string&) {};
  if (!PrintDocument(pages, choice, jobs, ignore)) throw NotWritten(path, "打印被取消");
  if (!WaitForJobs(printer, jobs) || !std::filesystem::exists(target, error))
    throw NotWritten(path, "打印系统没有写入文件");
}

}  // namespace td
