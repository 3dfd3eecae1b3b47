#include "page_document/command_list.h"

#include <gtest/gtest.h>

#include <string>

#include "page_document/pictures.h"

namespace td {
namespace {

FontRef Font(const std::string& name) {
  return std::make_shared<const TextFont>(TextFont{name, 9, false, false});
}

TEST(CommandList, GivesBackWhatWasAddedInItsOrder) {
  const FontRef song = Font("宋体");
  const FontRef hei = Font("黑体");
  CommandList commands;
  commands.emplace_back(BoxText{"一", 1, 2, 3, 4, true, TextAlignment::kRight, song});
  commands.emplace_back(Line{1.5, 2, 3, 4, 14});
  commands.emplace_back(PointText{{{{"点", hei}}}, {200}, 10, 20, TextAlignment::kCentre});
  commands.emplace_back(BoxText{"", 0, 0, 0, 0, false, TextAlignment::kLeft, hei});
  ASSERT_EQ(commands.size(), 4U);

  const auto box = std::get<BoxText>(commands[0]);
  EXPECT_EQ(box.text, "一");
  EXPECT_EQ(box.width, 3);
  EXPECT_TRUE(box.wordWrap);
  EXPECT_EQ(box.alignment, TextAlignment::kRight);
  EXPECT_EQ(box.font, song);
  EXPECT_EQ(std::get<Line>(commands[1]).x1, 1.5);
  EXPECT_EQ(std::get<PointText>(commands[2]).lines.front().front().text, "点");
  EXPECT_EQ(std::get<BoxText>(commands.back()).font, hei);
  EXPECT_FALSE(std::get<BoxText>(commands.back()).wordWrap);
}

TEST(CommandList, KeepsEachDigitOfAPlace) {
  const double third = 1.0 / 3;
  CommandList commands;
  commands.emplace_back(Line{third, -third, 9'999'999.999, 5, 14.1});
  commands.emplace_back(BoxText{"x", 1, third, 2, -0.1, false, TextAlignment::kLeft, Font("宋体")});
  const auto line = std::get<Line>(commands[0]);
  EXPECT_EQ(line.x1, third);
  EXPECT_EQ(line.y1, -third);
  EXPECT_EQ(line.x2, 9'999'999.999);
  EXPECT_EQ(line.y2, 5);
  EXPECT_EQ(line.penWidth, 14.1);
  const auto box = std::get<BoxText>(commands[1]);
  EXPECT_EQ(box.top, third);
  EXPECT_EQ(box.height, -0.1);
}

TEST(CommandList, ATextThatGrowsStaysAtItsPlace) {
  CommandList commands;
  const std::size_t text = commands.AddText({{{{"一", Font("宋体")}}}, {200}, 0, 0, {}});
  commands.emplace_back(Line{});
  commands.TextAt(text).lines.front().front().text = "一二";
  EXPECT_EQ(std::get<PointText>(commands[0]).lines.front().front().text, "一二");
  EXPECT_TRUE(std::holds_alternative<Line>(commands[1]));
}

TEST(CommandList, OfNothingIsEmpty) {
  const CommandList commands;
  EXPECT_TRUE(commands.empty());
  for (const DrawingCommand& command : commands) FAIL() << command.index();
}

}  // namespace
}  // namespace td
