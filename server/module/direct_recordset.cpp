#include "module/direct_recordset.h"

#include <memory>
#include <utility>

#include "module/column_values.h"
#include "module/remote_failures.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "platform/standard_failures.h"

namespace td {
namespace {

class DirectRecordset final : public Recordset {
 public:
  explicit DirectRecordset(Reference<TdRecordset> object) : object_(std::move(object)) {}

  bool Eof() override {
    TdFlag atEnd = TD_TRUE_FLAG;
    Check(Object()->table->AtEnd(Object(), &atEnd), "EOF");
    return atEnd != TD_FALSE_FLAG;
  }

  const Value& Field(std::string_view column) override {
    const OwnedString name(StringOf(std::string(column)));
    OwnedVariant value;
    Check(Object()->table->FieldValue(Object(), name.Get(), &*value), "Value");
    return values_.Put(column, ValueOf(*value));
  }

  void MoveNext() override {
    values_.Clear();
    Check(Object()->table->MoveNext(Object()), "MoveNext");
  }

  void MoveFirst() override {
    values_.Clear();
    Check(Object()->table->MoveFirst(Object()), "MoveFirst");
  }

  void Close() override {
    (void)Object();
    object_ = {};
  }

  RecordsetRef Clone() override {
    TdRecordset* clone = nullptr;
    Check(Object()->table->Clone(Object(), &clone), "Clone");
    if (clone == nullptr) throw Failure(kObjectNotSet, "数据对象的“Clone”没有返回对象。");
    return NewDirectRecordset(Reference<TdRecordset>::Taking(clone));
  }

 private:
  TdRecordset* Object() const {
    if (object_.Get() == nullptr) throw ClosedFailure();
    return object_.Get();
  }

  void Check(TdResult result, const char* member) const {
    if (TD_FAILED(result)) throw FailureOfDirectCall(result, object_.Get(), member);
  }

  Reference<TdRecordset> object_;  // empty: closed
  ColumnValues values_;
};

}  // namespace

RecordsetRef NewDirectRecordset(Reference<TdRecordset> object) {
  return std::make_shared<DirectRecordset>(std::move(object));
}

}  // namespace td
