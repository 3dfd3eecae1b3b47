#include "progress.h"

#include <iostream>
#include <utility>

#include "standard_streams.h"

namespace td {
namespace {

constexpr const char* kWipeLine = "\r\x1b[K";

class WatchedRows : public Recordset {
 public:
  WatchedRows(RecordsetRef rows, Progress& progress)
      : rows_(std::move(rows)), progress_(progress) {}

  bool Eof() override { return rows_->Eof(); }
  const Value& Field(std::string_view column) override { return rows_->Field(column); }
  const Value* Find(std::string_view column) override { return rows_->Find(column); }
  void MoveNext() override {
    rows_->MoveNext();
    progress_.RowReached(++row_);
  }
  void MoveFirst() override {
    rows_->MoveFirst();
    row_ = 1;
  }
  void Close() override { rows_->Close(); }
  RecordsetRef Clone() override { return rows_->Clone(); }

 private:
  RecordsetRef rows_;
  Progress& progress_;
  int row_ = 1;
};

}  // namespace

Progress::Progress() : shown_(StandardErrorIsTerminal()) {}

Progress::~Progress() {
  if (shown_) std::cerr << kWipeLine << std::flush;
}

void Progress::PageFinished(int page) {
  page_ = page + 1;
  Show();
}

void Progress::RowReached(int row) {
  row_ = row;
  Show();
}

RecordsetRef Progress::Watch(RecordsetRef rows) {
  if (!shown_) return rows;
  return std::make_shared<WatchedRows>(std::move(rows), *this);
}

void Progress::Show() {
  if (shown_) std::cerr << kWipeLine << "page " << page_ << ", row " << row_ << std::flush;
}

}  // namespace td
