#include "expected_values.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

namespace td {
namespace {

bool EndsWith(const std::string& text, const std::string& end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

std::string Plain(double number) {
  char text[40];
  std::snprintf(text, sizeof text, "%.15g", number);
  return text;
}

std::string Fixed(double number, std::size_t places) {
  char text[60];
  std::snprintf(text, sizeof text, "%.*f", static_cast<int>(places), number);
  return text;
}

std::size_t DecimalsOf(const std::string& text) {
  const std::size_t point = text.find('.');
  return point == std::string::npos ? 0 : text.size() - point - 1;
}

std::string Grouped(std::string number) {
  const std::size_t point = number.find('.');
  const std::size_t first = number.front() == '-' ? 1 : 0;
  std::size_t end = point == std::string::npos ? number.size() : point;
  while (end > first + 3) number.insert(end -= 3, ",");
  return number;
}

std::vector<std::string> Sections(const std::string& picture) {
  std::vector<std::string> sections(1);
  for (const char letter : picture) {
    if (letter == ';') {
      sections.emplace_back();
    } else {
      sections.back() += letter;
    }
  }
  return sections;
}

// Both units without a sign, or what there is of the small one alone.
std::string InTwoUnits(const Cell& main, const Cell& small, const std::string& mainUnit,
                       const std::string& unit, const std::string& withoutMain) {
  if (main.isNull || main.number == 0) return withoutMain;
  std::string text = Plain(std::abs(main.number)) + mainUnit;
  if (!small.isNull && small.number != 0) text += "+" + Plain(std::abs(small.number)) + unit;
  return text;
}

std::optional<std::string> Quantity(const std::string& field, const SampleRow& row) {
  const std::string& unit = row.Text("funit");
  if (field == "fcomplexqty") {
    return InTwoUnits(row.At("fmainqty"), row.At("fslaveqty"), row.Text("fmunit"), unit,
                      row.Text("fqty") + unit);
  }
  for (const std::string direction : {"_in", "_out"}) {
    if (field != "fcomplexqty" + direction) continue;
    const Cell& main = row.At("fmainqty" + direction);
    if (main.isNull) return std::string();
    return InTwoUnits(main, row.At("fslaveqty" + direction), row.Text("fmainunit"), unit,
                      row.Text("fslaveqty" + direction) + unit);
  }
  return std::nullopt;
}

std::string ColumnText(const SampleItem& item, const SampleRow& row) {
  const Cell& cell = row.At(item.field);
  if (!cell.isNumber || item.picture.empty()) return cell.text;
  if (item.field.find("price") != std::string::npos &&
      DecimalsOf(cell.text) > DecimalsOf(item.picture)) {
    return cell.text;
  }
  return UnderPicture(cell.number, item.picture);
}

// An amount in capitals: of a sum, or of a column of the bill that may be empty.
std::optional<std::string> Capitals(const std::string& field, const Occasion& occasion) {
  if (const auto sum = occasion.sums.Of(field)) return InCapitals(*sum);
  const Cell& cell = occasion.row.At(field.substr(0, field.size() - 3));
  return cell.isNull ? std::nullopt : std::optional(InCapitals(cell.number));
}

std::optional<std::string> ValueText(const SampleItem& item, const Occasion& occasion) {
  if (item.field == "forderid") return std::to_string(occasion.lineNumber);
  if (item.field == "ftotalpageno") return std::to_string(occasion.pageCount);
  if (item.field == "fpageno") {
    return std::to_string(item.band == Band::kHead ? occasion.page : occasion.pageOfBill);
  }
  if (const auto quantity = Quantity(item.field, occasion.row)) return quantity;
  if (EndsWith(item.field, "dx")) return Capitals(item.field, occasion);
  if (const auto sum = occasion.sums.Of(item.field)) {
    return item.picture.empty() ? Plain(*sum) : UnderPicture(*sum, item.picture);
  }
  return ColumnText(item, occasion.row);
}

}  // namespace

void ExpectedSums::BeginPage() {
  static const std::array kPageSums = {"ftotalpage",
                                       "ftotalpage_qty",
                                       "ftotalpage_sumqty",
                                       "ftotalpage_mainqty",
                                       "ftotalpage_slaveqty",
                                       "ftotalpagetax",
                                       "ftotalpagenotaxamount",
                                       "ftotalpage_retailamount",
                                       "ftotalpage_bzkamount",
                                       "ftotalpage_debit",
                                       "ftotalpage_credit",
                                       "fsaleamount_totalpage",
                                       "fpuramount_totalpage",
                                       "fskd_totalpage",
                                       "ffkd_totalpage"};
  for (const char* field : kPageSums) sums_[field] = 0;
}

void ExpectedSums::AddByArea(const SampleRow& row) {
  AddTo("ftotalpage", row.Number("famount"));
  AddTo("fsumtotalpage", row.Number("famount"));
  AddTo("ftotalpage_qty", row.Number("fqty"));
  AddTo("ftotalpage_mainqty", row.Number("fmainqty"));
  AddTo("ftotalpagetax", row.Number("ftax"));
  AddTo("ftotalpagenotaxamount", row.Number("fnotaxamount"));
}

void ExpectedSums::Add(const SampleRow& row) {
  if (byArea_) return AddByArea(row);
  AddTo("fsumtotalpage", row.Number("famount"));
  if (row.Number("fmainqty") == -999.99) return;
  AddTo("ftotalpage", row.Number("famount"));
  AddTo("ftotalpage_1", row.Number("famount"));
  AddTo("ftotalpage_qty", row.Number("fqty"));
  AddTo("ftotalpage_sumqty", row.Number("fqty"));
  AddTo("ftotalpage_mainqty", row.Number("fmainqty"));
  AddTo("ftotalpage_mainqty_1", row.Number("fmainqty"));
  AddTo("ftotalpage_slaveqty", row.Number("fslaveqty"));
  AddTo("ftotalpage_retailamount", row.Number("fretailamount"));
  AddTo("ftotalpage_bzkamount", row.Number("fbeforezkamount"));
  AddTo("ftotalpage_debit", row.Number("fdebit"));
  AddTo("ftotalpage_credit", row.Number("fcredit"));
  AddTo("fsaleamount_totalpage", row.Number("fsaleamount"));
  AddTo("fpuramount_totalpage", row.Number("fpuramount"));
  AddTo("fskd_totalpage", row.Number("fskd"));
  AddTo("ffkd_totalpage", row.Number("ffkd"));
  AddTo("ftotalpageselffreight", row.Number("ffreight"));
  AddTo("ftotalpagefreight_amount", row.Number("ffreight_amount"));
  const double rate = row.Number("ftaxrate") / 100;
  const double noTax = row.Number("fqty") * row.Number("fprice") / (1 + rate);
  for (const char* scope : {"", "_1"}) {
    AddTo(std::string("ftotalpagenotaxamount") + scope, noTax);
    AddTo(std::string("ftotalpagetax") + scope, noTax * rate);
  }
}

std::optional<double> ExpectedSums::Of(const std::string& field) const {
  std::string name = field;
  if (name == "ftotalpagedx") name = "ftotalpage";
  if (EndsWith(name, "_dx")) name.resize(name.size() - 3);
  const auto found = sums_.find(name);
  return found == sums_.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::string> ExpectedText(const SampleItem& item, const Occasion& occasion) {
  if (item.field.empty()) return item.caption;
  const std::optional<std::string> value = ValueText(item, occasion);
  if (!value) return std::nullopt;
  const bool hasLabel =
      (item.caption != item.variable || occasion.keepsAllLabels) && item.field != "ftotalpageno";
  return (hasLabel ? item.caption : std::string()) + *value;
}

std::string UnderPicture(double number, const std::string& picture) {
  const std::vector<std::string> sections = Sections(picture);
  std::string section = sections.front();
  if (number < 0 && sections.size() > 1) {
    section = sections[1];
    number = -number;
  } else if (number == 0 && sections.size() > 2) {
    section = sections[2];
  }
  const std::size_t begin = section.find_first_of("#0");
  if (begin == std::string::npos) return section;
  const std::size_t end = section.find_last_of("#0") + 1;
  const std::string places = section.substr(begin, end - begin);
  std::string text = Fixed(number, DecimalsOf(places));
  if (places.find(',') != std::string::npos) text = Grouped(text);
  return section.substr(0, begin) + text + section.substr(end);
}

std::string InCapitals(double amount) {
  static const std::array kDigits = {"零", "壹", "贰", "叁", "肆", "伍", "陆", "柒", "捌", "玖"};
  static const std::array kUnits = {"", "拾", "佰", "仟"};
  const long long cents = std::llround(std::abs(amount) * 100);
  std::string text = amount < 0 ? "(负)" : "";
  const std::string yuan = std::to_string(cents / 100);
  bool zeroIsDue = false;
  for (std::size_t i = 0; i < yuan.size(); ++i) {
    const std::size_t place = yuan.size() - 1 - i;
    const auto digit = static_cast<std::size_t>(yuan[i] - '0');
    if (digit == 0) {
      zeroIsDue = true;
    } else {
      if (zeroIsDue) text += kDigits[0];
      text += std::string(kDigits[digit]) + kUnits[place % 4];
      zeroIsDue = false;
    }
    if (place == 4) {
      text += "万";
      zeroIsDue = false;
    }
  }
  if (cents >= 100) text += "圆";
  if (cents % 100 == 0) return text + "整";
  text += std::string(kDigits[static_cast<std::size_t>(cents / 10 % 10)]) + "角";
  if (cents % 10 == 0) return text + "整";
  return text + kDigits[static_cast<std::size_t>(cents % 10)] + "分";
}

}  // namespace td
