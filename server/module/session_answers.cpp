#include "module/session_answers.h"

#include <string>
#include <vector>

#include "module/session_members.h"

namespace td {
namespace {

std::string Joined(const std::vector<std::string>& texts, char between) {
  std::string all;
  for (const std::string& text : texts) {
    if (!all.empty()) all += between;
    all += text;
  }
  return all;
}

std::string ResultText(const DocumentOutcome& outcome) {
  switch (outcome.delivery) {
    case Delivery::kPrinter:
      return "printed";
    case Delivery::kFile:
    case Delivery::kSink:
      return "written";
    case Delivery::kCancelled:
      return "cancelled";
    case Delivery::kRefused:
      return "refused";
    default:
      return "not printed";
  }
}

std::string JobsText(const DocumentOutcome& outcome) {
  std::vector<std::string> numbers;
  for (const int job : outcome.jobs) numbers.push_back(std::to_string(job));
  return Joined(numbers, ' ');
}

std::int64_t FirstJob(const DocumentOutcome& outcome) {
  return outcome.jobs.empty() ? 0 : outcome.jobs.front();
}

}  // namespace

Value Answer(std::int32_t id, const SessionResult& result) {
  const DocumentOutcome& outcome = result.document;
  switch (id) {
    case kDelivered:
      return outcome.IsDelivered();
    case kResult:
      return ResultText(outcome);
    case kReason:
      return outcome.reason;
    case kPages:
      return std::int64_t{outcome.pages};
    case kPrinterName:
      return outcome.printer;
    case kJobNumber:
      return FirstJob(outcome);
    case kJobs:
      return JobsText(outcome);
    case kMessageCount:
      return static_cast<std::int64_t>(outcome.texts.size());
    case kMessages:
      return Joined(outcome.texts, '\n');
    case kComplaints:
      return Joined(outcome.complaints, '\n');
    case kExplanation:
      return result.explanation;
    default:
      return result.explanationJson;
  }
}

Value AnswerBefore(std::int32_t id) {
  return id == kResult ? Value(std::string()) : Answer(id, {});
}

}  // namespace td
