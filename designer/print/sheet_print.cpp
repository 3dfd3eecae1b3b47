#include "designer/print/sheet_print.h"

#include <algorithm>

#include "designer/model/sheet_layout.h"
#include "designer/print/format_database.h"
#include "designer/print/sheet_frame.h"
#include "memory_rows/memory_recordset.h"
#include "platform/failure.h"
#include "service/printer.h"
#include "text/conversions.h"

namespace td::designer {
namespace {

constexpr int kMostRows = 1000;  // of a page that shows captions; more have no place on any sheet
constexpr const char* kSampleCode = "00123456";

// Writes down which commands of which page an item has drawn.
class DrawnItems {
 public:
  struct Entry {
    std::size_t page;  // from 1
    std::size_t first;
    std::size_t end;
    SheetPiece piece;
  };

  explicit DrawnItems(const SheetWindows& windows) : windows_(windows) {}

  [[nodiscard]] ItemWatch Watch() {
    return {.bandBegins = [this](ItemSite site) { BeginBand(site); },
            .itemBegins = [this](ItemId item) { BeginItem(item); }};
  }
  [[nodiscard]] std::vector<Entry>& Entries() { return entries_; }

 private:
  void BeginBand(ItemSite site) {
    const std::size_t page = windows_.Now().page;
    if (page != pageOfRow_) row_ = -1;
    pageOfRow_ = page;
    site_ = site;
    if (site == ItemSite::kRow) ++row_;
  }

  void BeginItem(ItemId item) {
    const SheetWindows::Place now = windows_.Now();
    if (item_ != 0) {
      entries_.push_back(
          {now.page, from_.commands, now.commands, {item_, site_, std::max(row_, 0), {}}});
    }
    item_ = item;
    from_ = now;
  }

  const SheetWindows& windows_;
  std::vector<Entry> entries_;
  ItemSite site_ = ItemSite::kHead;
  int row_ = -1;
  std::size_t pageOfRow_ = 0;
  ItemId item_ = 0;
  SheetWindows::Place from_;
};

// Gives the commands of the pages to those who drew them.
std::vector<SheetPage> Divide(const std::vector<Page>& pages,
                              std::vector<DrawnItems::Entry>& entries) {
  std::vector<SheetPage> divided;
  std::size_t entry = 0;
  for (std::size_t number = 1; number <= pages.size(); ++number) {
    const Page& page = pages[number - 1];
    SheetPage& sheet = divided.emplace_back();
    sheet.width = page.width;
    sheet.height = page.height;
    sheet.landscape = page.landscape;
    std::size_t at = 0;
    SheetPiece nobodys;
    const auto isHere = [&] { return entry < entries.size() && entries[entry].page == number; };
    const auto finish = [&] {
      SheetPiece& piece = entries[entry].piece;
      if (piece.site == ItemSite::kRow) sheet.rows = std::max(sheet.rows, piece.row + 1);
      sheet.pieces.push_back(std::move(piece));
      ++entry;
    };
    for (const DrawingCommand& command : page.commands) {
      while (isHere() && entries[entry].end <= at) finish();
      const bool isOwned = isHere() && entries[entry].first <= at;
      (isOwned ? entries[entry].piece : nobodys).commands.push_back(command);
      ++at;
    }
    while (isHere()) finish();
    if (!nobodys.commands.empty()) sheet.pieces.push_back(std::move(nobodys));
  }
  return divided;
}

// As many rows as a page has, of one bill, with nothing in them but what barcodes encode.
RecordsetRef RowsWithoutData(const Format& format) {
  const int rows = std::clamp(LayoutOf(format).rowsPerPage, 1, kMostRows);
  return std::make_shared<MemoryRecordset>(
      std::vector<std::string>{"FInterID", "FBillNo", "FBillNoBarCode", "FUserBarCode"},
      std::vector<std::vector<Value>>(
          static_cast<std::size_t>(rows),
          {std::int64_t{1}, Value(std::string(kSampleCode)), Value(std::string(kSampleCode)),
           Value(std::string(kSampleCode))}));
}

// The rows of the first bill. Nothing where there is no row, or no column that tells the bills
// apart.
RecordsetRef FirstBill(const std::shared_ptr<const MemoryRows>& rows) {
  if (!rows || rows->RowCount() == 0) return nullptr;
  const auto bill = rows->Columns().Find("FInterID");
  if (!bill) return nullptr;
  std::vector<std::string> columns;
  for (std::size_t i = 0; i < rows->Columns().Size(); ++i) {
    columns.push_back(rows->Columns().Name(i));
  }
  Value first;
  rows->Read(0, *bill, first);
  std::vector<std::vector<Value>> cells;
  for (std::size_t row = 0; row < rows->RowCount(); ++row) {
    Value value;
    rows->Read(row, *bill, value);
    if (!MeanTheSame(value, first)) break;
    std::vector<Value>& line = cells.emplace_back(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) rows->Read(row, i, line[i]);
  }
  return std::make_shared<MemoryRecordset>(std::move(columns), cells);
}

}  // namespace

SheetPrinter::SheetPrinter(Platform& platform, std::string connection, BarcodeSettings barcodes)
    : platform_(platform), connection_(std::move(connection)), barcodes_(std::move(barcodes)) {}

SheetPicture SheetPrinter::Print(const Format& format, SheetContents contents, bool onlyValues) {
  MessageList messages;
  SheetWindows windows(messages, barcodes_);
  DrawnItems drawn(windows);
  const RecordsetRef bill = contents == SheetContents::kData ? FirstBill(rows_) : nullptr;
  const ShownItems shown{.captions = bill == nullptr, .onlyValues = onlyValues};
  FormatDatabase database(format, platform_.database, shown, drawn.Watch());
  Platform platform{database, platform_.pictures, messages, platform_.machine, windows};
  try {
    Printer(platform).DoPrint(true, connection_, static_cast<std::int16_t>(format.BillType()),
                              onlyValues, false, bill ? bill : RowsWithoutData(format),
                              format.Name());
  } catch (const Failure& failure) {
    messages.Add(failure.Description());
  }
  return {Divide(windows.Pages(), drawn.Entries()), messages.Take()};
}

}  // namespace td::designer
