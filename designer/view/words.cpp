#include "designer/view/words.h"

#include <QLocale>
#include <algorithm>
#include <array>

#include "designer/view/word_tables.h"

namespace td::designer {
namespace {

const Words* Find(std::string_view english) {
  for (const std::span<const Words> table : {PanelWords(), WindowWords()}) {
    const auto found = std::ranges::find(table, english, &Words::english);
    if (found != table.end()) return &*found;
  }
  return nullptr;
}

}  // namespace

bool SpeaksChinese() {
  static const bool isChinese = QLocale::system().language() == QLocale::Chinese;
  return isChinese;
}

QString Say(const char* english) {
  if (!SpeaksChinese()) return QString::fromUtf8(english);
  const Words* found = Find(english);
  const std::string_view words = found == nullptr ? english : found->chinese;
  return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}

bool HasWords(std::string_view english) {
  return Find(english) != nullptr;
}

QString NameOfBand(int site) {
  static constexpr std::array kNames = {"Head", "Column head", "Row", "After the rows", "Foot"};
  const bool isBand = site >= 1 && site <= static_cast<int>(kNames.size());
  return Say(isBand ? kNames[static_cast<std::size_t>(site) - 1] : "No band");
}

}  // namespace td::designer
