// The papers that the page setup offers by name.
#pragma once

#include <array>
#include <cstdint>

namespace td {

struct OfferedPaper {
  std::int32_t code;
  const char* name;
};

inline constexpr std::array kOfferedPapers = {
    OfferedPaper{9, "A4"},        OfferedPaper{11, "A5"},
    OfferedPaper{70, "A6"},       OfferedPaper{8, "A3"},
    OfferedPaper{12, "B4 (JIS)"}, OfferedPaper{13, "B5 (JIS)"},
    OfferedPaper{88, "B6 (JIS)"}, OfferedPaper{93, "16K"},
    OfferedPaper{94, "32K"},      OfferedPaper{1, "Letter"},
    OfferedPaper{5, "Legal"},     OfferedPaper{6, "Statement"},
    OfferedPaper{7, "Executive"}, OfferedPaper{14, "Folio"},
    OfferedPaper{3, "Tabloid"},   OfferedPaper{39, "连续纸（宽行）"},
    OfferedPaper{27, "信封 DL"},  OfferedPaper{28, "信封 C5"},
};

}  // namespace td
