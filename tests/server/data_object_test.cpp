// What the component makes of the program's data objects: kinds of values, and errors.
#include <array>
#include <cstring>
#include <limits>

#include "client/recordsets.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

class DataObject : public ServerTest {
 protected:
  // Prints one value and gives the export file back.
  std::string Printed(TestValue value) {
    ExpectOk(Print(printer_.Get(), TestRows::Make(OneValue("FAmount", std::move(value))).Get(),
                   "金额单"));
    return Exported();
  }
  bool Prints(TestValue value, const std::string& text) {
    return Printed(std::move(value)).find(">" + text + "<") != std::string::npos;
  }

  Reference<TdDispatch> printer_ = NewPrinter();
};

TestValue OfType(std::uint16_t type, void (*fill)(TdVariant&)) {
  return [type, fill] {
    TdVariant variant = TdEmptyVariant();
    fill(variant);
    variant.type = type;
    return variant;
  };
}

TEST_F(DataObject, PrintsEachKindOfNumber) {
  EXPECT_TRUE(Prints(OfType(TD_INT8, [](TdVariant& v) { v.value.integer8 = -8; }), "-8"));
  EXPECT_TRUE(Prints(OfType(TD_UINT8, [](TdVariant& v) { v.value.unsigned8 = 200; }), "200"));
  EXPECT_TRUE(Prints(OfType(TD_INT16, [](TdVariant& v) { v.value.integer16 = -16; }), "-16"));
  EXPECT_TRUE(Prints(OfType(TD_UINT16, [](TdVariant& v) { v.value.unsigned16 = 60000; }), "60000"));
  EXPECT_TRUE(Prints(OfType(TD_INT32, [](TdVariant& v) { v.value.integer32 = -32; }), "-32"));
  EXPECT_TRUE(Prints(OfType(TD_INT, [](TdVariant& v) { v.value.integer32 = 33; }), "33"));
  EXPECT_TRUE(Prints(OfType(TD_UINT32, [](TdVariant& v) { v.value.unsigned32 = 4000000000; }),
                     "4000000000"));
  EXPECT_TRUE(Prints(OfType(TD_UINT, [](TdVariant& v) { v.value.unsigned32 = 34; }), "34"));
  EXPECT_TRUE(Prints(OfType(TD_INT64, [](TdVariant& v) { v.value.integer64 = 12345678901; }),
                     "12345678901"));
  EXPECT_TRUE(Prints(OfType(TD_UINT64, [](TdVariant& v) { v.value.unsigned64 = 64; }), "64"));
  EXPECT_TRUE(Prints(OfType(TD_FLOAT, [](TdVariant& v) { v.value.real32 = 0.1F; }), "0.1"));
  EXPECT_TRUE(
      Prints(OfType(TD_FLOAT, [](TdVariant& v) { v.value.real32 = 1.0F / 3; }), "0.3333333"));
  EXPECT_TRUE(
      Prints(OfType(TD_FLOAT, [](TdVariant& v) { v.value.real32 = 16777216; }), "16777220"));
  EXPECT_TRUE(Prints(OfType(TD_DOUBLE, [](TdVariant& v) { v.value.real64 = 2.5; }), "2.5"));
  EXPECT_TRUE(
      Prints(OfType(TD_CURRENCY, [](TdVariant& v) { v.value.integer64 = -123400; }), "-12.34"));
  EXPECT_TRUE(
      Prints(OfType(TD_BOOLEAN, [](TdVariant& v) { v.value.flag = TD_TRUE_FLAG; }), "True"));
  EXPECT_TRUE(Prints(OfType(TD_DATE, [](TdVariant& v) { v.value.real64 = 45292; }), "2024-01-01"));
}

TEST_F(DataObject, PrintsDecimalsExactly) {
  EXPECT_TRUE(Prints(OfType(TD_DECIMAL,
                            [](TdVariant& v) {
                              v.value.unsigned64 = 123456789;
                              v.decimalScale = 4;
                              v.decimalSign = 0x80;
                            }),
                     "-12345.6789"));
  EXPECT_TRUE(
      Prints(OfType(TD_DECIMAL, [](TdVariant& v) { v.decimalHigh = 1; }), "1.84467440737096E+19"));
}

TEST_F(DataObject, NullAndEmptyPrintNothing) {
  EXPECT_EQ(Printed(TdNullVariant).find("Null"), std::string::npos);
  EXPECT_EQ(Printed(TdEmptyVariant), Printed(TdNullVariant));
  EXPECT_TRUE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, PrintsTextWithHalvesOfCharactersAsReplacements) {
  const auto broken = [] {
    const std::array<TdUnit, 4> units = {u'甲', 0xD83D, u'乙', 0xDC00};
    TdVariant variant = TdEmptyVariant();
    variant.type = TD_STRING;
    variant.value.string = TdMakeStringOfUnits(units.data(), 4);
    return variant;
  };
  EXPECT_NE(Printed(broken).find("甲"), std::string::npos);
  EXPECT_TRUE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, PrintsAValueThatIsLentByReference) {
  static std::int32_t variable = 4711;
  EXPECT_TRUE(Prints(
      [] {
        TdVariant variant = TdEmptyVariant();
        variant.type = TD_INT32 | TD_BY_REFERENCE;
        variant.value.reference = &variable;
        return variant;
      },
      "4711"));
}

TEST_F(DataObject, AValueThatCannotBePrintedIsAMessageAndThePrintGoesOn) {
  const auto unknown = OfType(0x0123, [](TdVariant&) {});
  const auto object = [] { return TdDispatchVariant(nullptr); };
  const auto error = [] { return TdLeftOutVariant(); };
  const std::vector<TestValue> values = {unknown, object, error};
  for (const TestValue& value : values) {
    (void)Messages();
    (void)Printed(value);
    EXPECT_NE(Messages().find("类型不匹配"), std::string::npos);
    EXPECT_TRUE(PrintOk(printer_.Get()));
  }
}

TEST_F(DataObject, BytesDoNotPrintAsText) {
  (void)Printed([] { return TdBytesVariant("\x01\x02", 2); });
  EXPECT_TRUE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, AMissingColumnAndANullSkipTheItem) {
  for (const int number : {3265, 94}) {
    const auto data = NamedRows({"大米"});
    data->rows[0]["FName"] = [number]() -> TdVariant { throw Failure(number, "由程序引发"); };
    (void)Messages();
    ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
    EXPECT_EQ(Messages().find("由程序引发"), std::string::npos) << number;
    EXPECT_TRUE(PrintOk(printer_.Get()));
  }
}

TEST_F(DataObject, OtherErrorsShowTheirDescription) {
  const auto data = NamedRows({"大米"});
  data->rows[0]["FName"] = []() -> TdVariant { throw Failure(1001, "由程序引发"); };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_NE(Messages().find("由程序引发"), std::string::npos);
}

TEST_F(DataObject, ALockConflictIsTriedAgain) {
  const auto data = NamedRows({"大米"});
  int tries = 0;
  data->rows[0]["FName"] = [&tries]() -> TdVariant {
    if (++tries < 3) throw Failure(kDatabaseFailed, "记录被锁定");
    return TdTextVariant("解开了");
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(HasPrinted("解开了"));
}

// No row of them is ever found to be the first of the new bill.
TEST_F(DataObject, WithoutBillNumbersEndsTheSearchForABillAtItsEnd) {
  const auto data = NamedRows({"大米", "绿豆"});
  for (TestRow& row : data->rows) row.erase("FInterID");
  int moves = 0;
  data->onMoveNext = [&moves] {
    if (++moves > 100) throw Failure(1001, "没有止境");
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_EQ(moves, 2) << "once for each row";
  EXPECT_NE(Messages().find("记录集中没有当前记录"), std::string::npos);
  EXPECT_FALSE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, ThatNeverLeavesARowEndsThePrintInsteadOfFillingIt) {
  for (const int number : {kInvalidUseOfNull, kNoSuchColumn}) {
    const auto data = NamedRows({"大米", "绿豆"});
    int moves = 0;
    data->onMoveNext = [&] {
      ++moves;
      throw Failure(number, "游标坏了");
    };
    ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
    EXPECT_EQ(moves, 100);
    EXPECT_NE(Messages().find("“MoveNext”在同一行上失败了 100 次，打印中止：游标坏了"),
              std::string::npos);
    EXPECT_FALSE(PrintOk(printer_.Get()));
  }
}

TEST_F(DataObject, WhoseCloneNeverLeavesARowEndsThePrintToo) {
  const auto data = NamedRows({"大米", "绿豆"});
  data->rows[1]["FInterID"] = Number(8);
  int moves = 0;
  data->onMoveNext = [&] {
    if (++moves > 1) throw Failure(kInvalidUseOfNull, "游标坏了");
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_EQ(moves, 101);
  EXPECT_FALSE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, MayFailToLeaveEachRowForAWhile) {
  const auto data = NamedRows({"大米", "绿豆", "花生"});
  int moves = 0;
  data->onMoveNext = [&] {
    if (++moves % 80 != 0) throw Failure(kInvalidUseOfNull, "稍后");
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_EQ(moves, 240);
  EXPECT_TRUE(HasPrinted("花生"));
}

TEST_F(DataObject, MayBeLockedAsLongAsItLikes) {
  const auto data = NamedRows({"大米", "绿豆"});
  int moves = 0;
  data->onMoveNext = [&] {
    if (++moves < 1000) throw Failure(kInvalidUseOfNull, "记录被锁定");
  };
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(HasPrinted("绿豆"));
  EXPECT_TRUE(PrintOk(printer_.Get()));
}

TEST_F(DataObject, IsAskedForItsEndOnceARow) {
  const auto few = NamedRows({"大米", "绿豆"});
  const auto more = NamedRows({"大米", "绿豆", "花生", "红枣", "黄豆"});
  ExpectOk(Print(printer_.Get(), TestRows::Make(few).Get()));
  ExpectOk(Print(printer_.Get(), TestRows::Make(more).Get()));
  EXPECT_EQ(more->timesAskedForEnd - few->timesAskedForEnd, 3);
}

TEST_F(DataObject, HasNoValuesAtItsEndWhateverItAnswersThere) {
  OtherUser(folder_.File("bills.db"))
      .Run(
          "insert into TDBillDetail (FTDBillID, FSite, FLeft, FTop, FWidth, FHeight, FIsVariant, "
          "FObjectFieldName) values (1, 5, 500, 9000, 5000, 300, 1, '品名')");
  const auto data = NamedRows({"大米"});
  data->onClone = [] { throw Failure(3251, "不支持克隆"); };  // so the foot reads at the end
  data->answersAtTheEnd = true;
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  const std::string page = Exported();
  EXPECT_NE(page.find("大米"), std::string::npos);
  EXPECT_EQ(page.find("大米"), page.rfind("大米")) << "printed below the rows, too";
  EXPECT_NE(Messages().find("记录集中没有当前记录"), std::string::npos);
}

TEST_F(DataObject, AMemberThatItHasNotGotIsNamed) {
  const auto data = NamedRows({"大米"});
  data->missingMembers = {"MoveNext"};
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_NE(Messages().find("数据对象没有“MoveNext”。"), std::string::npos);
}

TEST_F(DataObject, ItsFieldsAndClonesMayComeAsAnyOfTheirInterfaces) {
  const auto data = NamedRows({"大米"});
  data->givesFirstInterface = true;
  ExpectOk(Print(printer_.Get(), TestRows::Make(data).Get()));
  EXPECT_TRUE(HasPrinted("大米"));
  EXPECT_EQ(data->clones, 1);
}

TEST_F(DataObject, TheDirectInterfaceIsUsedWhenItIsOffered) {
  TdDispatch* made = nullptr;
  const std::array<const char*, 2> columns = {"FInterID", "FName"};
  const std::array<TdVariant, 2> values = {TdIntegerVariant(7), TdTextVariant("直接")};
  ASSERT_EQ(TdMakeRecordset(columns.data(), 2, values.data(), 1, &made, nullptr), TD_OK);
  TdVariant text = values[1];
  TdClearVariant(&text);
  const auto rows = Reference<TdDispatch>::Taking(made);
  ASSERT_NE(InterfaceOf<TdRecordset>(made, kTdRecordsetId).Get(), nullptr);
  ExpectOk(Print(printer_.Get(), rows.Get()));
  EXPECT_TRUE(HasPrinted("直接"));
  ExpectOk(Print(printer_.Get(), rows.Get(), "金额单"));
  EXPECT_TRUE(PrintOk(printer_.Get())) << "a missing column keeps its number";
  EXPECT_EQ(Messages().find("FAmount"), std::string::npos);
}

}  // namespace
}  // namespace td
