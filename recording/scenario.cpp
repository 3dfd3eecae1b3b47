#include "recording/scenario.h"

#include <algorithm>
#include <utility>

#include "platform/failure.h"
#include "recording/json_fields.h"
#include "recording/sql_tokens.h"

namespace td::recording {
namespace {

// "calls[2]"
std::string Element(const std::string& array, std::size_t index) {
  return array + "[" + std::to_string(index) + "]";
}

SurfaceValues ReadSurfaceValues(const Json& json, const std::string& where) {
  const JsonFields fields(json, where);
  SurfaceValues values;
  SurfaceState scratch;
  for (const auto& [name, value] : json.items()) {
    try {
      Assign(scratch, name, value);
    } catch (const ScenarioError& error) {
      throw ScenarioError(where + "." + error.what());
    }
    values.emplace_back(name, value);
  }
  return values;
}

TableData ReadTable(const Json& json, const std::string& where) {
  const JsonFields fields(json, where);
  TableData table;
  table.columns = fields.Texts("columns");
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (SameName(table.columns[i], table.columns[k])) {
        throw ScenarioError(where + ".columns: a name stands there twice");
      }
    }
  }
  for (const Json& rowJson : fields.Array("rows")) {
    const std::string rowName = Element(where + ".rows", table.rows.size());
    if (!rowJson.is_array() || rowJson.size() != table.columns.size()) {
      throw ScenarioError(rowName + ": one value for each column is expected");
    }
    Row row;
    for (const Json& value : rowJson) {
      row.push_back(ToValue(value, rowName));
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::map<std::string, TableData> ReadTables(const Json& json) {
  const JsonFields fields(json, "tables");
  std::map<std::string, TableData> tables;
  for (const auto& [name, table] : json.items()) {
    const std::string& newName = name;
    if (std::any_of(tables.begin(), tables.end(),
                    [&](const auto& other) { return SameName(other.first, newName); })) {
      throw ScenarioError("tables." + name + ": a table of this name stands there twice");
    }
    tables[name] = ReadTable(table, "tables." + name);
  }
  return tables;
}

UserStep ReadDialogStep(const Json& json, const std::string& where) {
  const JsonFields step(json, where);
  if (step.Has("set")) {
    return {SetText{step.Text("set"), step.Text("value")}};
  }
  if (step.Has("check")) {
    return {CheckBox{step.Text("check"), step.Number<int>("value")}};
  }
  if (step.Has("option")) {
    return {ChooseOption{step.Text("option"), step.Number<int>("index")}};
  }
  if (step.Has("select") && step.Has("text")) {
    return {SelectEntry{step.Text("select"), step.Text("text")}};
  }
  if (step.Has("select")) {
    return {SelectEntry{step.Text("select"), step.Number<int>("index")}};
  }
  if (step.Has("press")) {
    return {PressButton{step.Text("press")}};
  }
  throw ScenarioError(where + ": set, check, option, select or press is expected");
}

using StepReader = UserStep (*)(const Json& json, const std::string& where);

std::vector<UserStep> ReadSteps(const JsonFields& owner, const char* key, StepReader readStep) {
  std::vector<UserStep> steps;
  for (const Json& step : owner.Array(key)) {
    steps.push_back(readStep(step, Element(owner.Where(key), steps.size())));
  }
  return steps;
}

UserStep ReadWindowStep(const Json& json, const std::string& where) {
  if (json.is_string()) {
    return {PressKey{json.get<std::string>(), {}, false, {}}};
  }
  const JsonFields step(json, where);
  if (step.Has("key")) {
    PressKey press{
        step.Text("key"), ReadSteps(step, "user", ReadDialogStep), step.Flag("confirm", false), {}};
    if (step.Has("put")) {
      press.put = ReadSurfaceValues(step.At("put"), step.Where("put"));
    }
    return {std::move(press)};
  }
  if (step.Has("put")) {
    return {PutProperties{ReadSurfaceValues(step.At("put"), step.Where("put"))}};
  }
  if (step.Has("activate")) {
    return {ActivateWindow{}};
  }
  throw ScenarioError(where + ": a toolbar key, key, put or activate is expected");
}

PrintDataOfCall ReadPrintData(const JsonFields& call) {
  if (!call.Has("data")) {
    return std::monostate{};
  }
  const Json& data = call.At("data");
  if (data == "same") {
    return SameRows{};
  }
  TableData table = ReadTable(data, call.Where("data"));
  return PrintRows{std::move(table), JsonFields(data, call.Where("data")).Flag("clone", true)};
}

Print ReadPrint(const JsonFields& call, bool byArea) {
  Print print;
  print.byArea = byArea;
  print.New_DoPrint = call.Flag("New_DoPrint", false);
  print.New_TranType = call.Number<std::int16_t>("New_TranType", 0);
  print.New_OnlyPrintVariantItem = call.Flag("New_OnlyPrintVariantItem", false);
  print.New_PrintBorder = call.Flag("New_PrintBorder", false);
  print.TDBillName = call.Text("TDBillName", "");
  print.data = ReadPrintData(call);
  return print;
}

Call ReadCall(const Json& json, const std::string& where) {
  const JsonFields fields(json, where);
  Call call;
  call.name = fields.Text("do");
  StepReader readStep = ReadDialogStep;
  if (call.name == "PrintBlankRows") {
    call.action = SetBlankRows{fields.Number<std::int16_t>("value")};
  } else if (call.name == "DoPrint" || call.name == "DoPrint_GroupByArea") {
    call.action = ReadPrint(fields, call.name != "DoPrint");
    readStep = ReadWindowStep;
  } else if (call.name == "TDSet") {
    call.action = OpenSettings{fields.Number<std::int16_t>("TranType", 0)};
  } else if (call.name == "frmAreaPrintSet") {
    call.action = OpenAreaPrinters{};
  } else {
    throw ScenarioError(fields.Where("do") + ": no call has this name");
  }
  call.user = ReadSteps(fields, "user", readStep);
  return call;
}

Fault ReadFault(const Json& json, const std::string& where) {
  const JsonFields fields(json, where);
  Fault fault;
  fault.on = fields.Text("on");
  fault.nth = fields.Number<std::int32_t>("nth", 1);
  fault.times = fields.Number<std::int32_t>("times", 1);
  fault.number = fields.Number<std::int32_t>("number", kDatabaseFailed);
  fault.description = fields.Text("description", "");
  if (fields.Has("match")) {
    fault.match = fields.Text("match");
  }
  return fault;
}

void ReadSurface(const JsonFields& root, Scenario& scenario) {
  scenario.defaultPrinter =
      root.Text("defaultPrinter", scenario.printers.empty() ? "" : scenario.printers.front());
  scenario.surface.device = scenario.defaultPrinter;
  if (!root.Has("surface")) {
    return;
  }
  for (const auto& [name, value] : ReadSurfaceValues(root.At("surface"), "surface")) {
    Assign(scenario.surface, name, value);
  }
}

}  // namespace

Scenario ReadScenario(const Json& json) {
  const JsonFields root(json, "scenario");
  Scenario scenario;
  scenario.machine = root.Text("machine", scenario.machine);
  if (root.Has("printers")) {
    scenario.printers = root.Texts("printers");
  }
  ReadSurface(root, scenario);
  if (root.Has("memo")) {
    const JsonFields memo(root.At("memo"), "memo");
    scenario.memoText = memo.Text("text", "");
    scenario.memoRtf = memo.Text("rtf", "");
  }
  scenario.pictures = root.Texts("pictures");
  scenario.hasPictureFolder = root.Flag("pictureFolder", true);
  if (root.Has("tables")) {
    scenario.tables = ReadTables(root.At("tables"));
  }
  (void)root.At("calls");
  for (const Json& call : root.Array("calls")) {
    scenario.calls.push_back(ReadCall(call, Element("calls", scenario.calls.size())));
  }
  for (const Json& fault : root.Array("faults")) {
    scenario.faults.push_back(ReadFault(fault, Element("faults", scenario.faults.size())));
  }
  return scenario;
}

}  // namespace td::recording
