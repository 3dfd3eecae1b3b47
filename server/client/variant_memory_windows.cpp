// Arrays and variants of the system's automation, which knows more kinds than the component makes.
#include <cstring>

#include "client/client.h"
#include "client/variant_memory.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <oleauto.h>

static_assert(sizeof(TdVariant) == sizeof(VARIANT) && sizeof(TdArray) == sizeof(SAFEARRAY) &&
                  sizeof(TdExceptionInfo) == sizeof(EXCEPINFO) &&
                  sizeof(TdArguments) == sizeof(DISPPARAMS),
              "the structures are the system's own");

TdArray* td::MakeArray(const void* bytes, std::uint32_t count) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, count);
  if (array != nullptr && count > 0) std::memcpy(array->pvData, bytes, count);
  return reinterpret_cast<TdArray*>(array);
}

void TdClearVariant(TdVariant* variant) {
  if (variant == nullptr) return;
  VariantClear(reinterpret_cast<VARIANT*>(variant));
  *variant = TdEmptyVariant();
}
