// tdprint register and unregister, with the module of the build.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "program_run.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

class TdprintRegistration : public testing::Test {
 protected:
  [[nodiscard]] ProgramResult Tdprint(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command = {"env", "XDG_DATA_HOME=" + folder_.Path().string(),
                                        TDPRINT_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return ProgramRun(command, folder_.Path()).Finish();
  }
  [[nodiscard]] ProgramResult Register() const {
    return Tdprint({"register", "--module", QBTDPRINTER_MODULE});
  }
  [[nodiscard]] std::string Registered() const {
    std::stringstream content;
    content << std::ifstream(file_).rdbuf();
    return content.str();
  }

  void ExpectRefused(const ProgramResult& result, const std::string& reason) const {
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_NE(result.err.find(reason), std::string::npos) << result.err;
  }

  const ScratchFolder folder_;
  const fs::path file_ = folder_.Path() / "qbtdprinter/classes";
};

TEST_F(TdprintRegistration, WritesBothClassesAndSaysSo) {
  const ProgramResult result = Register();
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(result.out.find(file_.string()), std::string::npos) << result.out;
  const std::string registered = Registered();
  for (const char* name : {"QbTdPrinter.Printer", "QbTdPrinter.TDSet"}) {
    EXPECT_NE(registered.find(name), std::string::npos);
    EXPECT_NE(result.out.find(name), std::string::npos);
  }
  const std::string module = fs::canonical(QBTDPRINTER_MODULE);
  EXPECT_NE(registered.find("\t" + module + "\n"), std::string::npos) << registered;
  EXPECT_NE(result.out.find(module), std::string::npos) << result.out;
}

TEST_F(TdprintRegistration, FindsAModuleByARelativePath) {
  fs::create_symlink(QBTDPRINTER_MODULE, folder_ / "link.so");
  const std::string relative = fs::relative(folder_ / "link.so").string();
  const ProgramResult result = Tdprint({"register", "--module", relative});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_NE(Registered().find(fs::canonical(QBTDPRINTER_MODULE).string()), std::string::npos);
}

TEST_F(TdprintRegistration, IsRemovedByUnregister) {
  ASSERT_EQ(Register().status, 0);
  const ProgramResult result = Tdprint({"unregister", "--module", QBTDPRINTER_MODULE});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "Removed " + file_.string() + "\n");
  EXPECT_FALSE(fs::exists(file_));
}

TEST_F(TdprintRegistration, ThatIsNotThereIsNoErrorOfUnregister) {
  const ProgramResult result = Tdprint({"unregister", "--module", QBTDPRINTER_MODULE});
  EXPECT_EQ(result.status, 0) << result.err;
  EXPECT_EQ(result.out, "Nothing was registered in " + file_.string() + "\n");
}

TEST_F(TdprintRegistration, NeedsAModule) {
  ExpectRefused(Tdprint({"register", "--module", folder_ / "none.so"}), "none.so isn't there");
  ExpectRefused(Tdprint({"register"}), "--module");
  folder_.Write("text.so", "no library");
  ExpectRefused(Tdprint({"register", "--module", folder_ / "text.so"}), "text.so");
  ExpectRefused(Tdprint({"register", "--module", "/proc/self/exe"}), "not registered");
}

TEST_F(TdprintRegistration, IsRefusedWhereOthersCouldChangeIt) {
  fs::create_directory(folder_ / "qbtdprinter");
  fs::permissions(folder_ / "qbtdprinter", fs::perms::all);
  ExpectRefused(Register(), (folder_ / "qbtdprinter").string());
  EXPECT_FALSE(fs::exists(file_));
}

}  // namespace
}  // namespace td
