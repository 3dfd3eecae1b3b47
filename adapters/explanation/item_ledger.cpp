#include "explanation/item_ledger.h"

#include <algorithm>
#include <exception>
#include <optional>

#include "explanation/place_keeper.h"
#include "text/conversions.h"

namespace td {
namespace {

double NumberOf(Recordset& rows, std::string_view column) {
  const std::string text = TextOf(rows, column);
  return text.empty() ? 0 : Val(std::string_view(text));
}

// The circumstances under which nothing is drawn.
std::optional<Cause> LeavesOut(Circumstance circumstance) {
  switch (circumstance) {
    case Circumstance::kUnknownKind:
      return Cause::kUnknownKind;
    case Circumstance::kNullInBox:
      return Cause::kNullInBox;
    case Circumstance::kNullDirection:
      return Cause::kNullDirection;
    case Circumstance::kNoPicture:
      return Cause::kNoPicture;
    default:
      return std::nullopt;
  }
}

bool LooksLikeImage(const std::string& name) {
  return name.starts_with('<') && name.ends_with('>');
}

// The circumstances that change what is drawn, as far as the item is to show a value.
std::optional<Cause> Changes(Circumstance circumstance, const ExplainedItem& item, bool isEmpty) {
  switch (circumstance) {
    case Circumstance::kNoVariable:
      if (item.name.empty()) return std::nullopt;
      return LooksLikeImage(item.name) ? Cause::kUnknownImage : Cause::kUnknownVariable;
    case Circumstance::kRepeatedCaption:
      // Of a value it is what the format wants; in the head and of images it has no effect.
      if (!item.variable.empty() || item.caption.empty() || !isEmpty) return std::nullopt;
      return Cause::kRepeatedCaption;
    case Circumstance::kSumIsNotKept:
      return Cause::kSumIsNotKept;
    case Circumstance::kQuantityNotComposed:
      return Cause::kQuantityNotComposed;
    default:
      return std::nullopt;
  }
}

}  // namespace

ReadColumnState::Found FindColumn(Recordset& rows, std::string_view column) {
  using Found = ReadColumnState::Found;
  try {
    const Value* value = rows.Find(column);
    if (value == nullptr) return Found::kMissing;
    if (IsNull(*value)) return Found::kNull;
    const auto* text = std::get_if<std::string>(value);
    return text != nullptr && text->empty() ? Found::kEmpty : Found::kValue;
  } catch (const std::exception&) {
    return Found::kUnknown;
  }
}

Reason ReasonAt(const Occasion& where, Cause cause, std::string column, std::string words) {
  return {.cause = cause,
          .column = std::move(column),
          .words = std::move(words),
          .times = 1,
          .bill = where.bill,
          .row = where.row,
          .page = where.page};
}

void Count(std::vector<Reason>& reasons, const Reason& reason) {
  const auto known = std::ranges::find_if(reasons, [&](const Reason& other) {
    return other.cause == reason.cause && other.column == reason.column &&
           other.words == reason.words;
  });
  if (known == reasons.end()) {
    reasons.push_back(reason);
  } else {
    known->times += reason.times;
  }
}

ExplainedItem ReadItem(Recordset& item) {
  return {.band = static_cast<int>(NumberOf(item, "FSite")),
          .kind = static_cast<int>(NumberOf(item, "FTypeID")),
          .caption = TextOf(item, "FObjectCaption"),
          .name = TextOf(item, "FObjectFieldName"),
          .variable = TextOf(item, "FFieldName"),
          .left = NumberOf(item, "FLeft"),
          .top = NumberOf(item, "FTop"),
          .width = NumberOf(item, "FWidth"),
          .height = NumberOf(item, "FHeight")};
}

std::string ContentOf(const ExplainedItem& item) {
  std::string content;
  for (const double number : {static_cast<double>(item.band), static_cast<double>(item.kind),
                              item.left, item.top, item.width, item.height}) {
    content += ToText(number) + "\n";
  }
  return content + item.name + "\n" + item.caption + "\n" + item.variable;
}

void ItemLedger::BeginBand(int band) {
  band_ = band;
  inBand_.clear();
  endedBy_.clear();
  ++drawnTimes_.at(Index(band));
}

void ItemLedger::EndBand(const Occasion& where) {
  if (band_ == 0) return;
  if (!endedBy_.empty()) {
    Count(stops_.at(Index(band_)), ReasonAt(where, Cause::kBandStopped, {}, endedBy_));
  }
  if (hasItem_) EndItem(where);
  endedBy_.clear();
  band_ = 0;
}

void ItemLedger::BeginItem(Recordset& item) {
  ExplainedItem read = ReadItem(item);
  std::string content = ContentOf(read);
  content += "\n" + std::to_string(++inBand_[content]);
  const auto [known, isNew] = byContent_.try_emplace(std::move(content), items_.size());
  if (isNew) items_.push_back(std::move(read));

  hasItem_ = true;
  item_ = known->second;
  isDrawn_ = isEmpty_ = keepsStamp_ = false;
  met_.clear();
  reads_.clear();
  skipped_.clear();
  endedBy_.clear();
}

void ItemLedger::EndItem(const Occasion& where) {
  if (!hasItem_) return;
  hasItem_ = false;
  Judge(items_[item_], where);
  endedBy_.clear();
}

void ItemLedger::Draw(std::string_view text, bool isText) {
  isDrawn_ = true;
  isEmpty_ = isText && text.empty();
}

void ItemLedger::KeepStamp(std::size_t place) {
  if (!hasItem_) return;
  keepsStamp_ = true;
  stamps_[place].push_back(item_);
}

void ItemLedger::WriteStamp(std::size_t place) {
  const auto kept = stamps_.find(place);
  if (kept != stamps_.end()) ++items_[kept->second.back()].drawn;
}

const ReadColumnState* ItemLedger::LastRead(ReadColumnState::Found found) const {
  const auto last = std::find_if(reads_.rbegin(), reads_.rend(),
                                 [&](const ReadColumnState& read) { return read.found == found; });
  return last == reads_.rend() ? nullptr : &*last;
}

void ItemLedger::Judge(ExplainedItem& item, const Occasion& where) const {
  ++item.reached;
  if (keepsStamp_) return;
  if (!isDrawn_) {
    Count(item.leftOut, WhyNotDrawn(where));
    return;
  }
  ++item.drawn;
  if (isEmpty_) ++item.empty;
  AddRemarks(item, where);
}

// A rule of the fields says it itself; but one that holds because its test failed is there for want
// of the column.
Reason ItemLedger::WhyNotDrawn(const Occasion& where) const {
  if (!endedBy_.empty()) return ReasonAt(where, Cause::kFailedStep, {}, endedBy_);
  for (const Circumstance circumstance : met_) {
    const std::optional<Cause> cause = LeavesOut(circumstance);
    if (!cause) continue;
    if (!skipped_.empty() && skipped_.back().cause == Cause::kMissingColumn) return skipped_.back();
    const ReadColumnState* null = LastRead(ReadColumnState::Found::kNull);
    const bool isOfColumn = *cause == Cause::kNullInBox || *cause == Cause::kNullDirection;
    return ReasonAt(where, *cause, isOfColumn && null != nullptr ? null->column : std::string());
  }
  if (skipped_.empty()) return ReasonAt(where, Cause::kFailedStep);
  const Reason& skipped = skipped_.back();
  // A variable of the head without a column asks for one without a name.
  const bool isNameless = skipped.cause == Cause::kMissingColumn && skipped.column.empty();
  return isNameless ? ReasonAt(where, Cause::kUnknownVariable) : skipped;
}

void ItemLedger::AddRemarks(ExplainedItem& item, const Occasion& where) const {
  std::vector<Reason> remarks;
  for (const Circumstance circumstance : met_) {
    if (const auto cause = Changes(circumstance, item, isEmpty_))
      Count(remarks, ReasonAt(where, *cause));
    if (circumstance != Circumstance::kHeadIsOnSheet) continue;
    Count(item.otherwise, ReasonAt(where, Cause::kHeadIsOnSheet));
    return;  // nothing else was wanted of the item
  }
  for (const Reason& skipped : skipped_) Count(remarks, skipped);
  for (const ReadColumnState& read : reads_) {
    if (!read.isData || !isEmpty_) continue;
    if (read.found == ReadColumnState::Found::kEmpty) {
      Count(remarks, ReasonAt(where, Cause::kEmptyValue, read.column));
    }
  }
  for (const ReadColumnState& read : reads_) {
    if (read.isData && read.found == ReadColumnState::Found::kNull) {
      Count(remarks, ReasonAt(where, Cause::kNullColumn, read.column));
    }
  }
  if (!endedBy_.empty()) Count(remarks, ReasonAt(where, Cause::kFailedStep, {}, endedBy_));
  for (Reason& remark : remarks) {
    remark.times = 1;
    Count(item.otherwise, remark);
  }
}

std::vector<ExplainedItem> ItemLedger::Items(const Occasion& where) const {
  std::vector<ExplainedItem> items = items_;
  for (const auto& [place, kept] : stamps_) {
    for (const std::size_t index : kept) {
      ExplainedItem& item = items[index];
      if (item.drawn > 0 || !item.leftOut.empty()) continue;
      const Cause cause = index == kept.back() ? Cause::kStampNotWritten : Cause::kStampTaken;
      Reason reason = ReasonAt(where, cause);
      reason.times = item.reached;
      Count(item.leftOut, reason);
    }
  }
  return items;
}

}  // namespace td
