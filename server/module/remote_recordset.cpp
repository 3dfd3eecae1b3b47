#include "module/remote_recordset.h"

#include <memory>
#include <utility>

#include "module/direct_recordset.h"
#include "module/program_recordset.h"
#include "module/remote_calls.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td {
namespace {

// How a program asks for a value: it can't tell a property from a method.
constexpr std::uint16_t kForValue = TD_CALL_GET | TD_CALL_METHOD;

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
    OwnedVariant name(VariantOf(std::string(column)));
    OwnedVariant field = fields_.Call(Object(), kForValue, &*name);
    const Reference<TdDispatch> object = ObjectOf(*field);
    if (object.Get() == nullptr) {
      throw Failure(kObjectNotSet, "数据对象的“Fields”没有返回对象。");
    }
    // The fields of one record set need not be of one class.
    RemoteMember value("Value");
    return ValueOf(*value.Call(object.Get(), kForValue));
  }

  void GoToNext() override { (void)moveNext_.Call(Object(), TD_CALL_METHOD); }
  void GoToFirst() override { (void)moveFirst_.Call(Object(), TD_CALL_METHOD); }

  RemoteMember eof_{"EOF"};
  RemoteMember fields_{"Fields"};
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
