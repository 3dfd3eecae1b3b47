// The language of what administrators read.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace td {

enum class Language { kEnglish, kChinese };

// Chinese where the process's locale is (LC_ALL, LC_MESSAGES, LANG, in this order), on Windows
// where the system's windows are for the user; else English.
[[nodiscard]] Language LanguageOfLocale();

// A sentence in both languages. {0}, {1}, … stand for what is filled in.
struct Sentence {
  std::string_view english;
  std::string_view chinese;

  [[nodiscard]] std::string_view In(Language language) const {
    return language == Language::kChinese ? chinese : english;
  }
};

// The sentence with so many of its places filled; the others stay as they are.
[[nodiscard]] std::string FillPlaces(std::string_view sentence, const std::string_view* texts,
                                     std::size_t count);

template <class... Texts>
[[nodiscard]] std::string Fill(Language language, const Sentence& sentence, const Texts&... texts) {
  const std::string_view filled[] = {std::string_view(texts)..., std::string_view()};
  return FillPlaces(sentence.In(language), filled, sizeof...(texts));
}

}  // namespace td
