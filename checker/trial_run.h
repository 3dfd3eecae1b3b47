// A format printed into a page document that goes nowhere, by the run itself, and what became of
// each of its items.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "checker/format_rows.h"
#include "checker/machine.h"
#include "page_document/commands.h"
#include "platform/database.h"
#include "platform/run_witness.h"

namespace td::checker {

// How an item has used a column of the rows.
struct ColumnUse {
  int times = 0;  // drawings of the item that have read it
  int nulls = 0;  // of them, how often it was Null
  bool isMissing = false;
  std::string firstNullBill{};
  int firstNullRow = 0;
};

// A value that a page shows of another bill than its own.
struct NextBill {
  std::string column;
  std::string bill;
  std::string nextBill;
  std::string shown;
  std::string meant;
};

struct ItemTrial {
  int times = 0;     // how often the run came to it
  int drawn = 0;     // how often it reached the surface
  std::string text;  // the first text that it has drawn
  std::set<Circumstance> met;
  std::map<std::string, ColumnUse> dataColumns;  // as the item spells them
  std::set<std::string> columnsRead;             // its own
  std::set<std::string> nullsSkipped;            // its own columns whose Null skipped a statement
  std::set<const double*> sums;
  std::string message;                 // with which it ended its band; empty: it did not
  std::optional<NextBill> nextBill;    // the first time
  std::optional<std::size_t> takenBy;  // the item that keeps its place of the total page count
  std::vector<std::string> barcodes;   // the texts that it has put into codes, each once
};

// A sum of the run: the columns that rows have added to it.
struct SumTrial {
  std::set<std::string> columns;
  int added = 0;       // rows that had a number for it
  std::set<int> rows;  // which
};

struct TrialResult {
  std::vector<ItemTrial> items;
  std::map<const double*, SumTrial> sums;
  std::vector<std::string> messages;     // outside of all items
  std::vector<std::string> complaints;   // of the document
  std::set<std::string> missingOfTable;  // columns of TDBill and TDBillDetail that were asked for
  double rowHeight = 0;                  // twips, as the run took it
  int rowsPerPage = 0;
  int rows = 0;
  int lostRows = 0;          // of which, and of whose bill, nothing came onto a page
  int pagesWithoutRows = 0;  // that have begun, and no row stands on them
  int markerRows = 0;
  std::optional<PaperExtent> sheet;  // of the first page, as it is drawn; none: no page
  std::string printer;               // that the document would go to
};

// One thing that came onto a page, in twips from the page's corner.
struct Drawing {
  std::size_t item = 0;
  int page = 0;
  WitnessedBand band{};
  DrawnAs what{};
  bool isFixedText = false;  // a text without a value in it
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  const BoxText* box = nullptr;            // of a text in a box
  const PlacedPicture* picture = nullptr;  // of a picture
  bool isBarcode = false;                  // then:
  std::string_view barcode{};              // what it holds
  std::string_view refusal{};              // why it has no bars
};

// Sees what is drawn, page by page.
class TrialObserver {
 public:
  virtual ~TrialObserver() = default;
  virtual void Draws(const Drawing& drawing) = 0;
  virtual void PageEnds(const PaperExtent& page) = 0;
};

struct TrialRequest {
  bool byArea = false;    // pages by stock area instead of bill
  std::string printer{};  // that takes the document whatever the format says; empty: none
  // The rows, which are moved, and the database that goods pictures and settings are read from;
  // none for a run over rows in which every column is 1.
  RecordsetRef rows{};
  Database* database = nullptr;
  std::string connection{};
};

// Runs the format once. Nothing is printed and nothing is written, but for goods pictures on their
// way through the machine's folder. Needs a Qt application that can lay out texts.
[[nodiscard]] TrialResult RunTrial(const FormatRows& format, const CheckedMachine& machine,
                                   const TrialRequest& request,
                                   const std::vector<TrialObserver*>& observers);

}  // namespace td::checker
