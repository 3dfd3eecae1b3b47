// What users do in the overlay settings dialog, and what it shows them.
#pragma once

#include <gtest/gtest.h>

#include "scenario.h"

namespace td {

inline const Json kOk = {{"press", "cmdOk"}};
inline const Json kCancel = {{"press", "cmdExit"}};

inline Json SetBox(const char* box, const char* text) {
  return {{"set", box}, {"value", text}};
}
inline Json ChooseFormat(const char* name) {
  return {{"select", "cmbTdBillName"}, {"text", name}};
}
inline Json ChoosePrinter(int index) {
  return {{"select", "cmbPrintDevice"}, {"index", index}};
}
inline Json InDialog(Scenario::Steps user) {
  return {{"key", "adjuct"}, {"user", std::move(user)}};
}

// The controls after the load and, from 1, after each step that leaves the dialog open.
inline Json Controls(const Trace& trace, std::size_t step = 0) {
  const std::vector<Json> lines = trace.Lines("controls");
  EXPECT_LT(step, lines.size()) << trace.Text();
  return step < lines.size() ? lines[step].at("v") : Json::object();
}

inline Json PrinterIndex(const Json& controls) {
  return controls.at("cmbPrintDevice").at("index");
}

inline Scenario OneFormat(Scenario::Fields columns, Scenario::Steps user = {}) {
  Scenario scenario;
  scenario.Format(columns).OpenTDSet(std::move(user));
  return scenario;
}

// "销售单", which is selected, and "两联单".
inline Scenario TwoFormats(Scenario::Steps user) {
  Scenario scenario;
  scenario
      .Format({{"FAdjuctLeft", 11},
               {"FAdjuctTop", 12},
               {"FAdjuctHeader", 13},
               {"FQtysPerRow", 14},
               {"FIntegralPage", 1},
               {"FOrientation", 0},
               {"FPrintDevice", "P1"}})
      .AddFormat({{"FTDBillName", "两联单"},
                  {"FAdjuctLeft", nullptr},
                  {"FAdjuctTop", 22.5},
                  {"FHeaderPerPage", 1},
                  {"FIntegralPage", nullptr},
                  {"FOrientation", 1},
                  {"FPrintDevice", "P2"}})
      .OpenTDSet(std::move(user));
  return scenario;
}

}  // namespace td
