// The arguments of a call by name, put in order and converted as late binding converts them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "objects/members.h"
#include "objects/owned.h"
#include "platform/value.h"

namespace td {

// Borrows the caller's arguments. All failures are CallFailure: TD_BAD_ARGUMENT_COUNT,
// TD_PARAMETER_NOT_FOUND for a name that the member hasn't got, and, with the argument's place,
// TD_TYPE_MISMATCH, TD_VALUE_OVERFLOW and TD_ARGUMENT_NOT_OPTIONAL.
class CallArguments {
 public:
  // `given` may be null.
  CallArguments(const Member& member, const TdArguments* given);

  // By position. Empty converts to false, 0 and the empty text, as does an optional argument that
  // was left out; Null converts to nothing. Text that says a number or a flag converts to it.
  [[nodiscard]] bool Flag(std::size_t position) const;
  [[nodiscard]] std::int16_t Integer16(std::size_t position) const;
  [[nodiscard]] std::int32_t Integer32(std::size_t position) const;
  [[nodiscard]] double Real(std::size_t position) const;
  [[nodiscard]] std::string Text(std::size_t position) const;

  // Empty for Empty, Null and an object variable that is set to nothing.
  [[nodiscard]] Reference<TdDispatch> Object(std::size_t position) const;

 private:
  struct Argument {
    const TdVariant* variant = nullptr;  // null: left out
    std::uint32_t place = 0;             // in the caller's array
  };

  void Put(std::size_t position, const TdVariant& variant, std::uint32_t place);
  [[nodiscard]] TdVariant VariantAt(std::size_t position) const;
  // Runs a conversion of the value at a position.
  template <class Conversion>
  [[nodiscard]] auto Converted(std::size_t position, Conversion conversion) const;

  std::vector<Argument> arguments_;  // in their order
};

}  // namespace td
