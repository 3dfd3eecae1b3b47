// Record sets that hand their columns out in a collection, as many languages write them.
#include <array>

#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "server_fixture.h"
#include "test_rows.h"

namespace td {
namespace {

enum class Index { kNames, kNumbers };

// What the objects of one record set share.
struct Shelf {
  Index index = Index::kNames;
  int timesAskedByName = 0;   // Fields with an argument, which is refused
  int timesAskedForName = 0;  // of a field
};
using ShelfRef = std::shared_ptr<Shelf>;

constexpr std::array<const char*, 2> kColumns = {"FInterID", "FName"};

class ColumnObject final : public DispatchObject<ColumnObject, TdDispatch> {
 public:
  ColumnObject(ShelfRef shelf, std::size_t number)
      : DispatchObject(&kTable), shelf_(std::move(shelf)), number_(number) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"Name", 1, TD_CALL_GET, {}}, {"Value", 2, TD_CALL_GET, {}}};
    return members;
  }
  void Call(std::int32_t member, const CallArguments& /*arguments*/, TdVariant& result) {
    if (member == 1) {
      ++shelf_->timesAskedForName;
      result = TdTextVariant(kColumns[number_]);
    } else {
      result = number_ == 0 ? TdIntegerVariant(7) : TdTextVariant("大米");
    }
  }

 private:
  static const TdDispatchTable kTable;
  ShelfRef shelf_;
  std::size_t number_;
};

const TdDispatchTable ColumnObject::kTable = {
    QueryInterface, AddRef, Release, GetTypeInfoCount, GetTypeInfo, GetIDsOfNames, Invoke};

class CollectionObject final : public DispatchObject<CollectionObject, TdDispatch> {
 public:
  explicit CollectionObject(ShelfRef shelf) : DispatchObject(&kTable), shelf_(std::move(shelf)) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"Item", TD_MEMBER_VALUE, TD_CALL_GET, {"Index"}, 1},
                                    {"Count", 1, TD_CALL_GET, {}}};
    return members;
  }
  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    if (member == 1) {
      result = TdIntegerVariant(static_cast<std::int32_t>(kColumns.size()));
      return;
    }
    result.value.dispatch = new ColumnObject(shelf_, NumberOf(arguments));
    result.type = TD_DISPATCH;
  }

 private:
  [[nodiscard]] std::size_t NumberOf(const CallArguments& arguments) const {
    if (shelf_->index == Index::kNumbers) return static_cast<std::size_t>(arguments.Integer32(0));
    const std::string name = arguments.Text(0);
    for (std::size_t i = 0; i < kColumns.size(); ++i) {
      if (name == kColumns[i]) return i;
    }
    throw Failure(kNoSuchColumn, "没有列 " + name);
  }

  static const TdDispatchTable kTable;
  ShelfRef shelf_;
};

const TdDispatchTable CollectionObject::kTable = {
    QueryInterface, AddRef, Release, GetTypeInfoCount, GetTypeInfo, GetIDsOfNames, Invoke};

class ShelfRows final : public DispatchObject<ShelfRows, TdDispatch> {
 public:
  explicit ShelfRows(ShelfRef shelf) : DispatchObject(&kTable), shelf_(std::move(shelf)) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"EOF", 1, TD_CALL_GET, {}},
                                    {"Fields", 2, TD_CALL_GET, {"Unexpected"}},
                                    {"MoveNext", 3, TD_CALL_METHOD, {}},
                                    {"MoveFirst", 4, TD_CALL_METHOD, {}},
                                    {"Clone", 5, TD_CALL_METHOD, {}}};
    return members;
  }
  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    switch (member) {
      case 1:
        result = TdFlagVariant(isAtEnd_ ? 1 : 0);
        break;
      case 2:
        if (arguments.Text(0) != "") {
          ++shelf_->timesAskedByName;
          throw CallFailure(TD_BAD_ARGUMENT_COUNT);
        }
        result.value.dispatch = new CollectionObject(shelf_);
        result.type = TD_DISPATCH;
        break;
      case 5:
        result.value.dispatch = new ShelfRows(shelf_);
        result.type = TD_DISPATCH;
        break;
      default:
        isAtEnd_ = member == 3;
    }
  }

 private:
  static const TdDispatchTable kTable;
  ShelfRef shelf_;
  bool isAtEnd_ = false;
};

const TdDispatchTable ShelfRows::kTable = {QueryInterface, AddRef,        Release, GetTypeInfoCount,
                                           GetTypeInfo,    GetIDsOfNames, Invoke};

class CollectedFields : public ServerTest {
 protected:
  // Prints one row, in a format of a name, too, that no column has.
  void ExpectPrinted(const ShelfRef& shelf) {
    const auto printer = NewPrinter();
    const auto rows = Reference<TdDispatch>::Taking(new ShelfRows(shelf));
    ExpectOk(Print(printer.Get(), rows.Get()));
    EXPECT_TRUE(HasPrinted("大米"));
    EXPECT_TRUE(PrintOk(printer.Get()));
    EXPECT_EQ(Messages().find("Fields"), std::string::npos);
    ExpectOk(Print(printer.Get(), rows.Get(), "金额单"));
    EXPECT_TRUE(PrintOk(printer.Get())) << "a missing column is left out";
    EXPECT_FALSE(HasPrinted("大米"));
  }
};

TEST_F(CollectedFields, AreFoundByTheirNames) {
  const auto shelf = std::make_shared<Shelf>();
  ExpectPrinted(shelf);
  EXPECT_LE(shelf->timesAskedByName, 4) << "once for each record set and its clone";
  EXPECT_EQ(shelf->timesAskedForName, 0);
}

TEST_F(CollectedFields, AreFoundByTheirNumbersWhereNamesAreRefused) {
  const auto shelf = std::make_shared<Shelf>();
  shelf->index = Index::kNumbers;
  ExpectPrinted(shelf);
  EXPECT_LE(shelf->timesAskedByName, 4);
  EXPECT_LE(shelf->timesAskedForName, 8) << "the names are read once";
}

}  // namespace
}  // namespace td
