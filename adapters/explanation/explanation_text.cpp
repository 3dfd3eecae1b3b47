#include "explanation/explanation_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "explanation/words.h"
#include "text/conversions.h"

namespace td {
namespace {

constexpr double kTwipsPerMillimetre = 1440 / 25.4;

// Tenths of a millimetre.
std::string Millimetres(double twips) {
  const double tenths = std::round(twips / kTwipsPerMillimetre * 10);
  std::string text = ToText(tenths / 10);
  return text.find('.') == std::string::npos ? text + ".0" : text;
}

bool HasCause(const std::vector<Reason>& reasons, Cause cause) {
  return std::ranges::find(reasons, cause, &Reason::cause) != reasons.end();
}

// What tells of one explanation, line by line.
class TextWriter {
 public:
  TextWriter(const Explanation& explanation, Language language)
      : explanation_(explanation), language_(language) {}

  std::string Write() {
    if (!explanation_.isRun) {
      Line(Fill(language_, words::kNoRun));
    } else if (explanation_.format.empty()) {
      Line(Fill(language_, words::kNoFormat, std::to_string(explanation_.billType)));
    } else {
      WriteSummary();
      WriteItems();
      WriteRows();
    }
    WriteFailures();
    return std::move(text_);
  }

 private:
  void Line(const std::string& line) {
    const std::size_t begin = text_.size();
    text_ += line;
    std::replace(text_.begin() + static_cast<std::ptrdiff_t>(begin), text_.end(), '\n', ' ');
    text_ += '\n';
  }

  [[nodiscard]] std::string WithFirst(const std::string& line, const std::string& bill, int row,
                                      int page) const {
    RunPlace first;
    first.bill = bill;
    first.row = row;
    first.page = page;
    const std::string place = PlaceText(first, language_);
    return place.empty() ? line : Fill(language_, words::kFirst, line, place);
  }

  void WriteSummary() {
    Line(Fill(language_, explanation_.byArea ? words::kAreaSummary : words::kSummary,
              explanation_.format, std::to_string(explanation_.billType),
              std::to_string(explanation_.pages), std::to_string(explanation_.rows),
              std::to_string(explanation_.bills.size())));
  }

  [[nodiscard]] std::string NameOf(const ExplainedItem& item) const {
    std::string name = item.caption.empty() ? item.name : item.caption;
    if (name.empty() || item.kind != 0) {
      const Sentence kinds[] = {words::kText, words::kLine, words::kPicture};
      if (item.kind >= 0 && item.kind <= 2) name = kinds[item.kind].In(language_);
    }
    const std::string place =
        Fill(language_, words::kMillimetres, Millimetres(item.left), Millimetres(item.top));
    if (item.variable.empty() || item.kind != 0) {
      return Fill(language_, words::kItemAlone, name, place);
    }
    return Fill(language_, words::kItemWithVariable, name, item.variable, place);
  }

  void ItemLine(const ExplainedItem& item, const std::string& what) {
    Line(Fill(language_, words::kItem, BandName(item.band, language_), NameOf(item), what));
  }

  void WriteItem(const ExplainedItem& item) {
    for (const Reason& reason : item.leftOut) {
      if (reason.cause == Cause::kNotVariable) continue;
      const std::string why = ReasonText(item, reason, language_);
      const int times = std::max(item.reached, reason.times);
      const std::string line = item.reached == 0
                                   ? Fill(language_, words::kNeverDrawn, why)
                                   : Fill(language_, words::kNotDrawn, std::to_string(reason.times),
                                          std::to_string(times), why);
      ItemLine(item, WithFirst(line, reason.bill, reason.row, reason.page));
    }
    for (const Reason& reason : item.otherwise) {
      if (reason.cause == Cause::kHeadIsOnSheet) continue;
      const std::string line =
          Fill(language_, words::kDrawnOtherwise, std::to_string(item.drawn),
               std::to_string(reason.times), ReasonText(item, reason, language_));
      ItemLine(item, WithFirst(line, reason.bill, reason.row, reason.page));
    }
    if (item.empty > 0 && item.otherwise.empty()) {
      ItemLine(item, Fill(language_, words::kDrawnEmpty, std::to_string(item.drawn),
                          std::to_string(item.empty)));
    }
  }

  // What holds for many items at once is told once.
  template <class Condition>
  void WriteCount(const Sentence& sentence, const Condition& holds) {
    const auto count = std::ranges::count_if(explanation_.items, holds);
    if (count > 0) Line(Fill(language_, sentence, std::to_string(count)));
  }

  void WriteItems() {
    std::vector<ExplainedItem> items = explanation_.items;
    std::ranges::stable_sort(items, {}, &ExplainedItem::band);
    for (const ExplainedItem& item : items) WriteItem(item);
    if (!explanation_.unreadItems.empty()) {
      Line(Fill(language_, words::kItemsUnread, explanation_.unreadItems));
    }
    WriteCount(words::kOnSheet, [](const ExplainedItem& item) {
      return HasCause(item.leftOut, Cause::kNotVariable);
    });
    WriteCount(words::kHeadOnSheet, [](const ExplainedItem& item) {
      return HasCause(item.otherwise, Cause::kHeadIsOnSheet);
    });
    const auto asFormat = std::ranges::count_if(items, &ExplainedItem::IsAsTheFormatSays);
    Line(Fill(language_, words::kAllAsFormat, std::to_string(asFormat),
              std::to_string(items.size())));
  }

  void WriteRows() {
    for (const MarkerRows& marker : explanation_.markerRows) {
      // Rows stand outside of sums; where there are none, a column that is lacking lacks nobody.
      const bool isMissing = marker.cause == MarkerCause::kMissingColumn;
      if (isMissing && explanation_.sums.empty()) continue;
      const std::string line =
          Fill(language_, words::kMarkerRows, std::to_string(marker.times),
               std::to_string(explanation_.rows), WordsOf(marker.cause).sentence.In(language_));
      Line(WithFirst(line, marker.bill, marker.row, marker.page));
    }
    for (const ExplainedSum& sum : explanation_.sums) Line(SumLine(sum));
    for (const ExplainedBill& bill : explanation_.bills) {
      if (bill.rows > 0 && bill.markerRows == 0 && bill.skippedRows == 0) continue;
      Line(Fill(language_, explanation_.byArea ? words::kArea : words::kBill, bill.number,
                std::to_string(bill.rows), std::to_string(bill.markerRows),
                std::to_string(bill.skippedRows)));
    }
    for (const int page : explanation_.pagesWithoutRows) {
      Line(Fill(language_, words::kPageWithoutRows, std::to_string(page)));
    }
  }

  // A sum that begins again on each page, of a print of several.
  [[nodiscard]] bool IsOfPage(const ExplainedSum& sum) const {
    constexpr std::array kOfPrint = {"_1", "freight", "fsumtotalpage"};
    const std::string name = LowerCase(sum.variable);
    const auto has = [&](const char* part) { return name.find(part) != std::string::npos; };
    return explanation_.pages > 1 && has("totalpage") && std::ranges::none_of(kOfPrint, has);
  }

  [[nodiscard]] std::string SumLine(const ExplainedSum& sum) const {
    std::string line =
        sum.rowsAdded == 0
            ? Fill(language_, words::kEmptySum, sum.variable)
            : Fill(language_, IsOfPage(sum) ? words::kPageSum : words::kSum, sum.variable,
                   ToText(sum.amount), std::to_string(sum.rowsAdded), sum.columns);
    if (sum.rowsWithout > 0) {
      line += Fill(language_, words::kSumWithout, std::to_string(sum.rowsWithout));
    }
    if (!sum.missing.empty()) line += Fill(language_, words::kSumMissing, sum.missing);
    return line;
  }

  void WriteFailures() {
    for (const ExplainedFailure& failure : explanation_.failures) {
      const std::string words = failure.column.empty() ? failure.description
                                                       : Fill(language_, words::kOfColumn,
                                                              failure.description, failure.column);
      const bool isOften = failure.times > 1;
      const Sentence& shown = isOften ? words::kShownOften : words::kShown;
      const std::string line = Fill(language_, failure.isShown ? shown : words::kPassedOver, words,
                                    std::to_string(failure.times));
      const std::string place = PlaceText(failure.place, language_);
      Line(place.empty() ? line : Fill(language_, words::kAtPlace, line, place));
    }
    if (explanation_.lockWaits > 0) {
      Line(Fill(language_, words::kLockWaits, std::to_string(explanation_.lockWaits)));
    }
  }

  const Explanation& explanation_;
  Language language_;
  std::string text_;
};

}  // namespace

std::string ReasonText(const ExplainedItem& item, const Reason& reason, Language language) {
  if (item.caption.empty() && reason.cause == Cause::kUnknownImage) {
    return Fill(language, words::kNoImageNoLabel, item.name);
  }
  if (item.caption.empty() && reason.cause == Cause::kUnknownVariable) {
    return Fill(language, words::kNoVariableNoLabel, item.name);
  }
  return Fill(language, WordsOf(reason.cause).sentence, reason.column, reason.words, item.name,
              std::to_string(item.band));
}

std::string ExplanationText(const Explanation& explanation, Language language) {
  return TextWriter(explanation, language).Write();
}

}  // namespace td
