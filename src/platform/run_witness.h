// Whoever wants to know why a sheet looks as it does: it is told of a run while it happens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/failure.h"

namespace td {

// What a run was asked for. References are good while it is told.
struct WitnessedRun {
  std::string_view window;
  const std::string& connection;  // may hold a password
  std::int16_t billType = 0;
  const std::string& format;  // empty: the selected one
  bool onlyVariantItems = false;
  Recordset& data;  // good until the run ends
};

// The bands of a page. The first five are numbered as in the tables.
enum class WitnessedBand { kHead = 1, kColumnHead, kRow, kAfterRows, kFoot, kFillerRow };

// What reached the surface. A stamp is the place of the total page count: it is written later.
enum class DrawnAs { kText, kLine, kPicture, kStamp };

// What a rule of the fields, and no failure, makes of an item.
enum class Circumstance {
  // Nothing is drawn:
  kUnknownKind,    // neither text nor line nor picture
  kNullInBox,      // a value of the head is Null, and its place a box
  kNullDirection,  // a quantity of one direction is Null
  kNoPicture,      // the goods have no picture
  // The text is another one than the format seems to say:
  kNoVariable,           // no column belongs to the item: its label alone is drawn
  kRepeatedCaption,      // the label repeats the item's name and is left out
  kHeadIsOnSheet,        // the sheet has this part of the head already: an empty text is drawn
  kSumIsNotKept,         // this window doesn't keep that sum: it has no value
  kQuantityNotComposed,  // there is no quantity in two units: the one composed last is drawn
};

// Told on the thread of the run, in the order in which things happen, and while the record sets
// stand where the run has them. It may read their columns but not move or close them, and nothing
// that it does may fail. An end is not told where a failure leaves a band or an item: the next
// beginning, or the end of the run, ends it.
class RunWitness {
 public:
  virtual ~RunWitness() = default;

  // A run, from the choice of the format to the finished document. One window may have several.
  virtual void RunBegins(const WitnessedRun& run) = 0;
  virtual void FormatChosen(const std::string& name) = 0;
  virtual void RunEnds() = 0;

  // All pages are finished: what follows is of the document as a whole.
  virtual void PagesEnd() = 0;

  // Pages count from 1 in each run. The page of a new bill or stock area begins behind GroupBreaks.
  virtual void PageBegins() = 0;
  virtual void GroupBreaks() = 0;

  // The row on which the data stand is placed, under that number, or is left blank. A marker row
  // stands outside most sums; it is told behind its beginning.
  virtual void RowBegins(std::int16_t number) = 0;
  virtual void RowIsMarker() = 0;
  virtual void RowIsSkipped() = 0;

  // The row adds `amount` to a sum, which is known again by its address. `columns` names where the
  // amount comes from; it is no number where the row has none, and nothing is added then.
  virtual void Adds(const double& sum, std::string_view columns, double amount) = 0;

  virtual void BandBegins(WitnessedBand band) = 0;
  virtual void BandEnds() = 0;

  // An item of the band: a row of the format's items, on which `item` stands.
  virtual void ItemBegins(Recordset& item) = 0;
  virtual void ItemEnds() = 0;
  virtual void Drawn(DrawnAs what, std::string_view text) = 0;
  virtual void Meets(Circumstance circumstance) = 0;
  virtual void ShowsSum(const double& sum) = 0;

  // The item keeps the place of the total page count, of which there are a few; the last one to
  // keep a place has it. In the end the count is written there, page by page.
  virtual void StampKept(std::size_t place) = 0;
  virtual void StampWritten(std::size_t place, int page) = 0;

  // The next statement reads this column; it may be absent or Null.
  virtual void Reads(Recordset& rows, std::string_view column) = 0;

  // What the error policy decides, before it is done: the statement is skipped, or, if it is a
  // test, counts as true; it is tried again; the routine ends and shows the failure.
  virtual void Forgives(const Failure& failure, bool isTest) = 0;
  virtual void TriesAgain(const Failure& failure) = 0;
  virtual void Ends(const Failure& failure) = 0;
};

// A column of `rows`, told to the witness, if there is one, before it is read.
[[nodiscard]] inline const Value& ReadColumn(RunWitness* witness, Recordset& rows,
                                             std::string_view column) {
  if (witness != nullptr) witness->Reads(rows, column);
  return rows.Field(column);
}

}  // namespace td
