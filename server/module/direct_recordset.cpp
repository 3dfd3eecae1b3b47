#include "module/direct_recordset.h"

#include <memory>
#include <utility>

#include "module/program_recordset.h"
#include "module/remote_failures.h"
#include "objects/variant_values.h"
#include "platform/failure.h"

namespace td {
namespace {

class DirectRecordset final : public ProgramRecordset<TdRecordset> {
 public:
  using ProgramRecordset::ProgramRecordset;

  RecordsetRef Clone() override {
    TdRecordset* clone = nullptr;
    Check(Object()->table->Clone(Object(), &clone), "Clone");
    if (clone == nullptr) throw Failure(kObjectNotSet, "数据对象的“Clone”没有返回对象。");
    return NewDirectRecordset(Reference<TdRecordset>::Taking(clone));
  }

 private:
  bool IsAtEnd() override {
    TdFlag atEnd = TD_TRUE_FLAG;
    Check(Object()->table->AtEnd(Object(), &atEnd), "EOF");
    return atEnd != TD_FALSE_FLAG;
  }

  Value Read(std::string_view column) override {
    const OwnedString name(StringOf(std::string(column)));
    OwnedVariant value;
    Check(Object()->table->FieldValue(Object(), name.Get(), &*value), "Value");
    return ValueOf(*value);
  }

  void GoToNext() override { Check(Object()->table->MoveNext(Object()), "MoveNext"); }
  void GoToFirst() override { Check(Object()->table->MoveFirst(Object()), "MoveFirst"); }

  void Check(TdResult result, const char* member) const {
    if (TD_FAILED(result)) throw FailureOfDirectCall(result, Object(), member);
  }
};

}  // namespace

RecordsetRef NewDirectRecordset(Reference<TdRecordset> object) {
  return std::make_shared<DirectRecordset>(std::move(object));
}

}  // namespace td
