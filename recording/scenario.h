// A scenario: the surroundings of a replay, and what the caller and the user do.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/database.h"
#include "recording/json_values.h"
#include "recording/recorder.h"
#include "recording/surface_state.h"
#include "recording/table_data.h"

namespace td::recording {

struct UserStep;

// In a print window:
struct ActivateWindow {};
struct PutProperties {
  SurfaceValues values;
};
struct PressKey {
  std::string key;
  std::vector<UserStep> dialogSteps;  // in the dialog that the key opens
  bool confirms = false;              // the page-setup dialog
  SurfaceValues put;                  // chosen in the page-setup dialog
};

// In a dialog:
struct SetText {
  std::string control;
  std::string text;
};
struct CheckBox {
  std::string control;
  int value = 0;
};
struct ChooseOption {
  std::string control;
  int index = 0;
};
struct SelectEntry {
  std::string control;
  std::variant<int, std::string> entry;  // by its index or its text
};
struct PressButton {
  std::string control;
};

struct UserStep {
  std::variant<ActivateWindow, PutProperties, PressKey, SetText, CheckBox, ChooseOption,
               SelectEntry, PressButton>
      action;
};

struct SetBlankRows {
  std::int16_t value = 0;
};

struct PrintRows {
  TableData table;
  bool canClone = true;
};
struct SameRows {};  // those of the print call before
// A record set is the caller's own; its position stays out of the trace.
using PrintDataOfCall = std::variant<std::monostate, PrintRows, SameRows, RecordsetRef>;

struct Print {
  bool byArea = false;
  bool New_DoPrint = false;
  std::int16_t New_TranType = 0;
  bool New_OnlyPrintVariantItem = false;
  bool New_PrintBorder = false;
  std::string TDBillName;
  PrintDataOfCall data;
};
struct OpenSettings {
  std::int16_t TranType = 0;
};
struct OpenAreaPrinters {};

struct Call {
  std::string name;  // as in the scenario: "DoPrint"
  std::variant<SetBlankRows, Print, OpenSettings, OpenAreaPrinters> action;
  std::vector<UserStep> user;
};

struct Scenario {
  std::string machine = "192.168.1.10";
  std::vector<std::string> printers = {"P1", "P2"};
  std::string defaultPrinter;
  SurfaceState surface;
  std::string memoText;  // of the memo box: plain and rich text
  std::string memoRtf;
  std::vector<std::string> pictures;
  bool hasPictureFolder = true;
  std::map<std::string, TableData> tables;
  std::vector<Call> calls;
  std::vector<Fault> faults;
};

// Checks the whole scenario. Keys without a meaning are ignored. Fails with ScenarioError.
[[nodiscard]] Scenario ReadScenario(const Json& json);

}  // namespace td::recording
