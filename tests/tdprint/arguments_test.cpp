#include "arguments.h"

#include <gtest/gtest.h>

#include <vector>

namespace td {
namespace {

Command Parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "tdprint");
  return ParseArguments(static_cast<int>(arguments.size()), arguments.data());
}

// With "print" and the options that it can't do without.
Command ParsePrint(const std::vector<const char*>& more) {
  std::vector<const char*> arguments = {"print", "--db",   "sqlite:a.db", "--type",
                                        "21",    "--data", "select 1"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return Parse(arguments);
}

TEST(TdprintArguments, PrintNeedsDatabaseTypeAndData) {
  const Command command = ParsePrint({});
  const auto& print = std::get<PrintArguments>(command);
  EXPECT_EQ(print.database, "sqlite:a.db");
  EXPECT_EQ(print.billType, 21);
  EXPECT_EQ(print.data, "select 1");
  EXPECT_EQ(print.format, "");
  EXPECT_FALSE(print.onlyVariant);
  EXPECT_EQ(print.blankRows, 0);

  EXPECT_EQ(Parse({"print", "--type", "21", "--data", "x"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"print", "--db", "x", "--data", "x"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"print", "--db", "x", "--type", "21"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, PrintTakesFormatBlankRowsAndVariantOnly) {
  const Command command =
      ParsePrint({"--format", "销售订单 针式", "--only-variant", "--blank-rows", "3"});
  const auto& print = std::get<PrintArguments>(command);
  EXPECT_EQ(print.format, "销售订单 针式");
  EXPECT_TRUE(print.onlyVariant);
  EXPECT_EQ(print.blankRows, 3);
}

TEST(TdprintArguments, PreviewTakesTheArgumentsOfPrint) {
  const Command command = Parse({"preview", "--db", "sqlite:a.db", "--type", "22", "--data",
                                 "select 1", "--by-area", "--only-variant"});
  const auto& preview = std::get<PrintArguments>(command);
  EXPECT_TRUE(preview.preview);
  EXPECT_TRUE(preview.byArea);
  EXPECT_TRUE(preview.onlyVariant);
  EXPECT_EQ(preview.billType, 22);
  EXPECT_FALSE(std::get<PrintArguments>(ParsePrint({"--by-area"})).preview);
}

TEST(TdprintArguments, ADocumentGoesToOnePlaceOnly) {
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--pdf", "a.pdf"})).pdf, "a.pdf");
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--png", "folder"})).png, "folder");
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--html", "a.html"})).html, "a.html");
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--printer", "Dot"})).printer, "Dot");
  EXPECT_EQ(ParsePrint({"--pdf", "a.pdf", "--html", "a.html"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(ParsePrint({"--printer", "Dot", "--png", "x"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, AnEmptyNameOfAPlaceIsWrongUsage) {
  for (const char* option : {"--pdf", "--png", "--html", "--printer"}) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(ParsePrint({option, ""}), Command(ExitStatus::kWrongUsage)) << option;
    const std::string error = testing::internal::GetCapturedStderr();
    EXPECT_NE(error.find(option), std::string::npos) << error;
    EXPECT_EQ(ParsePrint({(option + std::string("=")).c_str()}), Command(ExitStatus::kWrongUsage));
  }
  EXPECT_EQ(Parse({"register", "--module", ""}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"unregister", "--module", ""}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"demo", "--out", ""}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"demo", "--printer", ""}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"demo", "--samples", ""}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"sample-sql", "--engine", "mariadb", "--out", ""}),
            Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, ADashIsStandardOutputForAFileAndNoFolder) {
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--pdf", "-"})).pdf, "/dev/stdout");
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--html", "-"})).html, "/dev/stdout");
  EXPECT_EQ(std::get<PrintArguments>(ParsePrint({"--pdf", "./-"})).pdf, "./-");
  EXPECT_EQ(Parse({"sample-sql", "--engine", "mariadb", "--out", "-"}),
            Command(SampleSqlArguments{"mariadb", false, "", "/dev/stdout"}));
  testing::internal::CaptureStderr();
  EXPECT_EQ(ParsePrint({"--png", "-"}), Command(ExitStatus::kWrongUsage));
  const std::string error = testing::internal::GetCapturedStderr();
  EXPECT_NE(error.find("--png"), std::string::npos) << error;
  EXPECT_NE(error.find("--pdf -"), std::string::npos) << error;
}

TEST(TdprintArguments, NumbersOutsideSixteenBitsAreWrongUsage) {
  const Command largest = Parse({"print", "--db", "x", "--type", "32767", "--data", "x"});
  EXPECT_EQ(std::get<PrintArguments>(largest).billType, 32767);
  EXPECT_EQ(Parse({"print", "--db", "x", "--type", "32768", "--data", "x"}),
            Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"print", "--db", "x", "--type", "two", "--data", "x"}),
            Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(ParsePrint({"--blank-rows", "-1"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, WithoutACommandOrWithAnUnknownOneTheUsageIsWrong) {
  EXPECT_EQ(Parse({}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"copy"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(ParsePrint({"more"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, AskingForHelpIsNoError) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(Parse({"print", "--help"}), Command(ExitStatus::kPrinted));
  const std::string help = testing::internal::GetCapturedStdout();
  EXPECT_NE(help.find("Examples:"), std::string::npos);
  EXPECT_NE(help.find("Exit status:"), std::string::npos);
}

TEST(TdprintArguments, TheVersionIsThatOfTheProject) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(Parse({"--version"}), Command(ExitStatus::kPrinted));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "tdprint " QBTD_VERSION "\n");
}

TEST(TdprintArguments, CheckNeedsNothingButADatabase) {
  EXPECT_EQ(Parse({"check", "--db", "sqlite:a.db"}), Command(CheckArguments{"sqlite:a.db"}));
  EXPECT_EQ(Parse({"check"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"check", "--db", "x", "--type", "32768"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"check", "--db", "x", "--format", ""}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, CheckTakesRowsOfABillType) {
  const Command command = Parse({"check", "--db", "x", "--type", "-3", "--format", "单", "--data",
                                 "select 1", "--printer", "Dot", "--by-area", "--json"});
  EXPECT_EQ(command,
            Command(CheckArguments{"x", std::int16_t{-3}, "单", "select 1", "Dot", true, true}));
  EXPECT_EQ(Parse({"check", "--db", "x", "--data", "select 1"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, DemoWritesIntoOutUnlessToldOtherwise) {
  EXPECT_EQ(std::get<DemoArguments>(Parse({"demo"})).out, "out");
  EXPECT_EQ(std::get<DemoArguments>(Parse({"demo", "--out", "there"})).out, "there");
}

TEST(TdprintArguments, SettingsNeedDatabaseAndType) {
  const Command command = Parse({"settings", "--db", "sqlite:a.db", "--type", "22"});
  EXPECT_EQ(command, Command(SettingsArguments{"sqlite:a.db", 22}));
  EXPECT_EQ(Parse({"settings", "--db", "x"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"settings", "--type", "22"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"settings", "--db", "x", "--type", "32768"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, TheDesignerAsksForADatabaseThatIsNotGiven) {
  EXPECT_EQ(Parse({"design"}), Command(DesignArguments{}));
  EXPECT_EQ(Parse({"design", "--db", "sqlite:a.db", "--type", "21", "--format", "运单", "--data",
                   "select 1"}),
            Command(DesignArguments{"sqlite:a.db", 21, "运单", "select 1"}));
  EXPECT_EQ(Parse({"design", "--db", "sqlite:a.db"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"design", "--format", "运单"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"design", "--data", "select 1"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, AreaPrintersNeedADatabase) {
  EXPECT_EQ(Parse({"area-printers", "--db", "sqlite:a.db"}),
            Command(AreaPrintersArguments{"sqlite:a.db"}));
  EXPECT_EQ(Parse({"area-printers"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"area-printers", "--db", "x", "--type", "22"}),
            Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, SampleSqlNeedsAnEngineThatIsKnown) {
  EXPECT_EQ(Parse({"sample-sql", "--engine", "mariadb"}),
            Command(SampleSqlArguments{"mariadb", false, "", ""}));
  EXPECT_EQ(Parse({"sample-sql", "--engine", "sqlserver", "--only-schema", "--out", "a.sql"}),
            Command(SampleSqlArguments{"sqlserver", true, "", "a.sql"}));
  EXPECT_EQ(Parse({"sample-sql"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"sample-sql", "--engine", "other"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, RegistrationTakesTheInstalledModuleUnlessToldOtherwise) {
  EXPECT_EQ(Parse({"register"}), Command(RegisterArguments{""}));
  EXPECT_EQ(Parse({"register", "--module", "a.so"}), Command(RegisterArguments{"a.so"}));
  EXPECT_EQ(Parse({"unregister"}), Command(UnregisterArguments{""}));
  EXPECT_EQ(Parse({"unregister", "--module", "a.so"}), Command(UnregisterArguments{"a.so"}));
  EXPECT_EQ(Parse({"register", "a.so"}), Command(ExitStatus::kWrongUsage));
}

TEST(TdprintArguments, FormatsAreWrittenToFilesAndTakenFromThem) {
  EXPECT_EQ(Parse({"export-format", "--db", "d", "--type", "21"}),
            Command(ExportFormatArguments{"d", 21, "", "", false}));
  EXPECT_EQ(Parse({"export-format", "--db", "d", "--type", "21", "--format", "f", "--out", "-",
                   "--with-pictures"}),
            Command(ExportFormatArguments{"d", 21, "f", "/dev/stdout", true}));
  EXPECT_EQ(Parse({"export-format", "--db", "d"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"import-format", "--db", "d", "a.json"}),
            Command(ImportFormatArguments{"d", std::nullopt, "", false, false, "", "a.json"}));
  EXPECT_EQ(Parse({"import-format", "--db", "d", "--type", "0", "--format", "f", "--replace",
                   "--dry-run", "--pictures", "/", "a.json"}),
            Command(ImportFormatArguments{"d", std::int16_t{0}, "f", true, true, "/", "a.json"}));
  EXPECT_EQ(Parse({"import-format", "--db", "d"}), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"import-format", "--db", "d", "--pictures", "/nowhere", "a.json"}),
            Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse({"diff-format", "a.json", "b.json"}),
            Command(DiffFormatArguments{"a.json", "b.json"}));
  EXPECT_EQ(Parse({"diff-format", "a.json"}), Command(ExitStatus::kWrongUsage));
}

}  // namespace
}  // namespace td
