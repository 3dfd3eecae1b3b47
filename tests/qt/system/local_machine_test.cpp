#include "qt/system/local_machine.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sched.h>

#include "test_tools.h"

namespace td {
namespace {

bool IsAddress(const std::string& text) {
  in6_addr buffer{};
  return inet_pton(AF_INET, text.c_str(), &buffer) == 1 ||
         inet_pton(AF_INET6, text.c_str(), &buffer) == 1;
}

TEST(LocalMachine, NamesAnAddressThatTheSystemLists) {
  const std::string address = LocalMachine().LocalMachineId();
  EXPECT_TRUE(IsAddress(address)) << address;
  const std::string listed = " " + OutputOf("hostname", {"-I"});
  if (listed.find_first_not_of(" \n") == std::string::npos) {
    EXPECT_EQ(address, "127.0.0.1");
  } else {
    EXPECT_NE(listed.find(" " + address + " "), std::string::npos) << listed;
  }
}

// A process with a network of its own that has no interface but the loopback.
TEST(LocalMachine, IsTheLoopbackWithoutANetworkAndAskedAfreshEachTime) {
  EXPECT_EXIT(
      {
        LocalMachine machine;
        const bool isValid = IsAddress(machine.LocalMachineId());
        if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) _exit(2);
        _exit(isValid && machine.LocalMachineId() == "127.0.0.1" ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace td
