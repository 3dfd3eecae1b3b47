#include "print_log/log_reader.h"

#include <algorithm>

namespace td {

bool Answers(const PrintRecord& record, const LogQuestion& question) {
  const auto is = [](const std::string& asked, const std::string& found) {
    return asked.empty() || asked == found;
  };
  const bool hasBill =
      question.bill.empty() || std::ranges::find(record.bills, question.bill) != record.bills.end();
  const bool isOfType = !question.billType || *question.billType == record.billType;
  const bool isInTime = (!question.since || record.time >= *question.since) &&
                        (!question.before || record.time < *question.before);
  return hasBill && isOfType && isInTime && is(question.format, record.format) &&
         is(question.printer, record.printer) && is(question.user, record.user);
}

std::vector<std::size_t> ReadLog(
    std::istream& log, const LogQuestion& question,
    const std::function<void(const PrintRecord& record, const std::string& line)>& take) {
  std::vector<std::size_t> broken;
  std::string line;
  for (std::size_t number = 1; std::getline(log, line); ++number) {
    if (line.empty()) continue;
    const std::optional<PrintRecord> record = RecordOf(line);
    if (!record) {
      broken.push_back(number);
    } else if (Answers(*record, question)) {
      take(*record, line);
    }
  }
  return broken;
}

}  // namespace td
