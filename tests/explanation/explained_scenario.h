// The explanation of a scenario, and questions to it.
#pragma once

#include <string>

#include "explanation/explanation.h"
#include "scenario.h"

namespace td {

// Of its last run. The scenario's tables are those that the explanation reads afterwards, unless
// they are gone by then.
[[nodiscard]] Explanation Explained(const Scenario& scenario, bool keepsTables = true);

// The one item with this label; the test fails when there is none or more than one.
[[nodiscard]] ExplainedItem ItemOf(const Explanation& explanation, const std::string& caption);

// The only reason of a list; the test fails when it has none or more.
[[nodiscard]] Reason TheOne(const std::vector<Reason>& reasons);

}  // namespace td
