// Calls by name, as languages make them that know nothing of the classes.
#include <array>

#include "objects/variant_values.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

class LateBinding : public ServerTest {
 protected:
  static TdResult IdsOf(TdDispatch* object, std::vector<const char16_t*> names,
                        std::vector<std::int32_t>& ids) {
    ids.assign(names.size(), 0);
    return object->table->GetIDsOfNames(object, &kTdNoId, names.data(),
                                        static_cast<std::uint32_t>(names.size()), 0, ids.data());
  }
  static std::int32_t IdOf(TdDispatch* object, const char16_t* name) {
    std::vector<std::int32_t> ids;
    EXPECT_EQ(IdsOf(object, {name}, ids), TD_OK);
    return ids[0];
  }

  // `values` in the caller's order, the last argument first; named ones in front.
  TdResult Invoke(TdDispatch* object, const char16_t* member, std::uint16_t kind,
                  std::vector<TdVariant> values, std::vector<std::int32_t> names = {}) {
    TdArguments arguments{values.data(), names.data(), static_cast<std::uint32_t>(values.size()),
                          static_cast<std::uint32_t>(names.size())};
    TdClearException(&info_);
    OwnedVariant result;
    badArgument_ = 99;
    return object->table->Invoke(object, IdOf(object, member), &kTdNoId, 0, kind, &arguments,
                                 &*result, &info_, &badArgument_);
  }

  // The six arguments of a silent print that can't be left out, in the caller's order.
  std::vector<TdVariant> PrintArguments(TdDispatch* data) {
    TdVariant text = TdEmptyVariant();
    text.type = TD_STRING;
    text.value.string = connectionText_.Get();
    TdVariant rows = TdEmptyVariant();
    rows.type = TD_DISPATCH;
    rows.value.dispatch = data;
    return {rows, TdFlagVariant(0), TdFlagVariant(0), TdIntegerVariant(21), text, TdFlagVariant(1)};
  }

  ~LateBinding() override { TdClearException(&info_); }

  TdExceptionInfo info_{};
  std::uint32_t badArgument_ = 0;
  OwnedString connectionText_{StringOf(connection_)};
  Reference<TdDispatch> rows_ = TestRows::Make(NamedRows({"大米"}));
  Reference<TdDispatch> printer_ = NewPrinter();
};

TdVariant ByReference(std::uint16_t type, void* place) {
  TdVariant variant = TdEmptyVariant();
  variant.type = static_cast<std::uint16_t>(type | TD_BY_REFERENCE);
  variant.value.reference = place;
  return variant;
}

TEST_F(LateBinding, FindsNamesInAnyCase) {
  const std::int32_t id = IdOf(printer_.Get(), u"DoPrint_GroupByArea");
  EXPECT_EQ(IdOf(printer_.Get(), u"doprint_groupbyarea"), id);
  EXPECT_EQ(IdOf(printer_.Get(), u"DOPRINT_GROUPBYAREA"), id);
  EXPECT_NE(IdOf(printer_.Get(), u"DoPrint"), id);
}

TEST_F(LateBinding, SaysThatANameIsUnknown) {
  std::vector<std::int32_t> ids;
  EXPECT_EQ(IdsOf(printer_.Get(), {u"DoPrin"}, ids), TD_UNKNOWN_NAME);
  EXPECT_EQ(ids[0], TD_MEMBER_UNKNOWN);
  EXPECT_EQ(IdsOf(printer_.Get(), {u""}, ids), TD_UNKNOWN_NAME);
  EXPECT_EQ(IdsOf(printer_.Get(), {u"\xD800"}, ids), TD_UNKNOWN_NAME);
  EXPECT_EQ(IdsOf(printer_.Get(), {nullptr}, ids), TD_UNKNOWN_NAME);
  EXPECT_EQ(Call(printer_.Get(), "Print", {}).result, TD_UNKNOWN_NAME);
}

TEST_F(LateBinding, NumbersTheNamesOfArgumentsInTheirOrder) {
  std::vector<std::int32_t> ids;
  EXPECT_EQ(IdsOf(printer_.Get(), {u"DoPrint", u"new_doprint", u"PrintDevice", u"TDBillName"}, ids),
            TD_OK);
  EXPECT_EQ((std::vector<std::int32_t>{ids[1], ids[2], ids[3]}),
            (std::vector<std::int32_t>{0, 7, 6}));
  EXPECT_EQ(IdsOf(printer_.Get(), {u"DoPrint", u"Copies"}, ids), TD_UNKNOWN_NAME);
  EXPECT_EQ(ids[1], TD_MEMBER_UNKNOWN);
}

TEST_F(LateBinding, OptionalArgumentsCanBeFewerOrMarkedAsLeftOut) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_TRUE(HasPrinted("大米"));
  values.insert(values.begin(), 2, TdLeftOutVariant());
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_TRUE(PrintOk(printer_.Get()));
}

TEST_F(LateBinding, OptionalArgumentsMayBeVariablesThatAreMarkedAsLeftOut) {
  TdVariant leftOut = TdLeftOutVariant();
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  values.insert(values.begin(), 2, ByReference(TD_VARIANT, &leftOut));
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_TRUE(HasPrinted("大米"));
  values[6] = ByReference(TD_VARIANT, &leftOut);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_ARGUMENT_NOT_OPTIONAL);
  values[6] = PrintArguments(rows_.Get())[4];
  values[1] = ByReference(TD_VARIANT, nullptr);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_TYPE_MISMATCH);
}

TEST_F(LateBinding, TakesNamedArgumentsInAnyOrder) {
  const std::vector<TdVariant> inOrder = PrintArguments(rows_.Get());
  const std::vector<TdVariant> values = {inOrder[5], inOrder[0], inOrder[1],
                                         inOrder[2], inOrder[3], inOrder[4]};
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values, {0, 5, 4, 3, 2, 1}), TD_OK);
  EXPECT_TRUE(HasPrinted("大米"));
}

TEST_F(LateBinding, RefusesNamesTwiceAndUnknownOnes) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  values.insert(values.begin(), TdFlagVariant(0));
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values, {0}),
            TD_PARAMETER_NOT_FOUND);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values, {44}),
            TD_PARAMETER_NOT_FOUND);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values, {-7}),
            TD_PARAMETER_NOT_FOUND);
}

TEST_F(LateBinding, RefusesTooFewAndTooManyArguments) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  values.pop_back();
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_BAD_ARGUMENT_COUNT);
  values.insert(values.end(), 4, TdEmptyVariant());
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_BAD_ARGUMENT_COUNT);
  EXPECT_EQ(Invoke(printer_.Get(), u"PrintOk", TD_CALL_GET, {TdEmptyVariant()}),
            TD_BAD_ARGUMENT_COUNT);
  EXPECT_EQ(Invoke(printer_.Get(), u"PrintBlankRows", TD_CALL_PUT, {}), TD_BAD_ARGUMENT_COUNT);
}

TEST_F(LateBinding, RefusesToLeaveOutWhatIsNotOptional) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  values[4] = TdLeftOutVariant();
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_ARGUMENT_NOT_OPTIONAL);
  EXPECT_EQ(badArgument_, 4U);
}

TEST_F(LateBinding, NamesTheArgumentOfAWrongType) {
  const auto with = [this](std::size_t place, TdVariant value) {
    std::vector<TdVariant> values = PrintArguments(rows_.Get());
    values[place] = value;
    return Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values);
  };
  OwnedVariant words(TdTextVariant("许多"));
  const TdVariant text = *words;
  EXPECT_EQ(with(3, text), TD_TYPE_MISMATCH);
  EXPECT_EQ(badArgument_, 3U);
  EXPECT_EQ(with(5, text), TD_TYPE_MISMATCH);
  EXPECT_EQ(badArgument_, 5U);
  EXPECT_EQ(with(0, TdIntegerVariant(1)), TD_TYPE_MISMATCH) << "data that is no object";
  EXPECT_EQ(badArgument_, 0U);
  EXPECT_EQ(with(3, TdNullVariant()), TD_TYPE_MISMATCH);
  EXPECT_EQ(with(3, TdIntegerVariant(40000)), TD_VALUE_OVERFLOW);
  EXPECT_EQ(badArgument_, 3U);
  TdVariant unknown = TdEmptyVariant();
  unknown.type = 0x0FFF;
  EXPECT_EQ(with(3, unknown), TD_TYPE_MISMATCH);
  EXPECT_EQ(with(3, ByReference(TD_INT16, nullptr)), TD_TYPE_MISMATCH);
}

TEST_F(LateBinding, ConvertsArguments) {
  const auto with = [this](std::size_t place, TdVariant value) {
    std::vector<TdVariant> values = PrintArguments(rows_.Get());
    values[place] = value;
    OwnedVariant owned(value);
    EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
    return PrintOk(printer_.Get());
  };
  EXPECT_TRUE(with(3, TdTextVariant(" 21 "))) << "text that says a number";
  EXPECT_TRUE(with(3, TdNumberVariant(20.6)));
  EXPECT_FALSE(with(3, TdNumberVariant(22.4))) << "another bill type";
  EXPECT_TRUE(with(5, TdTextVariant("true")));
  EXPECT_TRUE(with(5, TdIntegerVariant(7)));
  EXPECT_FALSE(with(5, TdTextVariant("FALSE"))) << "a preview, and no display";
  EXPECT_FALSE(with(5, TdEmptyVariant()));
  EXPECT_FALSE(with(4, TdEmptyVariant())) << "no connection";
}

TEST_F(LateBinding, TakesEachKindByReference) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  TdDispatch* data = rows_.Get();
  TdFlag silent = TD_TRUE_FLAG;
  std::int16_t billType = 21;
  TdVariant billTypeVariable = TdIntegerVariant(21);
  TdString connection = values[4].value.string;
  std::uint8_t no = 0;
  values[0] = ByReference(TD_DISPATCH, &data);
  values[1] = ByReference(TD_UINT8, &no);
  values[3] = ByReference(TD_INT16, &billType);
  values[4] = ByReference(TD_STRING, &connection);
  values[5] = ByReference(TD_BOOLEAN, &silent);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_TRUE(PrintOk(printer_.Get()));
  EXPECT_TRUE(HasPrinted("大米"));

  TdVariant dataVariable = PrintArguments(rows_.Get())[0];
  values[0] = ByReference(TD_VARIANT, &dataVariable);
  values[3] = ByReference(TD_VARIANT, &billTypeVariable);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);

  data = nullptr;
  values[0] = ByReference(TD_DISPATCH, &data);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_EXCEPTION);
  EXPECT_EQ(info_.result, TD_NOTHING_TO_PRINT);
}

TEST_F(LateBinding, AReferenceThatLeadsRoundInACircleIsRefused) {
  TdVariant circle = ByReference(TD_VARIANT, nullptr);
  circle.value.reference = &circle;
  EXPECT_EQ(Invoke(printer_.Get(), u"PrintBlankRows", TD_CALL_PUT, {circle}, {TD_MEMBER_PUT}),
            TD_TYPE_MISMATCH);
}

TEST_F(LateBinding, TakesDataThroughItsFirstInterface) {
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  values[0].type = TD_OBJECT;
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_TRUE(HasPrinted("大米"));
  values[0].value.object = nullptr;
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_EXCEPTION);
  EXPECT_EQ(info_.result, TD_NOTHING_TO_PRINT);
}

TEST_F(LateBinding, PropertiesGoOneWay) {
  OwnedVariant value;
  EXPECT_EQ(Get(printer_.Get(), "printok", value).result, TD_OK);
  EXPECT_EQ(value->type, TD_BOOLEAN);
  EXPECT_EQ(Put(printer_.Get(), "PrintOk", TdFlagVariant(1)).result, TD_MEMBER_NOT_FOUND);
  EXPECT_EQ(Get(printer_.Get(), "PrintBlankRows", value).result, TD_MEMBER_NOT_FOUND);
  EXPECT_EQ(Get(printer_.Get(), "DoPrint", value).result, TD_MEMBER_NOT_FOUND);
  EXPECT_EQ(Call(printer_.Get(), "PrintOk", {}).result, TD_MEMBER_NOT_FOUND);
  ExpectOk(Put(printer_.Get(), "PRINTBLANKROWS", TdTextVariant("0")));
}

TEST_F(LateBinding, AMethodMayBeCalledAsIfItHadAResult) {
  EXPECT_EQ(
      Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD | TD_CALL_GET, PrintArguments(rows_.Get())),
      TD_OK);
  EXPECT_TRUE(HasPrinted("大米"));
}

TEST_F(LateBinding, UnknownMembersAndReservedIdentifiersAreRefused) {
  TdDispatch* printer = printer_.Get();
  EXPECT_EQ(printer->table->Invoke(printer, 777, nullptr, 0, TD_CALL_METHOD, nullptr, nullptr,
                                   nullptr, nullptr),
            TD_MEMBER_NOT_FOUND);
  EXPECT_EQ(printer->table->Invoke(printer, 3, &kTdDispatchId, 0, TD_CALL_GET, nullptr, nullptr,
                                   nullptr, nullptr),
            TD_UNKNOWN_INTERFACE);
  EXPECT_EQ(printer->table->Invoke(printer, 3, nullptr, 0, TD_CALL_GET, nullptr, nullptr, nullptr,
                                   nullptr),
            TD_OK)
      << "a result that nobody wants";
}

TEST_F(LateBinding, AnErrorHasNoSourceAndNoHelp) {
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, PrintArguments(nullptr)),
            TD_EXCEPTION);
  EXPECT_EQ(info_.code, 0);
  EXPECT_EQ(info_.result, TD_NOTHING_TO_PRINT);
  EXPECT_EQ(TextOf(info_.description), "没有可供打印的数据!");
  EXPECT_EQ(info_.source, nullptr);
  EXPECT_EQ(info_.helpFile, nullptr);
  EXPECT_EQ(info_.helpContext, 0U);
}

TEST_F(LateBinding, AHalfOfACharacterInATextIsNoCrash) {
  const std::array<TdUnit, 3> units = {0xD83D, u'x', 0xDC00};
  const OwnedString broken(TdMakeStringOfUnits(units.data(), 3));
  std::vector<TdVariant> values = PrintArguments(rows_.Get());
  TdVariant format = values[4];
  format.value.string = broken.Get();
  values.insert(values.begin(), format);
  EXPECT_EQ(Invoke(printer_.Get(), u"DoPrint", TD_CALL_METHOD, values), TD_OK);
  EXPECT_FALSE(PrintOk(printer_.Get())) << "there is no such format";
}

}  // namespace
}  // namespace td
