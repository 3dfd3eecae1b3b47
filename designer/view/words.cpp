#include "designer/view/words.h"

#include <QLocale>
#include <algorithm>
#include <array>

namespace td::designer {
namespace {

struct Words {
  std::string_view english;
  std::string_view chinese;
};

constexpr Words kWords[] = {
    // bands
    {"Head", "页眉"},           {"Column head", "表头"}, {"Row", "明细行"},
    {"After the rows", "表尾"}, {"Foot", "页脚"},        {"No band", "无带区"},
};

}  // namespace

bool SpeaksChinese() {
  static const bool isChinese = QLocale::system().language() == QLocale::Chinese;
  return isChinese;
}

QString Say(const char* english) {
  if (!SpeaksChinese()) return QString::fromUtf8(english);
  const auto* found = std::ranges::find(kWords, std::string_view(english), &Words::english);
  const std::string_view words = found == std::end(kWords) ? english : found->chinese;
  return QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
}

bool HasWords(std::string_view english) {
  return std::ranges::find(kWords, english, &Words::english) != std::end(kWords);
}

QString NameOfBand(int site) {
  static constexpr std::array kNames = {"Head", "Column head", "Row", "After the rows", "Foot"};
  const bool isBand = site >= 1 && site <= static_cast<int>(kNames.size());
  return Say(isBand ? kNames[static_cast<std::size_t>(site) - 1] : "No band");
}

}  // namespace td::designer
