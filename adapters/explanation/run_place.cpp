#include "explanation/run_place.h"

#include <array>
#include <cstddef>

namespace td {
namespace {

constexpr std::array kBands = {
    Sentence{"head", "页眉"},         Sentence{"column head", "列标题"},
    Sentence{"detail row", "明细行"}, Sentence{"band behind the rows", "明细之后"},
    Sentence{"foot", "页脚"},         Sentence{"empty row", "空行"},
};

constexpr Sentence kUnknownBand{"band {0}", "区 {0}"};
constexpr Sentence kFormat{"format {0}", "格式“{0}”"};
constexpr Sentence kBillType{"bill type {0}", "单据类型 {0}"};
constexpr Sentence kVariable{"{0} (variable {1})", "{0}（变量 {1}）"};
constexpr Sentence kBill{"bill {0}", "单据 {0}"};
constexpr Sentence kRow{"row {0}", "第 {0} 行"};
constexpr Sentence kPage{"page {0}", "第 {0} 页"};
constexpr Sentence kComma{", ", "，"};

}  // namespace

std::string BandName(int band, Language language) {
  const auto index = static_cast<std::size_t>(band - 1);
  if (band < 1 || index >= kBands.size()) return Fill(language, kUnknownBand, std::to_string(band));
  return std::string(kBands[index].In(language));
}

std::string PlaceText(const RunPlace& place, Language language) {
  std::string text;
  const auto add = [&](const std::string& part) {
    if (!text.empty()) text += kComma.In(language);
    text += part;
  };
  if (!place.format.empty()) {
    add(Fill(language, kFormat, place.format));
  } else if (place.billType != 0) {
    add(Fill(language, kBillType, std::to_string(place.billType)));
  }
  if (place.band != 0) add(BandName(place.band, language));
  if (!place.item.empty() && !place.variable.empty() && place.item != place.variable) {
    add(Fill(language, kVariable, place.item, place.variable));
  } else if (!place.item.empty() || !place.variable.empty()) {
    add(place.item.empty() ? place.variable : place.item);
  }
  if (!place.bill.empty()) add(Fill(language, kBill, place.bill));
  if (place.row != 0) add(Fill(language, kRow, std::to_string(place.row)));
  if (place.page != 0) add(Fill(language, kPage, std::to_string(place.page)));
  return text;
}

std::string WithPlace(const std::string& text, const RunPlace& place, Language language) {
  const std::string where = PlaceText(place, language);
  return where.empty() ? text : text + " (" + where + ")";
}

}  // namespace td
