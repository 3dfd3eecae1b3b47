// Arrays and variants of the system's automation, which knows more kinds than the component makes.
#include <cstddef>
#include <cstring>

#include "client/client.h"
#include "client/variant_memory.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <oleauto.h>

// The structures are the system's own, in 32 and in 64 bits.
#define SAME_SIZE(Type, System) static_assert(sizeof(Type) == sizeof(System))
#define SAME_PLACE(Type, member, System, its) \
  static_assert(offsetof(Type, member) == offsetof(System, its))
SAME_SIZE(TdVariant, VARIANT);
SAME_PLACE(TdVariant, type, VARIANT, vt);
SAME_PLACE(TdVariant, decimalScale, VARIANT, decVal.scale);
SAME_PLACE(TdVariant, decimalSign, VARIANT, decVal.sign);
SAME_PLACE(TdVariant, decimalHigh, VARIANT, decVal.Hi32);
SAME_PLACE(TdVariant, value, VARIANT, llVal);
SAME_PLACE(TdVariant, value, VARIANT, decVal.Lo64);
SAME_SIZE(TdArray, SAFEARRAY);
SAME_PLACE(TdArray, dimensions, SAFEARRAY, cDims);
SAME_PLACE(TdArray, features, SAFEARRAY, fFeatures);
SAME_PLACE(TdArray, elementSize, SAFEARRAY, cbElements);
SAME_PLACE(TdArray, locks, SAFEARRAY, cLocks);
SAME_PLACE(TdArray, data, SAFEARRAY, pvData);
SAME_PLACE(TdArray, bounds, SAFEARRAY, rgsabound);
SAME_SIZE(TdArrayBound, SAFEARRAYBOUND);
SAME_PLACE(TdArrayBound, count, SAFEARRAYBOUND, cElements);
SAME_PLACE(TdArrayBound, lowest, SAFEARRAYBOUND, lLbound);
SAME_SIZE(TdArguments, DISPPARAMS);
SAME_PLACE(TdArguments, arguments, DISPPARAMS, rgvarg);
SAME_PLACE(TdArguments, names, DISPPARAMS, rgdispidNamedArgs);
SAME_PLACE(TdArguments, count, DISPPARAMS, cArgs);
SAME_PLACE(TdArguments, nameCount, DISPPARAMS, cNamedArgs);
SAME_SIZE(TdExceptionInfo, EXCEPINFO);
SAME_PLACE(TdExceptionInfo, code, EXCEPINFO, wCode);
SAME_PLACE(TdExceptionInfo, source, EXCEPINFO, bstrSource);
SAME_PLACE(TdExceptionInfo, description, EXCEPINFO, bstrDescription);
SAME_PLACE(TdExceptionInfo, helpFile, EXCEPINFO, bstrHelpFile);
SAME_PLACE(TdExceptionInfo, helpContext, EXCEPINFO, dwHelpContext);
SAME_PLACE(TdExceptionInfo, reservedPointer, EXCEPINFO, pvReserved);
SAME_PLACE(TdExceptionInfo, fillLater, EXCEPINFO, pfnDeferredFillIn);
SAME_PLACE(TdExceptionInfo, result, EXCEPINFO, scode);
#undef SAME_PLACE
#undef SAME_SIZE

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
