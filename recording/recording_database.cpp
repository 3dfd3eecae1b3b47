#include "recording/recording_database.h"

#include <utility>

#include "platform/standard_failures.h"
#include "recording/sql_tokens.h"

namespace td::recording {
namespace {

constexpr int kCannotClone = 3251;

class RecordingConnection : public Connection {
 public:
  RecordingConnection(Recorder& recorder, MemoryTables& tables)
      : recorder_(recorder), tables_(tables) {}

  void Execute(const std::string& sql) override {
    recorder_.Write("execute", {{"sql", sql}});
    recorder_.Request("execute", sql);
    tables_.Execute(sql);
  }

 private:
  Recorder& recorder_;
  MemoryTables& tables_;
};

}  // namespace

RecordingRecordset::RecordingRecordset(Recorder& recorder, std::shared_ptr<const TableData> data,
                                       bool canClone)
    : recorder_(recorder), data_(std::move(data)), canClone_(canClone) {}

const TableData& RecordingRecordset::Open() const {
  if (!data_) {
    throw ClosedFailure();
  }
  return *data_;
}

bool RecordingRecordset::Eof() {
  return row_ >= Open().rows.size();
}

const Value& RecordingRecordset::Field(std::string_view column) {
  const TableData& data = Open();
  for (std::size_t i = 0; i < data.columns.size(); ++i) {
    if (!SameName(data.columns[i], column)) {
      continue;
    }
    if (Eof()) {
      throw NoCurrentRowFailure();
    }
    return data.rows[row_][i];
  }
  throw NoSuchColumnFailure(column);
}

void RecordingRecordset::MoveNext() {
  if (Eof()) {
    throw NoCurrentRowFailure();
  }
  ++row_;
}

void RecordingRecordset::MoveFirst() {
  if (Open().rows.empty()) {
    throw NoCurrentRowFailure();
  }
  row_ = 0;
}

void RecordingRecordset::Close() {
  (void)Open();
  data_.reset();
}

RecordsetRef RecordingRecordset::Clone() {
  recorder_.Request("clone");
  (void)Open();
  if (!canClone_) {
    throw Failure(kCannotClone, "记录集不支持克隆");
  }
  return std::make_shared<RecordingRecordset>(recorder_, data_);
}

Json RecordingRecordset::Position() const {
  const bool hasRow = data_ && row_ < data_->rows.size();
  return hasRow ? Json(row_) : Json(nullptr);
}

RecordsetRef RecordingDatabase::OpenQuery(const std::string& /*connection*/, const std::string& sql,
                                          CursorType /*cursor*/, LockType /*lock*/) {
  recorder_.Write("query", {{"sql", sql}});
  recorder_.Request("query", sql);
  return std::make_shared<RecordingRecordset>(recorder_,
                                              std::make_shared<TableData>(tables_.Query(sql)));
}

std::unique_ptr<Connection> RecordingDatabase::Connect(const std::string& /*connection*/) {
  recorder_.Write("connect");
  recorder_.Request("connect");
  return std::make_unique<RecordingConnection>(recorder_, tables_);
}

}  // namespace td::recording
