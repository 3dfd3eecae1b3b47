#include "print_log/print_record.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "print_log/log_time.h"

namespace td {
namespace {

using Json = nlohmann::ordered_json;

constexpr double kThousand = 1000;

Json JsonOf(const std::vector<LoggedMessage>& messages) {
  Json list = Json::array();
  for (const LoggedMessage& message : messages) {
    Json one = {{"text", message.text}};
    if (!message.place.empty()) one["place"] = message.place;
    list.push_back(std::move(one));
  }
  return list;
}

template <class Content>
void PutUnlessEmpty(Json& line, const char* member, const Content& content) {
  if (!content.empty()) line[member] = content;
}

std::string Text(const Json& line, const char* member) {
  const auto found = line.find(member);
  return found != line.end() && found->is_string() ? found->get<std::string>() : std::string();
}

template <class Number>
Number NumberIn(const Json& line, const char* member) {
  const auto found = line.find(member);
  return found != line.end() && found->is_number() ? found->get<Number>() : Number{};
}

// The elements of a list that have the right kind.
template <class Element>
std::vector<Element> ListIn(const Json& line, const char* member, bool (Json::*isOfKind)() const) {
  std::vector<Element> list;
  const auto found = line.find(member);
  if (found == line.end() || !found->is_array()) return list;
  for (const Json& element : *found) {
    if ((element.*isOfKind)()) list.push_back(element.get<Element>());
  }
  return list;
}

std::vector<LoggedMessage> MessagesIn(const Json& line) {
  std::vector<LoggedMessage> messages;
  const auto found = line.find("messages");
  if (found == line.end() || !found->is_array()) return messages;
  for (const Json& message : *found) {
    if (message.is_object()) messages.push_back({Text(message, "text"), Text(message, "place")});
  }
  return messages;
}

}  // namespace

std::string LineOf(const PrintRecord& record) {
  Json line = {{"time", LogTimeText(record.time)}, {"user", record.user},
               {"machine", record.machine},        {"address", record.address},
               {"program", record.program},        {"billType", record.billType}};
  PutUnlessEmpty(line, "format", record.format);
  PutUnlessEmpty(line, "bills", record.bills);
  line["pages"] = record.pages;
  PutUnlessEmpty(line, "printer", record.printer);
  PutUnlessEmpty(line, "jobs", record.jobs);
  PutUnlessEmpty(line, "file", record.file);
  line["result"] = record.result;
  PutUnlessEmpty(line, "reason", record.reason);
  if (!record.messages.empty()) line["messages"] = JsonOf(record.messages);
  PutUnlessEmpty(line, "complaints", record.complaints);
  line["seconds"] = std::round(record.seconds * kThousand) / kThousand;
  return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<PrintRecord> RecordOf(std::string_view text) {
  const Json line = Json::parse(text, nullptr, false);
  if (!line.is_object()) return std::nullopt;
  const std::optional<LogTime> time = ParseLogTime(Text(line, "time"));
  if (!time) return std::nullopt;
  return PrintRecord{.time = *time,
                     .user = Text(line, "user"),
                     .machine = Text(line, "machine"),
                     .address = Text(line, "address"),
                     .program = Text(line, "program"),
                     .billType = NumberIn<std::int16_t>(line, "billType"),
                     .format = Text(line, "format"),
                     .bills = ListIn<std::string>(line, "bills", &Json::is_string),
                     .pages = NumberIn<int>(line, "pages"),
                     .printer = Text(line, "printer"),
                     .jobs = ListIn<int>(line, "jobs", &Json::is_number_integer),
                     .file = Text(line, "file"),
                     .result = Text(line, "result"),
                     .reason = Text(line, "reason"),
                     .messages = MessagesIn(line),
                     .complaints = ListIn<std::string>(line, "complaints", &Json::is_string),
                     .seconds = NumberIn<double>(line, "seconds")};
}

}  // namespace td
