// What tdprint says to a clerk who opened it by a double click: in Chinese, and in a box.
#include "dialog_commands.h"
#include "print_command.h"
#include "shown_dialog.h"

namespace td {
namespace {

class TdprintBoxes : public ShownDialog {
 protected:
  // The lines on standard error meanwhile.
  template <typename Command>
  std::string LinesOf(Command command) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(command(), ExitStatus::kNotPrinted);
    return testing::internal::GetCapturedStderr();
  }

  std::string LinesOfPreview(int billType, const std::string& format) {
    PrintArguments arguments;
    arguments.preview = true;
    arguments.database = database_.Connection();
    arguments.billType = static_cast<std::int16_t>(billType);
    arguments.format = format;
    arguments.data = "select 1 as FInterID";
    return LinesOf([&] { return PrintBills(arguments); });
  }
};

TEST_F(TdprintBoxes, APreviewWithoutAFormat) {
  EXPECT_EQ(LinesOfPreview(99, ""), "tdprint: not printed: bill type 99 has no selected format\n");
  EXPECT_EQ(LinesOfPreview(21, "三联单"),
            "tdprint: not printed: bill type 21 has no format named 三联单\n");
  EXPECT_EQ(boxes_,
            (std::vector<std::string>{"没有打印：单据类型 99 没有选用任何套打格式。",
                                      "没有打印：单据类型 21 没有名为“三联单”的套打格式。"}));
}

TEST_F(TdprintBoxes, ADialogWithoutADatabase) {
  const std::string missing = database_.MissingConnection();
  const std::string lines = LinesOf([&] {
                              return td::ShowSettings({missing, 21});
                            }) +
                            LinesOf([&] { return td::ShowAreaPrinters({missing}); });
  constexpr std::string_view kLine = "tdprint: the database can't be opened: ";
  EXPECT_EQ(lines.find(kLine), 0U);
  EXPECT_NE(lines.rfind(kLine), 0U) << "one line for each";
  ASSERT_EQ(boxes_.size(), 2U);
  for (const std::string& box : boxes_) EXPECT_TRUE(box.starts_with("打不开数据库：")) << box;
}

}  // namespace
}  // namespace td
