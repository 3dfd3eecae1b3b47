// What the record sets over a program's own objects have in common, whichever way they are called.
#pragma once

#include <string_view>
#include <utility>

#include "module/column_values.h"
#include "objects/owned.h"
#include "platform/database.h"
#include "platform/standard_failures.h"

namespace td {

// At the end of the rows it fails as a record set does, whether the program's object would or not:
// a run that moves on in search of a row ends only because MoveNext fails there.
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
    GoToNext();
  }

  void MoveFirst() final {
    LeaveRow();
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

  void LeaveRow() {
    values_.Clear();
    standsOnRow_ = false;
  }

  Reference<Interface> object_;  // empty: closed
  ColumnValues values_;
  bool standsOnRow_ = false;  // the object has said so since the last move
};

}  // namespace td
