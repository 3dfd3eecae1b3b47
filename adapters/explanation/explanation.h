// What became of each item of a format in one print, and why.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "explanation/run_place.h"

namespace td {

// Why an item was not drawn, or not as the format seems to say. `column` of the reason names the
// column where there is one.
enum class Cause {
  // A step of the item was passed over.
  kMissingColumn,      // the data have no such column
  kNullColumn,         // it is Null in the data
  kMissingItemColumn,  // the component's own tables have no such column
  kNullItemColumn,     // it is Null in them
  kFailedStep,         // a failure, whose words the reason has
  // A rule of the fields.
  kUnknownKind,
  kNullInBox,
  kNullDirection,
  kNoPicture,
  kUnknownVariable,  // no column belongs to the item's name
  kUnknownImage,     // the name asks for an image that this band or run doesn't draw
  kRepeatedCaption,
  kHeadIsOnSheet,
  kSumIsNotKept,
  kQuantityNotComposed,
  kStampNotWritten,  // the place of the total page count was kept, and the count not written there
  kStampTaken,       // another item took that place
  kEmptyValue,       // the value is an empty text
  // The item was never reached.
  kUnknownBand,
  kBandNotDrawn,
  kNotVariable,     // left out because only variable items were wanted
  kHiddenPosition,  // left out by the band's query
  kBandStopped,     // a failure of the band, or of an item before it, whose words the reason has
};

// How often, and where first.
struct Reason {
  Cause cause{};
  std::string column;
  std::string words;
  int times = 0;
  std::string bill;
  int row = 0;
  int page = 0;
};

struct ExplainedItem {
  int band = 0;  // FSite as it is stored
  int kind = 0;  // FTypeID: 0 text, 1 line, 2 picture
  std::string caption;
  std::string name;      // FObjectFieldName
  std::string variable;  // the column or computed field; empty: none belongs to the name
  double left = 0;       // twips, as they are stored
  double top = 0;
  double width = 0;
  double height = 0;
  int reached = 0;                  // how often its band came to it
  int drawn = 0;                    // how often it reached the page
  int empty = 0;                    // how often as a text without a character
  std::vector<Reason> leftOut{};    // why it was not drawn; they add up to the times
  std::vector<Reason> otherwise{};  // what else became of it

  [[nodiscard]] bool IsAsTheFormatSays() const {
    return drawn > 0 && drawn >= reached && leftOut.empty() && otherwise.empty();
  }
};

struct ExplainedBill {
  std::string number;  // FBillNo, else FInterID; of a print by stock area, FStockArea
  int rows = 0;        // that were placed, marker rows included
  int markerRows = 0;
  int skippedRows = 0;  // passed over by the blank rows at the start
};

// Why rows were taken as marker rows, which stand outside most sums.
enum class MarkerCause { kMissingColumn, kMarkerValue, kNoNumber };

struct MarkerRows {
  MarkerCause cause{};
  int times = 0;
  std::string bill;
  int row = 0;
  int page = 0;
};

// A sum that an item of the format shows.
struct ExplainedSum {
  std::string variable;  // ftotalpage
  std::string columns;   // that it is made of: FAmount; empty: no row added anything
  int rowsAdded = 0;     // with a number
  int rowsWithout = 0;   // whose column is missing, Null or no number
  std::string missing;   // the columns that the data lack, with commas
  double amount = 0;     // added over the whole print
};

// A failure outside the items, or one that somebody was shown.
struct ExplainedFailure {
  RunPlace place;  // of the first one
  int number = 0;
  std::string description;
  std::string column;    // that was read when it failed, if one was
  bool isShown = false;  // otherwise it was passed over
  int times = 0;
};

struct Explanation {
  bool isRun = false;  // whether a run took place at all
  std::int16_t billType = 0;
  std::string format;  // empty: none was found
  bool byArea = false;
  bool onlyVariantItems = false;
  int pages = 0;
  int rows = 0;  // that were placed
  std::vector<ExplainedItem> items;
  std::vector<ExplainedBill> bills;
  std::vector<int> pagesWithoutRows;
  std::vector<MarkerRows> markerRows;
  std::vector<ExplainedSum> sums;
  std::vector<ExplainedFailure> failures;
  int lockWaits = 0;        // how often something locked was tried again
  std::string unreadItems;  // why the items that no band reached are not among `items`
};

}  // namespace td
