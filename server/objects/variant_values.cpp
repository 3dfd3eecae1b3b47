#include "objects/variant_values.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "platform/failure.h"
#include "platform/standard_failures.h"
#include "text/conversions.h"
#include "text_encoding/utf16.h"

namespace td {
namespace {

constexpr int kLongestChain = 4;
constexpr double kCurrencyUnit = 10000;
constexpr std::size_t kDecimalSize = 16;

// How many bytes a reference of that type points to; 0 for types that can't be referred to.
std::size_t SizeOfType(int type) {
  switch (type) {
    case TD_INT8:
    case TD_UINT8:
      return 1;
    case TD_INT16:
    case TD_UINT16:
    case TD_BOOLEAN:
      return 2;
    case TD_INT32:
    case TD_UINT32:
    case TD_INT:
    case TD_UINT:
    case TD_FLOAT:
    case TD_ERROR:
      return 4;
    case TD_INT64:
    case TD_UINT64:
    case TD_DOUBLE:
    case TD_DATE:
    case TD_CURRENCY:
      return 8;
    case TD_STRING:
    case TD_DISPATCH:
    case TD_OBJECT:
    case TD_BYTES:
      return sizeof(void*);
    default:
      return 0;
  }
}

TdVariant Referred(int type, const void* place) {
  TdVariant variant = TdEmptyVariant();
  if (type == TD_DECIMAL) {
    std::memcpy(&variant, place, kDecimalSize);
  } else {
    const std::size_t size = SizeOfType(type);
    if (size == 0) throw MismatchFailure();
    std::memcpy(&variant.value, place, size);
  }
  variant.type = static_cast<std::uint16_t>(type);
  return variant;
}

double RealOfDigits(const std::string& digits) {
  double number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Value ValueOfUnsigned(std::uint64_t number) {
  if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return static_cast<double>(number);
  }
  return static_cast<std::int64_t>(number);
}

// 96 bits with a sign, divided by a power of ten.
Value ValueOfDecimal(const TdVariant& decimal) {
  if (decimal.decimalScale > 28) throw MismatchFailure();
  constexpr std::uint64_t kLimb = std::uint64_t{1} << 32U;
  std::array<std::uint64_t, 3> limbs = {decimal.decimalHigh, decimal.value.unsigned64 / kLimb,
                                        decimal.value.unsigned64 % kLimb};
  std::string digits;
  do {
    std::uint64_t rest = 0;
    for (std::uint64_t& limb : limbs) {
      const std::uint64_t dividend = rest * kLimb + limb;
      limb = dividend / 10;
      rest = dividend % 10;
    }
    digits.insert(digits.begin(), static_cast<char>('0' + static_cast<int>(rest)));
  } while (limbs != std::array<std::uint64_t, 3>{});
  if ((decimal.decimalSign & 0x80U) != 0) digits.insert(digits.begin(), '-');
  return RealOfDigits(digits + "e-" + std::to_string(decimal.decimalScale));
}

Value ValueOfArray(const TdArray* array) {
  if (array == nullptr) return Bytes();
  if (array->dimensions != 1 || array->elementSize != 1) throw MismatchFailure();
  const auto* first = static_cast<const std::byte*>(array->data);
  if (first == nullptr) return Bytes();
  return Bytes(first, first + array->bounds[0].count);
}

TdVariant VariantOfInteger(std::int64_t number) {
  const auto narrow = static_cast<std::int32_t>(number);
  if (narrow == number) return TdIntegerVariant(narrow);
  TdVariant variant = TdEmptyVariant();
  variant.type = TD_INT64;
  variant.value.integer64 = number;
  return variant;
}

struct VariantMaker {
  TdVariant operator()(Null) const { return TdNullVariant(); }
  TdVariant operator()(bool flag) const { return TdFlagVariant(flag ? 1 : 0); }
  TdVariant operator()(std::int64_t number) const { return VariantOfInteger(number); }
  TdVariant operator()(double number) const { return TdNumberVariant(number); }
  TdVariant operator()(Date date) const { return TdDateVariant(date.serial); }
  TdVariant operator()(const std::string& text) const {
    TdVariant variant = TdEmptyVariant();
    variant.value.string = StringOf(text);
    variant.type = TD_STRING;
    return variant;
  }
  TdVariant operator()(const Bytes& bytes) const {
    TdVariant variant = TdBytesVariant(bytes.data(), static_cast<std::uint32_t>(bytes.size()));
    if (variant.value.array == nullptr) throw std::bad_alloc();
    return variant;
  }
};

}  // namespace

TdVariant WithoutReference(const TdVariant& variant) {
  TdVariant current = variant;
  for (int step = 0; (current.type & TD_BY_REFERENCE) != 0; ++step) {
    const void* place = current.value.reference;
    if (place == nullptr || step == kLongestChain) throw MismatchFailure();
    const int type = current.type & ~TD_BY_REFERENCE;
    if (type == TD_VARIANT) {
      std::memcpy(&current, place, sizeof current);
    } else {
      current = Referred(type, place);
    }
  }
  return current;
}

Value ValueOf(const TdVariant& original) {
  const TdVariant variant = WithoutReference(original);
  const auto& value = variant.value;
  switch (variant.type) {
    case TD_EMPTY:
    case TD_NULL:
      return Null{};
    case TD_INT8:
      return std::int64_t{value.integer8};
    case TD_INT16:
      return std::int64_t{value.integer16};
    case TD_INT32:
    case TD_INT:
      return std::int64_t{value.integer32};
    case TD_INT64:
      return value.integer64;
    case TD_UINT8:
      return std::int64_t{value.unsigned8};
    case TD_UINT16:
      return std::int64_t{value.unsigned16};
    case TD_UINT32:
    case TD_UINT:
      return std::int64_t{value.unsigned32};
    case TD_UINT64:
      return ValueOfUnsigned(value.unsigned64);
    case TD_FLOAT:
      return WidenSingle(value.real32);
    case TD_DOUBLE:
      return value.real64;
    case TD_CURRENCY:
      return static_cast<double>(value.integer64) / kCurrencyUnit;
    case TD_DECIMAL:
      return ValueOfDecimal(variant);
    case TD_DATE:
      return Date{value.real64};
    case TD_BOOLEAN:
      return value.flag != 0;
    case TD_STRING:
      return TextOf(value.string);
    case TD_BYTES:
      return ValueOfArray(value.array);
    default:
      throw MismatchFailure();
  }
}

Reference<TdDispatch> ObjectOf(const TdVariant& original) {
  const TdVariant variant = WithoutReference(original);
  switch (variant.type) {
    case TD_EMPTY:
    case TD_NULL:
      return {};
    case TD_DISPATCH:
      return Reference<TdDispatch>::To(variant.value.dispatch);
    case TD_OBJECT: {
      auto object = InterfaceOf<TdDispatch>(variant.value.object, kTdDispatchId);
      if (object.Get() == nullptr && variant.value.object != nullptr) throw MismatchFailure();
      return object;
    }
    default:
      throw MismatchFailure();
  }
}

TdVariant VariantOf(const Value& value) {
  return std::visit(VariantMaker(), value);
}

std::string TextOf(TdString string) {
  if (string == nullptr) return {};
  return ToUtf8({string, TdStringLength(string)});
}

TdString StringOf(const std::string& text) {
  const std::u16string units = ToUtf16(text);
  TdString string = TdMakeStringOfUnits(units.data(), static_cast<std::uint32_t>(units.size()));
  if (string == nullptr) throw std::bad_alloc();
  return string;
}

}  // namespace td
