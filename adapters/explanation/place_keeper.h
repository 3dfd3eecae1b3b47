// A witness that knows where the run is, and nothing else: it only remembers, and reads the names
// when somebody asks.
#pragma once

#include <optional>

#include "explanation/run_place.h"
#include "platform/run_witness.h"

namespace td {

class PlaceKeeper : public RunWitness {
 public:
  // Unknown outside runs. It asks the record sets of the run; on the thread of the run therefore.
  [[nodiscard]] RunPlace CurrentPlace() const;

  void RunBegins(const WitnessedRun& run) override;
  void FormatChosen(const std::string& name) override;
  void RunEnds() override;
  void PagesEnd() override;
  void PageBegins() override;
  void GroupBreaks() override;
  void RowBegins(std::int16_t number) override;
  void RowIsMarker() override {}
  void RowIsSkipped() override {}
  void Adds(const double& /*sum*/, std::string_view /*columns*/, double /*amount*/) override {}
  void BandBegins(WitnessedBand band) override;
  void BandEnds() override;
  void ItemBegins(Recordset& item) override;
  void ItemEnds() override;
  void Drawn(DrawnAs /*what*/, std::string_view /*text*/) override {}
  void Meets(Circumstance /*circumstance*/) override {}
  void ShowsSum(const double& /*sum*/) override {}
  void StampKept(std::size_t /*place*/) override {}
  void StampWritten(std::size_t /*place*/, int /*page*/) override {}
  void Reads(Recordset& /*rows*/, std::string_view /*column*/) override {}
  void Forgives(const Failure& /*failure*/, bool /*isTest*/) override {}
  void TriesAgain(const Failure& /*failure*/) override {}
  // The item's rows may be gone when the message is shown.
  void Ends(const Failure& failure) override;

 private:
  [[nodiscard]] RunPlace PlaceNow() const;
  [[nodiscard]] std::string BillNow() const;

  RunPlace place_;                // without bill and item
  std::string bill_;              // of the last row
  Recordset* data_ = nullptr;     // while the run lasts
  Recordset* item_ = nullptr;     // while the item is drawn
  std::optional<RunPlace> kept_;  // item and bill as they were when a failure ended a routine
};

// The text of a column, empty where it is missing, Null or no text. Never fails.
[[nodiscard]] std::string TextOf(Recordset& rows, std::string_view column);

// What names the bill of a row: FBillNo, else FInterID.
[[nodiscard]] std::string BillOf(Recordset& data);

}  // namespace td
