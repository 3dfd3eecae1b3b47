// Record sets of the component's own as objects, by name and directly.
#include "client/recordsets.h"

#include <array>

#include "objects/variant_values.h"
#include "server_fixture.h"

namespace td {
namespace {

class Recordsets : public ServerTest {
 protected:
  Recordsets() : rows_(Reference<TdDispatch>::Taking(Make())) {}

  static TdDispatch* Make() {
    const std::array<const char*, 2> columns = {"FName", "FAmount"};
    std::array<TdVariant, 4> values = {TdTextVariant("甲"), TdNumberVariant(1.5),
                                       TdTextVariant("乙"), TdNullVariant()};
    TdDispatch* made = nullptr;
    EXPECT_EQ(TdMakeRecordset(columns.data(), 2, values.data(), 2, &made, nullptr), TD_OK);
    for (TdVariant& value : values) TdClearVariant(&value);
    return made;
  }

  // Fields(name).Value
  static Outcome Field(TdDispatch* rows, const char* name, OwnedVariant& value) {
    OwnedVariant column(TdTextVariant(name));
    OwnedVariant field;
    TdExceptionInfo info{};
    const TdResult result = TdCall(rows, "Fields", &*column, 1, &*field, &info);
    Outcome outcome{result, info.result, TextOf(info.description)};
    TdClearException(&info);
    return result == TD_OK ? Get(field->value.dispatch, "Value", value) : outcome;
  }
  static std::string Text(TdDispatch* rows, const char* name) {
    OwnedVariant value;
    ExpectOk(Field(rows, name, value));
    return value->type == TD_STRING ? TextOf(value->value.string) : "?";
  }
  static bool AtEnd(TdDispatch* rows) {
    OwnedVariant value;
    ExpectOk(Get(rows, "EOF", value));
    return value->value.flag != 0;
  }

  Reference<TdDispatch> rows_;
};

TEST_F(Recordsets, AreWalkedByName) {
  EXPECT_FALSE(AtEnd(rows_.Get()));
  EXPECT_EQ(Text(rows_.Get(), "fname"), "甲");
  ExpectOk(Call(rows_.Get(), "MoveNext", {}));
  EXPECT_EQ(Text(rows_.Get(), "FName"), "乙");
  OwnedVariant amount;
  ExpectOk(Field(rows_.Get(), "FAmount", amount));
  EXPECT_EQ(amount->type, TD_NULL);
  ExpectOk(Call(rows_.Get(), "movenext", {}));
  EXPECT_TRUE(AtEnd(rows_.Get()));
  ExpectOk(Call(rows_.Get(), "MoveFirst", {}));
  EXPECT_EQ(Text(rows_.Get(), "FName"), "甲");
}

TEST_F(Recordsets, RaiseTheNumbersThatThePrintTellsApart) {
  OwnedVariant value;
  EXPECT_EQ(Field(rows_.Get(), "FOther", value).number, TD_RESULT_OF_NUMBER(3265));
  ExpectOk(Call(rows_.Get(), "MoveNext", {}));
  ExpectOk(Call(rows_.Get(), "MoveNext", {}));
  EXPECT_EQ(Field(rows_.Get(), "FName", value).number, TD_RESULT_OF_NUMBER(3021));
  EXPECT_EQ(Call(rows_.Get(), "MoveNext", {}).number, TD_RESULT_OF_NUMBER(3021));
  ExpectOk(Call(rows_.Get(), "Close", {}));
  EXPECT_EQ(Call(rows_.Get(), "MoveFirst", {}).number, TD_RESULT_OF_NUMBER(3704));
}

TEST_F(Recordsets, CloneToASecondCursorOnTheFirstRow) {
  ExpectOk(Call(rows_.Get(), "MoveNext", {}));
  OwnedVariant clone;
  ASSERT_EQ(TdCall(rows_.Get(), "Clone", nullptr, 0, &*clone, nullptr), TD_OK);
  ASSERT_EQ(clone->type, TD_DISPATCH);
  EXPECT_EQ(Text(clone->value.dispatch, "FName"), "甲");
  EXPECT_EQ(Text(rows_.Get(), "FName"), "乙");
  ExpectOk(Call(rows_.Get(), "Close", {}));
  EXPECT_EQ(Text(clone->value.dispatch, "FName"), "甲");
}

TEST_F(Recordsets, AreWalkedDirectly) {
  const auto direct = InterfaceOf<TdRecordset>(rows_.Get(), kTdRecordsetId);
  const TdRecordsetTable& table = *direct.Get()->table;
  const OwnedString name(StringOf("FNAME"));
  const OwnedString other(StringOf("FOther"));
  OwnedVariant value;
  EXPECT_EQ(table.MoveNext(direct.Get()), TD_OK);
  EXPECT_EQ(table.FieldValue(direct.Get(), name.Get(), &*value), TD_OK);
  EXPECT_EQ(TextOf(value->value.string), "乙");
  OwnedVariant none;
  EXPECT_EQ(table.FieldValue(direct.Get(), other.Get(), &*none), TD_RESULT_OF_NUMBER(3265));
  TdFlag atEnd = TD_TRUE_FLAG;
  EXPECT_EQ(table.AtEnd(direct.Get(), &atEnd), TD_OK);
  EXPECT_EQ(atEnd, TD_FALSE_FLAG);
  TdRecordset* clone = nullptr;
  EXPECT_EQ(table.Clone(direct.Get(), &clone), TD_OK);
  const auto second = Reference<TdRecordset>::Taking(clone);
  OwnedVariant first;
  EXPECT_EQ(table.FieldValue(clone, name.Get(), &*first), TD_OK);
  EXPECT_EQ(TextOf(first->value.string), "甲");
}

TEST_F(Recordsets, OfAQueryPrint) {
  TdDispatch* made = nullptr;
  ASSERT_EQ(TdOpenRecordset(connection_.c_str(),
                            "select 7 as FInterID, '查询' as FName union all select 7, '两行'",
                            &made, nullptr),
            TD_OK);
  const auto rows = Reference<TdDispatch>::Taking(made);
  ExpectOk(Print(NewPrinter().Get(), made));
  EXPECT_TRUE(HasPrinted("查询"));
  EXPECT_TRUE(HasPrinted("两行"));
}

TEST_F(Recordsets, OfAQueryThatFailsSayWhy) {
  TdDispatch* made = nullptr;
  TdExceptionInfo info{};
  EXPECT_EQ(TdOpenRecordset(connection_.c_str(), "select from", &made, &info), TD_FAILURE);
  EXPECT_EQ(made, nullptr);
  EXPECT_EQ(info.result, TD_FAILURE);
  EXPECT_NE(TextOf(info.description), "");
  TdClearException(&info);
}

TEST_F(Recordsets, WithoutRowsOrColumnsAreAtTheirEnd) {
  TdDispatch* made = nullptr;
  ASSERT_EQ(TdMakeRecordset(nullptr, 0, nullptr, 0, &made, nullptr), TD_OK);
  const auto rows = Reference<TdDispatch>::Taking(made);
  EXPECT_TRUE(AtEnd(made));
  const char* column = "FName";
  EXPECT_EQ(TdMakeRecordset(&column, 1, nullptr, 1, &made, nullptr), TD_BAD_POINTER);
  const TdVariant object = TdDispatchVariant(nullptr);
  EXPECT_EQ(TdMakeRecordset(&column, 1, &object, 1, &made, nullptr), TD_RESULT_OF_NUMBER(13))
      << "an object is no value";
}

}  // namespace
}  // namespace td
