#include "run/row_sums.h"

#include <cmath>
#include <limits>
#include <string_view>

#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kMarkerQty = -999.99;  // FMainQty of a row that stands outside the sums

// What a column is that the row lacks or that is Null in it, and what a division by zero gives: no
// sum takes a result that such a number is part of. Most data lack many of the columns that are
// asked for here, in each row, which is no failure therefore.
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

double Quotient(double dividend, double divisor) {
  return divisor == 0 ? kNoNumber : dividend / divisor;
}

// The columns of which a row's split into amount without tax and tax is computed.
constexpr std::string_view kSplitColumns = "FPrice,FQty,FTaxRate";

// A result that is no number, or too large to be one, leaves its target as it was.
void Take(double& target, double result) {
  if (std::isfinite(result)) target = result;
}

// Reads the current row and adds to sums; a failing statement is skipped without a message.
class RowAdder {
 public:
  explicit RowAdder(const PrintRun& run)
      : row_(*run.request.PrintData),
        witness_(run.witness),
        ignoring_(reactions::kIgnoreAll, {}, run.witness) {}

  // The leading number of a column's text, or the column's value as it stands.
  void AddLeading(double& sum, std::string_view column) const {
    ignoring_.Step([&] { Add(sum, column, Leading(column)); });
  }
  void AddNumber(double& sum, std::string_view column) const {
    ignoring_.Step([&] { Add(sum, column, Number(column)); });
  }
  void AddSplit(double& sum, double part) const {
    ignoring_.Step([&] { Add(sum, kSplitColumns, part); });
  }

  // Without the column FMainQty the test fails and thus holds: all rows are marker rows.
  [[nodiscard]] bool IsMarker() const {
    return ignoring_.Test([&] {
      const Value* qty = Find("FMainQty");
      return qty == nullptr || (!IsNull(*qty) && ToDouble(*qty) == kMarkerQty);
    });
  }

  // The row's split into amount without tax and tax; a failing one leaves its target as it was.
  void ComputeNoTax(double& noTax) const {
    ignoring_.Step([&] { Take(noTax, Number("FQty") * PriceWithoutTax()); });
  }
  void ComputeTax(double& tax) const {
    ignoring_.Step(
        [&] { Take(tax, Leading("FTaxRate") / 100 * Number("FQty") * PriceWithoutTax()); });
  }

 private:
  void Add(double& sum, std::string_view columns, double amount) const {
    if (witness_ != nullptr) witness_->Adds(sum, columns, amount);
    Take(sum, sum + amount);
  }

  [[nodiscard]] const Value* Find(std::string_view column) const {
    if (witness_ != nullptr) witness_->Reads(row_, column);
    return row_.Find(column);
  }
  [[nodiscard]] double Leading(std::string_view column) const {
    const Value* value = Find(column);
    return value == nullptr || IsNull(*value) ? kNoNumber : Val(*value);
  }
  [[nodiscard]] double Number(std::string_view column) const {
    const Value* value = Find(column);
    return value == nullptr || IsNull(*value) ? kNoNumber : ToDouble(*value);
  }
  [[nodiscard]] double PriceWithoutTax() const {
    return Quotient(Number("FPrice"), 1 + Leading("FTaxRate") / 100);
  }

  Recordset& row_;
  RunWitness* witness_;
  Guard ignoring_;
};

// The tax is computed from price and quantity.
void AddRowOfBill(PrintRun& run) {
  const RowAdder row(run);
  RunSums& total = run.state.run;
  PageSums& page = run.state.page;

  row.AddLeading(total.SumAmount, "FAmount");
  if (row.IsMarker()) {
    if (run.witness != nullptr) run.witness->RowIsMarker();
    return;
  }

  row.AddLeading(page.PageMainQty, "FMainQty");
  row.AddLeading(page.PageAmount, "FAmount");
  row.AddLeading(page.PageQty, "FQty");
  row.AddLeading(page.PageSumQty, "FQty");
  row.AddLeading(page.PageCredit, "FCredit");
  row.AddLeading(page.PageDebit, "FDebit");
  row.AddLeading(page.PageSlaveQty, "FSlaveQty");
  row.AddLeading(page.PageSaleAmount, "FSaleAmount");
  row.AddLeading(page.PagePurAmount, "FPurAmount");
  row.AddLeading(page.PageSkd, "FSkd");
  row.AddLeading(page.PageFkd, "FFkd");

  // A row that lacks price, quantity or rate adds the split of the row before it once more.
  row.ComputeNoTax(run.NoTax);
  row.ComputeTax(run.Tax);
  row.AddSplit(page.PageNoTaxAmount, run.NoTax);
  row.AddSplit(page.PageTax, run.Tax);
  row.AddNumber(page.PageRetailAmount, "FRetailAmount");
  row.AddNumber(page.PageBzkAmount, "FBeforeZkAmount");
  row.AddSplit(total.RunTax, run.Tax);
  row.AddSplit(total.RunNoTaxAmount, run.NoTax);
  row.AddLeading(total.RunAmount, "FAmount");
  row.AddNumber(total.RunMainQty, "FMainQty");
  row.AddNumber(total.RunFreight, "FFreight");
  row.AddNumber(total.RunFreightAmount, "FFreight_Amount");
}

// The tax is taken from its column.
void AddRowOfStockArea(PrintRun& run) {
  const RowAdder row(run);
  RunSums& total = run.state.run;
  PageSums& page = run.state.page;

  row.AddLeading(page.PageAmount, "FAmount");
  row.AddLeading(page.PageQty, "FQty");
  row.AddLeading(total.SumAmount, "FAmount");
  row.AddLeading(page.PageMainQty, "FMainQty");
  row.AddLeading(page.PageTax, "FTax");
  row.AddLeading(page.AreaPageAmount, "FAmount");
  row.AddLeading(page.PageNoTaxAmount, "FNoTaxAmount");
  row.AddLeading(total.RunTax, "FTax");
  row.AddLeading(total.RunNoTaxAmount, "FNoTaxAmount");
}

}  // namespace

void AddRowToSums(PrintRun& run) {
  if (run.kind.grouping == Grouping::kBill) {
    AddRowOfBill(run);
  } else {
    AddRowOfStockArea(run);
  }
}

}  // namespace td
