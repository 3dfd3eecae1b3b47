#include "checker/sample_rows.h"

#include "platform/standard_failures.h"

namespace td::checker {
namespace {

class OnesEverywhere : public Recordset {
 public:
  explicit OnesEverywhere(int count) : count_(count) {}

  bool Eof() override { return row_ >= count_; }
  const Value& Field(std::string_view /*column*/) override {
    if (Eof()) throw NoCurrentRowFailure();
    return one_;
  }
  void MoveNext() override {
    if (Eof()) throw NoCurrentRowFailure();
    ++row_;
  }
  void MoveFirst() override {
    if (count_ == 0) throw NoCurrentRowFailure();
    row_ = 0;
  }
  void Close() override { row_ = count_; }
  RecordsetRef Clone() override { return std::make_shared<OnesEverywhere>(count_); }

 private:
  const Value one_ = std::int64_t{1};
  int count_;
  int row_ = 0;
};

}  // namespace

RecordsetRef SampleRows(int count) {
  return std::make_shared<OnesEverywhere>(count);
}

}  // namespace td::checker
