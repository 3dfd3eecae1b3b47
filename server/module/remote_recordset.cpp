#include "module/remote_recordset.h"

#include <memory>
#include <utility>

#include "module/column_values.h"
#include "module/direct_recordset.h"
#include "module/remote_calls.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

// How a program asks for a value: it can't tell a property from a method.
constexpr std::uint16_t kForValue = TD_CALL_GET | TD_CALL_METHOD;

// An object that is called by name. Its members are looked up once, when they are first needed.
class RemoteRecordset final : public Recordset {
 public:
  explicit RemoteRecordset(Reference<TdDispatch> object) : object_(std::move(object)) {}

  bool Eof() override { return ToFlag(ValueOf(*eof_.Call(Object(), kForValue))); }

  const Value& Field(std::string_view column) override {
    OwnedVariant name(VariantOf(std::string(column)));
    OwnedVariant field = fields_.Call(Object(), kForValue, &*name);
    const Reference<TdDispatch> object = ObjectOf(*field);
    if (object.Get() == nullptr) {
      throw Failure(kObjectNotSet, "数据对象的“Fields”没有返回对象。");
    }
    // The fields of one record set need not be of one class.
    RemoteMember value("Value");
    return values_.Put(column, ValueOf(*value.Call(object.Get(), kForValue)));
  }

  void MoveNext() override { Move(moveNext_); }
  void MoveFirst() override { Move(moveFirst_); }

  void Close() override {
    (void)Object();
    object_ = {};
  }

  RecordsetRef Clone() override {
    OwnedVariant clone = clone_.Call(Object(), kForValue);
    Reference<TdDispatch> object = ObjectOf(*clone);
    if (object.Get() == nullptr) {
      throw Failure(kObjectNotSet, "数据对象的“Clone”没有返回对象。");
    }
    return RecordsetOf(std::move(object));
  }

 private:
  TdDispatch* Object() const {
    if (object_.Get() == nullptr) throw ClosedFailure();
    return object_.Get();
  }

  void Move(RemoteMember& member) {
    values_.Clear();
    (void)member.Call(Object(), TD_CALL_METHOD);
  }

  Reference<TdDispatch> object_;  // empty: closed
  RemoteMember eof_{"EOF"};
  RemoteMember fields_{"Fields"};
  RemoteMember moveNext_{"MoveNext"};
  RemoteMember moveFirst_{"MoveFirst"};
  RemoteMember clone_{"Clone"};
  ColumnValues values_;
};

}  // namespace

RecordsetRef RecordsetOf(Reference<TdDispatch> object) {
  if (object.Get() == nullptr) return nullptr;
  auto direct = InterfaceOf<TdRecordset>(object.Get(), kTdRecordsetId);
  if (direct.Get() != nullptr) return NewDirectRecordset(std::move(direct));
  return std::make_shared<RemoteRecordset>(std::move(object));
}

}  // namespace td
