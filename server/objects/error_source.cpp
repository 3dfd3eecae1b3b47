#include "objects/error_source.h"

#include "objects/failures.h"

namespace td {
namespace {

TdObject* Whole(TdErrorSource* self) {
  return static_cast<ErrorSourcePart*>(self)->whole;
}

TdResult TD_CALL QueryInterface(TdErrorSource* self, const TdGuid* id, void** found) {
  return Whole(self)->table->QueryInterface(Whole(self), id, found);
}

std::uint32_t TD_CALL AddRef(TdErrorSource* self) {
  return Whole(self)->table->AddRef(Whole(self));
}

std::uint32_t TD_CALL Release(TdErrorSource* self) {
  return Whole(self)->table->Release(Whole(self));
}

TdResult TD_CALL LastError(TdErrorSource* /*self*/, TdExceptionInfo* info) {
  return TakeLastError(info);
}

constexpr TdErrorSourceTable kTable = {QueryInterface, AddRef, Release, LastError};

}  // namespace

ErrorSourcePart::ErrorSourcePart(TdObject* object) : TdErrorSource{&kTable}, whole(object) {}

}  // namespace td
