#include "page_document/paper.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace td {
namespace {

struct NumberedPaper {
  std::int32_t code;
  double width;  // in the table's unit
  double height;
};

constexpr double kTwipsPerMillimetre = 1440 / 25.4;
constexpr double kTwipsPerInchOfPaper = 1440;

// Sheets whose standard names them in millimetres.
constexpr std::array kMetricPapers = {
    NumberedPaper{8, 297, 420},       // A3
    NumberedPaper{9, 210, 297},       // A4
    NumberedPaper{10, 210, 297},      // A4 Small
    NumberedPaper{11, 148, 210},      // A5
    NumberedPaper{12, 257, 364},      // B4 (JIS)
    NumberedPaper{13, 182, 257},      // B5 (JIS)
    NumberedPaper{15, 215, 275},      // Quarto
    NumberedPaper{27, 110, 220},      // Envelope DL
    NumberedPaper{28, 162, 229},      // Envelope C5
    NumberedPaper{29, 324, 458},      // Envelope C3
    NumberedPaper{30, 229, 324},      // Envelope C4
    NumberedPaper{31, 114, 162},      // Envelope C6
    NumberedPaper{32, 114, 229},      // Envelope C65
    NumberedPaper{33, 250, 353},      // Envelope B4
    NumberedPaper{34, 176, 250},      // Envelope B5
    NumberedPaper{35, 176, 125},      // Envelope B6
    NumberedPaper{36, 110, 230},      // Envelope Italy
    NumberedPaper{42, 250, 353},      // B4 (ISO)
    NumberedPaper{43, 100, 148},      // Japanese postcard
    NumberedPaper{47, 220, 220},      // Envelope Invite
    NumberedPaper{53, 235.5, 322.3},  // A4 Extra
    NumberedPaper{55, 210, 297},      // A4 Transverse
    NumberedPaper{57, 227, 356},      // Super A
    NumberedPaper{58, 305, 487},      // Super B
    NumberedPaper{60, 210, 330},      // A4 Plus
    NumberedPaper{61, 148, 210},      // A5 Transverse
    NumberedPaper{62, 182, 257},      // B5 (JIS) Transverse
    NumberedPaper{63, 322, 445},      // A3 Extra
    NumberedPaper{64, 174, 235},      // A5 Extra
    NumberedPaper{65, 201, 276},      // B5 (ISO) Extra
    NumberedPaper{66, 420, 594},      // A2
    NumberedPaper{67, 297, 420},      // A3 Transverse
    NumberedPaper{68, 322, 445},      // A3 Extra Transverse
    NumberedPaper{69, 200, 148},      // Japanese double postcard
    NumberedPaper{70, 105, 148},      // A6
    NumberedPaper{76, 420, 297},      // A3 Rotated
    NumberedPaper{77, 297, 210},      // A4 Rotated
    NumberedPaper{78, 210, 148},      // A5 Rotated
    NumberedPaper{79, 364, 257},      // B4 (JIS) Rotated
    NumberedPaper{80, 257, 182},      // B5 (JIS) Rotated
    NumberedPaper{83, 148, 105},      // A6 Rotated
    NumberedPaper{88, 128, 182},      // B6 (JIS)
    NumberedPaper{89, 182, 128},      // B6 (JIS) Rotated
    NumberedPaper{93, 146, 215},      // 16K
    NumberedPaper{94, 97, 151},       // 32K
    NumberedPaper{95, 97, 151},       // Large 32K
    NumberedPaper{106, 215, 146},     // 16K Rotated
    NumberedPaper{107, 151, 97},      // 32K Rotated
    NumberedPaper{108, 151, 97},      // Large 32K Rotated
};

// Sheets whose standard names them in inches.
constexpr std::array kInchPapers = {
    NumberedPaper{1, 8.5, 11},        // Letter
    NumberedPaper{2, 8.5, 11},        // Letter Small
    NumberedPaper{3, 11, 17},         // Tabloid
    NumberedPaper{4, 17, 11},         // Ledger
    NumberedPaper{5, 8.5, 14},        // Legal
    NumberedPaper{6, 5.5, 8.5},       // Statement
    NumberedPaper{7, 7.25, 10.5},     // Executive
    NumberedPaper{14, 8.5, 13},       // Folio
    NumberedPaper{16, 10, 14},        // 10 by 14
    NumberedPaper{17, 11, 17},        // 11 by 17
    NumberedPaper{18, 8.5, 11},       // Note
    NumberedPaper{19, 3.875, 8.875},  // Envelope 9
    NumberedPaper{20, 4.125, 9.5},    // Envelope 10
    NumberedPaper{21, 4.5, 10.375},   // Envelope 11
    NumberedPaper{22, 4.75, 11},      // Envelope 12
    NumberedPaper{23, 5, 11.5},       // Envelope 14
    NumberedPaper{24, 17, 22},        // C sheet
    NumberedPaper{25, 22, 34},        // D sheet
    NumberedPaper{26, 34, 44},        // E sheet
    NumberedPaper{37, 3.875, 7.5},    // Envelope Monarch
    NumberedPaper{38, 3.625, 6.5},    // Envelope 6 3/4
    NumberedPaper{39, 14.875, 11},    // Continuous form, wide
    NumberedPaper{40, 8.5, 12},       // Continuous form, German standard
    NumberedPaper{41, 8.5, 13},       // Continuous form, German legal
    NumberedPaper{44, 9, 11},         // 9 by 11
    NumberedPaper{45, 10, 11},        // 10 by 11
    NumberedPaper{46, 15, 11},        // 15 by 11
    NumberedPaper{50, 9.5, 12},       // Letter Extra
    NumberedPaper{51, 9.5, 15},       // Legal Extra
    NumberedPaper{52, 11.69, 18},     // Tabloid Extra
    NumberedPaper{54, 8.5, 11},       // Letter Transverse
    NumberedPaper{56, 9.5, 12},       // Letter Extra Transverse
    NumberedPaper{59, 8.5, 12.69},    // Letter Plus
    NumberedPaper{75, 11, 8.5},       // Letter Rotated
    NumberedPaper{90, 12, 11},        // 12 by 11
};

template <typename Papers>
std::optional<PaperExtent> Find(const Papers& papers, std::int32_t code, double twipsPerUnit) {
  const auto found = std::ranges::find(papers, code, &NumberedPaper::code);
  if (found == papers.end()) return std::nullopt;
  return PaperExtent{found->width * twipsPerUnit, found->height * twipsPerUnit};
}

}  // namespace

bool IsSameSheet(const PaperExtent& one, const PaperExtent& other) {
  constexpr double kTolerance = 0.2 * kTwipsPerMillimetre;
  return std::abs(one.width - other.width) <= kTolerance &&
         std::abs(one.height - other.height) <= kTolerance;
}

std::optional<PaperExtent> StandardPaper(std::int32_t code) {
  if (const auto metric = Find(kMetricPapers, code, kTwipsPerMillimetre)) return metric;
  return Find(kInchPapers, code, kTwipsPerInchOfPaper);
}

std::int32_t PaperCodeOf(const PaperExtent& sheet) {
  constexpr std::int32_t kLastStandardPaper = 118;
  for (std::int32_t code = 1; code <= kLastStandardPaper; ++code) {
    const auto paper = StandardPaper(code);
    if (paper && IsSameSheet(*paper, sheet)) return code;
  }
  return kUserDefinedPaper;
}

}  // namespace td
