// The texts of the designer's windows, in the language of the desktop.
#pragma once

#include <QString>
#include <string_view>

namespace td::designer {

// Whether texts are Chinese: where the desktop's language is. The environment decides at the start.
[[nodiscard]] bool SpeaksChinese();

// A text by its English words, as it is shown. Every text that a window shows has a line in the
// table of words.cpp; one without a line is a mistake that a test finds.
[[nodiscard]] QString Say(const char* english);

// For that test.
[[nodiscard]] bool HasWords(std::string_view english);

// What a band is called.
[[nodiscard]] QString NameOfBand(int site);

}  // namespace td::designer
