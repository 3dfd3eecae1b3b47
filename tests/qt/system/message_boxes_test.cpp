#include "qt/system/message_boxes.h"

#include <gtest/gtest.h>

#include "print_calls/device_failure.h"

namespace td {
namespace {

// There is no application in this program, and so no window system.
TEST(Messages, AreLinesOnStandardErrorWithoutAWindowSystem) {
  MessageBoxes messages(MessageMode::kAutomatic);
  testing::internal::CaptureStderr();
  messages.ShowBox("未指定套打格式，打印被取消！", kInformationIcon);
  messages.ShowBox("两行\r\n文字", kInformationIcon);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "未指定套打格式，打印被取消！\n两行 文字\n");
  EXPECT_EQ(messages.Shown(), 2);
}

TEST(DeviceFailure, NeverLooksLikeALockConflict) {
  const Failure failure = DeviceFailure(kDeviceIo, "找不到打印机“锁具锁”。");
  EXPECT_EQ(failure.Description(), "找不到打印机“鎖具鎖”。");
}

}  // namespace
}  // namespace td
