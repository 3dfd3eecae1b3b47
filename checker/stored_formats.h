// The formats and settings of a database.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checker/format_rows.h"
#include "platform/database.h"

namespace td::checker {

struct StoredFormats {
  StoredRows bills;          // TDBill
  StoredRows machinePapers;  // TDBill_PaperSize
  StoredRows areaPrinters;   // TDBill_AreaPrinterDevice; empty if there is no such table
};

// Reads what a database has. A lock is waited for by trying again; any other failure leaves the
// call.
[[nodiscard]] StoredFormats ReadFormats(Database& database, const std::string& connection);

// One of its formats, with the variables of its bill type. A name that no statement can hold leaves
// the items out.
[[nodiscard]] FormatRows ReadFormat(Database& database, const std::string& connection,
                                    const StoredFormats& stored, std::size_t bill);

// What to look at: all bill types and formats, or some.
struct Selection {
  std::optional<std::int16_t> billType;
  std::string format;

  [[nodiscard]] bool Has(const StoredRow& bill) const;
};

[[nodiscard]] std::vector<std::size_t> SelectedFormats(const StoredFormats& stored,
                                                       const Selection& selection);

}  // namespace td::checker
