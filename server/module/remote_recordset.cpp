#include "module/remote_recordset.h"

#include <memory>
#include <utility>

#include "module/direct_recordset.h"
#include "module/program_recordset.h"
#include "module/remote_calls.h"
#include "module/remote_fields.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td {
namespace {

// An object that is called by name. Its members are looked up once, when they are first needed.
class RemoteRecordset final : public ProgramRecordset<TdDispatch> {
 public:
  using ProgramRecordset::ProgramRecordset;

  RecordsetRef Clone() override {
    OwnedVariant clone = clone_.Call(Object(), kForValue);
    Reference<TdDispatch> object = ObjectOf(*clone);
    if (object.Get() == nullptr) {
      throw Failure(kObjectNotSet, "数据对象的“Clone”没有返回对象。");
    }
    return RecordsetOf(std::move(object));
  }

 private:
  bool IsAtEnd() override { return ToFlag(ValueOf(*eof_.Call(Object(), kForValue))); }

  Value Read(std::string_view column) override {
    const Reference<TdDispatch> field = fields_.Find(Object(), column);
    // The fields of one record set need not be of one class.
    RemoteMember value("Value");
    return ValueOf(*value.Call(field.Get(), kForValue));
  }

  void GoToNext() override { (void)moveNext_.Call(Object(), TD_CALL_METHOD); }
  void GoToFirst() override { (void)moveFirst_.Call(Object(), TD_CALL_METHOD); }

  RemoteMember eof_{"EOF"};
  RemoteFields fields_;
  RemoteMember moveNext_{"MoveNext"};
  RemoteMember moveFirst_{"MoveFirst"};
  RemoteMember clone_{"Clone"};
};

}  // namespace

RecordsetRef RecordsetOf(Reference<TdDispatch> object) {
  if (object.Get() == nullptr) return nullptr;
  auto direct = InterfaceOf<TdRecordset>(object.Get(), kTdRecordsetId);
  if (direct.Get() != nullptr) return NewDirectRecordset(std::move(direct));
  return std::make_shared<RemoteRecordset>(std::move(object));
}

}  // namespace td
