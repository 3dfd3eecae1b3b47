#include "sample_files.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "platform/failure.h"
#include "scratch_folder.h"

namespace td {
namespace {

constexpr const char* kHeader = "name\ttype\tformat\tvariable\tblank\tarea\tdata\n";

TEST(SampleFiles, EachLineOfTheListIsAPrint) {
  const ScratchFolder folder;
  folder.Write("prints.tsv", std::string("# the sample's prints\n") + kHeader +
                                 "order\t21\t销售订单\t0\t0\t0\tselect * from a\n"
                                 "\n"
                                 "# on pre-printed forms\n"
                                 "order-form\t21\t\t1\t4\t1\tselect * from a where b='c d'\n");
  const std::vector<SamplePrint> prints = ReadSamplePrints(folder.Path());
  ASSERT_EQ(prints.size(), 2U);
  EXPECT_EQ(prints[0].name, "order");
  EXPECT_EQ(prints[0].billType, 21);
  EXPECT_EQ(prints[0].format, "销售订单");
  EXPECT_FALSE(prints[0].onlyVariant);
  EXPECT_FALSE(prints[0].byArea);
  EXPECT_EQ(prints[0].data, "select * from a");
  EXPECT_EQ(prints[1].format, "");
  EXPECT_TRUE(prints[1].onlyVariant);
  EXPECT_EQ(prints[1].blankRows, 4);
  EXPECT_TRUE(prints[1].byArea);
  EXPECT_EQ(prints[1].data, "select * from a where b='c d'");
}

TEST(SampleFiles, ALineThatCannotBeReadIsNamed) {
  const ScratchFolder folder;
  folder.Write("prints.tsv", std::string(kHeader) + "order\tsoon\t销售订单\t0\t0\t0\tselect 1\n");
  try {
    ReadSamplePrints(folder.Path());
    FAIL() << "a bill type that is no number was accepted";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kInvalidCall);
    EXPECT_NE(failure.Description().find("soon"), std::string::npos);
  }
  folder.Write("prints.tsv", std::string(kHeader) + "order\t21\n");
  EXPECT_THROW(ReadSamplePrints(folder.Path()), Failure);
}

TEST(SampleFiles, TheSchemaRunsBeforeTheOtherFiles) {
  const ScratchFolder folder;
  folder.Write("schema.sql", "create table goods (name text);\n");
  folder.Write("a_data.sql", "insert into goods values ('米'); insert into goods values ('油');\n");
  MakeSampleDatabase(folder.Path(), folder / "sample.db");
  MakeSampleDatabase(folder.Path(), folder / "sample.db");  // replaces the older one
  EXPECT_GT(std::filesystem::file_size(folder / "sample.db"), 0U);
}

TEST(SampleFiles, PicturesOfTheFormatsLieInTheFolder) {
  const ScratchFolder folder;
  folder.Write("schema.sql", "create table TDBillDetail (FPicturePath text);\n");
  folder.Write("format.sql", "insert into TDBillDetail values ('logo.png'), ('');\n");
  const SampleDatabase database = OpenSampleDatabase(folder.Path());
  std::string paths;
  const auto add = [](void* all, int, char** row, char**) {
    static_cast<std::string*>(all)->append(row[0]).append("\n");
    return 0;
  };
  sqlite3_exec(database.get(), "select FPicturePath from TDBillDetail", add, &paths, nullptr);
  EXPECT_EQ(paths, (folder / "logo.png").string() + "\n\n");
}

TEST(SampleFiles, AFileThatFailsIsNamed) {
  const ScratchFolder folder;
  folder.Write("schema.sql", "create table goods (name text);\n");
  folder.Write("broken.sql", "insert into godos values ('米');\n");
  try {
    MakeSampleDatabase(folder.Path(), folder / "sample.db");
    FAIL() << "a statement on a missing table was accepted";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.Number(), kDatabaseFailed);
    EXPECT_NE(failure.Description().find("broken.sql"), std::string::npos);
  }
}

TEST(SampleFiles, AFolderWithoutTheListIsNoSample) {
  const ScratchFolder folder;
  EXPECT_THROW(FindSamples(folder.Path().string()), Failure);
}

}  // namespace
}  // namespace td
