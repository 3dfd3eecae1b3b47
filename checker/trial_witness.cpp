#include "checker/trial_witness.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "checker/format_database.h"
#include "checker/numbered_rows.h"
#include "explanation/place_keeper.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td::checker {
namespace {

constexpr std::size_t kNoItem = static_cast<std::size_t>(-1);

void AddNew(std::vector<std::string>& texts, const std::string& text) {
  if (std::ranges::find(texts, text) == texts.end()) texts.push_back(text);
}

}  // namespace

TrialWitness::TrialWitness(std::size_t items, const std::vector<TrialObserver*>& observers)
    : observers_(observers), item_(kNoItem) {
  result.items.resize(items);
}

void TrialWitness::Watch(PageDocument& document, const Recordset& clone, RecordsetRef rowDrawn) {
  document_ = &document;
  clone_ = &clone;
  rowDrawn_ = std::move(rowDrawn);
}

bool TrialWitness::HasItem() const {
  return item_ != kNoItem;
}

ItemTrial& TrialWitness::Item() {
  return result.items[item_];
}

// ---- Pages and rows

void TrialWitness::RunEnds() {
  EndItem();
  EndPage();
  CountLostRows();
  data_ = nullptr;
}

void TrialWitness::CountLostRows() {
  for (const ItemTrial& item : result.items) {
    for (const double* sum : item.sums) {
      const auto shown = result.sums.find(sum);
      if (shown != result.sums.end()) placed_.Show(shown->second.rows);
    }
  }
  result.lostRows = placed_.Lost();
}

void TrialWitness::PageBegins() {
  EndItem();
  EndPage();
  ++page_;
  rowsOnPage_ = 0;
  const Page& page = document_->Pages().back();
  extent_ = {page.width, page.height};
  if (!result.sheet) result.sheet = extent_;
}

void TrialWitness::EndPage() {
  if (page_ == 0) return;
  if (rowsOnPage_ == 0) ++result.pagesWithoutRows;
  for (TrialObserver* observer : observers_) observer->PageEnds(extent_);
}

void TrialWitness::RowBegins(std::int16_t /*number*/) {
  if (++result.rows > 1 && rowDrawn_ && !rowDrawn_->Eof()) rowDrawn_->MoveNext();
  isMarkerRow_ = false;
  ++rowsOnPage_;
  row_ = NumberOf(*data_);
  placed_.Place(row_, *data_);
}

void TrialWitness::RowIsMarker() {
  ++result.markerRows;
  isMarkerRow_ = true;
}

void TrialWitness::Adds(const double& sum, std::string_view columns, double amount) {
  SumTrial& trial = result.sums[&sum];
  if (!std::isnan(amount)) {
    ++trial.added;
    trial.rows.insert(row_);
  }
  if (!addedColumns_.insert({&sum, std::string(columns)}).second) return;
  std::istringstream names{std::string(columns)};
  for (std::string name; std::getline(names, name, ',');) trial.columns.insert(name);
}

// ---- Bands and items

void TrialWitness::BandBegins(WitnessedBand band) {
  EndItem();
  band_ = band;
}

void TrialWitness::ItemBegins(Recordset& item) {
  EndItem();
  itemRow_ = &item;
  const Value* index = item.Find(kItemIndex);
  item_ = index == nullptr ? kNoItem : static_cast<std::size_t>(ToInteger32(*index));
  if (HasItem()) ++Item().times;
}

void TrialWitness::EndItem() {
  if (HasItem()) {
    for (const auto& [column, isNull] : isNull_) {
      ColumnUse& use = Item().dataColumns[column];
      ++use.times;
      if (isNull) ++use.nulls;
    }
  }
  isNull_.clear();
  rowsRead_.clear();
  lastData_ = nullptr;
  item_ = kNoItem;
  itemRow_ = nullptr;
  isFixedText_ = false;
  isBarcode_ = false;
}

void TrialWitness::Drawn(DrawnAs what, std::string_view text) {
  if (!HasItem()) return;
  if (what == DrawnAs::kText && text.empty()) return;
  if (what == DrawnAs::kText) CompareBills();
  if (band_ == WitnessedBand::kRow) placed_.Show(row_);
  placed_.Show(rowsRead_);
  ++Item().drawn;
  if (what == DrawnAs::kText && Item().text.empty()) Item().text = text;
}

// Behind the rows of a bill, the rows that are read may stand on the next one already.
void TrialWitness::CompareBills() {
  const bool isBehindRows = band_ == WitnessedBand::kAfterRows || band_ == WitnessedBand::kFoot;
  if (!isBehindRows || lastData_ == nullptr || lastData_->Eof() || result.rows == 0) return;
  if (Item().nextBill || rowDrawn_->Eof()) return;
  const Value* id = lastData_->Find("FInterID");
  const Value* ownId = rowDrawn_->Find("FInterID");
  if (id == nullptr || ownId == nullptr || *id == *ownId) return;
  const Value* shown = lastData_->Find(lastDataColumn_);
  const Value* meant = rowDrawn_->Find(lastDataColumn_);
  if (shown == nullptr || meant == nullptr || *shown == *meant) return;
  Item().nextBill = {lastDataColumn_, BillOf(*rowDrawn_), BillOf(*lastData_),
                     td::TextOf(*lastData_, lastDataColumn_),
                     td::TextOf(*rowDrawn_, lastDataColumn_)};
}

void TrialWitness::Meets(Circumstance circumstance) {
  if (!HasItem()) return;
  Item().met.insert(circumstance);
  if (circumstance == Circumstance::kNoVariable) isFixedText_ = true;
}

void TrialWitness::ShowsSum(const double& sum, SumSpan /*span*/) {
  if (HasItem()) Item().sums.insert(&sum);
}

void TrialWitness::StampKept(std::size_t place) {
  if (!HasItem()) return;
  ++Item().drawn;
  const auto [keeper, isFirst] = stampItems_.try_emplace(place, item_);
  if (!isFirst && keeper->second != item_) result.items[keeper->second].takenBy = item_;
  Item().takenBy.reset();
  keeper->second = item_;
}

void TrialWitness::StampWritten(std::size_t place, int page) {
  const auto found = stampItems_.find(place);
  if (found == stampItems_.end()) return;
  stamp_.item = found->second;
  stamp_.page = page;
  stamp_.what = DrawnAs::kStamp;
  for (TrialObserver* observer : observers_) observer->Draws(stamp_);
}

// ---- Columns

// The caller's rows or the clone of them, and no record set that the logic has opened itself.
bool TrialWitness::IsData(const Recordset& rows) const {
  return &rows == data_ || &rows == clone_;
}

void TrialWitness::Reads(Recordset& rows, std::string_view column) {
  lastColumn_ = column;
  lastIsOwn_ = &rows == itemRow_ && HasItem();
  const bool isAtEnd = rows.Eof();
  const Value* value = isAtEnd ? nullptr : rows.Find(column);
  lastIsNull_ = value != nullptr && IsNull(*value);
  if (lastIsOwn_) {
    Item().columnsRead.insert(LowerCase(column));
  } else if (HasItem() && IsData(rows)) {
    if (!isAtEnd) ReadData(rows, std::string(column), value);
    return;
  }
  if (value == nullptr && !isAtEnd && !IsData(rows)) {
    result.missingOfTable.insert(std::string(column));
  }
}

void TrialWitness::ReadData(Recordset& rows, const std::string& column, const Value* value) {
  rowsRead_.insert(NumberOf(rows));
  lastData_ = &rows;
  lastDataColumn_ = column;
  ColumnUse& use = Item().dataColumns[column];
  if (value == nullptr) use.isMissing = true;
  bool& isNull = isNull_[column];
  if (value == nullptr || !IsNull(*value) || isMarkerRow_) return;
  isNull = true;
  if (use.nulls > 0 || use.firstNullRow > 0) return;
  use.firstNullRow = std::max(1, result.rows);
  use.firstNullBill = BillOf(rows);
}

void TrialWitness::Forgives(const Failure& failure, bool /*isTest*/) {
  if (failure.Number() == kInvalidUseOfNull && lastIsOwn_ && lastIsNull_ && HasItem()) {
    Item().nullsSkipped.insert(lastColumn_);
  }
}

// ---- The surface

Drawing TrialWitness::Begin(DrawnAs what, double left, double top, double right,
                            double bottom) const {
  Drawing drawing{.item = item_, .page = page_, .band = band_, .what = what};
  drawing.isFixedText = isFixedText_;
  drawing.left = left;
  drawing.top = top;
  drawing.right = right;
  drawing.bottom = bottom;
  return drawing;
}

void TrialWitness::Tell(const Drawing& drawing) {
  if (drawing.item == kNoItem) return;
  for (TrialObserver* observer : observers_) observer->Draws(drawing);
}

void TrialWitness::Boxed(const BoxText& text) {
  Drawing drawing =
      Begin(DrawnAs::kText, text.left, text.top, text.left + text.width, text.top + text.height);
  stamp_ = drawing;
  stampText_ = text;
  stamp_.box = &stampText_;
  drawing.box = &text;
  Tell(drawing);
}

void TrialWitness::Written(const PaperExtent& size, double left, double top) {
  Tell(Begin(DrawnAs::kText, left, top, left + size.width, top + size.height));
}

void TrialWitness::Ruled(double x1, double y1, double x2, double y2) {
  Tell(Begin(DrawnAs::kLine, std::min(x1, x2), std::min(y1, y2), std::max(x1, x2),
             std::max(y1, y2)));
}

void TrialWitness::Pictured(const PlacedPicture& picture) {
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

void TrialWitness::BarcodeTold(const std::string& data) {
  barcode_ = data;
  refusal_.clear();
  isBarcode_ = true;
  if (HasItem()) AddNew(Item().barcodes, data);
}

void TrialWitness::MessageShown(const std::string& text) {
  if (!HasItem()) {
    AddNew(result.messages, text);
  } else if (Item().message.empty()) {
    Item().message = text;
  }
}

}  // namespace td::checker
