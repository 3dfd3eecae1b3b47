// What programs and helpers in other languages have built into them: sizes, places, numbers and
// identifiers of the binary interface. A published line of these tables never changes; a new thing
// in a header gets a line of its own, and the last test names those that are still missing.
#include "interface/binary_interface.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <string_view>
#include <type_traits>

#include "file_content.h"
#include "memory_rows/memory_recordset.h"
#include "recordsets/recordset_object.h"
#include "server_fixture.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

static_assert(sizeof(void*) == 8, "the sizes and places below are those of 64-bit machines");

struct Number {
  const char* name;
  std::int64_t is, published;
};

template <class Self, class... Arguments>
using Operation = TdResult(TD_CALL*)(Self*, Arguments...);

// Where an operation stands in its table; -1 if it takes other arguments than are published.
template <class Published, class Declared>
constexpr std::int64_t PlaceInTable(std::size_t offset) {
  return std::is_same_v<Published, Declared> ? static_cast<std::int64_t>(offset / sizeof(void*))
                                             : -1;
}

constexpr Number Line(const char* name, std::int64_t is, std::int64_t published) {
  return {name, is, published};
}

// Each line names a thing once, and keeps the name for the message.
#define NUMBER(name, published) Line(#name, name, published)
#define RESULT(name, published) Line(#name, static_cast<std::uint32_t>(name), published)
#define SIZE(Type, published) Line(#Type, sizeof(Type), published)
#define PLACE(Type, member, published) Line(#Type "." #member, offsetof(Type, member), published)
// The arguments are those behind the object itself.
#define OPERATION(Table, Self, name, place, ...)                                        \
  Line(#Table "." #name,                                                                \
       PlaceInTable<Operation<Self __VA_OPT__(, ) __VA_ARGS__>, decltype(Table::name)>( \
           offsetof(Table, name)),                                                      \
       place)

constexpr Number kResults[] = {
    RESULT(TD_OK, 0),
    RESULT(TD_FALSE, 1),
    RESULT(TD_NOT_IMPLEMENTED, 0x80004001),
    RESULT(TD_NO_INTERFACE, 0x80004002),
    RESULT(TD_BAD_POINTER, 0x80004003),
    RESULT(TD_FAILURE, 0x80004005),
    RESULT(TD_NO_ACCESS, 0x80070005),
    RESULT(TD_FILE_NOT_FOUND, 0x80070002),
    RESULT(TD_OUT_OF_MEMORY, 0x8007000E),
    RESULT(TD_WRONG_THREAD, 0x8001010E),
    RESULT(TD_UNKNOWN_INTERFACE, 0x80020001),
    RESULT(TD_MEMBER_NOT_FOUND, 0x80020003),
    RESULT(TD_PARAMETER_NOT_FOUND, 0x80020004),
    RESULT(TD_TYPE_MISMATCH, 0x80020005),
    RESULT(TD_UNKNOWN_NAME, 0x80020006),
    RESULT(TD_BAD_VARIANT_TYPE, 0x80020008),
    RESULT(TD_EXCEPTION, 0x80020009),
    RESULT(TD_VALUE_OVERFLOW, 0x8002000A),
    RESULT(TD_BAD_ARGUMENT_COUNT, 0x8002000E),
    RESULT(TD_ARGUMENT_NOT_OPTIONAL, 0x8002000F),
    RESULT(TD_NO_AGGREGATION, 0x80040110),
    RESULT(TD_CLASS_NOT_AVAILABLE, 0x80040111),
    RESULT(TD_CLASS_NOT_REGISTERED, 0x80040154),
    RESULT(TD_NAME_NOT_REGISTERED, 0x800401F3),
    RESULT(TD_CANNOT_REGISTER, 0x80040201),
    RESULT(TD_NOTHING_TO_PRINT, 0x800403E9),
    RESULT(TD_RESULT_OF_NUMBER(3265), 0x800A0CC1),
};

constexpr Number kNumbers[] = {
    NUMBER(TD_TRUE_FLAG, -1),
    NUMBER(TD_FALSE_FLAG, 0),
    NUMBER(TD_EMPTY, 0),
    NUMBER(TD_NULL, 1),
    NUMBER(TD_INT16, 2),
    NUMBER(TD_INT32, 3),
    NUMBER(TD_FLOAT, 4),
    NUMBER(TD_DOUBLE, 5),
    NUMBER(TD_CURRENCY, 6),
    NUMBER(TD_DATE, 7),
    NUMBER(TD_STRING, 8),
    NUMBER(TD_DISPATCH, 9),
    NUMBER(TD_ERROR, 10),
    NUMBER(TD_BOOLEAN, 11),
    NUMBER(TD_VARIANT, 12),
    NUMBER(TD_OBJECT, 13),
    NUMBER(TD_DECIMAL, 14),
    NUMBER(TD_INT8, 16),
    NUMBER(TD_UINT8, 17),
    NUMBER(TD_UINT16, 18),
    NUMBER(TD_UINT32, 19),
    NUMBER(TD_INT64, 20),
    NUMBER(TD_UINT64, 21),
    NUMBER(TD_INT, 22),
    NUMBER(TD_UINT, 23),
    NUMBER(TD_BYTES, 0x2011),
    NUMBER(TD_BY_REFERENCE, 0x4000),
    NUMBER(TD_CALL_METHOD, 1),
    NUMBER(TD_CALL_GET, 2),
    NUMBER(TD_CALL_PUT, 4),
    NUMBER(TD_CALL_PUT_REFERENCE, 8),
    NUMBER(TD_MESSAGES_SHOWN, 0),
    NUMBER(TD_MESSAGES_ON_STANDARD_ERROR, 1),
    NUMBER(TD_MESSAGES_COLLECTED, 2),
    NUMBER(TD_MEMBER_VALUE, 0),
    NUMBER(TD_MEMBER_UNKNOWN, -1),
    NUMBER(TD_MEMBER_PUT, -3),
};

constexpr Number kLayout[] = {
    SIZE(TdResult, 4),
    SIZE(TdUnit, 2),
    SIZE(TdString, 8),
    SIZE(TdFlag, 2),
    SIZE(TdGuid, 16),
    PLACE(TdGuid, first, 0),
    PLACE(TdGuid, second, 4),
    PLACE(TdGuid, third, 6),
    PLACE(TdGuid, rest, 8),
    SIZE(TdArrayBound, 8),
    PLACE(TdArrayBound, count, 0),
    PLACE(TdArrayBound, lowest, 4),
    SIZE(TdArray, 32),
    PLACE(TdArray, dimensions, 0),
    PLACE(TdArray, features, 2),
    PLACE(TdArray, elementSize, 4),
    PLACE(TdArray, locks, 8),
    PLACE(TdArray, data, 16),
    PLACE(TdArray, bounds, 24),
    SIZE(TdVariant, 24),
    PLACE(TdVariant, type, 0),
    PLACE(TdVariant, decimalScale, 2),
    PLACE(TdVariant, decimalSign, 3),
    PLACE(TdVariant, decimalHigh, 4),
    PLACE(TdVariant, value, 8),
    SIZE(TdArguments, 24),
    PLACE(TdArguments, arguments, 0),
    PLACE(TdArguments, names, 8),
    PLACE(TdArguments, count, 16),
    PLACE(TdArguments, nameCount, 20),
    SIZE(TdExceptionInfo, 64),
    PLACE(TdExceptionInfo, code, 0),
    PLACE(TdExceptionInfo, reserved, 2),
    PLACE(TdExceptionInfo, source, 8),
    PLACE(TdExceptionInfo, description, 16),
    PLACE(TdExceptionInfo, helpFile, 24),
    PLACE(TdExceptionInfo, helpContext, 32),
    PLACE(TdExceptionInfo, reservedPointer, 40),
    PLACE(TdExceptionInfo, fillLater, 48),
    PLACE(TdExceptionInfo, result, 56),
};

// A table holds nothing but pointers, so its size tells how many operations it has.
constexpr Number kTables[] = {
    SIZE(TdObject, 8),
    SIZE(TdObjectTable, 3 * 8),
    OPERATION(TdObjectTable, TdObject, QueryInterface, 0, const TdGuid*, void**),
    PLACE(TdObjectTable, AddRef, 8),
    PLACE(TdObjectTable, Release, 16),

    SIZE(TdClassFactory, 8),
    SIZE(TdClassFactoryTable, 5 * 8),
    OPERATION(TdClassFactoryTable, TdClassFactory, CreateInstance, 3, TdObject*, const TdGuid*,
              void**),
    OPERATION(TdClassFactoryTable, TdClassFactory, LockServer, 4, std::int32_t),

    SIZE(TdDispatch, 8),
    SIZE(TdDispatchTable, 7 * 8),
    OPERATION(TdDispatchTable, TdDispatch, GetTypeInfoCount, 3, std::uint32_t*),
    OPERATION(TdDispatchTable, TdDispatch, GetTypeInfo, 4, std::uint32_t, std::uint32_t, void**),
    OPERATION(TdDispatchTable, TdDispatch, GetIDsOfNames, 5, const TdGuid*, const TdUnit* const*,
              std::uint32_t, std::uint32_t, std::int32_t*),
    OPERATION(TdDispatchTable, TdDispatch, Invoke, 6, std::int32_t, const TdGuid*, std::uint32_t,
              std::uint16_t, TdArguments*, TdVariant*, TdExceptionInfo*, std::uint32_t*),

    SIZE(TdErrorSource, 8),
    SIZE(TdErrorSourceTable, 4 * 8),
    OPERATION(TdErrorSourceTable, TdErrorSource, LastError, 3, TdExceptionInfo*),

    SIZE(TdPrinter, 8),
    SIZE(TdPrinterTable, 11 * 8),
    OPERATION(TdPrinterTable, TdPrinter, DoPrint, 7, TdFlag, TdString, std::int16_t, TdFlag, TdFlag,
              TdDispatch**, TdString, TdVariant*),
    OPERATION(TdPrinterTable, TdPrinter, DoPrint_GroupByArea, 8, TdFlag, TdString, std::int16_t,
              TdFlag, TdFlag, TdDispatch**, TdString, TdVariant*),
    OPERATION(TdPrinterTable, TdPrinter, PrintOk, 9, TdFlag*),
    OPERATION(TdPrinterTable, TdPrinter, PrintBlankRows, 10, std::int16_t),

    SIZE(TdSession, 8),
    SIZE(TdSessionTable, 35 * 8),
    OPERATION(TdSessionTable, TdSession, DoPrint, 7, TdFlag, TdString, std::int16_t, TdFlag, TdFlag,
              TdDispatch**, TdString, TdVariant*),
    OPERATION(TdSessionTable, TdSession, DoPrint_GroupByArea, 8, TdFlag, TdString, std::int16_t,
              TdFlag, TdFlag, TdDispatch**, TdString, TdVariant*),
    OPERATION(TdSessionTable, TdSession, PrintOk, 9, TdFlag*),
    OPERATION(TdSessionTable, TdSession, PrintBlankRows, 10, std::int16_t),
    OPERATION(TdSessionTable, TdSession, ToPrinter, 11, TdString),
    OPERATION(TdSessionTable, TdSession, ToPdf, 12, TdString),
    OPERATION(TdSessionTable, TdSession, ToPng, 13, TdString, double),
    OPERATION(TdSessionTable, TdSession, ToHtml, 14, TdString),
    OPERATION(TdSessionTable, TdSession, MessageMode, 15, std::int32_t),
    OPERATION(TdSessionTable, TdSession, LockWaitLimit, 16, double),
    OPERATION(TdSessionTable, TdSession, Progress, 17, TdDispatch*),
    OPERATION(TdSessionTable, TdSession, Explain, 18, TdFlag),
    OPERATION(TdSessionTable, TdSession, LogFile, 19, TdString),
    OPERATION(TdSessionTable, TdSession, Cancel, 20),
    OPERATION(TdSessionTable, TdSession, Delivered, 21, TdFlag*),
    OPERATION(TdSessionTable, TdSession, Result, 22, TdString*),
    OPERATION(TdSessionTable, TdSession, Reason, 23, TdString*),
    OPERATION(TdSessionTable, TdSession, Pages, 24, std::int32_t*),
    OPERATION(TdSessionTable, TdSession, PrinterName, 25, TdString*),
    OPERATION(TdSessionTable, TdSession, JobNumber, 26, std::int32_t*),
    OPERATION(TdSessionTable, TdSession, Jobs, 27, TdString*),
    OPERATION(TdSessionTable, TdSession, MessageCount, 28, std::int32_t*),
    OPERATION(TdSessionTable, TdSession, Message, 29, std::int32_t, TdString*),
    OPERATION(TdSessionTable, TdSession, Messages, 30, TdString*),
    OPERATION(TdSessionTable, TdSession, MessagePlace, 31, std::int32_t, TdString*),
    OPERATION(TdSessionTable, TdSession, Complaints, 32, TdString*),
    OPERATION(TdSessionTable, TdSession, Explanation, 33, TdString*),
    OPERATION(TdSessionTable, TdSession, ExplanationJson, 34, TdString*),

    SIZE(TdSettings, 8),
    SIZE(TdSettingsTable, 8 * 8),
    OPERATION(TdSettingsTable, TdSettings, TDSet, 7, TdString, std::int16_t),

    SIZE(TdRecordset, 8),
    SIZE(TdRecordsetTable, 12 * 8),
    OPERATION(TdRecordsetTable, TdRecordset, AtEnd, 7, TdFlag*),
    OPERATION(TdRecordsetTable, TdRecordset, FieldValue, 8, TdString, TdVariant*),
    OPERATION(TdRecordsetTable, TdRecordset, MoveNext, 9),
    OPERATION(TdRecordsetTable, TdRecordset, MoveFirst, 10),
    OPERATION(TdRecordsetTable, TdRecordset, Clone, 11, TdRecordset**),
};

struct Identifier {
  const char* name;
  TdGuid is;
  std::string_view published;
};

const Identifier kIdentifiers[] = {
    {"kTdNoId", kTdNoId, "00000000-0000-0000-0000-000000000000"},
    {"kTdObjectId", kTdObjectId, "00000000-0000-0000-C000-000000000046"},
    {"kTdClassFactoryId", kTdClassFactoryId, "00000001-0000-0000-C000-000000000046"},
    {"kTdDispatchId", kTdDispatchId, "00020400-0000-0000-C000-000000000046"},
    {"kTdPrinterClass", kTdPrinterClass, "2389511E-AE07-4A8F-BF68-F2D15542C87E"},
    {"kTdSessionClass", kTdSessionClass, "BEC9E21A-8357-4EC5-B261-5CEC43B82E3B"},
    {"kTdSettingsClass", kTdSettingsClass, "A15FD0B3-9AE9-4BD7-9165-600AB8D40FD1"},
    {"kTdPrinterId", kTdPrinterId, "136F0717-EE88-4E14-BE20-17F115F0DCAB"},
    {"kTdSessionId", kTdSessionId, "D0C96F7D-0D70-479A-82AD-828783E904B2"},
    {"kTdSettingsId", kTdSettingsId, "EE531EA5-2136-4D71-BD6E-2AD86F122119"},
    {"kTdRecordsetId", kTdRecordsetId, "350B0D1E-80DD-4237-B057-109118376536"},
    {"kTdErrorSourceId", kTdErrorSourceId, "DD8EFB2F-8722-4F45-84E2-01F0EDB5F360"},
};

struct Name {
  const char* name;
  std::string_view is, published;
};

constexpr Name kNames[] = {
    {"TD_PRINTER_CLASS_NAME", TD_PRINTER_CLASS_NAME, "QbTdPrinter.Printer"},
    {"TD_SESSION_CLASS_NAME", TD_SESSION_CLASS_NAME, "QbTdPrinter.Session"},
    {"TD_SETTINGS_CLASS_NAME", TD_SETTINGS_CLASS_NAME, "QbTdPrinter.TDSet"},
};

// A member that is called by name: its number, and the names of its arguments, numbered from 0.
struct CalledMember {
  const char16_t* name;
  std::int32_t number;
  std::vector<const char16_t*> arguments;
};

const std::vector<const char16_t*> kPrintArguments = {
    u"New_DoPrint",     u"New_PromptString", u"New_TranType", u"New_OnlyPrintVariantItem",
    u"New_PrintBorder", u"PrintData",        u"TDBillName",   u"PrintDevice"};

const std::vector<CalledMember> kPrinterMembers = {{u"DoPrint", 1, kPrintArguments},
                                                   {u"DoPrint_GroupByArea", 2, kPrintArguments},
                                                   {u"PrintOk", 3, {}},
                                                   {u"PrintBlankRows", 4, {u"NewValue"}}};
const std::vector<CalledMember> kSessionMembers = {{u"DoPrint", 1, kPrintArguments},
                                                   {u"DoPrint_GroupByArea", 2, kPrintArguments},
                                                   {u"PrintOk", 3, {}},
                                                   {u"PrintBlankRows", 4, {u"NewValue"}},
                                                   {u"ToPrinter", 5, {u"Name"}},
                                                   {u"ToPdf", 6, {u"File"}},
                                                   {u"ToPng", 7, {u"Folder", u"DotsPerInch"}},
                                                   {u"ToHtml", 8, {u"File"}},
                                                   {u"MessageMode", 9, {u"NewValue"}},
                                                   {u"LockWaitLimit", 10, {u"NewValue"}},
                                                   {u"Progress", 11, {u"NewValue"}},
                                                   {u"Explain", 12, {u"NewValue"}},
                                                   {u"LogFile", 13, {u"NewValue"}},
                                                   {u"Cancel", 14, {}},
                                                   {u"Delivered", 17, {}},
                                                   {u"Result", 18, {}},
                                                   {u"Reason", 19, {}},
                                                   {u"Pages", 20, {}},
                                                   {u"PrinterName", 21, {}},
                                                   {u"JobNumber", 22, {}},
                                                   {u"Jobs", 23, {}},
                                                   {u"MessageCount", 24, {}},
                                                   {u"Message", 15, {u"Index"}},
                                                   {u"Messages", 25, {}},
                                                   {u"MessagePlace", 16, {u"Index"}},
                                                   {u"Complaints", 26, {}},
                                                   {u"Explanation", 27, {}},
                                                   {u"ExplanationJson", 28, {}}};
const std::vector<CalledMember> kSettingsMembers = {{u"TDSet", 1, {u"PromptString", u"TranType"}}};
const std::vector<CalledMember> kRecordsetMembers = {
    {u"EOF", 1, {}},       {u"Fields", 2, {u"Index"}},   {u"MoveNext", 3, {}},
    {u"MoveFirst", 4, {}}, {u"Clone", 5, {u"LockType"}}, {u"Close", 6, {}}};

template <std::size_t count>
void ExpectAsPublished(const Number (&numbers)[count]) {
  for (const Number& number : numbers) EXPECT_EQ(number.is, number.published) << number.name;
}

void ExpectMembers(TdDispatch* object, const std::vector<CalledMember>& members) {
  for (const CalledMember& member : members) {
    std::vector<const char16_t*> names = {member.name};
    names.insert(names.end(), member.arguments.begin(), member.arguments.end());
    std::vector<std::int32_t> expected = {member.number};
    for (std::size_t i = 0; i < member.arguments.size(); ++i) {
      expected.push_back(static_cast<std::int32_t>(i));
    }
    std::vector<std::int32_t> numbers(names.size());
    EXPECT_EQ(
        object->table->GetIDsOfNames(object, &kTdNoId, names.data(),
                                     static_cast<std::uint32_t>(names.size()), 0, numbers.data()),
        TD_OK);
    EXPECT_EQ(numbers, expected) << "member " << member.number;
  }
}

std::string TextOf(const TdGuid& id) {
  char text[37];
  (void)std::snprintf(text, sizeof(text), "%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                      id.first, id.second, id.third, id.rest[0], id.rest[1], id.rest[2], id.rest[3],
                      id.rest[4], id.rest[5], id.rest[6], id.rest[7]);
  return text;
}

TEST(BinaryInterface, ResultCodesAreAsPublished) {
  ExpectAsPublished(kResults);
}

TEST(BinaryInterface, NumbersAreAsPublished) {
  ExpectAsPublished(kNumbers);
}

TEST(BinaryInterface, StructuresAreLaidOutAsPublished) {
  ExpectAsPublished(kLayout);
}

TEST(BinaryInterface, TablesHaveThePublishedOperationsInTheirOrder) {
  ExpectAsPublished(kTables);
}

TEST(BinaryInterface, IdentifiersAreAsPublished) {
  for (const Identifier& id : kIdentifiers) EXPECT_EQ(TextOf(id.is), id.published) << id.name;
}

TEST(BinaryInterface, ClassesHaveThePublishedNames) {
  for (const Name& name : kNames) EXPECT_EQ(name.is, name.published) << name.name;
}

class BinaryInterfaceByName : public ServerTest {};

TEST_F(BinaryInterfaceByName, MembersHaveThePublishedNumbers) {
  ExpectMembers(NewPrinter().Get(), kPrinterMembers);
  ExpectMembers(module_->Create(kTdSessionClass).Get(), kSessionMembers);
  ExpectMembers(module_->Create(kTdSettingsClass).Get(), kSettingsMembers);
  TdDispatch* rows = NewRecordsetObject(std::make_shared<MemoryRecordset>(
      std::vector<std::string>{}, std::vector<std::vector<Value>>{}));
  ExpectMembers(rows, kRecordsetMembers);
  rows->table->Release(rows);
}

// The helper writes them down once more: it has no compiler that reads the header.
TEST(BinaryInterface, TheHelperForPythonHasThePublishedResultCodes) {
  const std::string helper = ContentOf(QBTD_SOURCE_DIR "/server/python/qbtdprinter/_structures.py");
  std::size_t found = 0;
  for (const Number& code : kResults) {
    const std::string name = std::string(code.name).substr(std::string_view("TD_").size());
    std::smatch line;
    if (!std::regex_search(helper, line, std::regex("\n" + name + " = (\\w+)\n"))) continue;
    ++found;
    EXPECT_EQ(std::stoll(line[1], nullptr, 0), code.published) << name;
  }
  EXPECT_GE(found, 15U);
}

// What the type library of Windows tells of an interface: its members as MEMBER NUMBER ARGUMENT…
std::string MembersIn(const std::string& typeLibrary, const std::string& interface) {
  const std::size_t begin = typeLibrary.find("interface " + interface + " ");
  const std::string body = typeLibrary.substr(begin, typeLibrary.find("\n  }", begin) - begin);
  const std::regex member(R"(id\((\d+)\)\] HRESULT (\w+)\(([^;]*)\);)");
  const std::regex argument(R"(\[in[^\]]*\] \w+\** (\w+))");  // the answer is [out, retval]
  std::string members;
  for (std::sregex_iterator found(body.begin(), body.end(), member), end; found != end; ++found) {
    members += (*found)[2].str() + " " + (*found)[1].str();
    const std::string arguments = (*found)[3];
    for (std::sregex_iterator one(arguments.begin(), arguments.end(), argument); one != end;
         ++one) {
      members += " " + (*one)[1].str();
    }
    members += "\n";
  }
  return members;
}

std::string Published(const std::vector<CalledMember>& members) {
  std::string published;
  for (const CalledMember& member : members) {
    published += ToUtf8(member.name) + " " + std::to_string(member.number);
    for (const char16_t* argument : member.arguments) published += " " + ToUtf8(argument);
    published += "\n";
  }
  return published;
}

// Programs that bind early go by the type library alone.
TEST(BinaryInterface, TheTypeLibraryHasThePublishedMembersInTheOrderOfTheTables) {
  const std::string library = ContentOf(QBTD_SOURCE_DIR "/server/interface/QbTdPrinter.idl");
  EXPECT_EQ(MembersIn(library, "ITdPrinter"), Published(kPrinterMembers));
  EXPECT_EQ(MembersIn(library, "ITdSession"), Published(kSessionMembers));
  EXPECT_EQ(MembersIn(library, "ITdSettings"), Published(kSettingsMembers));
}

TEST(BinaryInterface, TheTypeLibraryHasThePublishedIdentifiers) {
  const std::string library = ContentOf(QBTD_SOURCE_DIR "/server/interface/QbTdPrinter.idl");
  const std::map<std::string, TdGuid> identifiers = {
      {"interface ITdPrinter", kTdPrinterId},   {"interface ITdSession", kTdSessionId},
      {"interface ITdSettings", kTdSettingsId}, {"coclass Printer", kTdPrinterClass},
      {"coclass Session", kTdSessionClass},     {"coclass TDSet", kTdSettingsClass}};
  for (const auto& [name, id] : identifiers) {
    EXPECT_NE(library.find("uuid(" + TextOf(id) + ")]\n  " + name + " "), std::string::npos)
        << name;
  }
}

// Constants, structures and identifiers of the headers; not the macros that only shorten them.
std::set<std::string> DeclaredNames() {
  std::string headers;
  for (const auto& file :
       std::filesystem::directory_iterator(QBTD_SOURCE_DIR "/server/interface")) {
    headers += ContentOf(file.path());
  }
  const std::regex declaration(
      R"(#define (TD_\w+) [^\\\n]*\w|\b(TD_[A-Z0-9_]+) = |typedef struct (Td\w+) \{|TdGuid (kTd\w+) =)");
  std::set<std::string> names;
  for (std::sregex_iterator found(headers.begin(), headers.end(), declaration), end; found != end;
       ++found) {
    for (std::size_t group = 1; group < found->size(); ++group) {
      if ((*found)[group].matched) names.insert((*found)[group]);
    }
  }
  names.erase("TD_CALL");  // how functions are called, which is the compiler's matter
  return names;
}

TEST(BinaryInterface, EachNameOfTheHeadersStandsInATable) {
  std::set<std::string> published;
  const auto add = [&published](const auto& entries) {
    for (const auto& entry : entries) published.insert(entry.name);
  };
  add(kResults);
  add(kNumbers);
  add(kLayout);
  add(kTables);
  add(kIdentifiers);
  add(kNames);
  const std::set<std::string> declared = DeclaredNames();
  EXPECT_GT(declared.size(), 70U);
  for (const std::string& name : declared) EXPECT_TRUE(published.contains(name)) << name;
}

}  // namespace
}  // namespace td
