#include "items/named_fields.h"

#include <array>
#include <unordered_map>

#include "text/conversions.h"

namespace td {
namespace {

NamedField Number(std::string_view name, SumSource source) {
  return {name, DrawSum, source};
}
NamedField Words(std::string_view name, SumSource source) {
  return {name, DrawSumInWords, source};
}

const std::array kFields = {
    NamedField{kPageNumberField, DrawPageNumber},
    NamedField{kTotalPageNumberField, DrawTotalPageNumber},
    Words("fsumamount_dx", "FSumAmount"),
    Words("fsumretailamount_dx", "FSumRetailAmount"),
    Words("fsumtax_dx", "FSumTax"),
    Words("fsumnotaxamount_dx", "FSumNoTaxAmount"),
    Words("FSumBzkAmount_Dx", "FSumBzkAmount"),
    Number("ftotalpage", &PageSums::PageAmount),
    Number("ftotalpage_1", &RunSums::RunAmount),
    Words("ftotalpagedx", &PageSums::PageAmount),
    Words("FTotalPage_1_Dx", &RunSums::RunAmount),
    Number("FSumTotalPage", &RunSums::SumAmount),
    Number("ftotalpagetax", &PageSums::PageTax),
    Number("ftotalpage_retailamount", &PageSums::PageRetailAmount),
    Number("ftotalpage_bzkamount", &PageSums::PageBzkAmount),
    Number("ftotalpagetax_1", &RunSums::RunTax),
    Words("ftotalpagetax_1_dx", &RunSums::RunTax),
    Number("ftotalpagenotaxamount", &PageSums::PageNoTaxAmount),
    Number("ftotalpagenotaxamount_1", &RunSums::RunNoTaxAmount),
    Words("ftotalpagenotaxamount_1_dx", &RunSums::RunNoTaxAmount),
    Words("fearnest_dx", "FEarnest"),
    Number("ftotalpage_qty", &PageSums::PageQty),
    Number("ftotalpage_sumqty", &PageSums::PageSumQty),
    Number("ftotalpage_credit", &PageSums::PageCredit),
    Number("ftotalpage_debit", &PageSums::PageDebit),
    Number("ftotalpage_slaveqty", &PageSums::PageSlaveQty),
    Number("ftotalpage_mainqty", &PageSums::PageMainQty),
    Number("FPurAmount_TotalPage", &PageSums::PagePurAmount),
    Number("FSaleAmount_TotalPage", &PageSums::PageSaleAmount),
    Number("FSkd_TotalPage", &PageSums::PageSkd),
    Number("FFkd_TotalPage", &PageSums::PageFkd),
    Number("ftotalpageselffreight", &RunSums::RunFreight),
    Number("ftotalpage_mainqty_1", &RunSums::RunMainQty),
    Number("FTotalPageFreight_Amount", &RunSums::RunFreightAmount),
    NamedField{"forderid", DrawOrderId},
    NamedField{"fcomplexqty", DrawQuantity,
               QuantityColumns{.main = "FMainQty",
                               .testedForNull = {},
                               .testedForZero = "FMainQty",
                               .small = "FSlaveQty",
                               .mainUnit = "FMUnit",
                               .smallUnit = "FUnit",
                               .fallback = "FQty"}},
    NamedField{"fcomplexqty_in", DrawQuantity,
               QuantityColumns{.main = "FMainQty_In",
                               .testedForNull = "FMainQty_In",
                               .testedForZero = "FQty_In",
                               .small = "FSlaveQty_In",
                               .mainUnit = "FMainUnit",
                               .smallUnit = "FUnit",
                               .fallback = "FSlaveQty_In"}},
    NamedField{"fcomplexqty_out", DrawQuantity,
               QuantityColumns{.main = "FMainQty_out",
                               .testedForNull = "FQty_out",
                               .testedForZero = "FMainQty_out",
                               .small = "FSlaveQty_out",
                               .mainUnit = "FMainUnit",
                               .smallUnit = "FUnit",
                               .fallback = "FSlaveQty_out"}},
};

}  // namespace

const NamedField* FindNamedField(std::string_view name) {
  static const auto byName = [] {
    std::unordered_map<std::string, const NamedField*> fields;
    for (const NamedField& field : kFields) fields.emplace(LowerCase(field.name), &field);
    return fields;
  }();
  const auto found = byName.find(LowerCase(name));
  return found == byName.end() ? nullptr : found->second;
}

}  // namespace td
