#include <gtest/gtest.h>

#include "scenario.h"

namespace td {
namespace {

TEST(ReplayedScenario, DrawsTheRowsPageByPage) {
  Scenario scenario;
  scenario.Format({{"FRowsPerPage", 2}}).FieldItem("FName").Bills({3, 1});
  const Trace trace = scenario.Run();
  EXPECT_EQ(trace.TextsByPage(), (Pages{{"行1", "行2"}, {"行3"}, {"行4"}})) << trace.Text();
}

}  // namespace
}  // namespace td
