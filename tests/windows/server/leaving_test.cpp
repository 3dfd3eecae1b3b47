// Programs that end in their own way.
#include <process.h>

#include "file_content.h"
#include "files/path_text.h"
#include "server_fixture.h"
#include "windows/api/wide_text.h"

namespace td {
namespace {

std::wstring Quoted(const std::string& text) {
  return L"\"" + ToWide(text) + L"\"";
}

// How leaving_host ends.
template <class... More>
std::intptr_t RunOf(const std::string& classId, const More&... more) {
  const std::string program = QBTD_LEAVING_HOST;
  return _wspawnl(_P_WAIT, ToWide(program).c_str(), Quoted(program).c_str(),
                  Quoted(QBTD_MODULE).c_str(), Quoted(classId).c_str(), Quoted(more).c_str()...,
                  nullptr);
}

using Leaving = ServerTest;

constexpr const char* kPrinter = "{2389511E-AE07-4A8F-BF68-F2D15542C87E}";
constexpr const char* kSession = "{BEC9E21A-8357-4EC5-B261-5CEC43B82E3B}";

TEST_F(Leaving, AHostMayEndWithoutGivingItsObjectsBack) {
  EXPECT_EQ(RunOf(kPrinter), 0);
  EXPECT_EQ(RunOf(kSession), 0);
}

TEST_F(Leaving, AHostMayEndWithoutGivingBackWhatItHasPrinted) {
  const std::string file = folder_.File("订单.html");
  EXPECT_EQ(RunOf(kSession, connection_, file), 0);
  EXPECT_NE(ContentOf(PathOf(file)).find("大米"), std::string::npos);
}

}  // namespace
}  // namespace td
