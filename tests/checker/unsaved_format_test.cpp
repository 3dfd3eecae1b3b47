// A format that only a program holds: nothing of it is in a database.
#include <gtest/gtest.h>

#include <map>

#include "checked_sample.h"
#include "memory_rows/memory_recordset.h"

namespace td::checker {
namespace {

using enum FindingKind;

const Value kOne = std::int64_t{1};

FormatRows Receipt() {
  FormatRows format;
  format.billType = 50;
  format.name = "收据";
  for (const std::string_view column : BillColumns()) format.bill.columns.emplace_back(column);
  const std::map<std::string, Value, std::less<>> values = {
      {"FTDBillID", kOne},     {"FTranType", std::int64_t{50}},
      {"FTDBillName", "收据"}, {"FPaperSize", 256.0},
      {"FPaperWidth", 4000.0}, {"FPaperHeight", 8000.0},
      {"FRowsPerPage", 10.0},  {"FRowHeight", 300.0}};
  format.bill.rows.resize(1);
  for (const std::string& column : format.bill.columns) {
    const auto value = values.find(column);
    format.bill.rows[0].push_back(value == values.end() ? Value() : value->second);
  }
  format.items = {
      {"FTDBillID", "FSite", "FTypeID", "FLeft", "FTop", "FWidth", "FHeight", "FFontName",
       "FFontSize", "FFontBold", "FFontItalic", "FAlignMent", "FWordWrap", "FAutoSize",
       "FObjectFieldName", "FObjectCaption", "FFormatString", "FIsVariant", "FMustPrint"},
      {}};
  format.variables = {
      {"FTranType", "FVarCaption", "FVarName"},
      {{std::int64_t{50}, "品名", "FItemName"}, {std::int64_t{50}, "合计", "ftotalpage"}}};
  return format;
}

void AddItem(FormatRows& format, int site, double top, const std::string& variable) {
  const Value zero = std::int64_t{0};
  format.items.rows.push_back({kOne, std::int64_t{site}, zero, 200.0, top, 3000.0, 280.0, "宋体",
                               9.0, zero, zero, zero, zero, zero, variable, variable, "", kOne,
                               zero});
}

std::vector<Finding> Check(FormatRows format, const CheckOptions& options = {}) {
  ResolveVariables(format);
  const FakeMachine machine(Desktop().Get().pictures);
  return CheckFormat(format, machine, options);
}

TEST(UnsavedFormat, ASoundOneHasNoFindings) {
  FormatRows format = Receipt();
  AddItem(format, 3, 500, "品名");
  AddItem(format, 4, 900, "合计");
  EXPECT_TRUE(Check(format).empty());
}

TEST(UnsavedFormat, ItsVariablesAreFoundAsADatabaseFindsThem) {
  FormatRows format = Receipt();
  AddItem(format, 3, 500, "品明");
  const std::vector<Finding> findings = Check(format);
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind, kVariableUnknown);
  EXPECT_EQ(findings[0].item->index, 0U);
  EXPECT_EQ(findings[0].arguments[1], "品名");
}

TEST(UnsavedFormat, ItIsCheckedWithRows) {
  FormatRows format = Receipt();
  AddItem(format, 3, 500, "品名");
  AddItem(format, 4, 900, "合计");
  CheckOptions options;
  options.rows =
      std::make_shared<MemoryRecordset>(std::vector<std::string>{"FInterID", "FAmount"},
                                        std::vector<std::vector<Value>>{{kOne, 12.5}, {kOne, 3.0}});
  std::vector<FindingKind> kinds;
  for (const Finding& finding : Check(format, options)) kinds.push_back(finding.kind);
  EXPECT_EQ(kinds, (std::vector{kColumnMissing, kMarkerColumnMissing}));
  EXPECT_FALSE(options.rows->Eof());  // a clone of it was moved
}

TEST(UnsavedFormat, AnEmptyOneSaysSo) {
  const std::vector<Finding> findings = Check(Receipt());
  ASSERT_EQ(findings.size(), 1U);
  EXPECT_EQ(findings[0].kind, kNoItems);
}

}  // namespace
}  // namespace td::checker
