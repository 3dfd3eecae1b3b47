// Several witnesses in the place of one.
#pragma once

#include <vector>

#include "platform/run_witness.h"

namespace td {

// Tells each of its members, in the order in which they came.
class WitnessGroup : public RunWitness {
 public:
  // The member outlives the group. Not while a run is told.
  void Add(RunWitness& member) { members_.push_back(&member); }
  // Nobody has to be told where there are no members.
  [[nodiscard]] RunWitness* OrNone();

  void RunBegins(const WitnessedRun& run) override;
  void FormatChosen(const std::string& name) override;
  void RunEnds() override;
  void PageBegins() override;
  void PagesEnd() override;
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
  std::vector<RunWitness*> members_;
};

}  // namespace td
