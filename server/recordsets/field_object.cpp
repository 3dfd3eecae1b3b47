#include "recordsets/field_object.h"

#include <utility>

#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "platform/failure.h"

namespace td {
namespace {

enum MemberId : std::int32_t { kValue = TD_MEMBER_VALUE, kName = 1 };

class FieldObject final : public DispatchObject<FieldObject, TdDispatch> {
 public:
  FieldObject(RecordsetRef rows, std::string column)
      : DispatchObject(&kTable), rows_(std::move(rows)), column_(std::move(column)) {}

  static bool Has(const TdGuid& id) { return SameGuid(id, kTdDispatchId); }
  static void Enter() {}
  static const Members& AllMembers() {
    static const Members members = {{"Value", kValue, TD_CALL_GET, {}},
                                    {"Name", kName, TD_CALL_GET, {}}};
    return members;
  }

  void Call(std::int32_t member, const CallArguments& /*arguments*/, TdVariant& result) {
    result = VariantOf(member == kValue ? rows_->Field(column_) : Value(column_));
  }

 private:
  static const TdDispatchTable kTable;

  RecordsetRef rows_;
  std::string column_;
};

const TdDispatchTable FieldObject::kTable = {
    QueryInterface, AddRef, Release, GetTypeInfoCount, GetTypeInfo, GetIDsOfNames, Invoke};

// At the end of the rows a column still is one.
void CheckColumn(Recordset& rows, const std::string& column) {
  try {
    (void)rows.Field(column);
  } catch (const Failure& failure) {
    if (failure.Number() != kNoCurrentRow) throw;
  }
}

}  // namespace

TdDispatch* NewFieldObject(const RecordsetRef& rows, const std::string& column) {
  CheckColumn(*rows, column);
  return new FieldObject(rows, column);
}

}  // namespace td
