#include "explained_scenario.h"

#include <gtest/gtest.h>

#include "explanation/explainer.h"
#include "recording/recording_database.h"
#include "recording/replay.h"

namespace td {

Explanation Explained(const Scenario& scenario, bool keepsTables) {
  Explainer explainer;
  (void)recording::Replay(scenario.Document(), &explainer);
  recording::Recorder recorder({});
  recording::MemoryTables tables(keepsTables ? recording::ReadScenario(scenario.Document()).tables
                                             : std::map<std::string, recording::TableData>());
  recording::RecordingDatabase database(recorder, tables);
  return explainer.Explain(database);
}

ExplainedItem ItemOf(const Explanation& explanation, const std::string& caption) {
  ExplainedItem found;
  int count = 0;
  for (const ExplainedItem& item : explanation.items) {
    if (item.caption != caption) continue;
    found = item;
    ++count;
  }
  EXPECT_EQ(count, 1) << caption;
  return found;
}

Reason TheOne(const std::vector<Reason>& reasons) {
  EXPECT_EQ(reasons.size(), 1U);
  return reasons.empty() ? Reason() : reasons.front();
}

}  // namespace td
