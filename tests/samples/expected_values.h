// What a bill should say, worked out from its rows by plain arithmetic.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "sample_format.h"

namespace td {

// The sums by the name of their field: page sums from the page's first row on, the others from the
// print's first row on. A print by area keeps fewer of them, and takes the tax from its column.
class ExpectedSums {
 public:
  explicit ExpectedSums(bool byArea) : byArea_(byArea) {}
  void BeginPage();
  void Add(const SampleRow& row);
  // The amount that a field stands for, capitals or not; nothing for a field that is no sum.
  [[nodiscard]] std::optional<double> Of(const std::string& field) const;

 private:
  void AddTo(const std::string& field, double value) { sums_[field] += value; }

  void AddByArea(const SampleRow& row);

  bool byArea_;
  std::map<std::string, double> sums_;
};

// Where a value is printed.
struct Occasion {
  const SampleRow& row;
  const ExpectedSums& sums;
  std::size_t lineNumber;  // over the whole print
  std::size_t page;
  std::size_t pageOfBill;
  std::size_t pageCount;
  bool keepsAllLabels;  // those that repeat the item's name, too
};

// The text of an item, its label included; nothing if the item has nothing to say.
std::optional<std::string> ExpectedText(const SampleItem& item, const Occasion& occasion);

// A number under one of the pictures that the samples use.
std::string UnderPicture(double number, const std::string& picture);

// An amount below a hundred million in Chinese capitals.
std::string InCapitals(double amount);

}  // namespace td
