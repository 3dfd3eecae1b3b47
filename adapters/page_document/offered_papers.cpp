#include "page_document/offered_papers.h"

#include <algorithm>
#include <array>

namespace td {
namespace {

// A name that is the same in both languages.
constexpr OfferedPaper Named(std::int32_t code, std::string_view name) {
  return {code, name, name};
}

constexpr std::array kPapers = {
    Named(9, "A4"),
    Named(11, "A5"),
    Named(70, "A6"),
    Named(8, "A3"),
    Named(12, "B4 (JIS)"),
    Named(13, "B5 (JIS)"),
    Named(88, "B6 (JIS)"),
    Named(93, "16K"),
    Named(94, "32K"),
    Named(1, "Letter"),
    Named(5, "Legal"),
    Named(6, "Statement"),
    Named(7, "Executive"),
    Named(14, "Folio"),
    Named(3, "Tabloid"),
    OfferedPaper{39, "Continuous form, wide", "连续纸（宽行）"},
    OfferedPaper{27, "Envelope DL", "信封 DL"},
    OfferedPaper{28, "Envelope C5", "信封 C5"},
    OfferedPaper{20, "Envelope 10", "信封 10 号"},
};

}  // namespace

std::span<const OfferedPaper> OfferedPapers() {
  return kPapers;
}

const OfferedPaper* FindOfferedPaper(std::int32_t code) {
  const auto* found = std::ranges::find(kPapers, code, &OfferedPaper::code);
  return found == kPapers.end() ? nullptr : found;
}

}  // namespace td
