// What is installed beside tdprint: the man page, the completion, the desktop entries, the
// description. They must not drift apart from the program, whose own help tells what it
// understands.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "program_run.h"
#include "scratch_folder.h"

namespace td {
namespace {

namespace fs = std::filesystem;

const fs::path kFiles = fs::path(QBTD_SOURCE_DIR) / "tools/tdprint";

std::string ContentOf(const fs::path& path) {
  std::stringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}

std::set<std::string> Lines(const std::string& text) {
  std::set<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.insert(line);
  }
  return lines;
}

// The first group of each place where the pattern is found.
std::set<std::string> FirstGroups(const std::string& text, const char* pattern) {
  const std::regex expression(pattern, std::regex::multiline);
  std::set<std::string> groups;
  for (std::sregex_iterator found(text.begin(), text.end(), expression), end; found != end;
       ++found) {
    groups.insert((*found)[1]);
  }
  return groups;
}

class TdprintCompanions : public testing::Test {
 protected:
  [[nodiscard]] ProgramResult Run(const std::vector<std::string>& command) const {
    return ProgramRun(command, folder_.Path()).Finish();
  }

  [[nodiscard]] std::set<std::string> Commands() const {
    const std::string help = Run({TDPRINT_PROGRAM, "--help"}).out;
    const std::size_t start = help.find("Subcommands:");
    const std::size_t end = help.find("\n\n", start);
    return FirstGroups(help.substr(start, end - start), "^  ([a-z-]+) ");
  }
  [[nodiscard]] std::set<std::string> OptionsOf(const std::string& command) const {
    return FirstGroups(Run({TDPRINT_PROGRAM, command, "--help"}).out, "^ +(?:-h,)?(--[a-z-]+)");
  }

  // What the completion offers for the last one of the words. They are separated as bash does it.
  [[nodiscard]] std::set<std::string> Completed(const std::vector<std::string>& words) const {
    std::vector<std::string> command = {
        "bash",
        "-c",
        "source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tdprint; "
        "printf '%s\\n' \"${COMPREPLY[@]}\"",
        "bash",
        kFiles / "tdprint.bash",
        "tdprint"};
    command.insert(command.end(), words.begin(), words.end());
    return Lines(Run(command).out);
  }

  const ScratchFolder folder_;
};

using Words = std::set<std::string>;

TEST_F(TdprintCompanions, HelpIsReadRight) {
  EXPECT_TRUE(Commands().contains("print"));
  EXPECT_TRUE(Commands().contains("area-printers"));
  EXPECT_EQ(OptionsOf("settings"), (Words{"--help", "--db", "--type"}));
}

TEST_F(TdprintCompanions, TheManPageHasEachCommandAndOption) {
  const std::string page = ContentOf(kFiles / "tdprint.1");
  const std::string synopsis = page.substr(0, page.find(".Sh DESCRIPTION"));
  for (const std::string& command : Commands()) {
    EXPECT_NE(page.find(".Ss " + command + "\n"), std::string::npos) << command;
    std::smatch usage;
    ASSERT_TRUE(std::regex_search(synopsis, usage,
                                  std::regex("\\.Cm (?:[a-z-]+ \\| )*" + command +
                                             "(?: \\| [a-z-]+)*\n((?:\\.(?!Nm).*\n)*)")))
        << command;
    for (const std::string& option : OptionsOf(command)) {
      const std::string flag = "Fl -" + option.substr(2);
      EXPECT_TRUE(std::regex_search(page, std::regex("\\.It .*" + flag + "\\b"))) << option;
      if (option == "--help") continue;
      EXPECT_TRUE(std::regex_search(usage.str(1), std::regex(flag + "\\b"))) << command << option;
    }
  }
}

TEST_F(TdprintCompanions, TheManPageTellsOfTheVersion) {
  EXPECT_TRUE(Run({TDPRINT_PROGRAM, "--help"}).out.find("--version") != std::string::npos);
  EXPECT_TRUE(std::regex_search(ContentOf(kFiles / "tdprint.1"),
                                std::regex("\\.Fl -version\n[^.]*\\.Sh DESCRIPTION")));
}

TEST_F(TdprintCompanions, TheManPageNamesNothingThatTheProgramDoesNotKnow) {
  Words known;
  for (const std::string& command : Commands()) known.merge(OptionsOf(command));
  known.insert("--version");
  for (const std::string& option :
       FirstGroups(ContentOf(kFiles / "tdprint.1"), "Fl -([a-z]+(?:-[a-z]+)*)")) {
    EXPECT_TRUE(known.contains("--" + option)) << option;
  }
}

TEST_F(TdprintCompanions, TheManPagesAreSetWithoutWarnings) {
  for (const char* page : {"tdprint.1", "tdprint.zh_CN.1"}) {
    const ProgramResult result = Run({"env", "LC_ALL=C.UTF-8", "MANPAGER=cat", "man", "--warnings",
                                      "--encoding=UTF-8", "--local-file", kFiles / page});
    EXPECT_EQ(result.status, 0) << page;
    EXPECT_EQ(result.err, "") << page;
    EXPECT_NE(result.out.find("销售出库单A4"), std::string::npos) << page;
  }
}

TEST_F(TdprintCompanions, CommandsAndOptionsAreCompleted) {
  Words commands = Commands();
  for (const std::string& command : commands) {
    EXPECT_EQ(Completed({command, ""}), OptionsOf(command)) << command;
  }
  commands.insert({"--help", "--version"});
  EXPECT_EQ(Completed({""}), commands);
  EXPECT_EQ(Completed({"pr"}), (Words{"print", "preview"}));
  EXPECT_EQ(Completed({"print", "--p"}), (Words{"--printer", "--pdf", "--png"}));
}

TEST_F(TdprintCompanions, EnginesAreCompletedAsTheProgramKnowsThem) {
  for (const std::string& engine : Completed({"sample-sql", "--engine", ""})) {
    EXPECT_EQ(Run({TDPRINT_PROGRAM, "sample-sql", "--engine", engine, "--samples",
                   fs::path(QBTD_SOURCE_DIR) / "examples"})
                  .status,
              0)
        << engine;
  }
  EXPECT_EQ(Completed({"sample-sql", "--engine", "p"}), Words{"postgresql"});
}

TEST_F(TdprintCompanions, FilesAndFoldersAreCompleted) {
  const std::string file = folder_.Write("shop list.db", "");
  fs::create_directory(folder_ / "shop");
  const std::string start = (folder_ / "sh").string();
  const Words both = {file, folder_ / "shop"};
  EXPECT_EQ(Completed({"print", "--config", start}), both);
  EXPECT_EQ(Completed({"print", "--pdf", start}), both);
  EXPECT_EQ(Completed({"print", "--png", start}), Words{folder_ / "shop"});
  EXPECT_EQ(Completed({"demo", "--out", start}), Words{folder_ / "shop"});
  EXPECT_EQ(Completed({"sample-sql", "--out", start}), both);
  EXPECT_EQ(Completed({"import-format", start}), both);
  EXPECT_EQ(Completed({"import-format", "--pictures", start}), Words{folder_ / "shop"});
  EXPECT_EQ(Completed({"diff-format", file, start}), both);
  EXPECT_EQ(Completed({"print", "--db", "sqlite", ":", start}), both);
  EXPECT_EQ(Completed({"print", "--db", "sq"}), Words{"sqlite:"});
  EXPECT_EQ(Completed({"print", "--type", ""}), Words{});
}

TEST_F(TdprintCompanions, PrintersAreCompletedFromThePrintingSystem) {
  const fs::path program = folder_.Write("lpstat", "#!/bin/sh\n[ \"$1\" = -e ] && echo Dot 针式\n");
  fs::permissions(program, fs::perms::owner_all);
  setenv("PATH", (folder_.Path().string() + ":" + getenv("PATH")).c_str(), 1);
  EXPECT_EQ(Completed({"print", "--printer", ""}), (Words{"Dot", "针式"}));
  EXPECT_EQ(Completed({"demo", "--printer", "D"}), Words{"Dot"});
}

TEST_F(TdprintCompanions, TheDesktopEntryIsValidAndOpensThePreview) {
  const ProgramResult result = Run({"desktop-file-validate", kFiles / "tdprint.desktop"});
  EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_EQ(result.out, "");
  const std::set<std::string> lines = Lines(ContentOf(kFiles / "tdprint.desktop"));
  EXPECT_TRUE(lines.contains("Exec=tdprint preview --config %f"));
  EXPECT_TRUE(lines.contains("MimeType=application/x-tdprint;"));
}

TEST_F(TdprintCompanions, TheDesignersDesktopEntryIsValidAndOpensIt) {
  const ProgramResult result = Run({"desktop-file-validate", kFiles / "tdprint-design.desktop"});
  EXPECT_EQ(result.status, 0) << result.out;
  EXPECT_EQ(result.out, "");
  const std::set<std::string> lines = Lines(ContentOf(kFiles / "tdprint-design.desktop"));
  EXPECT_TRUE(lines.contains("Exec=tdprint design"));
  EXPECT_TRUE(lines.contains("Name[zh_CN]=套打格式设计"));
}

TEST_F(TdprintCompanions, TheDescriptionForSoftwareCentresIsValidAndLeadsToTheDesktopEntries) {
  const fs::path description = kFiles / "tdprint.metainfo.xml";
  const ProgramResult result =
      Run({"appstreamcli", "validate", "--no-net", "--strict", description});
  EXPECT_EQ(result.status, 0) << result.out << result.err;
  EXPECT_EQ(FirstGroups(ContentOf(description), ">([a-z-]+\\.desktop)<"),
            (Words{"tdprint.desktop", "tdprint-design.desktop"}));
}

TEST_F(TdprintCompanions, TheDesktopKnowsFilesOfOptionsByTheirName) {
  fs::create_directories(folder_ / "mime/packages");
  fs::copy_file(kFiles / "tdprint-mime.xml", folder_ / "mime/packages/tdprint.xml");
  EXPECT_EQ(Run({"update-mime-database", folder_ / "mime"}).status, 0);
  EXPECT_TRUE(Lines(ContentOf(folder_ / "mime/globs")).contains("application/x-tdprint:*.tdprint"));
}

}  // namespace
}  // namespace td
