#include "explanation/explainer.h"

#include <algorithm>

#include "explanation/unreached_items.h"
#include "state/window_kind.h"

namespace td {

using Found = ReadColumnState::Found;

Occasion Explainer::Where() const {
  RunPlace place = CurrentPlace();
  return {.bill = std::move(place.bill), .row = place.row, .page = place.page};
}

std::string Explainer::GroupOfRow() const {
  if (data_ == nullptr) return {};
  return told_.byArea ? TextOf(*data_, "FStockArea") : BillOf(*data_);
}

void Explainer::RunBegins(const WitnessedRun& run) {
  Clear();
  PlaceKeeper::RunBegins(run);
  told_.isRun = true;
  told_.billType = run.billType;
  told_.byArea = run.window == kStockAreaWindow.name;
  told_.onlyVariantItems = run.onlyVariantItems;
  connection_ = run.connection;
  data_ = &run.data;
}

void Explainer::FormatChosen(const std::string& name) {
  PlaceKeeper::FormatChosen(name);
  told_.format = name;
}

void Explainer::RunEnds() {
  items_.EndBand(Where());
  PlaceKeeper::RunEnds();
  data_ = nullptr;
  item_ = nullptr;
}

void Explainer::PageBegins() {
  PlaceKeeper::PageBegins();
  rows_.BeginPage();
}

void Explainer::GroupBreaks() {
  PlaceKeeper::GroupBreaks();
  rows_.BreakGroup();
}

void Explainer::RowBegins(std::int16_t number) {
  PlaceKeeper::RowBegins(number);
  rows_.PlaceRow(GroupOfRow());
  isMarkerTestFailed_ = false;
}

void Explainer::RowIsMarker() {
  MarkerCause cause = isMarkerTestFailed_ ? MarkerCause::kNoNumber : MarkerCause::kMarkerValue;
  if (lastRead_.found == Found::kMissing) cause = MarkerCause::kMissingColumn;
  rows_.MarkRow(cause, Where());
}

void Explainer::RowIsSkipped() {
  rows_.SkipRow(GroupOfRow());
}

void Explainer::Adds(const double& sum, std::string_view columns, double amount) {
  rows_.Add(sum, columns, amount);
}

void Explainer::BandBegins(WitnessedBand band) {
  items_.EndBand(Where());
  PlaceKeeper::BandBegins(band);
  items_.BeginBand(static_cast<int>(band));
}

void Explainer::BandEnds() {
  items_.EndBand(Where());
  PlaceKeeper::BandEnds();
  item_ = nullptr;
}

void Explainer::ItemBegins(Recordset& item) {
  PlaceKeeper::ItemBegins(item);
  items_.BeginItem(item);
  item_ = &item;
}

void Explainer::ItemEnds() {
  items_.EndItem(Where());
  PlaceKeeper::ItemEnds();
  item_ = nullptr;
}

void Explainer::Drawn(DrawnAs what, std::string_view text) {
  items_.Draw(text, what == DrawnAs::kText);
}

void Explainer::Meets(Circumstance circumstance) {
  items_.Meet(circumstance);
}

void Explainer::ShowsSum(const double& sum) {
  if (item_ != nullptr) rows_.ShowSum(sum, TextOf(*item_, "FFieldName"));
}

void Explainer::StampKept(std::size_t place) {
  items_.KeepStamp(place);
}

void Explainer::StampWritten(std::size_t place, int /*page*/) {
  items_.WriteStamp(place);
}

// The parked clone has the columns of the data, but no identity that anybody told.
void Explainer::Reads(Recordset& rows, std::string_view column) {
  lastRead_.isData = &rows == data_ || (items_.HasItem() && &rows != item_);
  lastRead_.column = column;
  lastRead_.found = FindColumn(rows, column);
  if (items_.HasItem()) items_.Read(lastRead_);
  rows_.Read(lastRead_);
}

const ReadColumnState* Explainer::Culprit(const Failure& failure) const {
  if (failure.Number() == kNoSuchColumn && lastRead_.found == Found::kMissing) return &lastRead_;
  if (failure.Number() != kInvalidUseOfNull) return nullptr;
  if (lastRead_.found == Found::kNull) return &lastRead_;
  return items_.HasItem() ? items_.LastRead(Found::kNull) : nullptr;
}

Reason Explainer::ReasonOf(const Failure& failure) const {
  const bool isMissing = failure.Number() == kNoSuchColumn;
  const ReadColumnState* culprit = Culprit(failure);
  if (culprit == nullptr) {
    return ReasonAt(Where(), Cause::kFailedStep, {}, failure.Description());
  }
  const Cause ofData = isMissing ? Cause::kMissingColumn : Cause::kNullColumn;
  const Cause ofItem = isMissing ? Cause::kMissingItemColumn : Cause::kNullItemColumn;
  return ReasonAt(Where(), culprit->isData ? ofData : ofItem, culprit->column);
}

void Explainer::KeepFailure(const Failure& failure, bool isShown) {
  const ReadColumnState* culprit = Culprit(failure);
  ExplainedFailure kept{.place = CurrentPlace(),
                        .number = failure.Number(),
                        .description = failure.Description(),
                        .column = culprit == nullptr ? std::string() : culprit->column,
                        .isShown = isShown,
                        .times = 1};
  const auto known = std::ranges::find_if(told_.failures, [&](const ExplainedFailure& other) {
    return other.number == kept.number && other.description == kept.description &&
           other.column == kept.column && other.isShown == isShown &&
           other.place.band == kept.place.band && other.place.item == kept.place.item;
  });
  if (known == told_.failures.end()) {
    told_.failures.push_back(std::move(kept));
  } else {
    ++known->times;
  }
}

void Explainer::Forgives(const Failure& failure, bool isTest) {
  isMarkerTestFailed_ = isMarkerTestFailed_ || (isTest && lastRead_.column == "FMainQty");
  if (items_.HasItem()) {
    items_.Skip(ReasonOf(failure));
  } else {
    KeepFailure(failure, false);
  }
}

void Explainer::TriesAgain(const Failure& /*failure*/) {
  ++told_.lockWaits;
}

void Explainer::Ends(const Failure& failure) {
  KeepFailure(failure, true);
  items_.End(failure.Description());
  PlaceKeeper::Ends(failure);
}

Explanation Explainer::Explain(Database& database) const {
  Explanation explanation = told_;
  rows_.Tell(explanation);
  explanation.items = items_.Items(Where());
  if (explanation.isRun && !explanation.format.empty()) {
    AddUnreachedItems(database, connection_, items_, explanation);
  }
  return explanation;
}

}  // namespace td
