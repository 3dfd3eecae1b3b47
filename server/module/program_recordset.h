// What the record sets over a program's own objects have in common, whichever way they are called.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "module/column_values.h"
#include "objects/owned.h"
#include "platform/database.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {

// At the end of the rows it fails as a record set does, whether the program's object would or not:
// a run that moves on in search of a row ends only because MoveNext fails there.
//
// An object that can't leave a row would print it until the counters overflow, or for ever, since a
// run goes on after a Null or a missing column. So after a hundred such failures on one row
// MoveNext fails with another number, which ends the run. A locked row is waited for without limit.
template <class Interface>
class ProgramRecordset : public Recordset {
 public:
  explicit ProgramRecordset(Reference<Interface> object) : object_(std::move(object)) {}

  // Asks the object once a row, however often it is to be known: a call may cross languages.
  bool Eof() final {
    if (!standsOnRow_) standsOnRow_ = !IsAtEnd();
    return !standsOnRow_;
  }

  const Value& Field(std::string_view column) final {
    Value value = Read(column);
    CheckNotAtEnd();
    return values_.Put(column, std::move(value));
  }

  void MoveNext() final {
    CheckNotAtEnd();
    LeaveRow();
    try {
      GoToNext();
    } catch (const Failure& failure) {
      if (!IsLockConflict(failure)) CountFailedMove(failure);
      throw;
    }
    failedMoves_ = 0;
  }

  void MoveFirst() final {
    LeaveRow();
    failedMoves_ = 0;
    GoToFirst();
  }

  void Close() final {
    (void)Object();
    object_ = {};
    standsOnRow_ = false;
  }

 protected:
  [[nodiscard]] Interface* Object() const {
    if (object_.Get() == nullptr) throw ClosedFailure();
    return object_.Get();
  }

 private:
  [[nodiscard]] virtual bool IsAtEnd() = 0;
  [[nodiscard]] virtual Value Read(std::string_view column) = 0;
  virtual void GoToNext() = 0;
  virtual void GoToFirst() = 0;

  void CheckNotAtEnd() {
    if (Eof()) throw NoCurrentRowFailure();
  }

  void CountFailedMove(const Failure& failure) {
    constexpr int kMostFailedMoves = 100;
    if (++failedMoves_ < kMostFailedMoves) return;
    throw Failure(kInvalidCall, "数据对象的“MoveNext”在同一行上失败了 " +
                                    std::to_string(failedMoves_) + " 次，打印中止：" +
                                    failure.Description());
  }

  void LeaveRow() {
    values_.Clear();
    standsOnRow_ = false;
  }

  Reference<Interface> object_;  // empty: closed
  ColumnValues values_;
  bool standsOnRow_ = false;  // the object has said so since the last move
  int failedMoves_ = 0;       // in a row, on this one
};

}  // namespace td
