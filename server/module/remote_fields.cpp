#include "module/remote_fields.h"

#include "objects/variant_values.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"

namespace td {
namespace {

Reference<TdDispatch> ObjectIn(OwnedVariant answer) {
  Reference<TdDispatch> object = ObjectOf(*answer);
  if (object.Get() == nullptr) {
    throw Failure(kObjectNotSet, "数据对象的“Fields”没有返回对象。");
  }
  return object;
}

// The record set has understood what it was asked for.
bool IsOfTheColumn(const Failure& failure) {
  return failure.Number() == kNoSuchColumn || failure.Number() == kInvalidUseOfNull ||
         failure.Number() == kNoCurrentRow || IsLockConflict(failure);
}

}  // namespace

Reference<TdDispatch> RemoteFields::Find(TdDispatch* rows, std::string_view column) {
  if (way_) return FindBy(*way_, rows, column);
  std::optional<Failure> first;
  for (const Way way : {Way::kByName, Way::kInCollection, Way::kByNumber}) {
    try {
      Reference<TdDispatch> field = FindBy(way, rows, column);
      way_ = way;
      return field;
    } catch (const Failure& failure) {
      if (IsOfTheColumn(failure)) throw;
      if (!first) first = failure;
    }
  }
  throw Failure(*first);
}

Reference<TdDispatch> RemoteFields::FindBy(Way way, TdDispatch* rows, std::string_view column) {
  if (way == Way::kByNumber) {
    if (numbers_.empty()) ReadNames(rows);
    const auto found = numbers_.find(LowerCase(column));
    if (found == numbers_.end()) throw NoSuchColumnFailure(column);
    return Item(rows, TdIntegerVariant(found->second));
  }
  OwnedVariant name(VariantOf(std::string(column)));
  if (way == Way::kInCollection) return Item(rows, *name);
  return ObjectIn(fields_.Call(rows, kForValue, &*name));
}

Reference<TdDispatch> RemoteFields::Item(TdDispatch* rows, TdVariant index) {
  const Reference<TdDispatch> collection = ObjectIn(fields_.Call(rows, kForValue));
  RemoteMember item("Item", TD_MEMBER_VALUE);
  return ObjectIn(item.Call(collection.Get(), kForValue, &index));
}

void RemoteFields::ReadNames(TdDispatch* rows) {
  const Reference<TdDispatch> collection = ObjectIn(fields_.Call(rows, kForValue));
  const std::int32_t count =
      ToInteger32(ValueOf(*RemoteMember("Count").Call(collection.Get(), kForValue)));
  std::map<std::string, std::int32_t> numbers;
  for (std::int32_t i = 0; i < count; ++i) {
    const Reference<TdDispatch> field = Item(rows, TdIntegerVariant(i));
    const Value name = ValueOf(*RemoteMember("Name").Call(field.Get(), kForValue));
    numbers.try_emplace(LowerCase(ToText(name)), i);
  }
  numbers_ = std::move(numbers);
}

}  // namespace td
