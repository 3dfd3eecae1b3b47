// What is asked of record sets that say no more than they must.
#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/database.h"
#include "platform/failure.h"
#include "platform/retry_while_locked.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

const Failure kLocked(kDatabaseFailed, "表被锁定");

// One column, FName, in no row; or a failure for whatever is read.
class BareRows : public Recordset {
 public:
  explicit BareRows(std::optional<Failure> failure = {}) : failure_(std::move(failure)) {}

  bool Eof() override { return true; }
  const Value& Field(std::string_view column) override {
    if (failure_) throw *failure_;
    if (column != "FName") throw NoSuchColumnFailure(column);
    throw NoCurrentRowFailure();
  }
  void MoveNext() override { throw NoCurrentRowFailure(); }
  void MoveFirst() override { throw NoCurrentRowFailure(); }
  void Close() override {}
  RecordsetRef Clone() override { return nullptr; }

 private:
  std::optional<Failure> failure_;
};

int NumberOfFailure(Recordset& rows) {
  try {
    (void)HasColumn(rows, "FName");
    return 0;
  } catch (const Failure& failure) {
    return failure.Number();
  }
}

TEST(HasColumn, KnowsTheColumnsBehindTheLastRow) {
  BareRows rows;
  EXPECT_TRUE(HasColumn(rows, "FName"));
  EXPECT_FALSE(HasColumn(rows, "FGone"));
}

TEST(HasColumn, TakesNoOtherFailureForAnAnswer) {
  BareRows locked(kLocked);
  EXPECT_EQ(NumberOfFailure(locked), kDatabaseFailed);
  BareRows lockedAtTheEnd(Failure(kNoCurrentRow, "表被锁定"));
  EXPECT_EQ(NumberOfFailure(lockedAtTheEnd), kNoCurrentRow);
  BareRows closed(ClosedFailure());
  EXPECT_EQ(NumberOfFailure(closed), kObjectClosed);
}

TEST(RetryWhileLocked, TriesUntilNobodyHoldsALock) {
  int tries = 0;
  const int result = RetryWhileLocked([&] {
    if (++tries < 3) throw kLocked;
    return 7;
  });
  EXPECT_EQ(result, 7);
  EXPECT_EQ(tries, 3);
}

TEST(RetryWhileLocked, LetsOtherFailuresThrough) {
  int tries = 0;
  const auto fail = [&]() -> int {
    ++tries;
    throw MismatchFailure();
  };
  EXPECT_THROW(RetryWhileLocked(fail), Failure);
  EXPECT_EQ(tries, 1);
}

}  // namespace
}  // namespace td
