#include "log_command.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "complaint.h"
#include "desktop/who_prints.h"
#include "explanation/language.h"
#include "explanation/words.h"
#include "files/path_text.h"
#include "print_log/log_reader.h"
#include "print_log/log_time.h"

namespace td {
namespace {

namespace fs = std::filesystem;

// What became of the bills, {0}, with {1} the printer, the file or the reason.
constexpr Sentence kPrinted{"printed {0} on {1}", "在 {1} 上打印了 {0}"};
constexpr Sentence kWritten{"wrote {0} to {1}", "把 {0} 写入 {1}"};
constexpr Sentence kCancelled{"cancelled {0} in the printer dialog", "在打印对话框中取消了 {0}"};
constexpr Sentence kRefused{"{0} was refused: {1}", "{0} 未能送出：{1}"};
constexpr Sentence kNotPrinted{"{0} was not printed", "没有打印 {0}"};
constexpr Sentence kPreviewed{"looked at {0} in the preview", "预览了 {0}"};

constexpr Sentence kNoBill{"no bill", "（没有单据）"};
constexpr Sentence kUnknownPlace{"the program", "调用程序"};
constexpr Sentence kJobs{", job {0}", "，任务 {0}"};
constexpr Sentence kWho{"{0} at {1}", "{0}（{1}）"};
constexpr Sentence kWhat{"{0}, bill type {1}, pages {2}, {3} s, by {4}",
                         "{0}，单据类型 {1}，{2} 页，{3} 秒，程序 {4}"};
constexpr Sentence kNoFormat{"no format", "没有格式"};
constexpr Sentence kComplaint{"complaint: {0}", "说明：{0}"};

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

const Sentence& SentenceOf(const std::string& result) {
  if (result == log_results::kPrinted) return kPrinted;
  if (result == log_results::kWritten) return kWritten;
  if (result == log_results::kCancelled) return kCancelled;
  if (result == log_results::kRefused) return kRefused;
  if (result == log_results::kPreviewed) return kPreviewed;
  return kNotPrinted;
}

// Where the bills went, or why they didn't.
std::string TargetOf(const PrintRecord& record, Language language) {
  if (record.result == log_results::kRefused) return record.reason;
  for (const std::string& target : {record.printer, record.file}) {
    if (!target.empty()) return target;
  }
  return std::string(kUnknownPlace.In(language));
}

std::string JobsOf(const PrintRecord& record, Language language) {
  std::vector<std::string> numbers;
  for (const int job : record.jobs) numbers.push_back(std::to_string(job));
  return numbers.empty() ? std::string() : Fill(language, kJobs, Joined(numbers));
}

std::string SecondsText(double seconds) {
  std::ostringstream text;
  text << seconds;
  return text.str();
}

// "2024-03-01 09:30:00"
std::string MomentOf(LogTime time) {
  constexpr std::size_t kUpToSeconds = 19;
  std::string text = LogTimeText(time).substr(0, kUpToSeconds);
  text[10] = ' ';
  return text;
}

// One line, those of its messages indented below it.
void Show(const PrintRecord& record, Language language) {
  const std::string bills =
      record.bills.empty() ? std::string(kNoBill.In(language)) : Joined(record.bills);
  const std::string format =
      record.format.empty() ? std::string(kNoFormat.In(language)) : record.format;
  std::cout << MomentOf(record.time) << "  " << Fill(language, kWho, record.user, record.machine)
            << "  " << Fill(language, SentenceOf(record.result), bills, TargetOf(record, language))
            << JobsOf(record, language) << "  ("
            << Fill(language, kWhat, format, std::to_string(record.billType),
                    std::to_string(record.pages), SecondsText(record.seconds), record.program)
            << ")\n";
  for (const LoggedMessage& message : record.messages) {
    const std::string place = message.place.empty() ? "" : " (" + message.place + ")";
    std::cout << "    " << Fill(language, words::kShown, message.text + place) << "\n";
  }
  for (const std::string& complaint : record.complaints) {
    std::cout << "    " << Fill(language, kComplaint, complaint) << "\n";
  }
}

LogQuestion QuestionOf(const LogArguments& arguments) {
  LogQuestion question;
  question.bill = arguments.bill;
  question.billType = arguments.billType;
  question.format = arguments.format;
  question.printer = arguments.printer;
  question.user = arguments.user;
  if (const auto since = ParseTimeSpan(arguments.since)) question.since = since->begin;
  if (const auto until = ParseTimeSpan(arguments.until)) question.before = until->end;
  return question;
}

// "3, 17 and 4 more"
std::string NumbersText(const std::vector<std::size_t>& numbers) {
  constexpr std::size_t kMost = 10;
  std::vector<std::string> texts;
  for (const std::size_t number : numbers) {
    if (texts.size() < kMost) texts.push_back(std::to_string(number));
  }
  const std::size_t more = numbers.size() - texts.size();
  return Joined(texts) + (more == 0 ? "" : " and " + std::to_string(more) + " more");
}

std::vector<std::string> FilesOf(const LogArguments& arguments) {
  if (!arguments.files.empty()) return arguments.files;
  const fs::path file = LogFileOfEnvironment();
  if (file.empty()) return {};
  return {TextOf(file)};
}

}  // namespace

ExitStatus ShowLog(const LogArguments& arguments) {
  const std::vector<std::string> files = FilesOf(arguments);
  if (files.empty()) {
    Complain("no log is read", "name its file, or set QBTDPRINTER_LOG_FILE");
    return ExitStatus::kWrongUsage;
  }
  const Language language = LanguageOfLocale();
  const LogQuestion question = QuestionOf(arguments);
  std::size_t found = 0;
  bool isRead = true;
  for (const std::string& file : files) {
    std::ifstream log;
    if (!fs::is_directory(PathOf(file))) log.open(OpenPathOf(file), std::ios::binary);
    if (!log.is_open()) {
      Complain("the log can't be read", file);
      isRead = false;
      continue;
    }
    const std::vector<std::size_t> broken =
        ReadLog(log, question, [&](const PrintRecord& record, const std::string& line) {
          ++found;
          if (arguments.asJson) {
            std::cout << line << "\n";
          } else {
            Show(record, language);
          }
        });
    if (!broken.empty()) Complain("lines that are no prints in " + file, NumbersText(broken));
  }
  if (found == 0 && isRead) Complain("nothing found", "no print in the log is such a one");
  return found > 0 && isRead && std::cout.flush() ? ExitStatus::kPrinted : ExitStatus::kNotPrinted;
}

}  // namespace td
