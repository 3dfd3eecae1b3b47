#include "desktop/print_journal.h"

#include <filesystem>
#include <stdexcept>
#include <utility>
#include <vector>

#include "desktop/who_prints.h"
#include "files/path_text.h"
#include "files/standard_error.h"
#include "print_log/log_writer.h"
#include "print_log/secrets.h"

namespace td {
namespace {

namespace fs = std::filesystem;

std::string_view ResultOf(Delivery delivery) {
  switch (delivery) {
    case Delivery::kPrinter:
      return log_results::kPrinted;
    case Delivery::kFile:
    case Delivery::kSink:
      return log_results::kWritten;
    case Delivery::kCancelled:
      return log_results::kCancelled;
    case Delivery::kRefused:
      return log_results::kRefused;
    default:
      return log_results::kNotPrinted;
  }
}

double SecondsBetween(std::chrono::steady_clock::time_point begin,
                      std::chrono::steady_clock::time_point end) {
  return std::chrono::duration<double>(end - begin).count();
}

}  // namespace

void PrintJournal::Put(JournalSettings settings) {
  onLogFailure_ = std::move(settings.onLogFailure);
  fs::path file;
  if (!settings.logFile) {
    file = LogFileOfEnvironment();
  } else if (!settings.logFile->empty()) {
    std::error_code error;
    file = fs::absolute(PathOf(*settings.logFile), error);
  }
  if (std::exchange(file_, std::move(file)) != file_) isFailureTold_ = false;
}

void PrintJournal::CallBegins() {
  bills_.Clear();
  isPreview_ = false;
  hasLine_ = false;
  loggedMessages_ = 0;
  loggedComplaints_ = 0;
  refusedAfter_.reset();
  making_ = 0;
  callBegin_ = Clock::now();
}

void PrintJournal::DocumentBegins() {
  WritePending();
  documentBegin_ = Clock::now();
}

void PrintJournal::DocumentEnds() {
  making_ = SecondsBetween(documentBegin_, Clock::now());
}

void PrintJournal::PrintBegins() {
  WritePending();
  printBegin_ = Clock::now();
}

// A user's looking at a preview is no part of a print.
void PrintJournal::PrintEnds() {
  const auto now = Clock::now();
  const double seconds =
      isPreview_ ? making_ + SecondsBetween(printBegin_, now) : SecondsBetween(callBegin_, now);
  if (outcome_.delivery == Delivery::kRefused) {
    refusedAfter_ = seconds;  // its message is still to come
  } else {
    Write(std::string(ResultOf(outcome_.delivery)), seconds);
  }
}

void PrintJournal::WritePending() {
  if (refusedAfter_) Write(std::string(log_results::kRefused), *std::exchange(refusedAfter_, {}));
}

void PrintJournal::CallEnds() {
  WritePending();
  const bool hasMore = loggedMessages_ < outcome_.texts.size();
  // A window that is only made, as to ask for its printers, is no print.
  const bool isOver = hasLine_ || !bills_.HasRun();
  if (isOver && !hasMore) return;
  if (isPreview_) {
    Write(std::string(log_results::kPreviewed), making_);
  } else {
    Write(std::string(ResultOf(outcome_.delivery)), SecondsBetween(callBegin_, Clock::now()));
  }
}

void PrintJournal::Write(const std::string& result, double seconds) {
  if (!IsOn()) return;
  hasLine_ = true;
  try {
    if (!file_.is_absolute()) throw std::runtime_error("路径必须从根文件夹开始");
    AppendLine(TextOf(file_), LineOf(Record(result, seconds)));
    isFailureTold_ = false;
  } catch (const std::exception& error) {
    TellFailure(error.what());
  }
}

PrintRecord PrintJournal::Record(const std::string& result, double seconds) {
  const Secrets secrets(bills_.Connection());
  PrintRecord record{
      .time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()),
      .user = UserName(),
      .machine = MachineName(),
      .address = machine_.LocalMachineId(),
      .program = NameOfProgram(),
      .billType = bills_.BillType(),
      .format = bills_.Format(),
      .bills = bills_.Bills(),
      .pages = outcome_.pages,
      .printer = outcome_.printer,
      .jobs = outcome_.jobs,
      .file = secrets.Mask(outcome_.file),
      .result = result,
      .reason = secrets.Mask(outcome_.reason),
      .messages = {},
      .complaints = {},
      .seconds = seconds};
  for (; loggedMessages_ < outcome_.texts.size(); ++loggedMessages_) {
    record.messages.push_back({secrets.Mask(outcome_.texts[loggedMessages_]),
                               secrets.Mask(outcome_.places[loggedMessages_])});
  }
  for (; loggedComplaints_ < outcome_.complaints.size(); ++loggedComplaints_) {
    record.complaints.push_back(secrets.Mask(outcome_.complaints[loggedComplaints_]));
  }
  return record;
}

void PrintJournal::TellFailure(const std::string& reason) {
  if (std::exchange(isFailureTold_, true)) return;
  const std::string text =
      "无法写入打印日志“" + TextOf(file_) + "”：" + reason + "。打印照常进行。";
  try {
    if (onLogFailure_) {
      onLogFailure_(text);
    } else {
      WriteErrorLine("QbTdPrinter: " + text);
    }
  } catch (...) {
    // The program's own; nothing may stop a print for the log's sake.
  }
}

}  // namespace td
