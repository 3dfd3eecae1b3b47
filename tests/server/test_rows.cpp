#include "test_rows.h"

#include <atomic>

#include "objects/dispatch_object.h"
#include "platform/failure.h"

namespace td {
namespace {

std::atomic<int> alive = 0;

struct CountedAlive {
  CountedAlive() { ++alive; }
  ~CountedAlive() { --alive; }
  CountedAlive(const CountedAlive&) = delete;
  CountedAlive& operator=(const CountedAlive&) = delete;
};

class TestField final : public DispatchObject<TestField, TdDispatch> {
 public:
  explicit TestField(TestValue value) : DispatchObject(&kTable), value_(std::move(value)) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"Value", 71, TD_CALL_GET, {}}};
    return members;
  }
  void Call(std::int32_t /*member*/, const CallArguments& /*arguments*/, TdVariant& result) {
    result = value_();
  }

 private:
  static const TdDispatchTable kTable;
  TestValue value_;
  CountedAlive counted_;
};

const TdDispatchTable TestField::kTable = {QueryInterface, AddRef,        Release, GetTypeInfoCount,
                                           GetTypeInfo,    GetIDsOfNames, Invoke};

class TestRowsObject final : public DispatchObject<TestRowsObject, TdDispatch> {
  using Base = DispatchObject<TestRowsObject, TdDispatch>;

 public:
  TestRowsObject(std::shared_ptr<TestData> data, bool isClone)
      : DispatchObject(&kTable), data_(std::move(data)), isClone_(isClone) {}
  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"EOF", 11, TD_CALL_GET, {}},
                                    {"Fields", 12, TD_CALL_GET, {"Name"}, 1},
                                    {"MoveNext", 13, TD_CALL_METHOD, {}},
                                    {"MoveFirst", 14, TD_CALL_METHOD, {}},
                                    {"Clone", 15, TD_CALL_METHOD, {}}};
    return members;
  }

  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
    switch (member) {
      case 11:
        ++data_->timesAskedForEnd;
        result = TdFlagVariant(AtEnd() ? 1 : 0);
        break;
      case 12:
        result.value.dispatch = new TestField(ValueOfColumn(arguments.Text(0)));
        result.type = ObjectType();
        break;
      case 13:
        if (data_->onMoveNext) data_->onMoveNext();
        MoveTo(position_ + 1);
        break;
      case 14:
        MoveTo(0);
        break;
      default:
        if (data_->onClone) data_->onClone();
        ++data_->clones;
        result.value.dispatch = new TestRowsObject(data_, true);
        result.type = ObjectType();
    }
  }

 private:
  static TdResult TD_CALL GetIds(TdDispatch* self, const TdGuid* reserved,
                                 const TdUnit* const* names, std::uint32_t count,
                                 std::uint32_t language, std::int32_t* ids) {
    const std::u16string name = names[0];
    if (Of(self).data_->missingMembers.contains(std::string(name.begin(), name.end()))) {
      return TD_UNKNOWN_NAME;
    }
    return GetIDsOfNames(self, reserved, names, count, language, ids);
  }

  std::uint16_t ObjectType() const { return data_->givesFirstInterface ? TD_OBJECT : TD_DISPATCH; }

  bool AtEnd() const { return position_ >= static_cast<int>(data_->rows.size()); }

  void MoveTo(int position) {
    position_ = position;
    if (!isClone_) data_->position = position;
  }

  TestValue ValueOfColumn(const std::string& column) const {
    if (data_->rows.empty()) throw Failure(kNoCurrentRow, "没有行");
    // At the end the last row tells which columns there are.
    const TestRow& row =
        AtEnd() ? data_->rows.back() : data_->rows[static_cast<std::size_t>(position_)];
    const auto found = row.find(column);
    if (found == row.end()) throw Failure(kNoSuchColumn, "没有列 " + column);
    if (AtEnd() && !data_->answersAtTheEnd) throw Failure(kNoCurrentRow, "已到末尾");
    return found->second;
  }

  static const TdDispatchTable kTable;

  std::shared_ptr<TestData> data_;
  bool isClone_;
  int position_ = 0;
  CountedAlive counted_;
};

const TdDispatchTable TestRowsObject::kTable = {QueryInterface, AddRef, Release, GetTypeInfoCount,
                                                GetTypeInfo,    GetIds, Invoke};

}  // namespace

Reference<TdDispatch> TestRows::Make(const std::shared_ptr<TestData>& data) {
  return Reference<TdDispatch>::Taking(new TestRowsObject(data, false));
}

int TestRows::Alive() {
  return alive;
}

std::shared_ptr<TestData> NamedRows(const std::vector<std::string>& names) {
  auto data = std::make_shared<TestData>();
  for (const std::string& name : names) {
    data->rows.push_back({{"FInterID", Number(7)}, {"FName", Text(name)}});
  }
  return data;
}

std::shared_ptr<TestData> OneValue(const std::string& column, TestValue value) {
  auto data = std::make_shared<TestData>();
  data->rows.push_back({{"FInterID", Number(7)}, {column, std::move(value)}});
  return data;
}

TestValue Text(const std::string& text) {
  return [text] { return TdTextVariant(text.c_str()); };
}

TestValue Number(std::int32_t number) {
  return [number] { return TdIntegerVariant(number); };
}

}  // namespace td
