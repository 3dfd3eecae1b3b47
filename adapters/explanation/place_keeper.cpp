#include "explanation/place_keeper.h"

#include <exception>

#include "text/conversions.h"

namespace td {

std::string TextOf(Recordset& rows, std::string_view column) {
  try {
    const Value* value = rows.Find(column);
    return value == nullptr ? std::string() : ToText(*value);
  } catch (const std::exception&) {
    return {};
  }
}

std::string BillOf(Recordset& data) {
  std::string number = TextOf(data, "FBillNo");
  return number.empty() ? TextOf(data, "FInterID") : number;
}

// The head and the column head of a page belong to the row that follows, all else to the last row:
// at the end of a bill the data stand on the next one already.
std::string PlaceKeeper::BillNow() const {
  const bool followsRow = place_.row != 0;
  if (followsRow || data_ == nullptr || place_.page == 0) return bill_;
  const std::string next = BillOf(*data_);
  return next.empty() ? bill_ : next;
}

RunPlace PlaceKeeper::PlaceNow() const {
  RunPlace place = place_;
  if (item_ != nullptr) {
    place.item = TextOf(*item_, "FObjectCaption");
    if (place.item.empty()) place.item = TextOf(*item_, "FObjectFieldName");
    place.variable = TextOf(*item_, "FFieldName");
  }
  place.bill = BillNow();
  return place;
}

RunPlace PlaceKeeper::CurrentPlace() const {
  return kept_ ? *kept_ : PlaceNow();
}

void PlaceKeeper::RunBegins(const WitnessedRun& run) {
  place_ = {};
  place_.billType = run.billType;
  place_.format = run.format;
  bill_.clear();
  data_ = &run.data;
  item_ = nullptr;
  kept_.reset();
}

void PlaceKeeper::FormatChosen(const std::string& name) {
  place_.format = name;
}

void PlaceKeeper::RunEnds() {
  place_ = {};
  bill_.clear();
  data_ = nullptr;
  item_ = nullptr;
  kept_.reset();
}

void PlaceKeeper::PagesEnd() {
  BandEnds();
  place_.row = 0;
  place_.page = 0;
  bill_.clear();
}

void PlaceKeeper::PageBegins() {
  ++place_.page;
  place_.row = 0;
  BandEnds();
}

void PlaceKeeper::GroupBreaks() {
  bill_.clear();
}

void PlaceKeeper::RowBegins(std::int16_t number) {
  place_.row = number;
  if (data_ != nullptr) bill_ = BillOf(*data_);
  BandEnds();
}

void PlaceKeeper::BandBegins(WitnessedBand band) {
  BandEnds();
  place_.band = static_cast<int>(band);
}

void PlaceKeeper::BandEnds() {
  ItemEnds();
  place_.band = 0;
}

void PlaceKeeper::ItemBegins(Recordset& item) {
  item_ = &item;
  kept_.reset();
}

void PlaceKeeper::ItemEnds() {
  item_ = nullptr;
  kept_.reset();
}

void PlaceKeeper::Ends(const Failure& /*failure*/) {
  if (!kept_) kept_ = PlaceNow();
  item_ = nullptr;
}

}  // namespace td
