#include "engine_runs.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace td {

Databases& Engines() {
  static Databases databases;
  return databases;
}

std::vector<SamplePrint> Prints() {
  return ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples");
}

SamplePrint PrintNamed(const std::string& name) {
  for (const SamplePrint& print : Prints()) {
    if (print.name == name) return print;
  }
  throw std::out_of_range("no sample " + name);
}

RecordsetRef RowsOf(const SamplePrint& print, SampleEngine engine) {
  return Engines().OpenQuery(SampleOn(engine), print.data, CursorType::kUnspecified,
                             LockType::kUnspecified);
}

recording::Scenario PrintOf(const SamplePrint& print, const RecordsetRef& rows) {
  recording::Print call;
  call.byArea = print.byArea;
  call.New_DoPrint = true;
  call.New_TranType = print.billType;
  call.New_OnlyPrintVariantItem = print.onlyVariant;
  call.TDBillName = print.format;
  call.data = rows;
  recording::Scenario scenario;
  scenario.calls.push_back({"PrintBlankRows", recording::SetBlankRows{print.blankRows}, {}});
  scenario.calls.push_back({"DoPrint", call, {}});
  return scenario;
}

Lines TraceOf(const recording::Scenario& scenario, SampleEngine engine, Database& database) {
  Lines lines;
  for (const auto& line : recording::ReplayOn({database, SampleOn(engine)}, scenario).trace) {
    lines.push_back(recording::LineText(line));
  }
  return lines;
}

Lines MessagesIn(const Lines& trace) {
  Lines messages;
  for (const std::string& line : trace) {
    const auto json = recording::Json::parse(line);
    if (json.at("e") == "box") messages.push_back(json.at("text").get<std::string>());
  }
  return messages;
}

void ExpectSame(const Lines& trace, const Lines& expected) {
  const auto [line, wanted] =
      std::mismatch(trace.begin(), trace.end(), expected.begin(), expected.end());
  if (line == trace.end() && wanted == expected.end()) return;
  ADD_FAILURE() << "line " << line - trace.begin() + 1 << " is\n  "
                << (line == trace.end() ? "(the end)" : *line) << "\nand not\n  "
                << (wanted == expected.end() ? "(the end)" : *wanted);
}

}  // namespace td
