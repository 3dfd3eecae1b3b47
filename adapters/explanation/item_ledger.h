// What became of the items of a run.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "explanation/explanation.h"
#include "explanation/read_column.h"
#include "platform/run_witness.h"

namespace td {

// Where something happened.
struct Occasion {
  std::string bill;
  int row = 0;
  int page = 0;
};

[[nodiscard]] Reason ReasonAt(const Occasion& where, Cause cause, std::string column = {},
                              std::string words = {});

// One more of the reason: a new one, or a known one counted.
void Count(std::vector<Reason>& reasons, const Reason& reason);

class ItemLedger {
 public:
  void BeginBand(int band);
  void EndBand(const Occasion& where);

  void BeginItem(Recordset& item);
  void EndItem(const Occasion& where);
  [[nodiscard]] bool HasItem() const { return hasItem_; }

  // Of the item that is drawn; without one they do nothing.
  void Draw(std::string_view text, bool isText);
  void Meet(Circumstance circumstance) { met_.push_back(circumstance); }
  void Read(const ReadColumnState& column) { reads_.push_back(column); }
  void Skip(const Reason& reason) { skipped_.push_back(reason); }
  void KeepStamp(std::size_t place);

  void WriteStamp(std::size_t place);
  // A routine ended: the band's, unless it goes on with the item.
  void End(const std::string& words) { endedBy_ = words; }

  // The column that a failure of this kind is about: the last one that was read in that state.
  [[nodiscard]] const ReadColumnState* LastRead(ReadColumnState::Found found) const;

  // When all is told: the items that were reached, in the order in which they were met, and what
  // has become of their stamps.
  [[nodiscard]] std::vector<ExplainedItem> Items(const Occasion& where) const;

  // How often a band was drawn, and why it wasn't drawn to its end.
  [[nodiscard]] int DrawnTimes(int band) const { return drawnTimes_.at(Index(band)); }
  [[nodiscard]] const std::vector<Reason>& Stops(int band) const { return stops_.at(Index(band)); }

 private:
  static constexpr std::size_t kBandCount = 7;  // by number, from 1
  static std::size_t Index(int band) {
    return band >= 1 && band < static_cast<int>(kBandCount) ? static_cast<std::size_t>(band) : 0;
  }

  void Judge(ExplainedItem& item, const Occasion& where) const;
  [[nodiscard]] Reason WhyNotDrawn(const Occasion& where) const;
  void AddRemarks(ExplainedItem& item, const Occasion& where) const;

  std::vector<ExplainedItem> items_;
  std::map<std::string, std::size_t> byContent_;
  std::map<std::string, int> inBand_;  // how often the band had such an item so far
  std::array<int, kBandCount> drawnTimes_{};
  std::array<std::vector<Reason>, kBandCount> stops_;
  std::map<std::size_t, std::vector<std::size_t>> stamps_;  // items that kept a place, in order
  int band_ = 0;

  // The item that is drawn.
  bool hasItem_ = false;
  std::size_t item_ = 0;
  bool isDrawn_ = false;
  bool isEmpty_ = false;
  bool keepsStamp_ = false;
  std::vector<Circumstance> met_;
  std::vector<ReadColumnState> reads_;
  std::vector<Reason> skipped_;
  std::string endedBy_;
};

// The columns of an item's row.
[[nodiscard]] ExplainedItem ReadItem(Recordset& item);

// What tells items apart, which have no key.
[[nodiscard]] std::string ContentOf(const ExplainedItem& item);

}  // namespace td
