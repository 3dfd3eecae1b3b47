// What each row of a print costs: exceptions and allocations, counted.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "desktop/databases.h"
#include "desktop/desktop_platform.h"
#include "sample_engine.h"
#include "service/printer.h"
#include "work.h"

namespace {

long thrown = 0;
long allocated = 0;

}  // namespace

// Counts, then throws as ever.
extern "C" [[noreturn]] void __cxa_throw(void* exception, void* type, void (*destroy)(void*)) {
  using Throw = void (*)(void*, void*, void (*)(void*));
  static const auto real = reinterpret_cast<Throw>(dlsym(RTLD_NEXT, "__cxa_throw"));
  ++thrown;
  real(exception, type, destroy);
  std::abort();
}

void* operator new(std::size_t size) {
  ++allocated;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace td {
namespace {

// Notes the counters at two rows of one page.
class CountedRows : public Recordset {
 public:
  static constexpr int kFirst = 30;
  static constexpr int kLast = 45;

  explicit CountedRows(RecordsetRef rows) : rows_(std::move(rows)) {}
  bool Eof() override { return rows_->Eof(); }
  const Value& Field(std::string_view column) override { return rows_->Field(column); }
  const Value* Find(std::string_view column) override { return rows_->Find(column); }
  void MoveNext() override {
    rows_->MoveNext();
    ++row_;
    if (row_ == kFirst) start_ = {thrown, allocated};
    if (row_ == kLast) end_ = {thrown, allocated};
  }
  void MoveFirst() override { rows_->MoveFirst(); }
  void Close() override { rows_->Close(); }
  RecordsetRef Clone() override { return rows_->Clone(); }

  [[nodiscard]] long Thrown() const { return end_.first - start_.first; }
  [[nodiscard]] long AllocatedARow() const {
    return (end_.second - start_.second) / (kLast - kFirst);
  }

 private:
  RecordsetRef rows_;
  int row_ = 0;
  std::pair<long, long> start_;
  std::pair<long, long> end_;
};

class RowCosts : public testing::TestWithParam<SampleEngine> {
 protected:
  void SetUp() override {
    MakeWorkFormat(Connection());
    MakeWorkRows(Connection(), 60);
    AddItemOfAnAbsentColumn();
    DesktopOptions options;
    options.messages = MessageMode::kStandardError;
    options.documentSink = [](const PageDocument&) {};
    DesktopPlatform desktop(std::move(options));
    Platform& platform = desktop.Get();
    rows_ = std::make_shared<CountedRows>(platform.database.OpenQuery(Connection(), kWorkData));
    Printer printer(platform);
    printer.DoPrint(true, Connection(), kWorkBillType, false, false, rows_, kWorkFormat);
    ASSERT_TRUE(printer.PrintOk());
  }
  void TearDown() override { RenewSample(GetParam()); }

  [[nodiscard]] static const std::string& Connection() { return SampleOn(GetParam()); }

  // As formats have that serve several types of bills.
  static void AddItemOfAnAbsentColumn() {
    const auto connection = Databases().Connect(Connection());
    const std::string type = std::to_string(kWorkBillType);
    connection->Execute(
        "insert into TDBillDetail (FTDBillID,FSite,FLeft,FTop,FWidth,FHeight,FTypeID,FIsVariant,"
        "FObjectFieldName,FFormatString) select FTDBillID,3,600,2280,600,480,0,1,'批号','0.00' "
        "from TDBill where FTranType=" +
        type);
    connection->Execute("insert into TDVariant (FTranType,FVarCaption,FVarName) values (" + type +
                        ",'批号','FBatchNo')");
  }

  std::shared_ptr<CountedRows> rows_;
};
INSTANTIATE_TEST_SUITE_P(Engines, RowCosts, kEachEngine, NameOfEngine);

TEST(Counters, Count) {
  const long before = thrown;
  EXPECT_THROW(throw 1, int);
  EXPECT_EQ(thrown, before + 1);
}

// The rows lack a dozen of the columns that the sums ask for, and one that an item shows.
TEST_P(RowCosts, AreNoException) {
  EXPECT_EQ(rows_->Thrown(), 0);
}

TEST_P(RowCosts, AreFewAllocations) {
  constexpr long kOfTwelveItems = 70;
  EXPECT_GT(rows_->AllocatedARow(), 0);
  RecordProperty("allocated", static_cast<int>(rows_->AllocatedARow()));
  EXPECT_LE(rows_->AllocatedARow(), kOfTwelveItems);
}

}  // namespace
}  // namespace td
