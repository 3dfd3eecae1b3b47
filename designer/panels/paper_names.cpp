#include "designer/panels/paper_names.h"

#include <algorithm>
#include <array>

#include "designer/model/lengths.h"
#include "designer/view/words.h"
#include "page_document/paper.h"

namespace td::designer {
namespace {

struct PaperWords {
  std::int32_t code;
  const char* words;
};

constexpr std::array kUsual = {
    PaperWords{9, "A4"},           PaperWords{11, "A5"},
    PaperWords{8, "A3"},           PaperWords{70, "A6"},
    PaperWords{12, "B4 (JIS)"},    PaperWords{13, "B5 (JIS)"},
    PaperWords{88, "B6 (JIS)"},    PaperWords{93, "16K"},
    PaperWords{94, "32K"},         PaperWords{39, "Continuous form, wide"},
    PaperWords{1, "Letter"},       PaperWords{5, "Legal"},
    PaperWords{3, "Tabloid"},      PaperWords{6, "Statement"},
    PaperWords{7, "Executive"},    PaperWords{27, "Envelope DL"},
    PaperWords{28, "Envelope C5"}, PaperWords{20, "Envelope 10"},
};

constexpr std::int32_t kLastStandardPaper = 118;

QString Sized(const QString& name, const PaperExtent& sheet) {
  const auto millimetres = [](double twips) {
    const QString text = QString::number(MillimetresOf(twips), 'f', 1);
    return text.endsWith(QLatin1String(".0")) ? text.chopped(2) : text;
  };
  return QStringLiteral("%1 – %2 × %3 mm")
      .arg(name, millimetres(sheet.width), millimetres(sheet.height));
}

// Names that are the same in all languages have no words of their own.
QString NameOfPaper(const char* words) {
  return HasWords(words) ? Say(words) : QString::fromUtf8(words);
}

}  // namespace

std::vector<NamedPaper> NamedPapers() {
  std::vector<NamedPaper> papers;
  for (const PaperWords& usual : kUsual) {
    if (const auto sheet = StandardPaper(usual.code)) {
      papers.push_back({usual.code, Sized(NameOfPaper(usual.words), *sheet)});
    }
  }
  for (std::int32_t code = 1; code <= kLastStandardPaper; ++code) {
    const auto sheet = StandardPaper(code);
    if (!sheet || std::ranges::find(kUsual, code, &PaperWords::code) != kUsual.end()) continue;
    papers.push_back({code, Sized(Say("Paper %1").arg(code), *sheet)});
  }
  return papers;
}

}  // namespace td::designer
