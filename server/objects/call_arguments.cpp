#include "objects/call_arguments.h"

#include "objects/failures.h"
#include "objects/variant_values.h"
#include "platform/failure.h"
#include "text/conversions.h"

namespace td {
namespace {

// Some callers hand over each argument as a reference to a variable of theirs, also where the
// variable tells that there is none.
bool IsLeftOut(const TdVariant& variant) {
  const bool isVariable = variant.type == (TD_VARIANT | TD_BY_REFERENCE);
  const auto* told = isVariable ? static_cast<const TdVariant*>(variant.value.reference) : &variant;
  return told != nullptr && told->type == TD_ERROR && told->value.error == TD_PARAMETER_NOT_FOUND;
}

}  // namespace

CallArguments::CallArguments(const Member& member, const TdArguments* given)
    : arguments_(member.arguments.size()) {
  const std::uint32_t count = given == nullptr ? 0 : given->count;
  const std::uint32_t named = given == nullptr ? 0 : given->nameCount;
  if (count > arguments_.size() || named > count || count < member.required) {
    throw CallFailure(TD_BAD_ARGUMENT_COUNT);
  }
  if (count > 0 && (given->arguments == nullptr || (named > 0 && given->names == nullptr))) {
    throw CallFailure(TD_BAD_POINTER);
  }
  for (std::uint32_t place = named; place < count; ++place) {
    Put(count - 1 - place, given->arguments[place], place);
  }
  for (std::uint32_t place = 0; place < named; ++place) {
    const std::int32_t name = given->names[place];
    const auto position = static_cast<std::size_t>(
        name == TD_MEMBER_PUT ? static_cast<std::int32_t>(arguments_.size()) - 1 : name);
    if (position >= arguments_.size() || arguments_[position].variant != nullptr) {
      throw CallFailure(TD_PARAMETER_NOT_FOUND, place);
    }
    Put(position, given->arguments[place], place);
  }
  for (std::size_t position = 0; position < member.required; ++position) {
    if (arguments_[position].variant == nullptr) {
      throw CallFailure(TD_ARGUMENT_NOT_OPTIONAL, arguments_[position].place);
    }
  }
}

void CallArguments::Put(std::size_t position, const TdVariant& variant, std::uint32_t place) {
  arguments_[position] = {IsLeftOut(variant) ? nullptr : &variant, place};
}

TdVariant CallArguments::VariantAt(std::size_t position) const {
  const Argument& argument = arguments_[position];
  return argument.variant == nullptr ? TdEmptyVariant() : WithoutReference(*argument.variant);
}

template <class Conversion>
auto CallArguments::Converted(std::size_t position, Conversion conversion) const {
  try {
    return conversion(VariantAt(position));
  } catch (const Failure& failure) {
    throw CallFailure(failure.Number() == kOverflow ? TD_VALUE_OVERFLOW : TD_TYPE_MISMATCH,
                      arguments_[position].place);
  }
}

bool CallArguments::Flag(std::size_t position) const {
  return Converted(position, [](const TdVariant& variant) {
    return variant.type != TD_EMPTY && ToFlag(ValueOf(variant));
  });
}

std::int16_t CallArguments::Integer16(std::size_t position) const {
  return Converted(position, [](const TdVariant& variant) {
    return variant.type == TD_EMPTY ? std::int16_t{0} : ToInteger16(ValueOf(variant));
  });
}

std::int32_t CallArguments::Integer32(std::size_t position) const {
  return Converted(position, [](const TdVariant& variant) {
    return variant.type == TD_EMPTY ? std::int32_t{0} : ToInteger32(ValueOf(variant));
  });
}

double CallArguments::Real(std::size_t position) const {
  return Converted(position, [](const TdVariant& variant) {
    return variant.type == TD_EMPTY ? 0.0 : ToDouble(ValueOf(variant));
  });
}

std::string CallArguments::Text(std::size_t position) const {
  return Converted(position, [](const TdVariant& variant) {
    return variant.type == TD_EMPTY ? std::string() : ToLoneText(ValueOf(variant));
  });
}

Reference<TdDispatch> CallArguments::Object(std::size_t position) const {
  return Converted(position, ObjectOf);
}

}  // namespace td
