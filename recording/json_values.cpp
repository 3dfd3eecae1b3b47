#include "recording/json_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include "text_encoding/base64.h"

namespace td::recording {
namespace {

Bytes BytesOf(const std::string& base64, const std::string& where) {
  auto bytes = DecodeBase64(base64);
  if (!bytes) throw ScenarioError(where + ": no base64 text");
  return *std::move(bytes);
}

bool IsWhole(double number) {
  constexpr double kExactUpTo = 9007199254740992.0;
  return std::trunc(number) == number && std::abs(number) <= kExactUpTo;
}

}  // namespace

Json ToJson(double number) {
  if (IsWhole(number)) {
    return static_cast<std::int64_t>(number);
  }
  return number;
}

Json ToJson(float number) {
  if (!std::isfinite(number) || IsWhole(number)) {
    return ToJson(static_cast<double>(number));
  }
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  double nearest = 0;
  std::from_chars(digits.data(), end, nearest);
  return nearest;
}

Json ToJson(const Value& value) {
  struct Visitor {
    Json operator()(Null) const { return nullptr; }
    Json operator()(bool flag) const { return flag; }
    Json operator()(std::int64_t number) const { return number; }
    Json operator()(double number) const { return ToJson(number); }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(Date date) const { return ToJson(date.serial); }
    Json operator()(const Bytes& bytes) const {
      return Json::object({{"base64", EncodeBase64(bytes)}});
    }
  };
  return std::visit(Visitor{}, value);
}

Value ToValue(const Json& json, const std::string& where) {
  switch (json.type()) {
    case Json::value_t::null:
      return Null{};
    case Json::value_t::boolean:
      return std::int64_t{json.get<bool>() ? 1 : 0};
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      if (json.get<std::uint64_t>() > static_cast<std::uint64_t>(INT64_MAX)) {
        return json.get<double>();
      }
      return json.get<std::int64_t>();
    case Json::value_t::number_float:
      return json.get<double>();
    case Json::value_t::string:
      return json.get<std::string>();
    case Json::value_t::object:
      if (json.contains("base64") && json["base64"].is_string()) {
        return BytesOf(json["base64"].get<std::string>(), where);
      }
      break;
    default:
      break;
  }
  throw ScenarioError(where + ": no value (null, number, text, flag or {\"base64\":\"…\"})");
}

}  // namespace td::recording
