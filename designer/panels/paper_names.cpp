#include "designer/panels/paper_names.h"

#include "designer/model/lengths.h"
#include "designer/view/words.h"
#include "page_document/offered_papers.h"
#include "page_document/paper.h"

namespace td::designer {
namespace {

constexpr std::int32_t kLastStandardPaper = 118;

QString Sized(const QString& name, const PaperExtent& sheet) {
  const auto millimetres = [](double twips) {
    const QString text = QString::number(MillimetresOf(twips), 'f', 1);
    return text.endsWith(QLatin1String(".0")) ? text.chopped(2) : text;
  };
  return QStringLiteral("%1 – %2 × %3 mm")
      .arg(name, millimetres(sheet.width), millimetres(sheet.height));
}

QString NameOf(const OfferedPaper& paper) {
  const std::string_view name = SpeaksChinese() ? paper.chinese : paper.english;
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

}  // namespace

std::vector<NamedPaper> NamedPapers() {
  std::vector<NamedPaper> papers;
  for (const OfferedPaper& offered : OfferedPapers()) {
    if (const auto sheet = StandardPaper(offered.code)) {
      papers.push_back({offered.code, Sized(NameOf(offered), *sheet)});
    }
  }
  for (std::int32_t code = 1; code <= kLastStandardPaper; ++code) {
    const auto sheet = StandardPaper(code);
    if (!sheet || FindOfferedPaper(code) != nullptr) continue;
    papers.push_back({code, Sized(Say("Paper %1").arg(code), *sheet)});
  }
  return papers;
}

}  // namespace td::designer
