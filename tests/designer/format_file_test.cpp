#include "designer/model/format_file.h"

#include <gtest/gtest.h>

#include "designer/model/difference.h"
#include "platform/failure.h"

namespace td::designer {
namespace {

Format SampleFormat() {
  Format format = NewFormat(21, "订单 \"A4\"");
  format.row.Set("FPaperWidth", Null{});
  format.variables = {NewVariable("客户", "FCustName"), NewVariable("没用的", "FNothing")};
  Item item = NewItem(format, ItemKind::kText, ItemSite::kHead, {566.93, 1.0 / 3, 100, 20});
  item.row.Set("FObjectFieldName", std::string("客户"));
  item.row.Set("FLeft", 566.93);
  item.row.Set("FTop", 1.0 / 3);
  item.row.Set("FWidth", 100.0);
  item.row.Set("FHeight", std::string("20"));
  item.row.Set("FFontBold", true);
  item.row.Set("FFormatString", Null{});
  item.row.Set("FObjectCaption", std::string("两行\n\t\\ “引号” \u0001"));
  item.row.Set("FPicturePath", Bytes{std::byte{0}, std::byte{255}, std::byte{7}, std::byte{8}});
  item.id = format.NewItemId();
  format.items.Append(item);
  return format;
}

std::string FailureOf(const std::string& text) {
  try {
    (void)ReadFormatFile(text);
    return "";
  } catch (const Failure& failure) {
    return failure.Description();
  }
}

std::string Changed(const std::string& from, const std::string& to) {
  std::string text = WriteFormatFile(SampleFormat());
  const std::size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return text.replace(at, from.size(), to);
}

TEST(FormatFileTest, EachValueComesBackInItsKind) {
  const Format format = SampleFormat();
  const Format again = ReadFormatFile(WriteFormatFile(format)).format;
  EXPECT_EQ(again.row, format.row);
  ASSERT_EQ(again.items.Size(), 1U);
  EXPECT_EQ(again.items[0].row, format.items[0].row);
  EXPECT_EQ(WriteFormatFile(again), WriteFormatFile(format));
}

TEST(FormatFileTest, HoldsTheVariablesThatItemsName) {
  const Format again = ReadFormatFile(WriteFormatFile(SampleFormat())).format;
  ASSERT_EQ(again.variables.size(), 1U);
  EXPECT_EQ(again.variables[0].Name(), "FCustName");
}

TEST(FormatFileTest, HoldsEachPictureOnce) {
  Format format = SampleFormat();
  for (int i = 0; i < 2; ++i) {
    Item item = NewItem(format, ItemKind::kPicture, ItemSite::kHead, {});
    item.row.Set("FPicturePath", std::string("/a/logo.png"));
    format.items.Append(item);
  }
  for (std::size_t size = 0; size < 7; ++size) {
    const Bytes bytes(size, std::byte{0xAB});
    const FormatFile file = ReadFormatFile(
        WriteFormatFile(format, [&](const std::string&) { return std::optional(bytes); }));
    ASSERT_EQ(file.pictures.size(), 1U);
    EXPECT_EQ(file.pictures[0].path, "/a/logo.png");
    EXPECT_EQ(file.pictures[0].bytes, bytes);
  }
  EXPECT_TRUE(ReadFormatFile(WriteFormatFile(format)).pictures.empty());
}

TEST(FormatFileTest, WhatAFileLeavesOutIsAsInANewItem) {
  const Format format =
      ReadFormatFile(R"({"qbtdprinter-format":1,"format":{"FTranType":21,"FTDBillName":"x"},
        "items":[{"FSite":1,"FLeft":1,"FTop":2,"FWidth":3,"FHeight":4}],"variables":[]})")
          .format;
  EXPECT_EQ(format.items[0].row.Text("FFontName"), "宋体");
  EXPECT_EQ(format.row.Number("FHeaderPerPage"), 1);
}

TEST(FormatFileTest, TellsWhatIsWrongWhere) {
  EXPECT_EQ(FailureOf("{"), "不是 JSON 文件（第 2 字节）");
  EXPECT_EQ(FailureOf(""), "不是 JSON 文件（第 1 字节）");
  EXPECT_EQ(FailureOf("[]"), "不是套打格式文件");
  EXPECT_EQ(FailureOf(R"({"qbtdprinter-format":2})"), "文件的版本是 2，这里只能读版本 1");
  EXPECT_EQ(FailureOf(R"({"qbtdprinter-format":"1"})"), "文件的版本是 \"1\"，这里只能读版本 1");
  EXPECT_EQ(FailureOf(Changed("\"items\"", "\"itms\"")), "itms：不认识");
  EXPECT_EQ(FailureOf(Changed("\"FLeft\"", "\"FLefft\"")), "items[0].FLefft：没有这个列");
  EXPECT_EQ(FailureOf(Changed("\"FLeft\": 566.93,", "")), "items[0]：缺少列 FLeft");
  EXPECT_EQ(FailureOf(Changed("566.93", "[1]")),
            "items[0].FLeft：不是值（null、数字、文字、true、false）");
  EXPECT_EQ(FailureOf(Changed("AP8HCA==", "AP8HCA=")),
            "items[0].FPicturePath：base64 的长度不是 4 的倍数");
  EXPECT_EQ(FailureOf(Changed("AP8HCA==", "AP8H*A==")), "items[0].FPicturePath：不是 base64");
  EXPECT_EQ(FailureOf(Changed("\"订单 \\\"A4\\\"\"", "\"\"")), "format.FTDBillName：名称是空的");
  EXPECT_EQ(FailureOf(Changed("\"FVarName\"", "\"FVarCaption\"")), "variables[0]：缺少列 FVarName");
}

TEST(FormatFileTest, AFileThatIsCutAnywhereIsRefused) {
  const std::string text = WriteFormatFile(SampleFormat());
  for (std::size_t size = 0; size + 2 < text.size(); ++size) {
    EXPECT_NE(FailureOf(text.substr(0, size)), "") << size;
  }
  EXPECT_EQ(FailureOf(text), "");
}

}  // namespace
}  // namespace td::designer
