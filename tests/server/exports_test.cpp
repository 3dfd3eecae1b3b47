// What the module shows to the dynamic linker.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <set>
#include <sstream>
#include <string>

namespace td {
namespace {

struct ClosePipe {
  void operator()(FILE* pipe) const { pclose(pipe); }
};

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<FILE, ClosePipe> pipe(popen(command.c_str(), "r"));
  std::string output;
  std::array<char, 4096> part;
  for (std::size_t size = 0; (size = fread(part.data(), 1, part.size(), pipe.get())) > 0;) {
    output.append(part.data(), size);
  }
  return output;
}

// Weak names and those of C++ count, too. Names that are marked as local can't be found by anyone.
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
