#include "checker/trial_run.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "checker/format_database.h"
#include "checker/numbered_rows.h"
#include "checker/sample_rows.h"
#include "checker/trial_platform.h"
#include "platform/failure.h"
#include "run/do_printing.h"
#include "text/conversions.h"
#include "windows/open_window.h"

namespace td::checker {
namespace {

constexpr std::size_t kNoItem = static_cast<std::size_t>(-1);

// Keeps what the run tells and what its surface is asked for.
class TrialWitness : public RunWitness, public TrialListener {
 public:
  TrialWitness(std::size_t items, const std::vector<TrialObserver*>& observers)
      : observers_(observers) {
    result.items.resize(items);
  }

  TrialResult result;

  // The document of the run, the cursor that it parks, and one to follow it, which stands on the
  // first row. Told before the run begins.
  void Watch(PageDocument& document, const Recordset& clone, RecordsetRef rowDrawn) {
    document_ = &document;
    clone_ = &clone;
    rowDrawn_ = std::move(rowDrawn);
  }

  // ---- What the run tells
  void RunBegins(const WitnessedRun& run) override { data_ = &run.data; }
  void FormatChosen(const std::string& /*name*/) override {}
  void RunEnds() override {
    EndItem();
    EndPage();
    CountLostRows();
    data_ = nullptr;
  }
  void PageBegins() override {
    EndItem();
    EndPage();
    ++page_;
    rowsOnPage_ = 0;
    const Page& page = document_->Pages().back();
    extent_ = {page.width, page.height};
    if (!result.sheet) result.sheet = extent_;
  }
  void PagesEnd() override { EndItem(); }
  void GroupBreaks() override {}
  void RowBegins(std::int16_t /*number*/) override {
    if (++result.rows > 1 && rowDrawn_ && !rowDrawn_->Eof()) rowDrawn_->MoveNext();
    isMarkerRow_ = false;
    ++rowsOnPage_;
    row_ = NumberOf(*data_);
    billOfRow_[row_] = GroupOf(*data_, row_);
  }
  void RowIsMarker() override {
    ++result.markerRows;
    isMarkerRow_ = true;
  }
  void RowIsSkipped() override {}
  void Adds(const double& sum, std::string_view columns, double amount) override {
    SumTrial& trial = result.sums[&sum];
    if (!std::isnan(amount)) {
      ++trial.added;
      trial.rows.insert(row_);
    }
    if (!addedColumns_.insert({&sum, std::string(columns)}).second) return;
    std::istringstream names{std::string(columns)};
    for (std::string name; std::getline(names, name, ',');) trial.columns.insert(name);
  }
  void BandBegins(WitnessedBand band) override {
    EndItem();
    band_ = band;
  }
  void BandEnds() override { EndItem(); }
  void ItemBegins(Recordset& item) override {
    EndItem();
    itemRow_ = &item;
    const Value* index = item.Find(kItemIndex);
    item_ = index == nullptr ? kNoItem : static_cast<std::size_t>(ToInteger32(*index));
    if (item_ != kNoItem) ++Item().times;
  }
  void ItemEnds() override { EndItem(); }
  void Drawn(DrawnAs what, std::string_view text) override {
    if (item_ == kNoItem) return;
    if (what == DrawnAs::kText && text.empty()) return;
    if (what == DrawnAs::kText) CompareBills();
    if (band_ == WitnessedBand::kRow) shownRows_.insert(row_);
    shownRows_.insert(rowsRead_.begin(), rowsRead_.end());
    ++Item().drawn;
    if (what == DrawnAs::kText && Item().text.empty()) Item().text = text;
  }
  void Meets(Circumstance circumstance) override {
    if (item_ == kNoItem) return;
    Item().met.insert(circumstance);
    if (circumstance == Circumstance::kNoVariable) isFixedText_ = true;
  }
  void ShowsSum(const double& sum) override {
    if (item_ != kNoItem) Item().sums.insert(&sum);
  }
  void StampKept(std::size_t place) override {
    if (item_ == kNoItem) return;
    ++Item().drawn;
    const auto [keeper, isFirst] = stampItems_.try_emplace(place, item_);
    if (!isFirst && keeper->second != item_) result.items[keeper->second].takenBy = item_;
    Item().takenBy.reset();
    keeper->second = item_;
  }
  void StampWritten(std::size_t place, int page) override {
    const auto found = stampItems_.find(place);
    if (found == stampItems_.end()) return;
    stamp_.item = found->second;
    stamp_.page = page;
    stamp_.what = DrawnAs::kStamp;
    for (TrialObserver* observer : observers_) observer->Draws(stamp_);
  }
  void Reads(Recordset& rows, std::string_view column) override {
    lastColumn_ = column;
    lastIsOwn_ = &rows == itemRow_ && item_ != kNoItem;
    const bool isAtEnd = rows.Eof();
    const Value* value = isAtEnd ? nullptr : rows.Find(column);
    lastIsNull_ = value != nullptr && IsNull(*value);
    if (lastIsOwn_) {
      Item().columnsRead.insert(LowerCase(column));
    } else if (item_ != kNoItem && IsData(rows)) {
      ReadData(rows, std::string(column), value, isAtEnd);
      return;
    }
    if (value == nullptr && !isAtEnd && !IsData(rows)) {
      result.missingOfTable.insert(std::string(column));
    }
  }
  void Forgives(const Failure& failure, bool /*isTest*/) override {
    if (failure.Number() == kInvalidUseOfNull && lastIsOwn_ && lastIsNull_ && item_ != kNoItem) {
      Item().nullsSkipped.insert(lastColumn_);
    }
  }
  void TriesAgain(const Failure& /*failure*/) override {}
  void Ends(const Failure& /*failure*/) override {}

  // ---- What the surface is asked for
  void Boxed(const BoxText& text) override {
    Drawing drawing =
        Begin(DrawnAs::kText, text.left, text.top, text.left + text.width, text.top + text.height);
    stamp_ = drawing;
    stampText_ = text;
    stamp_.box = &stampText_;
    drawing.box = &text;
    Tell(drawing);
  }
  void Written(const PaperExtent& size, double left, double top) override {
    Tell(Begin(DrawnAs::kText, left, top, left + size.width, top + size.height));
  }
  void Ruled(double x1, double y1, double x2, double y2) override {
    Tell(Begin(DrawnAs::kLine, std::min(x1, x2), std::min(y1, y2), std::max(x1, x2),
               std::max(y1, y2)));
  }
  void Pictured(const PlacedPicture& picture) override {
    Drawing drawing = Begin(DrawnAs::kPicture, picture.left, picture.top,
                            picture.left + picture.width, picture.top + picture.height);
    drawing.picture = &picture;
    if (isBarcode_) {
      drawing.isBarcode = true;
      drawing.barcode = barcode_;
      drawing.refusal = refusal_;
    }
    Tell(drawing);
  }
  void BarcodeTold(const std::string& data) override {
    barcode_ = data;
    refusal_.clear();
    isBarcode_ = true;
    if (item_ == kNoItem) return;
    std::vector<std::string>& known = Item().barcodes;
    if (std::ranges::find(known, data) == known.end()) known.push_back(data);
  }
  void BarcodeRefused(const std::string& reason) override { refusal_ = reason; }
  void MessageShown(const std::string& text) override {
    if (item_ == kNoItem) {
      if (std::ranges::find(result.messages, text) == result.messages.end()) {
        result.messages.push_back(text);
      }
    } else if (Item().message.empty()) {
      Item().message = text;
    }
  }
  void Complained(const std::string& text) override { result.complaints.push_back(text); }

 private:
  [[nodiscard]] ItemTrial& Item() { return result.items[item_]; }

  // The caller's rows or the clone of them, and no record set that the logic has opened itself.
  [[nodiscard]] bool IsData(const Recordset& rows) const {
    return &rows == data_ || &rows == clone_;
  }

  void ReadData(Recordset& rows, const std::string& column, const Value* value, bool isAtEnd) {
    if (isAtEnd) return;
    rowsRead_.insert(NumberOf(rows));
    lastData_ = &rows;
    lastDataColumn_ = column;
    ColumnUse& use = Item().dataColumns[column];
    if (value == nullptr) use.isMissing = true;
    auto& [read, isNull] = columnsOfItem_[column];
    read = true;
    if (value != nullptr && IsNull(*value) && !isMarkerRow_) {
      isNull = true;
      if (use.nulls == 0 && use.firstNullRow == 0) {
        use.firstNullRow = std::max(1, result.rows);
        use.firstNullBill = BillOf(rows);
      }
    }
  }

  // Behind the rows of a bill, the rows that are read may stand on the next one already.
  void CompareBills() {
    const bool isBehindRows = band_ == WitnessedBand::kAfterRows || band_ == WitnessedBand::kFoot;
    if (!isBehindRows || lastData_ == nullptr || lastData_->Eof() || result.rows == 0) return;
    if (Item().nextBill || rowDrawn_->Eof()) return;
    const Value* id = lastData_->Find("FInterID");
    const Value* ownId = rowDrawn_->Find("FInterID");
    if (id == nullptr || ownId == nullptr || *id == *ownId) return;
    const Value* shown = lastData_->Find(lastDataColumn_);
    const Value* meant = rowDrawn_->Find(lastDataColumn_);
    if (shown == nullptr || meant == nullptr || *shown == *meant) return;
    Item().nextBill = {lastDataColumn_, BillOf(*rowDrawn_), BillOf(*lastData_), TextOf(*shown),
                       TextOf(*meant)};
  }

  // The rows of one bill stand for each other; a row of no bill stands for itself.
  static std::string GroupOf(Recordset& rows, int number) {
    const Value* id = rows.Find("FInterID");
    const std::string bill = id == nullptr ? std::string() : TextOf(*id);
    return bill.empty() || bill == "0" ? "#" + ToText(number) : bill;
  }

  // Of a format that shows no value at all, no row is lost.
  void CountLostRows() {
    for (const ItemTrial& item : result.items) {
      for (const double* sum : item.sums) {
        const auto shown = result.sums.find(sum);
        if (shown == result.sums.end()) continue;
        shownRows_.insert(shown->second.rows.begin(), shown->second.rows.end());
      }
    }
    std::set<std::string> shownGroups;
    for (const int row : shownRows_) {
      const auto found = billOfRow_.find(row);
      if (found != billOfRow_.end()) shownGroups.insert(found->second);
    }
    if (shownGroups.empty()) return;
    result.lostRows = static_cast<int>(std::ranges::count_if(
        billOfRow_, [&](const auto& row) { return !shownGroups.contains(row.second); }));
  }

  static std::string TextOf(const Value& value) {
    return std::holds_alternative<Bytes>(value) ? std::string() : ToText(value);
  }

  static std::string BillOf(Recordset& rows) {
    for (const char* column : {"FBillNo", "FInterID"}) {
      const Value* value = rows.Find(column);
      if (value != nullptr && !IsNull(*value) && !std::holds_alternative<Bytes>(*value)) {
        return ToText(*value);
      }
    }
    return {};
  }

  [[nodiscard]] Drawing Begin(DrawnAs what, double left, double top, double right,
                              double bottom) const {
    Drawing drawing{.item = item_, .page = page_, .band = band_, .what = what};
    drawing.isFixedText = isFixedText_;
    drawing.left = left;
    drawing.top = top;
    drawing.right = right;
    drawing.bottom = bottom;
    return drawing;
  }

  void Tell(const Drawing& drawing) {
    if (drawing.item == kNoItem) return;
    for (TrialObserver* observer : observers_) observer->Draws(drawing);
  }

  void EndItem() {
    if (item_ != kNoItem) {
      for (const auto& [column, state] : columnsOfItem_) {
        ColumnUse& use = Item().dataColumns[column];
        ++use.times;
        if (state.isNull) ++use.nulls;
      }
    }
    columnsOfItem_.clear();
    rowsRead_.clear();
    lastData_ = nullptr;
    item_ = kNoItem;
    itemRow_ = nullptr;
    isFixedText_ = false;
    isBarcode_ = false;
  }

  void EndPage() {
    if (page_ == 0) return;
    if (rowsOnPage_ == 0) ++result.pagesWithoutRows;
    for (TrialObserver* observer : observers_) observer->PageEnds(extent_);
  }

  struct ReadState {
    bool isRead = false;
    bool isNull = false;
  };

  const std::vector<TrialObserver*>& observers_;
  PageDocument* document_ = nullptr;
  Recordset* data_ = nullptr;
  const Recordset* clone_ = nullptr;
  RecordsetRef rowDrawn_;  // on the row that was drawn last

  // Which rows have come onto a page: by their values, by what their band draws or in a sum.
  std::map<int, std::string> billOfRow_;  // of the rows that have been placed
  std::set<int> shownRows_;
  std::set<int> rowsRead_;  // by the item

  // Where the run is.
  int page_ = 0;
  int rowsOnPage_ = 0;
  int row_ = 0;
  bool isMarkerRow_ = false;  // a remark, which lacks most values
  PaperExtent extent_;
  WitnessedBand band_{};
  std::size_t item_ = kNoItem;
  Recordset* itemRow_ = nullptr;
  bool isFixedText_ = false;
  std::map<std::string, ReadState> columnsOfItem_;

  // The column that was read last.
  std::string lastColumn_;
  bool lastIsOwn_ = false;
  bool lastIsNull_ = false;
  Recordset* lastData_ = nullptr;  // the rows that the item has read, if it has read any
  std::string lastDataColumn_;

  std::set<std::pair<const double*, std::string>> addedColumns_;

  // The barcode maker's text, and whether the item has put it there.
  std::string barcode_;
  std::string refusal_;
  bool isBarcode_ = false;

  std::map<std::size_t, std::size_t> stampItems_;  // the item that keeps each place
  Drawing stamp_;                                  // the last text in a box
  BoxText stampText_;
};

// Enough rows to fill the second page, which may have more of them than the first, and one on a
// page of its own: the band behind the last row then comes where there is no row any more.
int SampleCount(const FormatRows& format) {
  constexpr double kMostRowsAPage = 1000;
  constexpr int kPages = 3;
  const double rows = format.Bill().Number("FRowsPerPage").value_or(0);
  return rows >= 1 && rows <= kMostRowsAPage ? kPages * static_cast<int>(std::lround(rows)) + 1 : 5;
}

}  // namespace

TrialResult RunTrial(const FormatRows& format, const CheckedMachine& machine,
                     const TrialRequest& request, const std::vector<TrialObserver*>& observers) {
  TrialWitness witness(format.ItemCount(), observers);
  FormatDatabase database(format, request.database);
  TrialPlatform platform(machine, request.printer, database, witness, witness);

  PrintContext context;
  context.New_PromptString = request.connection;
  context.New_DoPrint = true;
  context.New_TranType = format.billType;
  context.TDBillName = format.name;
  context.PrintData =
      std::make_shared<NumberedRows>(request.rows ? request.rows : SampleRows(SampleCount(format)));
  context.PrintDataClone = context.PrintData->Clone();

  const auto window =
      OpenWindow(platform.Get(), context, request.byArea ? kStockAreaWindow : kPlainWindow);
  witness.Watch(dynamic_cast<PageDocument&>(window->vp), *context.PrintDataClone,
                context.PrintData->Clone());
  try {
    DoPrinting(*window);
  } catch (const Failure& failure) {
    witness.MessageShown(failure.Description());
  }
  witness.result.rowHeight = window->state.RowHeight;
  witness.result.rowsPerPage = window->state.RowsPerPage;
  witness.result.printer = platform.Host().Printer();
  return std::move(witness.result);
}

}  // namespace td::checker
