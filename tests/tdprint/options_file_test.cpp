// Options of print and preview from a file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "arguments.h"
#include "scratch_folder.h"

namespace td {
namespace {

class OptionsFile : public testing::Test {
 protected:
  [[nodiscard]] Command Parse(const std::string& content,
                              const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments = {"tdprint", "print", "--config",
                                          folder_.Write("a.tdprint", content).string()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    std::vector<const char*> texts;
    for (const std::string& argument : arguments) texts.push_back(argument.c_str());
    return ParseArguments(static_cast<int>(texts.size()), texts.data());
  }

  // With what print can't do without.
  [[nodiscard]] Command ParseWith(const std::string& line) const {
    return Parse("db=sqlite:a.db\ntype=21\ndata=select 1\n" + line + "\n");
  }

  // What standard error says of a file that can't be used.
  [[nodiscard]] std::string Complaint(const std::string& line) const {
    testing::internal::CaptureStderr();
    const Command command = ParseWith(line);
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_EQ(command, Command(ExitStatus::kWrongUsage)) << line;
    return said;
  }

  const ScratchFolder folder_;
};

TEST_F(OptionsFile, GivesEachOptionOfThePrint) {
  const Command command = Parse(
      "# an order\n\n"
      "db = sqlite:/srv/shop.db\r\n"
      "  type=21  \n"
      "data = select * from v where a='#1, \"x\"' and b = 2\n"
      "format = 销售订单 针式\n"
      "only-variant\n"
      "by-area\n"
      "blank-rows = 3\n"
      "printer = Dot");
  PrintArguments expected;
  expected.database = "sqlite:/srv/shop.db";
  expected.billType = 21;
  expected.data = "select * from v where a='#1, \"x\"' and b = 2";
  expected.format = "销售订单 针式";
  expected.onlyVariant = true;
  expected.byArea = true;
  expected.blankRows = 3;
  expected.printer = "Dot";
  EXPECT_EQ(command, Command(expected));
}

TEST_F(OptionsFile, NamesNoEmptyPrinter) {
  EXPECT_NE(Complaint("printer =").find("printer"), std::string::npos);
}

TEST_F(OptionsFile, GivesWayToTheCommandLine) {
  const Command command = Parse("db = sqlite:a.db\ntype = 21\ndata = select 1\n",
                                {"--type", "22", "--data", "select 2", "--pdf", "a.pdf"});
  const auto& print = std::get<PrintArguments>(command);
  EXPECT_EQ(print.database, "sqlite:a.db");
  EXPECT_EQ(print.billType, 22);
  EXPECT_EQ(print.data, "select 2");
  EXPECT_EQ(print.pdf, "a.pdf");
}

TEST_F(OptionsFile, MayBeginWithAByteOrderMark) {
  const Command command = Parse(
      "\xEF\xBB\xBF"
      "db=sqlite:a.db\ntype=21\ndata=select 1\n");
  EXPECT_EQ(std::get<PrintArguments>(command).database, "sqlite:a.db");
}

TEST_F(OptionsFile, IsCheckedLikeTheCommandLine) {
  EXPECT_NE(Complaint("blank-rows = many").find("blank-rows"), std::string::npos);
  EXPECT_EQ(Parse("type=40000\ndb=x\ndata=y"), Command(ExitStatus::kWrongUsage));
  EXPECT_EQ(Parse("db=x\ndata=y"), Command(ExitStatus::kWrongUsage)) << "no type";
}

TEST_F(OptionsFile, IsRefusedWithTheLineThatIsWrong) {
  EXPECT_NE(Complaint("colour = red").find("a.tdprint: colour"), std::string::npos);
  EXPECT_NE(Complaint("type = 22").find("type is given twice"), std::string::npos);
  EXPECT_NE(Complaint("format").find("format needs a value"), std::string::npos);
  EXPECT_NE(Complaint("only-variant = 1").find("only-variant takes no value"), std::string::npos);
  EXPECT_NE(Complaint("config = b").find("config can't"), std::string::npos);
  EXPECT_NE(Complaint("help").find("help can't"), std::string::npos);
}

TEST_F(OptionsFile, OfAStrangerOverwritesNothing) {
  for (const char* line : {"pdf = a.pdf", "png = a", "html = a.html"}) {
    EXPECT_NE(Complaint(line).find("can't be given in a file"), std::string::npos) << line;
  }
}

TEST_F(OptionsFile, OfAStrangerLoadsNoDriverOfItsOwn) {
  const std::string rest = "\ntype=21\ndata=select 1\n";
  for (const char* database :
       {"Driver=/home/me/driver.so;", "FILEDSN=../a.dsn", "FileDSN=\\\\host\\share\\x.dsn",
        "Driver={SQLite3 ODBC Driver};Database=a.db;LoadExt=C:\\Users\\u\\evil.dll",
        "Driver={MySQL ODBC 8.0 Unicode Driver};Server=a;PLUGIN_DIR=C:\\plugins",
        "Driver={SQLite3 ODBC Driver};Database=a.db;loadext=evil",
        "Driver={SQLite3 ODBC Driver};Server={a;LoadExt=C:\\evil.dll;}",
        "Provider=MSDASQL;Extended Properties=\"Driver=a;LoadExt=evil\"",
        "Provider=MSDASQL;Extended Properties=\"FileDSN=C:\\a.dsn\""}) {
    EXPECT_EQ(Parse("db=" + std::string(database) + rest), Command(ExitStatus::kWrongUsage))
        << database;
  }
}

TEST_F(OptionsFile, NamesServersAndUsersAsTheyAreCalled) {
  for (const std::string database :
       {"DSN=shop;UID=me", "Driver={SQL Server};Server=host\\SQLEXPRESS;UID=SHOP\\me;PWD=a\\b",
        "Provider=SQLOLEDB;data source=host\\SQLEXPRESS;User ID=sa", "sqlite:C:\\shop\\shop.db"}) {
    const Command command = Parse("db=" + database + "\ntype=21\ndata=select 1\n");
    const auto* print = std::get_if<PrintArguments>(&command);
    ASSERT_NE(print, nullptr) << database;
    EXPECT_EQ(print->database, database);
  }
}

TEST_F(OptionsFile, ThatIsNotThereIsWrongUsage) {
  const std::string missing = folder_ / "none.tdprint";
  const std::vector<const char*> arguments = {"tdprint", "preview", "--config", missing.c_str()};
  testing::internal::CaptureStderr();
  EXPECT_EQ(ParseArguments(static_cast<int>(arguments.size()), arguments.data()),
            Command(ExitStatus::kWrongUsage));
  EXPECT_NE(testing::internal::GetCapturedStderr().find("can't be read"), std::string::npos);
}

}  // namespace
}  // namespace td
