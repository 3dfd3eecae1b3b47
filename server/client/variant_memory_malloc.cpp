// Arrays in blocks of the C library.
#include <cstdlib>
#include <cstring>

#include "client/client.h"
#include "client/variant_memory.h"

namespace {

void FreeArray(TdArray* array) {
  if (array == nullptr) return;
  std::free(array->data);
  std::free(array);
}

}  // namespace

TdArray* td::MakeArray(const void* bytes, std::uint32_t count) {
  auto* array = static_cast<TdArray*>(std::calloc(1, sizeof(TdArray)));
  void* data = std::malloc(count == 0 ? 1 : count);
  if (array == nullptr || data == nullptr) {
    std::free(array);
    std::free(data);
    return nullptr;
  }
  if (count > 0) std::memcpy(data, bytes, count);
  array->dimensions = 1;
  array->elementSize = 1;
  array->data = data;
  array->bounds[0].count = count;
  return array;
}

void TdClearVariant(TdVariant* variant) {
  if (variant == nullptr) return;
  switch (variant->type) {
    case TD_STRING:
      TdFreeString(variant->value.string);
      break;
    case TD_DISPATCH:
      if (TdDispatch* object = variant->value.dispatch) object->table->Release(object);
      break;
    case TD_OBJECT:
      if (TdObject* object = variant->value.object) object->table->Release(object);
      break;
    case TD_BYTES:
      FreeArray(variant->value.array);
      break;
    default:
      break;
  }
  *variant = TdEmptyVariant();
}
