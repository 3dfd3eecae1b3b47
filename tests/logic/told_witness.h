// A witness that keeps what it is told, one line each.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/run_witness.h"
#include "text/conversions.h"

namespace td {

class ToldWitness : public RunWitness {
 public:
  // All lines, or those that begin with one of `words`: {"Drawn", "Forgives"}.
  [[nodiscard]] std::vector<std::string> Lines(const std::vector<std::string>& words = {}) const {
    std::vector<std::string> found;
    for (const std::string& line : lines_) {
      const std::string word = line.substr(0, line.find(' '));
      bool isWanted = words.empty();
      for (const std::string& wanted : words) isWanted = isWanted || word == wanted;
      if (isWanted) found.push_back(line);
    }
    return found;
  }

  void RunBegins(const WitnessedRun& run) override {
    data_ = &run.data;
    Add("RunBegins " + std::string(run.window) + " " + ToText(run.billType) + " '" + run.format +
        "'" + (run.onlyVariantItems ? " only variables" : ""));
  }
  void FormatChosen(const std::string& name) override { Add("FormatChosen " + name); }
  void RunEnds() override { Add("RunEnds"); }
  void PagesEnd() override { Add("PagesEnd"); }
  void PageBegins() override { Add("PageBegins"); }
  void GroupBreaks() override { Add("GroupBreaks"); }
  void RowBegins(std::int16_t number) override {
    Add("RowBegins " + ToText(number) + " of " + ToText(data_->Field("FInterID")));
  }
  void RowIsMarker() override { Add("RowIsMarker"); }
  void RowIsSkipped() override { Add("RowIsSkipped"); }
  void Adds(const double& sum, std::string_view columns, double amount) override {
    std::size_t number = 0;
    while (number < sums_.size() && sums_[number] != &sum) ++number;
    if (number == sums_.size()) sums_.push_back(&sum);
    Add("Adds " + std::string(columns) + ": " + (amount == amount ? ToText(amount) : "none"));
  }
  void BandBegins(WitnessedBand band) override {
    Add("BandBegins " + ToText(static_cast<std::int16_t>(band)));
  }
  void BandEnds() override { Add("BandEnds"); }
  void ItemBegins(Recordset& item) override {
    Add("ItemBegins " + ToText(item.Field("FObjectCaption")));
  }
  void ItemEnds() override { Add("ItemEnds"); }
  void Drawn(DrawnAs what, std::string_view text) override {
    constexpr const char* kKinds[] = {"text", "line", "picture", "stamp"};
    Add("Drawn " + std::string(kKinds[static_cast<int>(what)]) + " '" + std::string(text) + "'");
  }
  void Meets(Circumstance circumstance) override { met.push_back(circumstance); }
  void ShowsSum(const double& sum) override {
    for (const double* known : sums_) {
      if (known == &sum) return Add("ShowsSum " + ToText(sum));
    }
    Add("ShowsSum unknown");
  }
  void StampKept(std::size_t place) override { Add("StampKept " + std::to_string(place)); }
  void StampWritten(std::size_t place, int page) override {
    Add("StampWritten " + std::to_string(place) + " on " + std::to_string(page));
  }
  void Reads(Recordset& rows, std::string_view column) override {
    lastRead = column;
    isDataRead = &rows == data_;
  }
  void Forgives(const Failure& failure, bool isTest) override {
    Add("Forgives " + std::to_string(failure.Number()) + (isTest ? " in test" : " in step") +
        " at " + lastRead);
  }
  void TriesAgain(const Failure& failure) override { Add("TriesAgain " + failure.Description()); }
  void Ends(const Failure& failure) override { Add("Ends " + failure.Description()); }

  std::vector<Circumstance> met;
  std::string lastRead;
  bool isDataRead = false;

 private:
  void Add(std::string line) { lines_.push_back(std::move(line)); }

  Recordset* data_ = nullptr;
  std::vector<const double*> sums_;
  std::vector<std::string> lines_;
};

}  // namespace td
