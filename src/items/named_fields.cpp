#include "items/named_fields.h"

#include <array>
#include <unordered_map>

#include "items/count_fields.h"
#include "items/total_page_stamp.h"
#include "text/conversions.h"

namespace td {
namespace {

using enum WithoutAllSums;

NamedField Number(std::string_view name, SumSource source, WithoutAllSums without = kSame) {
  return {name, SumField{source, SumForm::kNumber, without}};
}

NamedField Words(std::string_view name, SumSource source, WithoutAllSums without = kSame) {
  return {name, SumField{source, SumForm::kWords, without}};
}

const std::array kFields = {
    NamedField{kPageNumberField, DrawPageOfBill},
    NamedField{kTotalPageNumberField, StoreTotalPageStamp},
    Words("fsumamount_dx", "FSumAmount"),
    Words("fsumretailamount_dx", "FSumRetailAmount"),
    Words("fsumtax_dx", "FSumTax"),
    Words("fsumnotaxamount_dx", "FSumNoTaxAmount"),
    Words("FSumBzkAmount_Dx", "FSumBzkAmount"),
    Number("ftotalpage", &PageSums::PageAmount),
    Number("ftotalpage_1", &RunSums::RunAmount, kNoValue),
    Words("ftotalpagedx", &PageSums::PageAmount),
    Words("FTotalPage_1_Dx", &RunSums::RunAmount, kNoValue),
    Number("FSumTotalPage", &RunSums::SumAmount),
    Number("ftotalpagetax", &PageSums::PageTax),
    Number("ftotalpage_retailamount", &PageSums::PageRetailAmount, kNoValue),
    Number("ftotalpage_bzkamount", &PageSums::PageBzkAmount, kNoValue),
    Number("ftotalpagetax_1", &RunSums::RunTax, kNoValue),
    Words("ftotalpagetax_1_dx", &RunSums::RunTax, kNoValue),
    Number("ftotalpagenotaxamount", &PageSums::PageNoTaxAmount),
    Number("ftotalpagenotaxamount_1", &RunSums::RunNoTaxAmount, kNoValue),
    Words("ftotalpagenotaxamount_1_dx", &RunSums::RunNoTaxAmount, kNoValue),
    Words("fearnest_dx", "FEarnest"),
    Number("ftotalpage_qty", &PageSums::PageQty),
    Number("ftotalpage_sumqty", &PageSums::PageSumQty, kNoValue),
    Number("ftotalpage_credit", &PageSums::PageCredit, kNoValue),
    Number("ftotalpage_debit", &PageSums::PageDebit, kNoValue),
    Number("ftotalpage_slaveqty", &PageSums::PageSlaveQty, kNoValue),
    Number("ftotalpage_mainqty", &PageSums::PageMainQty),
    Number("FPurAmount_TotalPage", &PageSums::PagePurAmount, kOrdinaryColumn),
    Number("FSaleAmount_TotalPage", &PageSums::PageSaleAmount, kOrdinaryColumn),
    Number("FSkd_TotalPage", &PageSums::PageSkd, kOrdinaryColumn),
    Number("FFkd_TotalPage", &PageSums::PageFkd, kOrdinaryColumn),
    Number("ftotalpageselffreight", &RunSums::RunFreight, kNoValue),
    Number("ftotalpage_mainqty_1", &RunSums::RunMainQty, kNoValue),
    Number("FTotalPageFreight_Amount", &RunSums::RunFreightAmount, kNoValue),
    NamedField{"forderid", DrawOrderId},
    NamedField{"fcomplexqty", QuantityColumns{.main = "FMainQty",
                                              .testedForNull = {},
                                              .testedForZero = "FMainQty",
                                              .small = "FSlaveQty",
                                              .mainUnit = "FMUnit",
                                              .smallUnit = "FUnit",
                                              .fallback = "FQty"}},
    NamedField{"fcomplexqty_in", QuantityColumns{.main = "FMainQty_In",
                                                 .testedForNull = "FMainQty_In",
                                                 .testedForZero = "FQty_In",
                                                 .small = "FSlaveQty_In",
                                                 .mainUnit = "FMainUnit",
                                                 .smallUnit = "FUnit",
                                                 .fallback = "FSlaveQty_In"}},
    NamedField{"fcomplexqty_out", QuantityColumns{.main = "FMainQty_out",
                                                  .testedForNull = "FQty_out",
                                                  .testedForZero = "FMainQty_out",
                                                  .small = "FSlaveQty_out",
                                                  .mainUnit = "FMainUnit",
                                                  .smallUnit = "FUnit",
                                                  .fallback = "FSlaveQty_out"}},
};

bool IsOrdinaryColumnWithoutAllSums(const NamedField& field) {
  const auto* sum = std::get_if<SumField>(&field.drawing);
  return sum != nullptr && sum->withoutAllSums == kOrdinaryColumn;
}

}  // namespace

const NamedField* FindNamedField(std::string_view name, const WindowKind& kind) {
  static const auto byName = [] {
    std::unordered_map<std::string, const NamedField*> fields;
    for (const NamedField& field : kFields) fields.emplace(LowerCase(field.name), &field);
    return fields;
  }();
  const auto found = byName.find(LowerCase(name));
  if (found == byName.end()) return nullptr;
  const NamedField* field = found->second;
  return !kind.hasAllSums && IsOrdinaryColumnWithoutAllSums(*field) ? nullptr : field;
}

bool HasValueIn(const NamedField& field, ItemSite site) {
  const bool isBehindRows = site == ItemSite::kAfterRows || site == ItemSite::kFoot;
  return !isBehindRows || !std::holds_alternative<QuantityColumns>(field.drawing);
}

std::span<const NamedField> NamedFields() {
  return kFields;
}

void DrawNamedField(Band& band, const NamedField& field) {
  if (const auto* sum = std::get_if<SumField>(&field.drawing)) {
    DrawSum(band, *sum);
  } else if (const auto* columns = std::get_if<QuantityColumns>(&field.drawing)) {
    DrawQuantity(band, *columns);
  } else {
    std::get<void (*)(Band&)>(field.drawing)(band);
  }
}

}  // namespace td
