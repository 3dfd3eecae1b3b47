#include "files/whole_file.h"

#include <sys/file.h>

#include <cerrno>
#include <stdexcept>

#include "file_tools.h"
#include "files/leftovers.h"

namespace td {
namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;

void Replace(const TestFolder& folder, const std::string& name, const std::string& content) {
  ReplaceFile(folder.Open(), name, {}, WriterOf(content));
}

TEST(WholeFile, IsPutTogetherFromItsParts) {
  const TestFolder folder;
  ReplaceFile(folder.Open(), "bill", {}, [](const ByteSink& sink) {
    for (const char* page : {"one", "", "two", "three"}) sink(page);
  });
  EXPECT_EQ(ContentOf(folder / "bill"), "onetwothree");
  EXPECT_EQ(folder.Names(), Names{"bill"});
}

TEST(WholeFile, HasNoNameAndTheOldOneStaysUntilAllIsWritten) {
  const TestFolder folder;
  Put(folder / "bill", "old");
  ReplaceFile(folder.Open(), "bill", {}, [&](const ByteSink& sink) {
    sink("new");
    EXPECT_EQ(ContentOf(folder / "bill"), "old");
    EXPECT_EQ(folder.Names(), Names{"bill"});
  });
  EXPECT_EQ(ContentOf(folder / "bill"), "new");
  EXPECT_EQ(folder.Names(), Names{"bill"});
}

TEST(WholeFile, OfAWriterThatFailsLeavesTheFolderAsItWas) {
  const TestFolder folder;
  Put(folder / "bill", "old");
  const auto fail = [](const ByteSink& sink) {
    sink("half");
    throw std::runtime_error("no more");
  };
  EXPECT_THROW(ReplaceFile(folder.Open(), "bill", {}, fail), std::runtime_error);
  EXPECT_THROW(CreateNewFile(folder.Open(), "other", {}, fail), std::runtime_error);
  EXPECT_EQ(ContentOf(folder / "bill"), "old");
  EXPECT_EQ(folder.Names(), Names{"bill"});
}

TEST(WholeFile, ReplacesALinkAndRefusesAFolder) {
  const TestFolder folder;
  Put(folder / "precious", "untouched");
  fs::create_symlink("precious", folder / "bill");
  Replace(folder, "bill", "new");
  EXPECT_EQ(ContentOf(folder / "precious"), "untouched");
  EXPECT_FALSE(fs::is_symlink(folder / "bill"));
  fs::create_directory(folder / "folder");
  EXPECT_EQ(ErrorOf([&] { Replace(folder, "folder", "new"); }), EISDIR);
  EXPECT_EQ(folder.Names(), (Names{"bill", "folder", "precious"}));
}

TEST(WholeFile, HasTheRightsThatItWasMadeWith) {
  const TestFolder folder;
  const mode_t former = umask(022);
  ReplaceFile(folder.Open(), "mine", {.mode = 0600}, WriterOf(""));
  ReplaceFile(folder.Open(), "ours", {}, WriterOf(""));
  EXPECT_EQ(StateOf(folder / "mine").st_mode & 07777U, 0600U);
  EXPECT_EQ(StateOf(folder / "ours").st_mode & 07777U, 0644U);
  umask(former);
}

TEST(WholeFile, ANewOneLeavesWhatIsThereAlone) {
  const TestFolder folder;
  const auto create = [&](const char* name) {
    return ErrorOf([&] { CreateNewFile(folder.Open(), name, {}, WriterOf("picture")); });
  };
  EXPECT_EQ(create("5.jpg"), 0);
  EXPECT_EQ(ContentOf(folder / "5.jpg"), "picture");
  Put(folder / "6.jpg", "old");
  fs::create_symlink("nowhere", folder / "7.jpg");
  EXPECT_EQ(create("6.jpg"), EEXIST);
  EXPECT_EQ(create("7.jpg"), EEXIST);
  EXPECT_EQ(ContentOf(folder / "6.jpg"), "old");
  EXPECT_EQ(folder.Names(), (Names{"5.jpg", "6.jpg", "7.jpg"}));
}

TEST(WholeFile, TwoWritersOfOneFileDoNotMeet) {
  const TestFolder folder;
  Put(folder / "bill", "old");
  ReplaceFile(folder.Open(), "bill", {}, [&](const ByteSink& outer) {
    outer("first");
    Replace(folder, "bill", "second");
    outer(" and whole");
  });
  EXPECT_EQ(ContentOf(folder / "bill"), "first and whole");
  EXPECT_EQ(folder.Names(), Names{"bill"});
}

TEST(WholeFile, MayHaveTheLongestNameThatTheSystemKnows) {
  const TestFolder folder;
  const std::string name(255, 'n');
  Replace(folder, name, "old");
  Replace(folder, name, "new");
  EXPECT_EQ(ContentOf(folder / name), "new");
  EXPECT_EQ(ErrorOf([&] { Replace(folder, name + "n", "x"); }), ENAMETOOLONG);
}

// Without the folder of its descriptors a process can't name a file that has no name.
TEST(WholeFile, HasARandomNameWhereItCannotBeWithoutOne) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can change the root folder";
  const TestFolder folder;
  Put(folder / "bill", "old");
  const int status = StatusOf([&] {
    if (chroot(folder.Path().c_str()) != 0 || chdir("/") != 0) return 1;
    const Descriptor root(open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
    std::size_t names = 0;
    ReplaceFile(root, "bill", {}, [&](const ByteSink& sink) {
      sink("new");
      names = static_cast<std::size_t>(std::distance(fs::directory_iterator("/"), {}));
    });
    CreateNewFile(root, "5.jpg", {}, WriterOf("picture"));
    if (ErrorOf([&] { CreateNewFile(root, "5.jpg", {}, WriterOf("other")); }) != EEXIST) return 2;
    return names == 2 ? 0 : 3;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(ContentOf(folder / "bill"), "new");
  EXPECT_EQ(ContentOf(folder / "5.jpg"), "picture");
  EXPECT_EQ(folder.Names(), (Names{"5.jpg", "bill"}));
}

TEST(Leftovers, OfKilledProcessesAreSweptWhenTheyAreOld) {
  const TestFolder folder;
  Put(folder / "bill", "old");
  Put(folder / ".qbtdprinter-0123456789abcdef", "half");
  MakeOld(folder / ".qbtdprinter-0123456789abcdef");
  Replace(folder, "bill", "new");
  EXPECT_EQ(folder.Names(), Names{"bill"});
}

TEST(Leftovers, AreNothingThatIsYoungOrInUseOrHasAnotherName) {
  const TestFolder folder;
  const Names kept = {".qbtdprinter-0000000000000000",
                      ".qbtdprinter-1111111111111111",
                      ".qbtdprinter-222222222222222",
                      ".qbtdprinter-3333333333333333.html",
                      ".qbtdprinter-444444444444444G",
                      "qbtdprinter-5555555555555555",
                      "bill"};
  for (const std::string& name : kept) Put(folder / name, "x");
  for (const std::string& name : kept) MakeOld(folder / name);
  Put(folder / ".qbtdprinter-0000000000000000", "young");
  const Descriptor used(open((folder / ".qbtdprinter-1111111111111111").c_str(), O_RDONLY));
  HoldInUse(used);
  Replace(folder, "bill", "new");
  EXPECT_EQ(folder.Names(), kept);
}

TEST(Leftovers, AreNothingOfAnotherUser) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can give a file away";
  const TestFolder folder;
  const fs::path foreign = folder / ".qbtdprinter-0123456789abcdef";
  Put(foreign, "x");
  MakeOld(foreign);
  ASSERT_EQ(chown(foreign.c_str(), 65534, 65534), 0);
  Put(folder / "bill", "old");
  Replace(folder, "bill", "new");
  EXPECT_TRUE(fs::exists(foreign));
}

TEST(RandomNames, AreDifferentInProcessesThatBeginAlike) {
  Names names;
  for (int i = 0; i < 1000; ++i) names.insert(RandomName("x-"));
  EXPECT_EQ(names.size(), 1000U);
  for (const std::string& name : names) EXPECT_EQ(name.size(), 18U);
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  for (int i = 0; i < 2; ++i) {
    StatusOf([&] {
      const std::string name = RandomName("x-");
      return write(ends[1], name.data(), name.size()) == 18 ? 0 : 1;
    });
  }
  char both[36];
  ASSERT_EQ(read(ends[0], both, sizeof both), 36);
  EXPECT_NE(std::string(both, 18), std::string(both + 18, 18));
  close(ends[0]);
  close(ends[1]);
}

}  // namespace
}  // namespace td
