#include "client/registration.h"
#include "objects/system_errors.h"
#include "windows/api/wide_text.h"
#include "windows/api/windows_api.h"

// Behind the system's other headers.
#include <oleauto.h>

namespace td {

struct SystemErrorsTable {
  TD_OBJECT_OPERATIONS(SystemErrorsPart)
  TdResult(TD_CALL* InterfaceSupportsErrorInfo)(SystemErrorsPart* self, const TdGuid* id);
};

namespace {

constexpr TdGuid kSupportErrorInfoId = {
    0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

TdResult TD_CALL QueryInterface(SystemErrorsPart* self, const TdGuid* id, void** found) {
  return self->whole->table->QueryInterface(self->whole, id, found);
}

std::uint32_t TD_CALL AddRef(SystemErrorsPart* self) {
  return self->whole->table->AddRef(self->whole);
}

std::uint32_t TD_CALL Release(SystemErrorsPart* self) {
  return self->whole->table->Release(self->whole);
}

// Those that are called directly: a call by name has a record of its own.
TdResult TD_CALL InterfaceSupportsErrorInfo(SystemErrorsPart* self, const TdGuid* id) {
  if (id == nullptr) return TD_BAD_POINTER;
  if (SameGuid(*id, kTdObjectId) || SameGuid(*id, kTdDispatchId)) return TD_FALSE;
  void* found = nullptr;
  if (TD_FAILED(QueryInterface(self, id, &found))) return TD_FALSE;
  Release(self);
  return TD_OK;
}

constexpr SystemErrorsTable kTable = {QueryInterface, AddRef, Release, InterfaceSupportsErrorInfo};

void PutErrorInfo(const std::string& description) {
  ICreateErrorInfo* made = nullptr;
  if (FAILED(CreateErrorInfo(&made))) return;
  std::wstring words = ToWide(description);
  made->SetDescription(words.data());
  void* info = nullptr;
  if (SUCCEEDED(made->QueryInterface(IID_IErrorInfo, &info))) {
    SetErrorInfo(0, static_cast<IErrorInfo*>(info));
    static_cast<IErrorInfo*>(info)->Release();
  }
  made->Release();
}

}  // namespace

SystemErrorsPart::SystemErrorsPart(TdObject* object) : table(&kTable), whole(object) {}

bool SystemErrorsPart::Is(const TdGuid& id) {
  return SameGuid(id, kSupportErrorInfoId);
}

void PutSystemError(const std::string& description) noexcept {
  SetErrorInfo(0, nullptr);
  if (description.empty()) return;
  try {
    PutErrorInfo(description);
  } catch (const std::bad_alloc&) {
    // The number alone has to do.
  }
}

}  // namespace td
