#include "run_witnesses/witness_group.h"

namespace td {

RunWitness* WitnessGroup::OrNone() {
  if (members_.empty()) return nullptr;
  return members_.size() == 1 ? members_.front() : this;
}

void WitnessGroup::RunBegins(const WitnessedRun& run) {
  for (RunWitness* member : members_) member->RunBegins(run);
}

void WitnessGroup::FormatChosen(const std::string& name) {
  for (RunWitness* member : members_) member->FormatChosen(name);
}

void WitnessGroup::RunEnds() {
  for (RunWitness* member : members_) member->RunEnds();
}

void WitnessGroup::PageBegins() {
  for (RunWitness* member : members_) member->PageBegins();
}

void WitnessGroup::PagesEnd() {
  for (RunWitness* member : members_) member->PagesEnd();
}

void WitnessGroup::GroupBreaks() {
  for (RunWitness* member : members_) member->GroupBreaks();
}

void WitnessGroup::RowBegins(std::int16_t number) {
  for (RunWitness* member : members_) member->RowBegins(number);
}

void WitnessGroup::RowIsMarker() {
  for (RunWitness* member : members_) member->RowIsMarker();
}

void WitnessGroup::RowIsSkipped() {
  for (RunWitness* member : members_) member->RowIsSkipped();
}

void WitnessGroup::Adds(const double& sum, std::string_view columns, double amount) {
  for (RunWitness* member : members_) member->Adds(sum, columns, amount);
}

void WitnessGroup::BandBegins(WitnessedBand band) {
  for (RunWitness* member : members_) member->BandBegins(band);
}

void WitnessGroup::BandEnds() {
  for (RunWitness* member : members_) member->BandEnds();
}

void WitnessGroup::ItemBegins(Recordset& item) {
  for (RunWitness* member : members_) member->ItemBegins(item);
}

void WitnessGroup::ItemEnds() {
  for (RunWitness* member : members_) member->ItemEnds();
}

void WitnessGroup::Drawn(DrawnAs what, std::string_view text) {
  for (RunWitness* member : members_) member->Drawn(what, text);
}

void WitnessGroup::Meets(Circumstance circumstance) {
  for (RunWitness* member : members_) member->Meets(circumstance);
}

void WitnessGroup::ShowsSum(const double& sum) {
  for (RunWitness* member : members_) member->ShowsSum(sum);
}

void WitnessGroup::StampKept(std::size_t place) {
  for (RunWitness* member : members_) member->StampKept(place);
}

void WitnessGroup::StampWritten(std::size_t place, int page) {
  for (RunWitness* member : members_) member->StampWritten(place, page);
}

void WitnessGroup::Reads(Recordset& rows, std::string_view column) {
  for (RunWitness* member : members_) member->Reads(rows, column);
}

void WitnessGroup::Forgives(const Failure& failure, bool isTest) {
  for (RunWitness* member : members_) member->Forgives(failure, isTest);
}

void WitnessGroup::TriesAgain(const Failure& failure) {
  for (RunWitness* member : members_) member->TriesAgain(failure);
}

void WitnessGroup::Ends(const Failure& failure) {
  for (RunWitness* member : members_) member->Ends(failure);
}

}  // namespace td
