// An object that answers calls by name.
#pragma once

#include <cstdint>

#include "objects/call_arguments.h"
#include "objects/counted_object.h"
#include "objects/members.h"
#include "objects/type_info.h"

namespace td {

// The base of a class whose interface begins as TdDispatch does. Beside what CountedObject asks
// for, `Object` has
//   static const Members& AllMembers()
//   void Call(std::int32_t member, const CallArguments&, TdVariant& result)   result: empty
template <class Object, class Interface>
class DispatchObject : public CountedObject<Object, Interface> {
  using Base = CountedObject<Object, Interface>;

 protected:
  using Base::Base;
  ~DispatchObject() = default;

  // That of the type library, if the class has one.
  static const TdGuid& OwnInterface() { return kTdNoId; }

  static TdResult TD_CALL GetTypeInfoCount(Interface* /*self*/, std::uint32_t* count) {
    if (count == nullptr) return TD_BAD_POINTER;
    *count = TypeInfoCountOf(Object::OwnInterface());
    return TD_OK;
  }

  static TdResult TD_CALL GetTypeInfo(Interface* /*self*/, std::uint32_t index,
                                      std::uint32_t /*language*/, void** info) {
    return TypeInfoOf(Object::OwnInterface(), index, info);
  }

  static TdResult TD_CALL GetIDsOfNames(Interface* /*self*/, const TdGuid* reserved,
                                        const TdUnit* const* names, std::uint32_t count,
                                        std::uint32_t /*language*/, std::int32_t* ids) {
    if (count > 0 && (names == nullptr || ids == nullptr)) return TD_BAD_POINTER;
    if (!IsZero(reserved)) return TD_UNKNOWN_INTERFACE;
    try {
      return FindIds(Object::AllMembers(), names, count, ids);
    } catch (...) {
      return EndDirectCall();
    }
  }

  static TdResult TD_CALL Invoke(Interface* self, std::int32_t member, const TdGuid* reserved,
                                 std::uint32_t /*language*/, std::uint16_t kind,
                                 TdArguments* arguments, TdVariant* result, TdExceptionInfo* info,
                                 std::uint32_t* badArgument) {
    if (!IsZero(reserved)) return TD_UNKNOWN_INTERFACE;
    if (result != nullptr) *result = TdEmptyVariant();
    if (info != nullptr) *info = {};
    Base::AddRef(self);
    const TdResult outcome = [&] {
      try {
        Object::Enter();
        const Member& found = FindMember(Object::AllMembers(), member, kind);
        OwnedVariant value;
        Base::Of(self).Call(member, CallArguments(found, arguments), *value);
        if (result != nullptr) *result = value.Take();
        return TD_OK;
      } catch (...) {
        return EndCallByName(info, badArgument);
      }
    }();
    Base::Release(self);
    return outcome;
  }

 private:
  static bool IsZero(const TdGuid* reserved) {
    return reserved == nullptr || SameGuid(*reserved, TdGuid{});
  }
};

}  // namespace td
