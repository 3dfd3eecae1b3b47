#include "recordsets/recordset_object.h"

#include <utility>

#include "objects/dispatch_object.h"
#include "objects/variant_values.h"
#include "recordsets/field_object.h"

namespace td {
namespace {

enum MemberId : std::int32_t { kEof = 1, kFields, kMoveNext, kMoveFirst, kClone, kClose };

class RecordsetObject final : public DispatchObject<RecordsetObject, TdRecordset> {
 public:
  explicit RecordsetObject(RecordsetRef rows) : DispatchObject(&kTable), rows_(std::move(rows)) {}

  static bool Has(const TdGuid& id) {
    return SameGuid(id, kTdDispatchId) || SameGuid(id, kTdRecordsetId);
  }
  static void Enter() {}
  static const Members& AllMembers();

  void Call(std::int32_t member, const CallArguments& arguments, TdVariant& result);

  // The object through the interface by which it is called by name.
  TdDispatch* Dispatch() { return reinterpret_cast<TdDispatch*>(static_cast<TdRecordset*>(this)); }

 private:
  static TdResult TD_CALL AtEnd(TdRecordset* self, TdFlag* atEnd);
  static TdResult TD_CALL FieldValue(TdRecordset* self, TdString column, TdVariant* value);
  static TdResult TD_CALL MoveNext(TdRecordset* self);
  static TdResult TD_CALL MoveFirst(TdRecordset* self);
  static TdResult TD_CALL Clone(TdRecordset* self, TdRecordset** clone);

  static const TdRecordsetTable kTable;

  RecordsetRef rows_;
};

const TdRecordsetTable RecordsetObject::kTable = {
    QueryInterface, AddRef, Release,    GetTypeInfoCount, GetTypeInfo, GetIDsOfNames,
    Invoke,         AtEnd,  FieldValue, MoveNext,         MoveFirst,   Clone};

const Members& RecordsetObject::AllMembers() {
  static const Members members = {{"EOF", kEof, TD_CALL_GET, {}},
                                  {"Fields", kFields, TD_CALL_GET | TD_CALL_METHOD, {"Index"}, 1},
                                  {"MoveNext", kMoveNext, TD_CALL_METHOD, {}},
                                  {"MoveFirst", kMoveFirst, TD_CALL_METHOD, {}},
                                  {"Clone", kClone, TD_CALL_METHOD, {"LockType"}},
                                  {"Close", kClose, TD_CALL_METHOD, {}}};
  return members;
}

void RecordsetObject::Call(std::int32_t member, const CallArguments& arguments, TdVariant& result) {
  switch (member) {
    case kEof:
      result = TdFlagVariant(rows_->Eof() ? 1 : 0);
      break;
    case kFields:
      result.value.dispatch = NewFieldObject(rows_, arguments.Text(0));
      result.type = TD_DISPATCH;
      break;
    case kMoveNext:
      rows_->MoveNext();
      break;
    case kMoveFirst:
      rows_->MoveFirst();
      break;
    case kClone:
      result.value.dispatch = NewRecordsetObject(rows_->Clone());
      result.type = TD_DISPATCH;
      break;
    default:
      rows_->Close();
  }
}

TdResult RecordsetObject::AtEnd(TdRecordset* self, TdFlag* atEnd) {
  if (atEnd == nullptr) return TD_BAD_POINTER;
  return Run(self, [atEnd](RecordsetObject& object) {
    *atEnd = object.rows_->Eof() ? TD_TRUE_FLAG : TD_FALSE_FLAG;
  });
}

TdResult RecordsetObject::FieldValue(TdRecordset* self, TdString column, TdVariant* value) {
  if (value == nullptr) return TD_BAD_POINTER;
  return Run(self, [column, value](RecordsetObject& object) {
    *value = VariantOf(object.rows_->Field(TextOf(column)));
  });
}

TdResult RecordsetObject::MoveNext(TdRecordset* self) {
  return Run(self, [](RecordsetObject& object) { object.rows_->MoveNext(); });
}

TdResult RecordsetObject::MoveFirst(TdRecordset* self) {
  return Run(self, [](RecordsetObject& object) { object.rows_->MoveFirst(); });
}

TdResult RecordsetObject::Clone(TdRecordset* self, TdRecordset** clone) {
  if (clone == nullptr) return TD_BAD_POINTER;
  *clone = nullptr;
  return Run(self, [clone](RecordsetObject& object) {
    *clone = new RecordsetObject(object.rows_->Clone());
  });
}

}  // namespace

TdDispatch* NewRecordsetObject(RecordsetRef rows) {
  return (new RecordsetObject(std::move(rows)))->Dispatch();
}

}  // namespace td
