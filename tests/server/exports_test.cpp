// What the module shows to the dynamic linker.
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "command_output.h"

namespace td {
namespace {

// Weak names and those of C++ count, too; what the table marks as local can be found by nobody.
TEST(Module, ExportsTheFourEntryPointsAndNothingElse) {
  std::istringstream lines(
      OutputOf("nm --dynamic --defined-only --extern-only --format=posix '" QBTD_MODULE "'"));
  std::set<std::string> names;
  for (std::string line; std::getline(lines, line);) names.insert(line.substr(0, line.find(' ')));
  EXPECT_EQ(names, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                          "DllRegisterServer", "DllUnregisterServer"}));
}

}  // namespace
}  // namespace td
