#include <cstdint>
#include <cstring>

#include "client/client.h"
#include "client/variant_memory.h"

namespace {

TdVariant VariantOf(std::uint16_t type) {
  TdVariant variant;
  std::memset(&variant, 0, sizeof variant);
  variant.type = type;
  return variant;
}

}  // namespace

TdVariant TdEmptyVariant() {
  return VariantOf(TD_EMPTY);
}

TdVariant TdNullVariant() {
  return VariantOf(TD_NULL);
}

TdVariant TdLeftOutVariant() {
  TdVariant variant = VariantOf(TD_ERROR);
  variant.value.error = TD_PARAMETER_NOT_FOUND;
  return variant;
}

TdVariant TdFlagVariant(int flag) {
  TdVariant variant = VariantOf(TD_BOOLEAN);
  variant.value.flag = flag != 0 ? TD_TRUE_FLAG : TD_FALSE_FLAG;
  return variant;
}

TdVariant TdIntegerVariant(std::int32_t number) {
  TdVariant variant = VariantOf(TD_INT32);
  variant.value.integer32 = number;
  return variant;
}

TdVariant TdNumberVariant(double number) {
  TdVariant variant = VariantOf(TD_DOUBLE);
  variant.value.real64 = number;
  return variant;
}

TdVariant TdDateVariant(double daysSince30December1899) {
  TdVariant variant = VariantOf(TD_DATE);
  variant.value.real64 = daysSince30December1899;
  return variant;
}

TdVariant TdTextVariant(const char* utf8) {
  TdVariant variant = VariantOf(TD_STRING);
  variant.value.string = TdMakeString(utf8);
  return variant;
}

TdVariant TdBytesVariant(const void* bytes, std::uint32_t count) {
  TdVariant variant = VariantOf(TD_BYTES);
  variant.value.array = td::MakeArray(bytes, count);
  return variant;
}

TdVariant TdDispatchVariant(TdDispatch* object) {
  TdVariant variant = VariantOf(TD_DISPATCH);
  variant.value.dispatch = object;
  if (object != nullptr) object->table->AddRef(object);
  return variant;
}

void TdClearException(TdExceptionInfo* info) {
  if (info == nullptr) return;
  TdFreeString(info->source);
  TdFreeString(info->description);
  TdFreeString(info->helpFile);
  std::memset(info, 0, sizeof *info);
}
