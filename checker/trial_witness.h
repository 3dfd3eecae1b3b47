// What is told of a trial run while it happens, and what is made of it.
#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "checker/placed_rows.h"
#include "checker/trial_platform.h"
#include "checker/trial_run.h"
#include "platform/quiet_witness.h"

namespace td::checker {

// Keeps what the run tells and what its surface is asked for, and hands each drawing on to the
// observers, which are borrowed.
class TrialWitness : public QuietWitness, public TrialListener {
 public:
  TrialWitness(std::size_t items, const std::vector<TrialObserver*>& observers);

  // The document of the run, the cursor that it parks, and one to follow it, which stands on the
  // first row. Told before the run begins.
  void Watch(PageDocument& document, const Recordset& clone, RecordsetRef rowDrawn);

  TrialResult result;

  // ---- What the run tells
  void RunBegins(const WitnessedRun& run) override { data_ = &run.data; }
  void RunEnds() override;
  void PageBegins() override;
  void PagesEnd() override { EndItem(); }
  void RowBegins(std::int16_t number) override;
  void RowIsMarker() override;
  void Adds(const double& sum, std::string_view columns, double amount) override;
  void BandBegins(WitnessedBand band) override;
  void BandEnds() override { EndItem(); }
  void ItemBegins(Recordset& item) override;
  void ItemEnds() override { EndItem(); }
  void Drawn(DrawnAs what, std::string_view text) override;
  void Meets(Circumstance circumstance) override;
  void ShowsSum(const double& sum, SumSpan span) override;
  void StampKept(std::size_t place) override;
  void StampWritten(std::size_t place, int page) override;
  void Reads(Recordset& rows, std::string_view column) override;
  void Forgives(const Failure& failure, bool isTest) override;

  // ---- What the surface is asked for
  void Boxed(const BoxText& text) override;
  void Written(const PaperExtent& size, double left, double top) override;
  void Ruled(double x1, double y1, double x2, double y2) override;
  void Pictured(const PlacedPicture& picture) override;
  void BarcodeTold(const std::string& data) override;
  void BarcodeRefused(const std::string& reason) override { refusal_ = reason; }
  void MessageShown(const std::string& text) override;
  void Complained(const std::string& text) override { result.complaints.push_back(text); }

 private:
  [[nodiscard]] bool HasItem() const;
  [[nodiscard]] ItemTrial& Item();
  [[nodiscard]] bool IsData(const Recordset& rows) const;
  void ReadData(Recordset& rows, const std::string& column, const Value* value);
  void CompareBills();
  [[nodiscard]] Drawing Begin(DrawnAs what, double left, double top, double right,
                              double bottom) const;
  void Tell(const Drawing& drawing);
  void EndItem();
  void EndPage();
  void CountLostRows();

  const std::vector<TrialObserver*>& observers_;
  PageDocument* document_ = nullptr;
  Recordset* data_ = nullptr;
  const Recordset* clone_ = nullptr;
  RecordsetRef rowDrawn_;  // on the row that was drawn last
  PlacedRows placed_;

  // Where the run is.
  int page_ = 0;
  int rowsOnPage_ = 0;
  int row_ = 0;
  bool isMarkerRow_ = false;  // a remark, which lacks most values
  PaperExtent extent_;
  WitnessedBand band_{};

  // The item that is drawn.
  std::size_t item_;
  Recordset* itemRow_ = nullptr;
  bool isFixedText_ = false;
  std::map<std::string, bool> isNull_;  // the columns of the rows that it has read
  std::set<int> rowsRead_;
  Recordset* lastData_ = nullptr;  // the rows that it has read last, if any
  std::string lastDataColumn_;

  // The column that was read last.
  std::string lastColumn_;
  bool lastIsOwn_ = false;
  bool lastIsNull_ = false;

  std::set<std::pair<const double*, std::string>> addedColumns_;

  // The barcode maker's text, and whether the item has put it there.
  std::string barcode_;
  std::string refusal_;
  bool isBarcode_ = false;

  std::map<std::size_t, std::size_t> stampItems_;  // the item that keeps each place
  Drawing stamp_;                                  // the last text in a box
  BoxText stampText_;
};

}  // namespace td::checker
