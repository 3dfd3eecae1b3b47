// The witness that explains a print.
#pragma once

#include <string>

#include "explanation/explanation.h"
#include "explanation/item_ledger.h"
#include "explanation/place_keeper.h"
#include "explanation/row_ledger.h"
#include "platform/database.h"

namespace td {

class Explainer : public PlaceKeeper {
 public:
  // Of the last run, or of the one that goes on. The items that no band reached are read now,
  // through `database`; what fails there is told in the explanation.
  [[nodiscard]] Explanation Explain(Database& database) const;

  // Forgets the last run.
  void Clear() { *this = Explainer(); }

  void RunBegins(const WitnessedRun& run) override;
  void FormatChosen(const std::string& name) override;
  void RunEnds() override;
  void PageBegins() override;
  void GroupBreaks() override;
  void RowBegins(std::int16_t number) override;
  void RowIsMarker() override;
  void RowIsSkipped() override;
  void Adds(const double& sum, std::string_view columns, double amount) override;
  void BandBegins(WitnessedBand band) override;
  void BandEnds() override;
  void ItemBegins(Recordset& item) override;
  void ItemEnds() override;
  void Drawn(DrawnAs what, std::string_view text) override;
  void Meets(Circumstance circumstance) override;
  void ShowsSum(const double& sum) override;
  void StampKept(std::size_t place) override;
  void StampWritten(std::size_t place, int page) override;
  void Reads(Recordset& rows, std::string_view column) override;
  void Forgives(const Failure& failure, bool isTest) override;
  void TriesAgain(const Failure& failure) override;
  void Ends(const Failure& failure) override;

 private:
  [[nodiscard]] Occasion Where() const;
  [[nodiscard]] std::string GroupOfRow() const;
  // The column that a failure is about, or nothing.
  [[nodiscard]] const ReadColumnState* Culprit(const Failure& failure) const;
  [[nodiscard]] Reason ReasonOf(const Failure& failure) const;
  void KeepFailure(const Failure& failure, bool isShown);

  Explanation told_;
  ItemLedger items_;
  RowLedger rows_;
  std::string connection_;  // never leaves this object
  Recordset* data_ = nullptr;
  Recordset* item_ = nullptr;
  ReadColumnState lastRead_;
  bool isMarkerTestFailed_ = false;
};

}  // namespace td
