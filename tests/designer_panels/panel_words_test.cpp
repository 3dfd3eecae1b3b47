// Every text that a panel says is known in Chinese.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include "designer/panels/item_words.h"
#include "designer/view/words.h"

namespace td::designer {
namespace {

// The texts between quotes behind a call of Say, the parts of a long one put together.
std::vector<std::string> TextsIn(const std::string& source) {
  static const std::regex call(R"re(\bSay\(\s*((?:"(?:[^"\\]|\\.)*"\s*)+)\))re");
  static const std::regex part(R"re("((?:[^"\\]|\\.)*)")re");
  std::vector<std::string> texts;
  for (std::sregex_iterator found(source.begin(), source.end(), call), end; found != end; ++found) {
    const std::string parts = (*found)[1];
    std::string text;
    for (std::sregex_iterator piece(parts.begin(), parts.end(), part); piece != end; ++piece) {
      text += (*piece)[1];
    }
    texts.push_back(text);
  }
  return texts;
}

TEST(PanelWords, AreAllInTheTable) {
  int count = 0;
  const std::filesystem::path folder = std::filesystem::path(QBTD_SOURCE_DIR) / "designer/panels";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path());
    std::stringstream source;
    source << file.rdbuf();
    for (const std::string& text : TextsIn(source.str())) {
      ++count;
      EXPECT_TRUE(HasWords(text)) << entry.path().filename() << ": " << text;
    }
  }
  EXPECT_GT(count, 100);
}

TEST(PanelWords, EveryChoiceHasANameOfItsOwn) {
  std::set<QString> names;
  for (const ItemChoice& choice : ItemChoices()) {
    const QString name = NameOfChoice(choice);
    EXPECT_TRUE(HasWords(name.toStdString())) << choice.name;
    EXPECT_TRUE(names.insert(name).second) << name.toStdString();
    EXPECT_FALSE(DescriptionOf(choice).isEmpty());
    for (const ItemSite site : kAllSites) {
      EXPECT_EQ(ReasonAgainst(choice, site).isEmpty(), choice.WorksIn(site)) << choice.name;
    }
  }
}

}  // namespace
}  // namespace td::designer
