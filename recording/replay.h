// Runs the component on a scenario and hands back what it asked of the platform.
#pragma once

#include <string>
#include <vector>

#include "platform/run_witness.h"
#include "recording/forwarding_database.h"
#include "recording/json_values.h"
#include "recording/scenario.h"

namespace td::recording {

struct Recording {
  std::vector<Json> trace;  // one object for each line
  Json tables;              // as they are afterwards
};

// Starts with a request state of its own and leaves a fresh one. `witness` is told of the runs, if
// there is one. Fails with ScenarioError, before anything runs, on a scenario that can't be read.
[[nodiscard]] Recording Replay(const Json& scenario, RunWitness* witness = nullptr);

// The same on a real database: the scenario's tables take no part, and none are handed back.
[[nodiscard]] Recording ReplayOn(RealDatabase real, Scenario scenario,
                                 RunWitness* witness = nullptr);

// The text of a scenario as JSON. Fails with ScenarioError.
[[nodiscard]] Json ParseScenario(const std::string& text);

// One line of a trace, without a line end.
[[nodiscard]] std::string LineText(const Json& line);

}  // namespace td::recording
