#include "recording/record_print.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/run_witness.h"
#include "recording/recorded_tables.h"
#include "recording/replay.h"
#include "text/conversions.h"

namespace td::recording {
namespace {

// Keeps the names of the columns that a run reads, wherever.
class ReadColumns : public RunWitness {
 public:
  [[nodiscard]] const std::vector<std::string>& Names() const { return names_; }

  void Reads(Recordset& /*rows*/, std::string_view column) override {
    if (known_.insert(LowerCase(column)).second) names_.emplace_back(column);
  }
  void RunBegins(const WitnessedRun& /*run*/) override {}
  void FormatChosen(const std::string& /*name*/) override {}
  void RunEnds() override {}
  void PagesEnd() override {}
  void PageBegins() override {}
  void GroupBreaks() override {}
  void RowBegins(std::int16_t /*number*/) override {}
  void RowIsMarker() override {}
  void RowIsSkipped() override {}
  void Adds(const double& /*sum*/, std::string_view /*columns*/, double /*amount*/) override {}
  void BandBegins(WitnessedBand /*band*/) override {}
  void BandEnds() override {}
  void ItemBegins(Recordset& /*item*/) override {}
  void ItemEnds() override {}
  void Drawn(DrawnAs /*what*/, std::string_view /*text*/) override {}
  void Meets(Circumstance /*circumstance*/) override {}
  void ShowsSum(const double& /*sum*/) override {}
  void StampKept(std::size_t /*place*/) override {}
  void StampWritten(std::size_t /*place*/, int /*page*/) override {}
  void Forgives(const Failure& /*failure*/, bool /*isTest*/) override {}
  void TriesAgain(const Failure& /*failure*/) override {}
  void Ends(const Failure& /*failure*/) override {}

 private:
  // The number by which people know the bill goes along, whether the format shows it or not.
  std::vector<std::string> names_ = {"FInterID", "FBillNo"};
  std::set<std::string> known_ = {"finterid", "fbillno"};
};

// A scenario has neither dates nor flags of its own: they stand there as the texts that they print.
Json ToScenarioValue(const Value& value, bool isOfData) {
  const bool isFlag = std::holds_alternative<bool>(value);
  if (std::holds_alternative<Date>(value) || (isFlag && isOfData)) return ToText(value);
  return ToJson(value);
}

Json ToScenarioTable(const TableData& table, bool isOfData) {
  Json json = {{"columns", table.columns}, {"rows", Json::array()}};
  for (const Row& row : table.rows) {
    Json values = Json::array();
    for (const Value& value : row) values.push_back(ToScenarioValue(value, isOfData));
    json["rows"].push_back(std::move(values));
  }
  return json;
}

Json Surroundings(const RecordedRequest& request) {
  Json scenario = Json::object();
  scenario["machine"] = request.machine;
  scenario["printers"] = request.printers;
  if (!request.defaultPrinter.empty()) scenario["defaultPrinter"] = request.defaultPrinter;
  scenario["calls"] = Json::array();
  if (request.blankRows != 0) {
    scenario["calls"].push_back({{"do", "PrintBlankRows"}, {"value", request.blankRows}});
  }
  Json print = {{"do", request.byArea ? "DoPrint_GroupByArea" : "DoPrint"},
                {"New_DoPrint", true},
                {"New_TranType", request.billType}};
  if (request.onlyVariantItems) print["New_OnlyPrintVariantItem"] = true;
  if (!request.format.empty()) print["TDBillName"] = request.format;
  print["data"] = nullptr;
  scenario["calls"].push_back(std::move(print));
  return scenario;
}

// The picture files of the format that load here.
Json LoadablePictures(const RecordedRequest& request,
                      const std::map<std::string, TableData>& tables) {
  Json pictures = Json::array();
  const auto items = tables.find("TDBillDetail");
  if (items == tables.end() || !request.canLoad) return pictures;
  const auto& columns = items->second.columns;
  const auto column = std::ranges::find(columns, "FPicturePath");
  if (column == columns.end()) return pictures;
  const auto index = static_cast<std::size_t>(column - columns.begin());
  std::set<std::string> paths;
  for (const Row& row : items->second.rows) {
    const auto* path = std::get_if<std::string>(&row[index]);
    if (path == nullptr || path->empty() || !paths.insert(*path).second) continue;
    if (request.canLoad(*path)) pictures.push_back(*path);
  }
  return pictures;
}

std::vector<Value> GoodsOf(const TableData& data) {
  std::vector<Value> goods;
  const auto column = std::ranges::find_if(
      data.columns, [](const std::string& name) { return LowerCase(name) == "fitemid"; });
  if (column == data.columns.end()) return goods;
  const auto index = static_cast<std::size_t>(column - data.columns.begin());
  for (const Row& row : data.rows) {
    const bool isKnown = std::ranges::find(goods, row[index]) != goods.end();
    if (!isKnown && !IsNull(row[index])) goods.push_back(row[index]);
  }
  return goods;
}

// Where a cursor stands is known of recorded rows only.
std::vector<Json> WithoutPositions(std::vector<Json> trace) {
  for (Json& line : trace) {
    line.erase("row");
    line.erase("clone");
  }
  return trace;
}

std::string DifferenceOf(const std::vector<Json>& real, const std::vector<Json>& replayed) {
  const std::size_t lines = std::max(real.size(), replayed.size());
  for (std::size_t i = 0; i < lines; ++i) {
    const std::string one = i < real.size() ? LineText(real[i]) : "nothing";
    const std::string other = i < replayed.size() ? LineText(replayed[i]) : "nothing";
    if (one == other) continue;
    std::string difference = "line ";
    return difference.append(std::to_string(i + 1))
        .append(": ")
        .append(one)
        .append(" became ")
        .append(other);
  }
  return {};
}

// What holds no object and no other array stands in one line.
bool IsFlat(const Json& json) {
  return std::ranges::none_of(json, [](const Json& inner) {
    return inner.is_array() || (inner.is_object() && !inner.contains("base64"));
  });
}

void WriteJson(const Json& json, std::size_t depth, std::string& text) {
  if (!json.is_structured() || (IsFlat(json) && json.is_array())) {
    text += LineText(json);
    return;
  }
  const std::string indent(2 * (depth + 1), ' ');
  bool isFirst = true;
  text += json.is_object() ? '{' : '[';
  for (const auto& [key, value] : json.items()) {
    text += (isFirst ? "\n" : ",\n") + indent;
    isFirst = false;
    if (json.is_object()) text += LineText(key) + ": ";
    WriteJson(value, depth + 1, text);
  }
  text += "\n" + std::string(2 * depth, ' ');
  text += json.is_object() ? '}' : ']';
}

void GoToFirst(Recordset& rows) {
  try {
    rows.MoveFirst();
  } catch (const Failure& failure) {
    if (failure.Number() != kNoCurrentRow) throw;
  }
}

}  // namespace

std::string ScenarioText(const Json& scenario) {
  std::string text;
  WriteJson(scenario, 0, text);
  return text + "\n";
}

RecordedPrint RecordPrint(Database& database, const RecordedRequest& request,
                          const RecordsetRef& rows) {
  RecordedPrint recorded{.scenario = Surroundings(request), .difference = {}};
  recorded.scenario["pictures"] =
      LoadablePictures(request, ReadTablesOfPrint(database, request, {}));

  Scenario live = ReadScenario(recorded.scenario);
  std::get<Print>(live.calls.back().action).data = rows;
  ReadColumns columns;
  const Recording real =
      ReplayOn({.database = database, .connection = request.connection}, std::move(live), &columns);
  GoToFirst(*rows);
  const TableData data = ReadRows(*rows, columns.Names());
  GoToFirst(*rows);

  for (const auto& [name, table] : ReadTablesOfPrint(database, request, GoodsOf(data))) {
    recorded.scenario["tables"][name] = ToScenarioTable(table, false);
  }
  recorded.scenario["calls"].back()["data"] = ToScenarioTable(data, true);
  recorded.difference =
      DifferenceOf(WithoutPositions(real.trace), WithoutPositions(Replay(recorded.scenario).trace));
  return recorded;
}

}  // namespace td::recording
