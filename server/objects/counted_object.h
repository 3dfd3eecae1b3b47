// What every object of the binary interface has: a count of its references, and its interfaces.
#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

#include "client/registration.h"
#include "interface/binary_interface.h"
#include "objects/error_source.h"
#include "objects/failures.h"
#include "objects/system_errors.h"

namespace td {

// The base of the class `Object`, whose own interface is `Interface`. It is made with new, holds
// one reference then, and deletes itself when the last one is given back. `Object` has
//   static bool Has(const TdGuid&)   the interfaces beside TdObject and those of errors
//   static void Enter()              throws if the calling thread may not call the object
template <class Object, class Interface>
class CountedObject : public Interface {
 public:
  CountedObject(const CountedObject&) = delete;
  CountedObject& operator=(const CountedObject&) = delete;

 protected:
  template <class Table>
  explicit CountedObject(const Table* table)
      : Interface{table}, errors_(Whole()), systemErrors_(Whole()) {}
  ~CountedObject() = default;

  static Object& Of(Interface* self) { return *static_cast<Object*>(self); }

  static TdResult TD_CALL QueryInterface(Interface* self, const TdGuid* id, void** found) {
    if (found == nullptr) return TD_BAD_POINTER;
    *found = nullptr;
    if (id == nullptr) return TD_BAD_POINTER;
    if (SameGuid(*id, kTdErrorSourceId)) {
      *found = static_cast<TdErrorSource*>(&Of(self).errors_);
    } else if (SystemErrorsPart::Is(*id)) {
      *found = &Of(self).systemErrors_;
    } else if (SameGuid(*id, kTdObjectId) || Object::Has(*id)) {
      *found = self;
    } else {
      return TD_NO_INTERFACE;
    }
    AddRef(self);
    return TD_OK;
  }

  static std::uint32_t TD_CALL AddRef(Interface* self) { return ++Of(self).references_; }

  static std::uint32_t TD_CALL Release(Interface* self) {
    const std::uint32_t left = --Of(self).references_;
    if (left == 0) delete &Of(self);
    return left;
  }

  // Runs a direct operation: keeps the object alive for its length, and lets no exception out.
  template <class Operation>
  static TdResult Run(Interface* self, Operation operation) noexcept {
    AddRef(self);
    const TdResult result = RunKept(self, std::move(operation));
    Release(self);
    return result;
  }

 private:
  TdObject* Whole() { return reinterpret_cast<TdObject*>(static_cast<Interface*>(this)); }

  template <class Operation>
  static TdResult RunKept(Interface* self, Operation operation) noexcept {
    try {
      Object::Enter();
      operation(Of(self));
      return TD_OK;
    } catch (...) {
      return EndDirectCall();
    }
  }

  std::atomic<std::uint32_t> references_{1};
  ErrorSourcePart errors_;
  SystemErrorsPart systemErrors_;
};

}  // namespace td
