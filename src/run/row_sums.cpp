// What one row adds to the sums.
#include <cmath>

#include "run/print_run.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kMarkerQty = -999.99;  // FMainQty of a row that stands outside the sums

double Checked(double result) {
  if (!std::isfinite(result)) throw OverflowFailure();
  return result;
}

double Quotient(double dividend, double divisor) {
  if (divisor == 0) throw DivisionByZeroFailure();
  return Checked(dividend / divisor);
}

struct RowReader {
  Recordset& row;

  [[nodiscard]] double Leading(std::string_view column) const { return Val(row.Field(column)); }
  [[nodiscard]] double Number(std::string_view column) const { return ToDouble(row.Field(column)); }
  [[nodiscard]] bool IsMarker() const {
    const Value& qty = row.Field("FMainQty");
    return !IsNull(qty) && ToDouble(qty) == kMarkerQty;
  }
  [[nodiscard]] double NoTax() const {
    const double price = Quotient(Number("FPrice"), 1 + Leading("FTaxRate") / 100);
    return Checked(Number("FQty") * price);
  }
  [[nodiscard]] double Tax() const {
    const double quantity = Checked(Leading("FTaxRate") / 100 * Number("FQty"));
    return Checked(quantity * Quotient(Number("FPrice"), 1 + Leading("FTaxRate") / 100));
  }
};

}  // namespace

void AddRowToSums(PrintRun& run) {
  const Guard ignoring(reactions::kIgnoreAll);
  const RowReader row{*run.context.PrintData};
  RunSums& total = run.state.run;
  PageSums& page = run.state.page;

  const auto addLeading = [&](double& sum, std::string_view column) {
    ignoring.Step([&] { sum = Checked(sum + row.Leading(column)); });
  };
  const auto addNumber = [&](double& sum, std::string_view column) {
    ignoring.Step([&] { sum = Checked(sum + row.Number(column)); });
  };
  const auto addSplit = [&](double& sum, double split) {
    ignoring.Step([&] { sum = Checked(sum + split); });
  };

  addLeading(total.SumAmount, "FAmount");
  // Without the column FMainQty the test fails and thus holds: all rows are marker rows.
  if (ignoring.Test([&] { return row.IsMarker(); })) return;

  addLeading(page.PageMainQty, "FMainQty");
  addLeading(page.PageAmount, "FAmount");
  addLeading(page.PageQty, "FQty");
  addLeading(page.PageSumQty, "FQty");
  addLeading(page.PageCredit, "FCredit");
  addLeading(page.PageDebit, "FDebit");
  addLeading(page.PageSlaveQty, "FSlaveQty");
  addLeading(page.PageSaleAmount, "FSaleAmount");
  addLeading(page.PagePurAmount, "FPurAmount");
  addLeading(page.PageSkd, "FSkd");
  addLeading(page.PageFkd, "FFkd");

  // A row that lacks price, quantity or rate adds the split of the row before it once more.
  ignoring.Step([&] { run.NoTax = row.NoTax(); });
  ignoring.Step([&] { run.Tax = row.Tax(); });
  addSplit(page.PageNoTaxAmount, run.NoTax);
  addSplit(page.PageTax, run.Tax);
  addNumber(page.PageRetailAmount, "FRetailAmount");
  addNumber(page.PageBzkAmount, "FBeforeZkAmount");
  addSplit(total.RunTax, run.Tax);
  addSplit(total.RunNoTaxAmount, run.NoTax);
  addLeading(total.RunAmount, "FAmount");
  addNumber(total.RunMainQty, "FMainQty");
  addNumber(total.RunFreight, "FFreight");
  addNumber(total.RunFreightAmount, "FFreight_Amount");
}

}  // namespace td
