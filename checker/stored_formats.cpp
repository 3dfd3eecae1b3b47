#include "checker/stored_formats.h"

#include <cmath>
#include <limits>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "store/statements.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

StoredRows Read(Database& database, const std::string& connection, const std::string& sql,
                const std::vector<std::string_view>& columns) {
  for (;;) {
    try {
      return ReadRows(*database.OpenQuery(connection, sql), columns);
    } catch (const Failure& failure) {
      if (!IsLockConflict(failure)) throw;
    }
  }
}

StoredRows ReadIfThere(Database& database, const std::string& connection, const std::string& sql,
                       const std::vector<std::string_view>& columns) {
  try {
    return Read(database, connection, sql, columns);
  } catch (const Failure&) {
    return {};
  }
}

std::int16_t BillTypeOf(const StoredRow& bill) {
  constexpr double kLargest = std::numeric_limits<std::int16_t>::max();
  const double type = bill.Number("FTranType").value_or(0);
  return std::abs(type) <= kLargest ? static_cast<std::int16_t>(std::lround(type))
                                    : std::int16_t{0};
}

}  // namespace

StoredFormats ReadFormats(Database& database, const std::string& connection) {
  return {Read(database, connection, "select * from TDBill", BillColumns()),
          Read(database, connection, "select * from TDBill_PaperSize", MachinePaperColumns()),
          ReadIfThere(database, connection, "select * from TDBill_AreaPrinterDevice",
                      AreaPrinterColumns())};
}

FormatRows ReadFormat(Database& database, const std::string& connection,
                      const StoredFormats& stored, std::size_t bill) {
  FormatRows format;
  const StoredRow row(stored.bills, bill);
  format.billType = BillTypeOf(row);
  format.name = row.Text("FTDBillName");
  format.bill = {stored.bills.columns, {stored.bills.rows[bill]}};
  format.variables =
      Read(database, connection,
           "select * from TDVariant where FTranType=" + ToText(format.billType), VariableColumns());

  PrintContext context;
  context.New_TranType = format.billType;
  context.TDBillName = format.name;
  const std::string sql = AllItemsStatement(context);
  const bool isBroken = format.name.find('\'') != std::string::npos;
  format.items = isBroken ? ReadIfThere(database, connection, sql, ItemColumns())
                          : Read(database, connection, sql, ItemColumns());
  return format;
}

bool Selection::Has(const StoredRow& bill) const {
  if (billType && BillTypeOf(bill) != *billType) return false;
  return format.empty() || bill.Text("FTDBillName") == format;
}

std::vector<std::size_t> SelectedFormats(const StoredFormats& stored, const Selection& selection) {
  std::vector<std::size_t> selected;
  for (std::size_t i = 0; i < stored.bills.rows.size(); ++i) {
    if (selection.Has({stored.bills, i})) selected.push_back(i);
  }
  return selected;
}

}  // namespace td::checker
