#include "client/registration.h"
#include "objects/type_info.h"
#include "windows/api/modules.h"

// Behind the system's other headers.
#include <oleauto.h>

namespace td {
namespace {

// It lies in the module.
HRESULT LoadOwnLibrary(ITypeLib** library) {
  return LoadTypeLibEx(FileOf(OwnModule()).c_str(), REGKIND_NONE, library);
}

}  // namespace

std::uint32_t TypeInfoCountOf(const TdGuid& interfaceId) {
  return SameGuid(interfaceId, kTdNoId) ? 0 : 1;
}

TdResult TypeInfoOf(const TdGuid& interfaceId, std::uint32_t index, void** info) {
  if (info == nullptr) return TD_BAD_POINTER;
  *info = nullptr;
  if (TypeInfoCountOf(interfaceId) == 0) return TD_NOT_IMPLEMENTED;
  if (index != 0) return DISP_E_BADINDEX;
  ITypeLib* library = nullptr;
  const HRESULT loaded = LoadOwnLibrary(&library);
  if (FAILED(loaded)) return loaded;
  const HRESULT found = library->GetTypeInfoOfGuid(reinterpret_cast<const GUID&>(interfaceId),
                                                   reinterpret_cast<ITypeInfo**>(info));
  library->Release();
  return found;
}

}  // namespace td
