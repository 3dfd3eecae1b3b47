// Formats that leave a database as files and come into another.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "designer/model/format_store.h"
#include "desktop/databases.h"
#include "program_run.h"
#include "sample_engine.h"
#include "sample_files.h"
#include "scratch_folder.h"

namespace td::designer {
namespace {

std::string ContentOf(const std::filesystem::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

class FormatRoundTrip : public ::testing::TestWithParam<SampleEngine> {
 protected:
  FormatRoundTrip() { RenewSample(GetParam()); }

  [[nodiscard]] ProgramResult Run(std::vector<std::string> command) const {
    command.insert(command.begin(), TDPRINT_PROGRAM);
    return ProgramRun(command, scratch_.Path()).Finish();
  }
  [[nodiscard]] ProgramResult Import(const std::string& file,
                                     std::vector<std::string> more = {}) const {
    std::vector<std::string> command = {"import-format", "--db", SampleOn(GetParam()), file};
    command.insert(command.end(), more.begin(), more.end());
    return Run(command);
  }

  [[nodiscard]] static std::vector<FormatEntry> Formats() {
    Databases databases;
    return FormatStore(databases, SampleOn(GetParam())).ListAll();
  }

  // A file for each format, by its name.
  [[nodiscard]] std::map<std::string, std::string> ExportAll(const std::string& prefix) const {
    std::map<std::string, std::string> files;
    for (const FormatEntry& entry : Formats()) {
      const std::string file =
          (scratch_ / (prefix + std::to_string(entry.billType) + entry.name + ".json")).string();
      const ProgramResult result =
          Run({"export-format", "--db", SampleOn(GetParam()), "--type",
               std::to_string(entry.billType), "--format", entry.name, "--out", file});
      EXPECT_EQ(result.status, 0) << result.err;
      files[std::to_string(entry.billType) + entry.name] = file;
    }
    return files;
  }

  [[nodiscard]] std::string Printed(const SamplePrint& print) const {
    const std::string file = (scratch_ / (print.name + ".html")).string();
    std::vector<std::string> command = {"print",
                                        "--db",
                                        SampleOn(GetParam()),
                                        "--type",
                                        std::to_string(print.billType),
                                        "--format",
                                        print.format,
                                        "--data",
                                        print.data,
                                        "--blank-rows",
                                        std::to_string(print.blankRows),
                                        "--html",
                                        file};
    if (print.onlyVariant) command.emplace_back("--only-variant");
    if (print.byArea) command.emplace_back("--by-area");
    const ProgramResult result = Run(command);
    EXPECT_EQ(result.status, 0) << result.err;
    return ContentOf(file);
  }

  const ScratchFolder scratch_;
};

INSTANTIATE_TEST_SUITE_P(Engines, FormatRoundTrip, kEachEngine, NameOfEngine);

TEST_P(FormatRoundTrip, AFormatThatComesBackPrintsTheSame) {
  std::vector<SamplePrint> prints;
  std::map<std::string, std::string> before;
  for (const SamplePrint& print :
       ReadSamplePrints(std::filesystem::path(QBTD_SOURCE_DIR) / "examples")) {
    if (before.contains(print.format)) continue;
    before[print.format] = Printed(print);
    prints.push_back(print);
  }
  const auto files = ExportAll("before-");
  RunScriptOn(GetParam(), "delete from TDBillDetail; delete from TDBill; delete from TDVariant;");
  for (const auto& [name, file] : files) {
    const ProgramResult result = Import(file);
    EXPECT_EQ(result.status, 0) << result.err;
  }
  for (const SamplePrint& print : prints) EXPECT_EQ(Printed(print), before[print.format]);
  for (const auto& [name, file] : ExportAll("after-")) {
    EXPECT_EQ(ContentOf(file), ContentOf(files.at(name))) << name;
  }
}

TEST_P(FormatRoundTrip, EachEngineWritesTheSameFile) {
  const auto files = ExportAll("here-");
  RenewSample(SampleEngine::kSqlite);
  for (const auto& [name, file] : files) {
    const std::string other = (scratch_ / "sqlite.json").string();
    EXPECT_EQ(Run({"export-format", "--db", SampleOn(SampleEngine::kSqlite), "--type",
                   name.substr(0, 2), "--format", name.substr(2), "--out", other})
                  .status,
              0);
    const ProgramResult result = Run({"diff-format", file, other});
    EXPECT_EQ(result.status, 0) << result.out;
    EXPECT_EQ(ContentOf(file), ContentOf(other));
  }
}

TEST_P(FormatRoundTrip, AFormatComesUnderAnotherNameAndBillType) {
  const auto files = ExportAll("one-");
  const std::string& file = files.begin()->second;
  EXPECT_EQ(Import(file).status, 1) << "the name is taken";
  const std::size_t count = Formats().size();
  const ProgramResult dry = Import(file, {"--type", "77", "--format", "新名", "--dry-run"});
  EXPECT_EQ(dry.status, 0) << dry.err;
  EXPECT_NE(dry.out.find("would be added: format “新名” of bill type 77"), std::string::npos)
      << dry.out;
  EXPECT_EQ(Formats().size(), count) << "nothing is written";
  const ProgramResult done = Import(file, {"--type", "77", "--format", "新名"});
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_EQ(Formats().size(), count + 1);
  Databases databases;
  const Format format = FormatStore(databases, SampleOn(GetParam())).Load(77, "新名");
  EXPECT_GT(format.items.Size(), 0U);
  EXPECT_FALSE(format.variables.empty());
}

TEST_P(FormatRoundTrip, AFormatIsReplacedByItsFile) {
  const auto files = ExportAll("one-");
  const auto& [name, file] = *files.begin();
  RunScriptOn(GetParam(),
              "delete from TDBillDetail where FSite=3; update TDBill set FRowHeight=1;");
  const ProgramResult dry = Import(file, {"--replace", "--dry-run"});
  EXPECT_NE(dry.out.find("would be replaced"), std::string::npos) << dry.out << dry.err;
  EXPECT_NE(dry.out.find("FRowHeight: 1 → "), std::string::npos) << dry.out;
  const ProgramResult done = Import(file, {"--replace"});
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_EQ(ContentOf(ExportAll("two-").at(name)), ContentOf(file));
}

}  // namespace
}  // namespace td::designer
